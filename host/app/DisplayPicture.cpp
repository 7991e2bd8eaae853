// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Grey pictures of 8 bits are copied as they are; all others go by way of red, green, blue, alpha.
#include "app/DisplayPicture.h"

#include <CxPicBufAPI.h>

namespace vistrel {

namespace {

bool isPlainGrey(const SxPicBuf& buffer)
{
    return buffer.dataType == ExImageDataType::UInt8 && buffer.channels == 1 && buffer.bpc == 8;
}

QImage wrap(const SxPicBuf& buffer, QImage::Format format)
{
    return QImage(buffer.data, static_cast<int>(buffer.width), static_cast<int>(buffer.height),
                  static_cast<qsizetype>(buffer.stride), format);
}

/// Pixel memory for the time of a conversion.
class ScratchPicture {
public:
    explicit ScratchPicture(const SxPicBuf& source)
    {
        CxPicBufAPI::AllocPicBufFromHeap(
            m_buffer, source.width, source.height, 4, ExImageDataType::UInt8, 0, 0, 8,
            ExDataStorageFormat::Interleaved, ExColorFilterArray::None, true, false, 0);
    }
    ~ScratchPicture() { CxPicBufAPI::FreePicBuf(m_buffer, true); }
    Q_DISABLE_COPY_MOVE(ScratchPicture)

    SxPicBuf& buffer() { return m_buffer; }

private:
    SxPicBuf m_buffer;
};

} // namespace

QImage displayPicture(const SxPicBuf& buffer)
{
    if (!buffer.data)
        return {};
    if (isPlainGrey(buffer))
        return wrap(buffer, QImage::Format_Grayscale8).copy();

    ScratchPicture scratch(buffer);
    if (!scratch.buffer().data || !CxPicBufAPI::ConvertPicToRGB(buffer, scratch.buffer()))
        return {};
    return wrap(scratch.buffer(), QImage::Format_RGBX8888).copy();
}

} // namespace vistrel
