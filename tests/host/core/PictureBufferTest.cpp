// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Picture buffers: layout of the record, memory, copies, exchange of colour channels.
#include "CoreFixtures.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <cstring>
#include <numeric>

namespace {

using namespace vistrel::test;
using enum ExImageDataType;

std::ptrdiff_t offsetIn(const SxPicBuf& record, const void* field)
{
    return static_cast<const char*>(field) - reinterpret_cast<const char*>(&record);
}

TEST(PictureBuffer, FieldsLieWhereTheBinaryInterfaceHasThem)
{
    const SxPicBuf record;
    EXPECT_EQ(offsetIn(record, &record.width), 0);
    EXPECT_EQ(offsetIn(record, &record.isRgb), 36);
    EXPECT_EQ(offsetIn(record, &record.data), 40);
    EXPECT_EQ(sizeof record.data, 8U);
    EXPECT_EQ(offsetIn(record, &record.acqFrameNumber), 64);
    EXPECT_EQ(offsetIn(record, &record.timestampUs), 72);
    EXPECT_EQ(offsetIn(record, &record.frameNumber), 80);
    EXPECT_EQ(offsetIn(record, &record.saturation), 84);
    EXPECT_EQ(sizeof record, 88U);
}

TEST(PictureBuffer, IsEmptyWhenMade)
{
    const SxPicBuf record;
    EXPECT_EQ(record.data, nullptr);
    EXPECT_EQ(record.dataSize(), 0U);
    EXPECT_EQ(record.width + record.height + record.stride + record.channels + record.bpc, 0U);
    EXPECT_EQ(record.dataType, None);
    EXPECT_FALSE(record.isRgb);
}

TEST(PictureBuffer, BytesOfAPixelAreChannelsTimesElementSize)
{
    const std::array sizes{1U, 1U, 1U, 2U, 2U, 4U, 4U, 8U, 8U, 4U, 8U};
    SxPicBufInfo info;
    for (std::size_t type = 0; type < sizes.size(); ++type) {
        info.dataType = static_cast<ExImageDataType>(type);
        for (info.channels = 1; info.channels <= 4; ++info.channels)
            EXPECT_EQ(info.bytesPerPixel(), info.channels * sizes[type]) << type;
    }
    info.dataType = static_cast<ExImageDataType>(12);
    info.channels = 3;
    EXPECT_EQ(info.bytesPerPixel(), 3U);
}

TEST(PictureBuffer, APackedPixelHasTwoBytesHoweverManyChannels)
{
    SxPicBufInfo info;
    info.dataType = Packed565;
    for (info.channels = 1; info.channels <= 4; ++info.channels)
        EXPECT_EQ(info.bytesPerPixel(), 2U);
}

TEST(PictureBuffer, AllocationFillsTheWholeRecord)
{
    SxPicBuf buffer;
    buffer.timestampUs = 5;
    CxPicBufAPI::AllocPicBufFromHeap(buffer, 5, 3, 3, UInt16, 7, 0, 12,
                                     ExDataStorageFormat::Interleaved, ExColorFilterArray::BGGR,
                                     true, true, 0);
    ASSERT_NE(buffer.data, nullptr);
    EXPECT_EQ(buffer.width, 5U);
    EXPECT_EQ(buffer.height, 3U);
    EXPECT_EQ(buffer.stride, 32U);
    EXPECT_EQ(buffer.channels, 3U);
    EXPECT_EQ(buffer.bpc, 12U);
    EXPECT_EQ(buffer.blackLevel, 7U);
    EXPECT_EQ(buffer.dataType, UInt16);
    EXPECT_EQ(buffer.storageFormat, ExDataStorageFormat::Interleaved);
    EXPECT_EQ(buffer.colorFilterArray, ExColorFilterArray::BGGR);
    EXPECT_TRUE(buffer.isRgb);
    EXPECT_EQ(buffer.dataSize(), 96U);
    EXPECT_EQ(buffer.allocatedBytes, 96U);
    EXPECT_EQ(buffer.timestampUs, 0);
    CxPicBufAPI::FreePicBuf(buffer, true);
}

TEST(PictureBuffer, NewMemoryIsClearedWhenAskedFor)
{
    SxPicBufInfo info;
    info.width = info.height = 300;
    info.channels = 1;
    for (int round = 0; round < 3; ++round) {
        SxPicBuf buffer;
        CxPicBufAPI::AllocPicBufFromHeap(buffer, info, true, 0);
        ASSERT_NE(buffer.data, nullptr);
        forEachValue<quint8>(buffer, [](quint8& value) {
            ASSERT_EQ(value, 0);
            value = 0xFF;
        });
        CxPicBufAPI::FreePicBuf(buffer, false);
    }
}

TEST(PictureBuffer, BetweenTheLinesMemoryIsAlwaysCleared)
{
    const UsedPictureMemory used;
    SxPicBufInfo info;
    info.width = 5;
    info.height = 3;
    info.stride = 12;
    info.channels = 1;
    SxPicBuf buffer;
    CxPicBufAPI::AllocPicBufFromHeap(buffer, info, false, 0);
    const QByteArray line = QByteArray(5, char(used.usedByte)) + QByteArray(7, '\0');
    EXPECT_EQ(QByteArray(reinterpret_cast<const char*>(buffer.data), 36), line.repeated(3));
    CxPicBufAPI::FreePicBuf(buffer, true);
}

TEST(PictureBuffer, HasRoomForArraysThatTakeEightBytesForAValueOfNoType)
{
    static std::size_t asked = 0;
    const PictureMemory counted([](std::size_t bytes, std::size_t, bool) -> void* {
        asked = bytes;
        return std::calloc(1, bytes);
    });
    SxPicBuf buffer;
    CxPicBufAPI::AllocPicBufFromHeap(buffer, {.width = 5, .height = 3, .channels = 1}, true, 0);
    EXPECT_EQ(buffer.dataSize(), 3U * 8U);
    EXPECT_EQ(asked, buffer.dataSize() + 7);
    CxPicBufAPI::FreePicBuf(buffer, true);
}

TEST(PictureBuffer, AGivenStrideIsTakenWhenItHoldsALine)
{
    for (const auto& [given, taken] : {std::pair{40U, 40U}, {31U, 31U}, {30U, 30U}, {29U, 32U}}) {
        SxPicBuf buffer = newBuffer({.width = 10, .height = 2, .channels = 3, .stride = given});
        EXPECT_EQ(buffer.stride, taken);
        EXPECT_EQ(buffer.dataSize(), taken * 2U);
        CxPicBufAPI::FreePicBuf(buffer, true);
    }
}

TEST(PictureBuffer, ARecordMayDescribeItsOwnSuccessor)
{
    SxPicBuf buffer;
    buffer.width = 4;
    buffer.height = 4;
    buffer.channels = 1;
    CxPicBufAPI::AllocPicBufFromHeap(buffer, buffer, false, 0);
    EXPECT_NE(buffer.data, nullptr);
    EXPECT_EQ(buffer.width, 4U);
    CxPicBufAPI::FreePicBuf(buffer, true);
}

TEST(PictureBuffer, TheFirstLineIsAlignedAsAskedFor)
{
    SxPicBufInfo info;
    info.width = info.height = 33;
    info.channels = 1;
    for (unsigned long alignment = 1; alignment <= 4096; alignment *= 2) {
        SxPicBuf buffer;
        CxPicBufAPI::AllocPicBufFromHeap(buffer, info, true, alignment);
        ASSERT_NE(buffer.data, nullptr);
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(buffer.data) % alignment, 0U);
        EXPECT_EQ(valuesIn<quint8>(buffer), std::vector<quint8>(std::size_t{33} * 33, 0));
        CxPicBufAPI::FreePicBuf(buffer, true);
    }
    SxPicBuf refused;
    CxPicBufAPI::AllocPicBufFromHeap(refused, info, true, 24);
    EXPECT_EQ(refused.data, nullptr);
}

