// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// An image's text form and the codes of its element type.
#include "FuncImage/ImageDescription.h"

#include <SxPicBuf.h>

#include <array>
#include <cmath>

namespace image_description {

namespace {

struct ElementWords {
    const char* typeWord; ///< in the text form
    const char* typestr;  ///< in the array interface
};

/// By the number of ExImageDataType.
constexpr std::array<ElementWords, 12> elementWords{{
    {"N/A", "|u8"},
    {"int", "|i1"},
    {"unsigned int", "|u1"},
    {"int", "|i2"},
    {"unsigned int", "|u2"},
    {"int", "|i4"},
    {"unsigned int", "|u4"},
    {"int", "|i8"},
    {"unsigned int", "|u8"},
    {"float", "|f4"},
    {"float", "|f8"},
    {"packed565", "|u2"},
}};

ElementWords wordsOf(const SxPicBufInfo& info)
{
    const auto type = static_cast<std::size_t>(info.dataType);
    return type < elementWords.size() ? elementWords[type] : ElementWords{"", ""};
}

} // namespace

QString textOf(const SxPicBufInfo& info)
{
    QString type = QString::fromUtf8(wordsOf(info).typeWord);
    if (info.isRgb)
        type += QStringLiteral(" RGB");
    return QStringLiteral(
               "Vistrel image, width: %1, height: %2, channels: %3, bit per channel (bpc): %4, "
               "type: %5")
        .arg(info.width)
        .arg(info.height)
        .arg(info.channels)
        .arg(info.bpc)
        .arg(type);
}

const char* typestrOf(const SxPicBufInfo& info) { return wordsOf(info).typestr; }

double saturationOf(const SxPicBuf& buffer)
{
    if (buffer.dataType == ExImageDataType::Float || buffer.dataType == ExImageDataType::Double)
        return static_cast<double>(buffer.saturation);
    return std::ldexp(1.0, static_cast<int>(buffer.bpc)) - 1.0;
}

} // namespace image_description
