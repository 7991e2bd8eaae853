// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Copying foreign pixels: how far a source reaches, memory that cannot be read, huge arrays.
#include "FuncImage/ArrayPixels.h"
#include "FuncImage/ReadableMemory.h"

#include <gtest/gtest.h>

#include <sys/mman.h>

#include <algorithm>
#include <limits>
#include <vector>

namespace {

constexpr qint64 lowest = std::numeric_limits<qint32>::min();
constexpr qint64 highest = std::numeric_limits<qint32>::max();

ArraySource bytes(qint64 width, qint64 height, const quint8* data = nullptr)
{
    ArraySource source;
    source.width = width;
    source.height = height;
    source.dataType = ExImageDataType::UInt8;
    source.data = data;
    source.setContiguousSteps();
    return source;
}

ArraySource stepped(qint64 width, qint64 height, qint64 pixelStep, qint64 lineStep)
{
    ArraySource source = bytes(width, height);
    source.pixelStep = pixelStep;
    source.lineStep = lineStep;
    return source;
}

void expectReach(const ArraySource& source, qint64 first, qint64 last)
{
    const array_pixels::Reach reach = array_pixels::reachOf(source);
    EXPECT_EQ(reach.first, first);
    EXPECT_EQ(reach.last, last);
}

/// Pages of which the second half can neither be read nor written.
class HalfReadable {
public:
    HalfReadable()
        : begin(static_cast<quint8*>(mmap(nullptr, 2 * size, PROT_READ | PROT_WRITE,
                                          MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0)))
    {
        EXPECT_EQ(mprotect(begin + size, size, PROT_NONE), 0);
    }
    ~HalfReadable() { munmap(begin, 2 * size); }
    HalfReadable(const HalfReadable&) = delete;
    HalfReadable& operator=(const HalfReadable&) = delete;

    quintptr address() const { return reinterpret_cast<quintptr>(begin); }

    static constexpr std::size_t size = std::size_t{4} << 20;
    quint8* const begin;
};

TEST(ReachOfAnArray, OfElementsSideBySideIsTheirSize)
{
    expectReach(bytes(7, 5), 0, 35);
    expectReach(bytes(65536, 65536), 0, qint64{1} << 32);
}

TEST(ReachOfAnArray, FollowsStepsToBothSides)
{
    expectReach(stepped(3, 2, 1, 10), 0, 13);
    expectReach(stepped(3, 2, -1, -10), -12, 1);
    expectReach(stepped(3, 2, -1, 10), -2, 11);
    expectReach(stepped(1, 1, 99, -99), 0, 1);
}

TEST(ReachOfAnArray, TakesTheLower32BitsOfAStep)
{
    expectReach(stepped(3, 2, (qint64{1} << 32) + 1, (qint64{1} << 32) - 10), -10, 3);
}

TEST(ReachOfAnArray, IsAllThatAnOffsetReachesOnceItWrapsAround)
{
    expectReach(stepped(3, 2, 1, highest), lowest, highest + 1);
    expectReach(stepped(highest, highest, highest, highest), lowest, highest + 1);
    expectReach(stepped(highest, highest, lowest, lowest), lowest, highest + 1);
    expectReach(stepped(highest, 2, -2, 1), lowest, highest + 1);
}

TEST(ReadableMemory, IsFoundToItsLastByteAndNotBeyond)
{
    const HalfReadable pages;
    EXPECT_TRUE(readable_memory::isReadable(pages.address(), pages.size));
    EXPECT_TRUE(readable_memory::hasReadableEnds(pages.address(), pages.size));
    EXPECT_TRUE(readable_memory::isReadable(pages.address() + pages.size - 1, 1));
    EXPECT_FALSE(readable_memory::isReadable(pages.address(), pages.size + 1));
    EXPECT_FALSE(readable_memory::hasReadableEnds(pages.address() + pages.size - 1, 2));
    EXPECT_FALSE(readable_memory::isReadable(0, 1));
    EXPECT_FALSE(readable_memory::isReadable(std::numeric_limits<quintptr>::max(), 1));
    EXPECT_FALSE(readable_memory::isReadable(std::numeric_limits<quintptr>::max(), 2));
}

TEST(ReadableMemory, IsSearchedPageByPage)
{
    const HalfReadable pages;
    for (const std::size_t hole : {std::size_t{4096}, pages.size / 2, pages.size - 8192}) {
        ASSERT_EQ(mprotect(pages.begin + hole, 4096, PROT_NONE), 0);
        EXPECT_FALSE(readable_memory::isReadable(pages.address() + 5, pages.size - 5)) << hole;
        EXPECT_TRUE(readable_memory::hasReadableEnds(pages.address() + 5, pages.size - 5));
        EXPECT_TRUE(readable_memory::isReadable(pages.address(), hole));
        ASSERT_EQ(mprotect(pages.begin + hole, 4096, PROT_READ), 0);
    }
}

TEST(CopyingAnArray, CopiesNothingThatItCannotRead)
{
    const HalfReadable pages;
    std::vector<quint8> values(64, 7);
    SxPicBuf target;
    target.stride = 8;
    target.data = values.data();
    EXPECT_FALSE(array_pixels::copy(bytes(8, 8, pages.begin + pages.size - 63), target));
    ArraySource tall = stepped(8, 8, qint64{pages.size} / 7, 1);
    tall.data = pages.begin;
    EXPECT_FALSE(array_pixels::copy(tall, target));
    EXPECT_EQ(std::count(values.begin(), values.end(), 7), 64);
    EXPECT_TRUE(array_pixels::copy(bytes(8, 8, pages.begin + pages.size - 64), target));
    EXPECT_EQ(std::count(values.begin(), values.end(), 0), 64);
}

TEST(CopyingAnArray, ReachesTheLastLineOfMoreThan2GiB)
{
    constexpr qint64 width = qint64{1} << 20;
    constexpr qint64 height = 2100;
    // Costs next to no memory: what has not been written to is one page of zeros.
    auto* const memory =
        static_cast<quint8*>(mmap(nullptr, width * height, PROT_READ | PROT_WRITE,
                                  MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0));
    ASSERT_NE(memory, MAP_FAILED);
    madvise(memory, width * height, MADV_HUGEPAGE); // fewer faults
    std::fill_n(memory + width * (height - 1), width, quint8{5});
    std::vector<quint8> line(width);
    SxPicBuf target; // without a stride: each line goes over the one before
    target.data = line.data();
    EXPECT_TRUE(array_pixels::copy(bytes(width, height, memory), target));
    EXPECT_EQ(std::count(line.begin(), line.end(), 5), width);
    munmap(memory, width * height);
}

} // namespace