TEST(PictureBuffer, ASizeOfZeroLeavesNoMemory)
{
    EXPECT_EQ(newBuffer({.width = 0}).data, nullptr);
    EXPECT_EQ(newBuffer({.height = 0}).data, nullptr);
    EXPECT_EQ(newBuffer({.channels = 0}).data, nullptr);
}

TEST(PictureBuffer, AllocationOfAHugeSizeLeavesNoMemory)
{
    constexpr unsigned most = 0xFFFFFFFF;
    for (const Layout& layout :
         {Layout{.width = most, .height = most},
          Layout{.width = most, .height = most, .channels = 4, .type = Double},
          Layout{.width = 0x20000001, .height = 1, .type = Double},
          Layout{.width = 1, .height = 1, .channels = 0x20000001, .type = Double},
          Layout{.width = 1, .height = most, .channels = most},
          Layout{.width = 2, .height = most, .stride = most}}) {
        const SxPicBuf buffer = newBuffer(layout);
        EXPECT_EQ(buffer.data, nullptr);
        EXPECT_EQ(buffer.dataSize(), 0U);
        EXPECT_EQ(buffer.allocatedBytes, 0U);
    }
}

TEST(PictureBuffer, WithoutMemoryThePointerStaysNull)
{
    const NoPictureMemory none;
    SxPicBuf buffer = newBuffer({.width = 8, .height = 8});
    EXPECT_EQ(buffer.data, nullptr);
    EXPECT_EQ(buffer.allocation, nullptr);
    CxPicBufAPI::FreePicBuf(buffer, true);
}

