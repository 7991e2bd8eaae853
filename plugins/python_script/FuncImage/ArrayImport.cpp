// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Pictures made from foreign pixel memory.
#include "FuncImage/ArrayImport.h"

#include "FuncImage/ImageMessages.h"
#include "Logging.h"

#include <CxImageData.h>
#include <CxPicBufAPI.h>

#include <limits>

namespace {

constexpr qint64 largestSize = std::numeric_limits<int>::max();

bool isSize(qint64 number) { return number > 0 && number <= largestSize; }

/// The geometry to allocate; all zero when a size is none that a picture can have.
SxPicBufInfo infoOf(const ArraySource& source)
{
    SxPicBufInfo info;
    if (!isSize(source.width) || !isSize(source.height) || !isSize(source.channels))
        return info;
    info.width = static_cast<quint32>(source.width);
    info.height = static_cast<quint32>(source.height);
    info.channels = static_cast<quint32>(source.channels);
    info.bpc = source.elementSize * 8;
    info.dataType = source.dataType;
    info.storageFormat = ExDataStorageFormat::Interleaved;
    info.isRgb = array_import::isRgbByLayout(info);
    return info;
}

void logFailedAllocation(const ArraySource& s)
{
    const auto text = [](qint64 number) { return QString::number(number); };
    logCritical(QStringLiteral("ArrInt = cannot allocate image with dimensions: w%1 h%2 c%3 ystr%4 "
                               "xstr%5 cstr%6 bpc%7")
                    .arg(text(s.width), text(s.height), text(s.channels), text(s.lineStep),
                         text(s.pixelStep), text(s.channelStep), text(qint64{s.elementSize} * 8)));
}

/// A type with its significant bits.
struct Narrowing {
    ExImageDataType type;
    quint32 bpc;
};

using enum ExImageDataType;

bool isUnsignedWide(ExImageDataType type)
{
    return type == UInt16 || type == UInt32 || type == UInt64;
}

bool isSigned(ExImageDataType type)
{
    return type == Int8 || type == Int16 || type == Int32 || type == Int64;
}

unsigned detectedBits(SxPicBuf& source)
{
    return CxPicBufAPI::DetectColorBitDepth(source, source.bpc, true);
}

Narrowing unsignedNarrowing(SxPicBuf& source)
{
    const ExImageDataType type = source.dataType;
    const unsigned bits = detectedBits(source);
    if (bits == 8)
        return {UInt8, bits};
    if (bits <= 16 && (type == UInt32 || type == UInt64))
        return {UInt16, bits};
    if (bits >= 17 && bits <= 32 && type == UInt64)
        return {UInt32, bits};
    return {type, bits};
}

Narrowing negativeNarrowing(SxPicBuf& source)
{
    const ExImageDataType type = source.dataType;
    if (type == Int8)
        return {type, source.bpc};
    const unsigned bits = detectedBits(source);
    if (bits == 8)
        return {Int8, bits};
    if (bits <= 16 && (type == Int32 || type == Int64))
        return {Int16, bits};
    if (bits >= 17 && bits <= 32 && type == Int64)
        return {Int32, bits};
    return {type, bits};
}

ExImageDataType unsignedOfSameWidth(ExImageDataType type)
{
    switch (type) {
    case Int8:
        return UInt8;
    case Int16:
        return UInt16;
    case Int32:
        return UInt32;
    default:
        return UInt64;
    }
}

Narrowing positiveNarrowing(const SxPicBuf& source)
{
    const quint64 largest = CxPicBufAPI::DetectMaxAbsValue(source);
    // 256 does not fit into 8 bits, but the bound has always been this one.
    if (largest <= 256)
        return {UInt8, 8};
    quint32 bits = 8;
    while (bits < 64 && (quint64{1} << bits) < largest)
        bits += 2;
    ExImageDataType type = unsignedOfSameWidth(source.dataType);
    if (bits <= 16 && (type == UInt32 || type == UInt64))
        type = UInt16;
    else if (bits >= 17 && bits <= 32 && type == UInt64)
        type = UInt32;
    return {type, bits};
}

Narrowing narrowingOf(SxPicBuf& source)
{
    if (isUnsignedWide(source.dataType))
        return unsignedNarrowing(source);
    if (isSigned(source.dataType)) {
        return CxPicBufAPI::DetectNegativePixelValue(source) ? negativeNarrowing(source)
                                                             : positiveNarrowing(source);
    }
    // Doubles become floats; their number of bits is the size of a float in bytes, an old habit.
    if (source.dataType == Double)
        return {Float, 4};
    return {source.dataType, source.bpc};
}

} // namespace

bool fx_img_convertToBestBpc(SxPicBuf& target, SxPicBuf& source)
{
    const Narrowing best = narrowingOf(source);
    if (best.type == source.dataType)
        return false;
    SxPicBufInfo info = source;
    info.dataType = best.type;
    info.bpc = best.bpc;
    info.stride = 0;
    CxPicBufAPI::AllocPicBufFromHeap(target, info, false, 0);
    if (target.data == nullptr)
        return false;
    if (!CxPicBufAPI::ConvertPicToDifBpc(source, target, false)) {
        CxPicBufAPI::FreePicBuf(target, true);
        return false;
    }
    target.isRgb = array_import::isRgbByLayout(target);
    return true;
}

namespace array_import {

bool isRgbByLayout(const SxPicBufInfo& info)
{
    return info.channels == 3 && (info.dataType == UInt8 || info.dataType == UInt16);
}

image_copies::NewImage imported(const ArraySource& source)
{
    SxPicBuf buffer;
    CxPicBufAPI::AllocPicBufFromHeap(buffer, infoOf(source), true, 0);
    if (buffer.data == nullptr) {
        logFailedAllocation(source);
        return Refusal{image_messages::cannotAllocate};
    }
    if (!array_pixels::copy(source, buffer)) {
        CxPicBufAPI::FreePicBuf(buffer, true);
        return Refusal{array_pixels::outsideMemory};
    }
    return narrowedImage(buffer);
}

std::unique_ptr<CxImageData> narrowedImage(SxPicBuf& buffer)
{
    SxPicBuf narrowed;
    if (!fx_img_convertToBestBpc(narrowed, buffer))
        return image_copies::imageAround(buffer);
    CxPicBufAPI::FreePicBuf(buffer, true);
    return image_copies::imageAround(narrowed);
}

} // namespace array_import
