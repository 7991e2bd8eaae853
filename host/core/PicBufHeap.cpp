// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Picture buffers on the heap: allocate, free, copy, exchange colour channels.
#include "core/PicBufHeap.h"

#include "core/PicBufView.h"

#include <CxPicBufAPI.h>

#include <sys/mman.h>

#include <atomic>
#include <bit>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <optional>

namespace {

/// Lets the system back a large block by huge pages: it is filled several times as fast.
void* withHugePages(void* block, std::size_t bytes)
{
    constexpr std::size_t hugePage = std::size_t{2} << 20;
    const auto begin = reinterpret_cast<quintptr>(block);
    const quintptr first = (begin + hugePage - 1) / hugePage * hugePage;
    const quintptr last = (begin + bytes) / hugePage * hugePage;
    if (block != nullptr && first < last) // a hint: it does not matter when it is refused
        madvise(reinterpret_cast<void*>(first), last - first, MADV_HUGEPAGE);
    return block;
}

/// Clears by calloc, which gets large blocks from the system already zeroed: they cost nothing
/// until they are written to.
void* allocate(std::size_t bytes, std::size_t alignment, bool cleared)
{
    if (alignment <= alignof(std::max_align_t))
        return withHugePages(cleared ? std::calloc(1, bytes) : std::malloc(bytes), bytes);
    // aligned_alloc wants a multiple of the alignment.
    const std::size_t rounded = (bytes + alignment - 1) / alignment * alignment;
    void* const block = rounded >= bytes ? std::aligned_alloc(alignment, rounded) : nullptr;
    if (block != nullptr && cleared)
        std::memset(block, 0, bytes);
    return block;
}

std::atomic<vistrel::PicBufAllocator> currentAllocator{&allocate};

constexpr quint64 largestStride = std::numeric_limits<quint32>::max();
constexpr quint64 largestBlock = std::numeric_limits<std::ptrdiff_t>::max();

/// The array interface tells of 8 bytes a value for pictures of no type, whose values take one: who
/// reads or writes the last of them through an array goes that far beyond the picture.
constexpr quint64 bytesBehind(ExImageDataType type)
{
    return type == ExImageDataType::None ? 7 : 0;
}

/// Bytes of the pixels of a line. The factors are bounded first: the record's own product is one of
/// 32 bits and could wrap around.
std::optional<quint64> lineBytes(const SxPicBufInfo& info)
{
    if (info.width == 0 || info.height == 0 || info.channels == 0 || info.channels > 0xFFFF)
        return std::nullopt;
    return quint64{info.width} * info.bytesPerPixel();
}

/// The given stride when it holds a line, else the next multiple of 4; nothing when the record
/// cannot say it.
std::optional<quint32> strideFor(const SxPicBufInfo& info)
{
    const auto line = lineBytes(info);
    if (!line)
        return std::nullopt;
    if (info.stride >= *line)
        return info.stride;
    const quint64 rounded = (*line + 3) / 4 * 4;
    if (rounded > largestStride)
        return std::nullopt;
    return static_cast<quint32>(rounded);
}

/// What lies between the lines is nobody's to write, but leaves with a copy of all bytes.
void clearPadding(const SxPicBuf& buffer, std::size_t line)
{
    if (buffer.stride > line)
        for (std::size_t y = 0; y < buffer.height; ++y)
            std::memset(buffer.data + y * buffer.stride + line, 0, buffer.stride - line);
}

/// Bytes from the first to the last pixel: foreign memory may end there, short of a whole stride.
std::size_t usedBytes(const SxPicBuf& buffer, std::size_t line)
{
    return std::size_t{buffer.stride} * (buffer.height - 1) + line;
}

void copyLines(SxPicBuf& target, const SxPicBuf& source)
{
    const std::size_t line = std::size_t{source.width} * source.bytesPerPixel();
    if (target.stride == source.stride) {
        std::memcpy(target.data, source.data, usedBytes(source, line));
        return;
    }
    for (std::size_t y = 0; y < source.height; ++y)
        std::memcpy(target.data + y * target.stride, source.data + y * source.stride, line);
}

void copyFrameMetadata(SxPicBuf& target, const SxPicBuf& source)
{
    target.acqFrameNumber = source.acqFrameNumber;
    target.timestampUs = source.timestampUs;
    target.frameNumber = source.frameNumber;
    target.saturation = source.saturation; // it belongs to the values that were copied
}

} // namespace

vistrel::PicBufAllocator vistrel::setPicBufAllocator(PicBufAllocator allocator)
{
    return currentAllocator.exchange(allocator != nullptr ? allocator : &allocate);
}

void CxPicBufAPI::AllocPicBufFromHeap(SxPicBuf& buffer, unsigned width, unsigned height,
                                      unsigned channels, ExImageDataType dataType,
                                      unsigned blackLevel, unsigned stride, unsigned bpc,
                                      ExDataStorageFormat storageFormat,
                                      ExColorFilterArray colorFilterArray, bool isRgb, bool zeroed,
                                      unsigned long alignment)
{
    const SxPicBufInfo info{.width = width,
                            .height = height,
                            .stride = stride,
                            .channels = channels,
                            .bpc = bpc,
                            .blackLevel = blackLevel,
                            .dataType = dataType,
                            .storageFormat = storageFormat,
                            .colorFilterArray = colorFilterArray,
                            .isRgb = isRgb};
    AllocPicBufFromHeap(buffer, info, zeroed, alignment);
}

void CxPicBufAPI::AllocPicBufFromHeap(SxPicBuf& buffer, const SxPicBufInfo& info, bool zeroed,
                                      unsigned long alignment)
{
    const SxPicBufInfo geometry = info; // `info` may be the very record that is filled here
    buffer = SxPicBuf{};
    static_cast<SxPicBufInfo&>(buffer) = geometry;

    const auto stride = strideFor(geometry);
    if (!stride || (alignment != 0 && !std::has_single_bit(alignment)))
        return;
    const quint64 bytes = quint64{*stride} * geometry.height; // two 32-bit factors always fit
    if (bytes > largestBlock - bytesBehind(geometry.dataType))
        return;
    buffer.stride = *stride;
    const quint64 behind = bytesBehind(geometry.dataType);
    buffer.allocation = currentAllocator.load()(bytes + behind, alignment, zeroed);
    buffer.data = static_cast<quint8*>(buffer.allocation);
    buffer.allocatedBytes = buffer.allocation != nullptr ? bytes : 0;
    if (buffer.data != nullptr && !zeroed) {
        clearPadding(buffer, *lineBytes(geometry));
        std::memset(buffer.data + bytes, 0, behind);
    }
}

void CxPicBufAPI::FreePicBuf(SxPicBuf& buffer, bool resetInfo)
{
    std::free(buffer.allocation);
    buffer.data = nullptr;
    buffer.allocation = nullptr;
    buffer.allocatedBytes = 0;
    if (resetInfo)
        buffer = SxPicBuf{};
}

bool CxPicBufAPI::CopyPicBuf(SxPicBuf& target, const SxPicBuf& source, bool copyMetadata)
{
    if (!vistrel::hasPixels(target) || !vistrel::hasPixels(source)
        || !vistrel::haveSameSize(target, source) || !vistrel::haveSamePixels(target, source))
        return false;
    if (target.data != source.data)
        copyLines(target, source);
    if (copyMetadata)
        copyFrameMetadata(target, source);
    return true;
}