TEST(PictureBuffer, FreeingKeepsTheGeometryUnlessToldToResetIt)
{
    SxPicBuf buffer = newBuffer({.width = 8, .height = 8});
    CxPicBufAPI::FreePicBuf(buffer, false);
    EXPECT_EQ(buffer.data, nullptr);
    EXPECT_EQ(buffer.width, 8U);
    CxPicBufAPI::FreePicBuf(buffer, true);
    EXPECT_EQ(buffer.width, 0U);
}

TEST(PictureBuffer, FreeingLeavesForeignMemoryAlone)
{
    std::array<quint8, 4> foreign{1, 2, 3, 4};
    SxPicBuf buffer;
    buffer.data = foreign.data();
    CxPicBufAPI::FreePicBuf(buffer, true);
    EXPECT_EQ(buffer.data, nullptr);
    EXPECT_EQ(foreign[3], 4);
}

TEST(PictureBuffer, CopyGoesBetweenStridesAndKeepsThePadding)
{
    SxPicBuf source = newBuffer({.width = 5, .height = 3, .type = UInt16, .bpc = 16});
    SxPicBuf target = newBuffer({.width = 5, .height = 3, .type = UInt16, .bpc = 16, .stride = 20});
    fill<quint16>(source, {1, 2, 300, 40000, 5, 6, 7});
    std::memset(target.data, 0xAB, target.dataSize());
    EXPECT_TRUE(CxPicBufAPI::CopyPicBuf(target, source, false));
    EXPECT_EQ(valuesIn<quint16>(target), valuesIn<quint16>(source));
    EXPECT_EQ(target.data[10], 0xAB);
    CxPicBufAPI::FreePicBuf(source, true);
    CxPicBufAPI::FreePicBuf(target, true);
}

TEST(PictureBuffer, CopyTakesTheFramesMetadataAlongWhenAsked)
{
    SxPicBuf source = newBuffer({.width = 5, .height = 3});
    SxPicBuf target = newBuffer({.width = 5, .height = 3});
    source.acqFrameNumber = 1;
    source.timestampUs = 2'000'000'000'000;
    source.frameNumber = 3;
    source.saturation = 4.0F;
    EXPECT_TRUE(CxPicBufAPI::CopyPicBuf(target, source, false));
    EXPECT_EQ(target.timestampUs, 0);
    EXPECT_TRUE(CxPicBufAPI::CopyPicBuf(target, source, true));
    EXPECT_EQ(target.acqFrameNumber, 1);
    EXPECT_EQ(target.timestampUs, 2'000'000'000'000);
    EXPECT_EQ(target.frameNumber, 3);
    EXPECT_EQ(target.saturation, 4.0F);
    CxPicBufAPI::FreePicBuf(source, true);
    CxPicBufAPI::FreePicBuf(target, true);
}

