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

/// How values of more than 8 bits lie in the bytes.
enum class Packing {
    None,     ///< in two bytes each
    LowFirst, ///< bit behind bit, the lowest first, across bytes; names that end with "p"
    Pairs, ///< two in three bytes, their low bits in the middle one; names that end with "Packed"
};

struct PixelLayout {
    ArvPixelFormat format;
    quint32 channels;
    quint32 bpc;
    ExColorFilterArray colorFilter = ExColorFilterArray::None;
    bool isRgb = false;
    Packing packing = Packing::None;
};

// Grey formats whose names end with "p" are standard, but Aravis has none for them.
constexpr ArvPixelFormat mono10p = 0x010A0046;
constexpr ArvPixelFormat mono12p = 0x010C0047;

constexpr PixelLayout packed(ArvPixelFormat format, quint32 bpc, Packing packing,
                             ExColorFilterArray colorFilter = ExColorFilterArray::None)
{
    return {format, 1, bpc, colorFilter, false, packing};
}

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
    packed(mono10p, 10, Packing::LowFirst),
    packed(mono12p, 12, Packing::LowFirst),
    packed(ARV_PIXEL_FORMAT_BAYER_RG_10P, 10, Packing::LowFirst, ExColorFilterArray::RGGB),
    packed(ARV_PIXEL_FORMAT_BAYER_GR_10P, 10, Packing::LowFirst, ExColorFilterArray::GRBG),
    packed(ARV_PIXEL_FORMAT_BAYER_GB_10P, 10, Packing::LowFirst, ExColorFilterArray::GBRG),
    packed(ARV_PIXEL_FORMAT_BAYER_BG_10P, 10, Packing::LowFirst, ExColorFilterArray::BGGR),
    packed(ARV_PIXEL_FORMAT_BAYER_RG_12P, 12, Packing::LowFirst, ExColorFilterArray::RGGB),
    packed(ARV_PIXEL_FORMAT_BAYER_GR_12P, 12, Packing::LowFirst, ExColorFilterArray::GRBG),
    packed(ARV_PIXEL_FORMAT_BAYER_GB_12P, 12, Packing::LowFirst, ExColorFilterArray::GBRG),
    packed(ARV_PIXEL_FORMAT_BAYER_BG_12P, 12, Packing::LowFirst, ExColorFilterArray::BGGR),
    packed(ARV_PIXEL_FORMAT_MONO_10_PACKED, 10, Packing::Pairs),
    packed(ARV_PIXEL_FORMAT_MONO_12_PACKED, 12, Packing::Pairs),
    packed(ARV_PIXEL_FORMAT_BAYER_RG_10_PACKED, 10, Packing::Pairs, ExColorFilterArray::RGGB),
    packed(ARV_PIXEL_FORMAT_BAYER_GR_10_PACKED, 10, Packing::Pairs, ExColorFilterArray::GRBG),
    packed(ARV_PIXEL_FORMAT_BAYER_GB_10_PACKED, 10, Packing::Pairs, ExColorFilterArray::GBRG),
    packed(ARV_PIXEL_FORMAT_BAYER_BG_10_PACKED, 10, Packing::Pairs, ExColorFilterArray::BGGR),
    packed(ARV_PIXEL_FORMAT_BAYER_RG_12_PACKED, 12, Packing::Pairs, ExColorFilterArray::RGGB),
    packed(ARV_PIXEL_FORMAT_BAYER_GR_12_PACKED, 12, Packing::Pairs, ExColorFilterArray::GRBG),
    packed(ARV_PIXEL_FORMAT_BAYER_GB_12_PACKED, 12, Packing::Pairs, ExColorFilterArray::GBRG),
    packed(ARV_PIXEL_FORMAT_BAYER_BG_12_PACKED, 12, Packing::Pairs, ExColorFilterArray::BGGR),
});

const PixelLayout* layoutOf(ArvPixelFormat format)
{
    const auto* layout = std::find_if(pixelLayouts.begin(), pixelLayouts.end(),
                                      [format](const auto& l) { return l.format == format; });
    return layout == pixelLayouts.end() ? nullptr : layout;
}

/// Bytes that hold so many packed pixels.
std::size_t packedBytes(std::size_t pixels, const PixelLayout& layout)
{
    if (layout.packing == Packing::Pairs)
        return pixels / 2 * 3 + pixels % 2 * 2;
    return (pixels * layout.bpc + 7) / 8;
}

/// Neither 10 nor 12 bits reach into a third byte.
unsigned lowFirstPixel(const quint8* from, std::size_t index, unsigned bits)
{
    const std::size_t bit = index * bits;
    const unsigned two = from[bit / 8] | from[bit / 8 + 1] << 8U;
    return two >> bit % 8 & ((1U << bits) - 1);
}

unsigned pairedPixel(const quint8* from, std::size_t index, unsigned bits)
{
    const quint8* pair = from + index / 2 * 3;
    const unsigned lowBits = bits - 8;
    const unsigned low = pair[1] >> (index % 2 * 4) & ((1U << lowBits) - 1);
    return static_cast<unsigned>(pair[index % 2 * 2]) << lowBits | low;
}

/// Unpacks `count` pixels, beginning with the one at `index` behind `from`.
void unpack(const quint8* from, std::size_t index, std::size_t count, const PixelLayout& layout,
            quint8* line)
{
    for (std::size_t i = 0; i < count; ++i) {
        const auto value = static_cast<quint16>(layout.packing == Packing::Pairs
                                                    ? pairedPixel(from, index + i, layout.bpc)
                                                    : lowFirstPixel(from, index + i, layout.bpc));
        std::memcpy(line + 2 * i, &value, sizeof value);
    }
}

// Without padding the lines follow each other within the bytes, too.
void unpackLines(const RawFrame& frame, const PixelLayout& layout, const SxPicBuf& picture)
{
    const auto* from = static_cast<const quint8*>(frame.data);
    const std::size_t lineBytes = packedBytes(frame.width, layout) + frame.linePadding;
    for (std::size_t y = 0; y < frame.height; ++y) {
        quint8* line = picture.data + y * picture.stride;
        if (frame.linePadding > 0)
            unpack(from + y * lineBytes, 0, frame.width, layout, line);
        else
            unpack(from, y * frame.width, frame.width, layout, line);
    }
}

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

bool holdsAllPixels(const RawFrame& frame, const PixelLayout& layout, const SxPicBufInfo& info)
{
    if (layout.packing == Packing::None)
        return holdsAllLines(frame, std::size_t{info.bytesPerPixel()} * frame.width);
    if (frame.linePadding > 0)
        return holdsAllLines(frame, packedBytes(frame.width, layout));
    const std::size_t pixels = std::size_t{frame.width} * frame.height;
    // A pixel takes more than a byte: the first comparison spares the second an overflow.
    return frame.data && pixels > 0 && pixels <= frame.size
           && packedBytes(pixels, layout) <= frame.size;
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
    const PixelLayout* layout = layoutOf(format);
    if (!layout)
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
    const PixelLayout& layout = *layoutOf(frame.pixelFormat);
    if (!holdsAllPixels(frame, layout, *info))
        return ConvertResult::TooShort;
    CxPicBufAPI::AllocPicBufFromHeap(picture, *info, false, 0);
    if (!picture.data)
        return ConvertResult::NoMemory;
    if (layout.packing == Packing::None)
        copyLines(frame, std::size_t{info->bytesPerPixel()} * frame.width, picture);
    else
        unpackLines(frame, layout, picture);
    return ConvertResult::Done;
}

} // namespace vistrel
