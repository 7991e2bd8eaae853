// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Codes of the core library for formats of pixel data.
#include <KvCore.h>

namespace {

enum FormatCode : int {
    Unknown = 0,
    Mono8 = 1,
    Mono16 = 2,
    Colour8 = 3,
    Colour16 = 4,
    ColourAlpha8 = 5,
    ColourAlpha16 = 6,
    Packed565 = 7,
    Mono32 = 8,
    FloatingPoint = 9,
    Raw8 = 10,
    Raw16 = 11,
};

/// Chooses by the number of channels among the codes of one element size.
FormatCode byChannels(const SxPicBufInfo& info, FormatCode raw, FormatCode mono, FormatCode colour,
                      FormatCode colourAlpha)
{
    switch (info.channels) {
    case 1:
        return info.colorFilterArray == ExColorFilterArray::None ? mono : raw;
    case 3:
        return colour;
    case 4:
        return colourAlpha;
    default:
        return Unknown;
    }
}

} // namespace

int kvCore_GetKvImgFormatForPicBufInfo(const SxPicBufInfo& info)
{
    switch (info.dataType) {
    case ExImageDataType::Int8:
    case ExImageDataType::UInt8:
        return byChannels(info, Raw8, Mono8, Colour8, ColourAlpha8);
    case ExImageDataType::Int16:
    case ExImageDataType::UInt16:
        return byChannels(info, Raw16, Mono16, Colour16, ColourAlpha16);
    case ExImageDataType::Int32:
    case ExImageDataType::UInt32:
        return info.channels == 1 ? Mono32 : Unknown;
    case ExImageDataType::Float:
    case ExImageDataType::Double:
        return FloatingPoint;
    case ExImageDataType::Packed565:
        return Packed565;
    default:
        return Unknown;
    }
}

int kvCore_GetKvCfaFromColorFilterArray(ExColorFilterArray colorFilterArray)
{
    switch (colorFilterArray) {
    case ExColorFilterArray::RGGB:
        return 1;
    case ExColorFilterArray::GRBG:
        return 2;
    case ExColorFilterArray::GBRG:
        return 3;
    case ExColorFilterArray::BGGR:
        return 4;
    default:
        return 0;
    }
}

int kvCore_GetKvDataSmFromDataType(ExImageDataType dataType)
{
    switch (dataType) {
    case ExImageDataType::Int8:
    case ExImageDataType::Int16:
    case ExImageDataType::Int32:
    case ExImageDataType::Int64:
        return 1;
    case ExImageDataType::Float:
    case ExImageDataType::Double:
        return 2;
    default:
        return 0;
    }
}