TEST(PictureBuffer, CopyRefusesWhatDoesNotFitAndChangesNothing)
{
    SxPicBuf source = newBuffer({.width = 4, .height = 4, .channels = 2});
    fill<quint8>(source, {9});
    for (const Layout& layout : {Layout{.width = 5, .height = 4, .channels = 2},
                                 Layout{.width = 4, .height = 3, .channels = 2},
                                 Layout{.width = 4, .height = 4, .channels = 1},
                                 Layout{.width = 4, .height = 4, .channels = 2, .type = Int8}}) {
        SxPicBuf target = newBuffer(layout);
        EXPECT_FALSE(CxPicBufAPI::CopyPicBuf(target, source, true));
        EXPECT_EQ(target.data[0], 0);
        CxPicBufAPI::FreePicBuf(target, true);
    }
    SxPicBuf empty;
    EXPECT_FALSE(CxPicBufAPI::CopyPicBuf(empty, source, true));
    EXPECT_FALSE(CxPicBufAPI::CopyPicBuf(source, empty, true));
    CxPicBufAPI::FreePicBuf(source, true);
}

TEST(PictureBuffer, CopyTakesAPackedPixelForOneWhateverChannelsItsRecordNames)
{
    SxPicBuf source = newBuffer({.width = 3, .height = 2, .channels = 3, .type = Packed565});
    SxPicBuf target = newBuffer({.width = 3, .height = 2, .channels = 1, .type = Packed565});
    const std::vector<quint16> words{1, 22, 333, 4444, 55555, 6};
    fill<quint16>(source, words);
    EXPECT_TRUE(CxPicBufAPI::CopyPicBuf(target, source, false));
    EXPECT_EQ(valuesIn<quint16>(target), words);
    fill<quint16>(target, {0});
    EXPECT_TRUE(CxPicBufAPI::ConvertPicToDifBpc(source, target, true));
    EXPECT_EQ(valuesIn<quint16>(target), words);
    CxPicBufAPI::FreePicBuf(source, true);
    CxPicBufAPI::FreePicBuf(target, true);
}

TEST(PictureBuffer, CopyRefusesARecordThatHoldsNoWholeLine)
{
    SxPicBuf source = newBuffer({.width = 4, .height = 4, .channels = 2});
    SxPicBuf target = newBuffer({.width = 4, .height = 4, .channels = 2});
    fill<quint8>(source, {9});
    const auto copies = [&](quint32 height, quint32 stride) {
        SxPicBuf from = source; // records of their own over the same pixels
        SxPicBuf to = target;
        from.height = to.height = height;
        from.stride = to.stride = stride;
        return CxPicBufAPI::CopyPicBuf(to, from, true);
    };
    EXPECT_FALSE(copies(0, 8));
    EXPECT_FALSE(copies(4, 7));
    EXPECT_EQ(target.data[0], 0);
    EXPECT_TRUE(copies(4, 8));
    CxPicBufAPI::FreePicBuf(source, true);
    CxPicBufAPI::FreePicBuf(target, true);
}

template<typename Element>
void expectSwapped(ExImageDataType type, unsigned channels)
{
    SxPicBuf buffer = newBuffer({.width = 7, .height = 3, .channels = channels, .type = type});
    const std::vector<Element> pixel{Element{11}, Element{22}, Element{33}, Element{44}};
    fill<Element>(buffer, {pixel.begin(), pixel.begin() + channels});
    ASSERT_TRUE(CxPicBufAPI::SwapRedAndBlue(buffer));
    EXPECT_TRUE(buffer.isRgb);
    const std::vector<Element> values = valuesIn<Element>(buffer);
    for (std::size_t i = 0; i < values.size(); ++i) {
        const std::size_t channel = i % channels;
        ASSERT_EQ(values[i], pixel[channel == 0 ? 2 : channel == 2 ? 0 : channel]);
    }
    ASSERT_TRUE(CxPicBufAPI::SwapRedAndBlue(buffer));
    EXPECT_FALSE(buffer.isRgb);
    CxPicBufAPI::FreePicBuf(buffer, true);
}

