// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Qt painting straight into the pixels of a picture.
#include "FuncGraph/PictureCanvas.h"

#include "FuncGraph/GraphMessages.h"

#include <CxPicBufAPI.h>

#include <cstring>

namespace {

bool isEightBit(const SxPicBuf& buffer)
{
    return buffer.dataType < ExImageDataType::Int16 || buffer.dataType > ExImageDataType::Packed565;
}

/// Pictures of one packed word a pixel are known here too, though no script gets them this far.
QImage::Format formatOf(const SxPicBuf& buffer)
{
    const bool isColor = isEightBit(buffer) && buffer.isRgb
                         && buffer.storageFormat == ExDataStorageFormat::Interleaved;
    if (isColor && buffer.channels == 4)
        return QImage::Format_RGB32;
    if (isColor && buffer.channels == 3)
        return QImage::Format_RGB888;
    if (buffer.channels == 1 && buffer.dataType == ExImageDataType::Packed565)
        return QImage::Format_RGB16;
    return QImage::Format_Invalid;
}

/// QImage writes pixels of four bytes as words and relies on their alignment.
bool isAligned(const SxPicBuf& buffer)
{
    return buffer.channels != 4
           || (reinterpret_cast<quintptr>(buffer.data) % 4 == 0 && buffer.stride % 4 == 0);
}

QImage imageOver(const SxPicBuf& buffer, QImage::Format format)
{
    const int width = static_cast<int>(buffer.width);
    const int height = static_cast<int>(buffer.height);
    if (buffer.data == nullptr || width <= 0 || height <= 0)
        return {};
    if (!isAligned(buffer))
        return QImage(width, height, format);
    return QImage(buffer.data, width, height, static_cast<qsizetype>(buffer.stride), format);
}

/// Moves what was painted beside the picture into it, line by line; padding stays as it is.
void copyLines(const QImage& image, SxPicBuf& buffer)
{
    const std::size_t bytes = std::size_t{buffer.width} * buffer.bytesPerPixel();
    for (int y = 0; y < image.height(); ++y)
        std::memcpy(buffer.data + std::size_t{buffer.stride} * static_cast<std::size_t>(y),
                    image.constScanLine(y), bytes);
}

} // namespace

const char* picture_canvas::formatError(const SxPicBuf& buffer)
{
    const bool isColor = buffer.channels == 3 || buffer.channels == 4;
    const bool isAccepted = isColor && isEightBit(buffer) && buffer.isRgb
                            && buffer.storageFormat == ExDataStorageFormat::Interleaved;
    return isAccepted ? nullptr : graph_messages::wrongFormat;
}

PictureCanvas::PictureCanvas(SxPicBuf& buffer)
    : m_buffer(buffer)
    , m_image(imageOver(buffer, formatOf(buffer))) // the format is that before the exchange
{
    if (!m_image.isNull())
        CxPicBufAPI::SwapRedAndBlue(m_buffer);
}

PictureCanvas::~PictureCanvas()
{
    if (m_image.isNull())
        return;
    if (!isAligned(m_buffer))
        copyLines(m_image, m_buffer);
    CxPicBufAPI::SwapRedAndBlue(m_buffer);
}
