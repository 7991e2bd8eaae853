// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// New pictures that are derived from others.
#include "FuncImage/ImageConversions.h"

#include "FuncImage/ImageMessages.h"

#include <CxImageData.h>
#include <CxPicBufAPI.h>

#include <cstring>
#include <limits>

namespace image_conversions {

namespace {

constexpr char valuesOverMaxBpc[] = "new image contained values over max bpc";
constexpr quint32 largestSize = std::numeric_limits<int>::max();

void blacken(SxPicBuf& picture) { std::memset(picture.data, 0, picture.dataSize()); }

/// A picture of that geometry, filled by `operation`, which returns false to give it up. Its
/// pixels are whatever the memory held until they are written.
template<class Operation>
NewImage madeBy(SxPicBufInfo info, const char* refusal, Operation operation)
{
    // A negative size arrives as one above the largest: there is no memory for that.
    if (info.width > largestSize || info.height > largestSize)
        return Refusal{image_messages::outOfMemory};
    info.stride = 0;
    SxPicBuf target;
    CxPicBufAPI::AllocPicBufFromHeap(target, info, false, 0);
    if (target.data == nullptr)
        return Refusal{image_messages::outOfMemory};
    if (!operation(target)) {
        CxPicBufAPI::FreePicBuf(target, true);
        return Refusal{refusal};
    }
    return image_copies::imageAround(target);
}

/// The same for operations that refuse by a black picture.
template<class Operation>
NewImage madeBy(const SxPicBufInfo& info, Operation operation)
{
    return madeBy(info, nullptr, [&operation](SxPicBuf& target) {
        if (!operation(target))
            blacken(target);
        return true;
    });
}

bool isWithin(const SxPicBufInfo& picture, qint64 x, qint64 y, qint64 w, qint64 h)
{
    return x >= 0 && y >= 0 && w >= 0 && h >= 0 && x + w <= picture.width
           && y + h <= picture.height;
}

SxPicBufInfo withSize(const SxPicBufInfo& source, int width, int height)
{
    SxPicBufInfo info = source;
    info.width = static_cast<quint32>(width);
    info.height = static_cast<quint32>(height);
    return info;
}

} // namespace

NewImage toRgb(const SxPicBuf& source)
{
    SxPicBufInfo info;
    info.width = source.width;
    info.height = source.height;
    info.channels = 4;
    info.bpc = 8;
    info.dataType = ExImageDataType::UInt8;
    info.storageFormat = ExDataStorageFormat::Interleaved;
    info.isRgb = true;
    return madeBy(info,
                  [&](SxPicBuf& target) { return CxPicBufAPI::ConvertPicToRGB(source, target); });
}

NewImage channelOf(const SxPicBuf& source, int channel)
{
    if (channel < 0 || static_cast<quint32>(channel) >= source.channels)
        return Refusal{image_messages::channelOutOfRange};
    SxPicBufInfo info = source;
    info.channels = 1;
    info.isRgb = false;
    return madeBy(info, [&](SxPicBuf& target) {
        return CxPicBufAPI::ExtractChannel(source, target, static_cast<unsigned>(channel));
    });
}

NewImage withBpc(const SxPicBuf& source, int bpc, bool scale)
{
    const auto type = bpc > 0 ? image_copies::unsignedTypeFor(bpc) : std::nullopt;
    if (!type)
        return Refusal{image_messages::bitsOutOfRange};
    SxPicBufInfo info = source;
    info.dataType = *type;
    info.bpc = static_cast<quint32>(bpc);
    return madeBy(info, valuesOverMaxBpc, [&](SxPicBuf& target) {
        if (!CxPicBufAPI::ConvertPicToDifBpc(source, target, scale))
            blacken(target);
        return CxPicBufAPI::CheckPicValidData(target);
    });
}

NewImage cropped(const SxPicBuf& source, int x, int y, int w, int h)
{
    return madeBy(withSize(source, w, h), [&](SxPicBuf& target) {
        if (!isWithin(source, x, y, w, h)) // a part of the new picture is not written to
            blacken(target);
        return CxPicBufAPI::CopyRect(target, 0, 0, source, x, y, w, h);
    });
}

NewImage resized(const SxPicBuf& source, int newWidth, int newHeight, int x, int y, int w, int h)
{
    const int sourceW = w != 0 ? w : static_cast<int>(source.width);
    const int sourceH = h != 0 ? h : static_cast<int>(source.height);
    return madeBy(withSize(source, newWidth, newHeight), [&](SxPicBuf& target) {
        if (!isWithin(source, x, y, sourceW, sourceH))
            blacken(target);
        return CxPicBufAPI::ResizeRect(source, x, y, sourceW, sourceH, target, 0, 0, newWidth,
                                       newHeight);
    });
}

} // namespace image_conversions