TEST(PictureBuffer, RedAndBlueChangePlacesInEveryElementSize)
{
    for (const unsigned channels : {3U, 4U}) {
        expectSwapped<quint8>(UInt8, channels);
        expectSwapped<quint16>(UInt16, channels);
        expectSwapped<qint32>(Int32, channels);
        expectSwapped<quint64>(UInt64, channels);
        expectSwapped<float>(Float, channels);
        expectSwapped<double>(Double, channels);
    }
}

TEST(PictureBuffer, RedAndBlueChangePlacesOnLinesOfAnyLengthAndNothingElseDoes)
{
    for (const unsigned channels : {3U, 4U, 5U}) {
        for (unsigned width = 1; width < 100; ++width) {
            const unsigned stride = width * channels + width % 3;
            SxPicBuf buffer =
                newBuffer({.width = width, .height = 2, .channels = channels, .stride = stride});
            std::vector<quint8> expected(std::size_t{stride} * 2);
            std::iota(expected.begin(), expected.end(), quint8{0});
            std::copy(expected.begin(), expected.end(), buffer.data);
            for (std::size_t y = 0; y < 2; ++y)
                for (std::size_t x = 0; x < width; ++x)
                    std::swap(expected[y * stride + x * channels],
                              expected[y * stride + x * channels + 2]);
            ASSERT_TRUE(CxPicBufAPI::SwapRedAndBlue(buffer));
            ASSERT_EQ(std::vector<quint8>(buffer.data, buffer.data + expected.size()), expected)
                << width << " of " << channels;
            CxPicBufAPI::FreePicBuf(buffer, true);
        }
    }
}

TEST(PictureBuffer, RedAndBlueChangePlacesOnOddAddressesToo)
{
    SxPicBuf buffer =
        newBuffer({.width = 1, .height = 2, .channels = 3, .type = UInt16, .stride = 7});
    fill<quint16>(buffer, {100, 200, 300});
    ASSERT_TRUE(CxPicBufAPI::SwapRedAndBlue(buffer));
    EXPECT_EQ(valuesIn<quint16>(buffer), (std::vector<quint16>{300, 200, 100, 300, 200, 100}));
    CxPicBufAPI::FreePicBuf(buffer, true);
}

TEST(PictureBuffer, SwapRefusesFewChannelsPackedPixelsAndNoPixels)
{
    for (const Layout& layout :
         {Layout{.width = 2, .height = 2, .channels = 1},
          Layout{.width = 2, .height = 2, .channels = 2},
          Layout{.width = 2, .height = 2, .channels = 3, .type = Packed565}}) {
        SxPicBuf buffer = newBuffer(layout);
        buffer.data[0] = 1;
        EXPECT_FALSE(CxPicBufAPI::SwapRedAndBlue(buffer));
        EXPECT_FALSE(buffer.isRgb);
        EXPECT_EQ(buffer.data[0], 1);
        CxPicBufAPI::FreePicBuf(buffer, true);
    }
    SxPicBuf empty;
    empty.channels = 3;
    EXPECT_FALSE(CxPicBufAPI::SwapRedAndBlue(empty));
}

TEST(PictureBuffer, SwapRefusesARecordThatHoldsNoWholeLine)
{
    SxPicBuf buffer = newBuffer({.width = 2, .height = 2, .channels = 3});
    fill<quint8>(buffer, {1, 2, 3});
    SxPicBuf wrong = buffer; // a record of its own over the same pixels
    wrong.stride = 5;
    EXPECT_FALSE(CxPicBufAPI::SwapRedAndBlue(wrong));
    EXPECT_FALSE(wrong.isRgb);
    EXPECT_EQ(buffer.data[0], 1);
    CxPicBufAPI::FreePicBuf(buffer, true);
}

} // namespace
