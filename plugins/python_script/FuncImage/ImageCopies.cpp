// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// New pictures: allocated, copied, with red and blue exchanged.
#include "FuncImage/ImageCopies.h"

#include "FuncImage/ImageMessages.h"

#include <CxImageData.h>
#include <CxPicBufAPI.h>

namespace image_copies {

std::optional<ExImageDataType> unsignedTypeFor(int bpc)
{
    if (bpc <= 8)
        return ExImageDataType::UInt8;
    if (bpc <= 16)
        return ExImageDataType::UInt16;
    if (bpc <= 32)
        return ExImageDataType::UInt32;
    return std::nullopt;
}

std::unique_ptr<CxImageData> imageAround(const SxPicBuf& buffer)
{
    auto image = std::make_unique<CxImageData>();
    image->setPicBuf(buffer);
    return image;
}

NewImage allocated(int width, int height, int channels, int bpc)
{
    if (width <= 0 || height <= 0 || channels <= 0 || bpc <= 0)
        return Refusal{image_messages::argumentOutOfRange};
    const auto type = unsignedTypeFor(bpc);
    if (!type)
        return Refusal{image_messages::bitsOutOfRange};
    SxPicBuf buffer;
    CxPicBufAPI::AllocPicBufFromHeap(buffer, static_cast<unsigned>(width),
                                     static_cast<unsigned>(height), static_cast<unsigned>(channels),
                                     *type, 0, 0, static_cast<unsigned>(bpc),
                                     ExDataStorageFormat::Interleaved, ExColorFilterArray::None,
                                     channels == 3 || channels == 4, true, 0);
    if (buffer.data == nullptr)
        return Refusal{image_messages::outOfMemory};
    return imageAround(buffer);
}

std::unique_ptr<CxImageData> cloneOrNull(CxImageData& image)
{
    QObject* const clone = image.clone(0, 0);
    auto* const copy = qobject_cast<CxImageData*>(clone);
    if (copy == nullptr)
        delete clone;
    return std::unique_ptr<CxImageData>(copy);
}

NewImage cloneOf(CxImageData& image)
{
    std::unique_ptr<CxImageData> copy = cloneOrNull(image);
    if (!copy)
        return Refusal{image_messages::outOfMemory};
    return copy;
}

NewImage withRedAndBlueSwapped(CxImageData& image)
{
    const SxPicBuf& source = *image.picBuf();
    SxPicBuf buffer;
    CxPicBufAPI::AllocPicBufFromHeap(buffer, source, false, 0);
    if (buffer.data == nullptr)
        return Refusal{image_messages::cannotAllocate};
    CxPicBufAPI::CopyPicBuf(buffer, source, true);
    CxPicBufAPI::SwapRedAndBlue(buffer);
    auto copy = imageAround(buffer);
    copy->setAcquisitionInfo(image.acquisitionInfo());
    return copy;
}

} // namespace image_copies
