// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Turns what came over the wire into a picture buffer and an acquisition record.
#include "cameras/FrameConverter.h"

#include <CxPicBufAPI.h>

#include <algorithm>
#include <array>
#include <cstring>

namespace vistrel {

namespace {

struct PixelLayout {
    ArvPixelFormat format;
    quint32 channels;
    quint32 bpc;
    ExColorFilterArray colorFilter = ExColorFilterArray::None;
    bool isRgb = false;
};

// Raw formats of 14 bits are standard, but Aravis has no names for them.
constexpr ArvPixelFormat bayerGr14 = 0x01100109;
constexpr ArvPixelFormat bayerRg14 = 0x0110010A;
constexpr ArvPixelFormat bayerGb14 = 0x0110010B;
constexpr ArvPixelFormat bayerBg14 = 0x0110010C;

constexpr auto pixelLayouts = std::to_array<PixelLayout>({
    {ARV_PIXEL_FORMAT_MONO_8, 1, 8},
    {ARV_PIXEL_FORMAT_MONO_10, 1, 10},
    {ARV_PIXEL_FORMAT_MONO_12, 1, 12},
    {ARV_PIXEL_FORMAT_MONO_14, 1, 14},
    {ARV_PIXEL_FORMAT_MONO_16, 1, 16},
    {ARV_PIXEL_FORMAT_RGB_8_PACKED, 3, 8, ExColorFilterArray::None, true},
    {ARV_PIXEL_FORMAT_BGR_8_PACKED, 3, 8},
    {ARV_PIXEL_FORMAT_BAYER_RG_8, 1, 8, ExColorFilterArray::RGGB},
    {ARV_PIXEL_FORMAT_BAYER_GR_8, 1, 8, ExColorFilterArray::GRBG},
    {ARV_PIXEL_FORMAT_BAYER_GB_8, 1, 8, ExColorFilterArray::GBRG},
    {ARV_PIXEL_FORMAT_BAYER_BG_8, 1, 8, ExColorFilterArray::BGGR},
    {ARV_PIXEL_FORMAT_BAYER_RG_10, 1, 10, ExColorFilterArray::RGGB},
    {ARV_PIXEL_FORMAT_BAYER_GR_10, 1, 10, ExColorFilterArray::GRBG},
    {ARV_PIXEL_FORMAT_BAYER_GB_10, 1, 10, ExColorFilterArray::GBRG},
    {ARV_PIXEL_FORMAT_BAYER_BG_10, 1, 10, ExColorFilterArray::BGGR},
    {ARV_PIXEL_FORMAT_BAYER_RG_12, 1, 12, ExColorFilterArray::RGGB},
    {ARV_PIXEL_FORMAT_BAYER_GR_12, 1, 12, ExColorFilterArray::GRBG},
    {ARV_PIXEL_FORMAT_BAYER_GB_12, 1, 12, ExColorFilterArray::GBRG},
    {ARV_PIXEL_FORMAT_BAYER_BG_12, 1, 12, ExColorFilterArray::BGGR},
    {bayerRg14, 1, 14, ExColorFilterArray::RGGB},
    {bayerGr14, 1, 14, ExColorFilterArray::GRBG},
    {bayerGb14, 1, 14, ExColorFilterArray::GBRG},
    {bayerBg14, 1, 14, ExColorFilterArray::BGGR},
    {ARV_PIXEL_FORMAT_BAYER_RG_16, 1, 16, ExColorFilterArray::RGGB},
    {ARV_PIXEL_FORMAT_BAYER_GR_16, 1, 16, ExColorFilterArray::GRBG},
    {ARV_PIXEL_FORMAT_BAYER_GB_16, 1, 16, ExColorFilterArray::GBRG},
    {ARV_PIXEL_FORMAT_BAYER_BG_16, 1, 16, ExColorFilterArray::BGGR},
});

void copyLines(const RawFrame& frame, std::size_t lineBytes, const SxPicBuf& picture)
{
    const auto* from = static_cast<const quint8*>(frame.data);
    quint8* to = picture.data;
    for (quint32 line = 0; line < frame.height; ++line) {
        std::memcpy(to, from, lineBytes);
        from += lineBytes + frame.linePadding;
        to += picture.stride;
    }
}

// The last line may come without its padding.
bool holdsAllLines(const RawFrame& frame, std::size_t lineBytes)
{
    return frame.data && frame.height > 0
           && frame.size + frame.linePadding >= (lineBytes + frame.linePadding) * frame.height;
}

} // namespace

RawFrame rawFrame(ArvBuffer* buffer)
{
    RawFrame frame;
    int xPadding = 0;
    int yPadding = 0;
    arv_buffer_get_image_padding(buffer, &xPadding, &yPadding);
    frame.pixelFormat = arv_buffer_get_image_pixel_format(buffer);
    frame.width = static_cast<quint32>(std::max(0, arv_buffer_get_image_width(buffer)));
    frame.height = static_cast<quint32>(std::max(0, arv_buffer_get_image_height(buffer)));
    frame.linePadding = static_cast<std::size_t>(std::max(0, xPadding));
    frame.data = arv_buffer_get_image_data(buffer, &frame.size);
    return frame;
}

std::optional<SxPicBufInfo> pictureInfo(ArvPixelFormat format, quint32 width, quint32 height)
{
    const auto layout = std::find_if(pixelLayouts.begin(), pixelLayouts.end(),
                                     [format](const auto& l) { return l.format == format; });
    if (layout == pixelLayouts.end())
        return std::nullopt;
    SxPicBufInfo info;
    info.width = width;
    info.height = height;
    info.channels = layout->channels;
    info.bpc = layout->bpc;
    info.dataType = layout->bpc > 8 ? ExImageDataType::UInt16 : ExImageDataType::UInt8;
    info.storageFormat = ExDataStorageFormat::Interleaved;
    info.colorFilterArray = layout->colorFilter;
    info.isRgb = layout->isRgb;
    return info;
}

ConvertResult convertFrame(const RawFrame& frame, SxPicBuf& picture)
{
    const auto info = pictureInfo(frame.pixelFormat, frame.width, frame.height);
    if (!info)
        return ConvertResult::UnsupportedFormat;
    const std::size_t lineBytes = std::size_t{info->bytesPerPixel()} * frame.width;
    if (!holdsAllLines(frame, lineBytes))
        return ConvertResult::TooShort;
    CxPicBufAPI::AllocPicBufFromHeap(picture, *info, false, 0);
    if (!picture.data)
        return ConvertResult::NoMemory;
    copyLines(frame, lineBytes, picture);
    return ConvertResult::Done;
}

} // namespace vistrel
