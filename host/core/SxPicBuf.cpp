// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Sizes of picture buffers.
#include <SxPicBuf.h>

namespace {

quint32 elementSize(ExImageDataType dataType)
{
    switch (dataType) {
    case ExImageDataType::Int16:
    case ExImageDataType::UInt16:
    case ExImageDataType::Packed565:
        return 2;
    case ExImageDataType::Int32:
    case ExImageDataType::UInt32:
    case ExImageDataType::Float:
        return 4;
    case ExImageDataType::Int64:
    case ExImageDataType::UInt64:
    case ExImageDataType::Double:
        return 8;
    default: // bytes, and whatever has no known size
        return 1;
    }
}

} // namespace

quint32 SxPicBufInfo::bytesPerPixel() const
{
    // A packed word holds all colours of its pixel, however many channels the record names.
    const bool wholePixelInOneElement = dataType == ExImageDataType::Packed565;
    return (wholePixelInOneElement ? 1U : channels) * elementSize(dataType);
}

SxPicBuf::SxPicBuf() = default;

quint64 SxPicBuf::dataSize() const { return data != nullptr ? quint64{stride} * height : 0; }
