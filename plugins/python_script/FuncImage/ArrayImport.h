// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Pictures made from foreign pixel memory, narrowed to the smallest type that holds their values.
// Free of Python.
#pragma once

#include "FuncImage/ImageCopies.h"

#include <QtGlobal>

struct SxPicBuf;
struct SxPicBufInfo;

/// Foreign pixels, and where each element lies: at y, x and channel times these steps in bytes.
struct ArraySource {
    qint64 width = 1;
    qint64 height = 1;
    qint64 channels = 1;
    /// None: an element type that has no counterpart; such pixels are not copied.
    ExImageDataType dataType = ExImageDataType::None;
    quint32 elementSize = 1;
    qint64 lineStep = 0;
    qint64 pixelStep = 0;
    qint64 channelStep = 0;
    const quint8* data = nullptr;

    /// Sets the steps of elements that lie side by side. Sizes that no picture can have may give
    /// any steps.
    void setContiguousSteps();
};

namespace array_import {

/// A picture with the source's pixels. Refused when there is no memory for it.
image_copies::NewImage imported(const ArraySource& source);

/// Whether pixels of that layout are taken for red, green, blue.
bool isRgbByLayout(const SxPicBufInfo& info);

/// An image that has taken over the buffer's pixels, or those of a narrowed copy.
std::unique_ptr<CxImageData> narrowedImage(SxPicBuf& buffer);

} // namespace array_import

/// Makes a copy of the smallest element type that holds the source's values. False when the source
/// itself is the best, or the copy cannot be made: `target` then has no pixels.
/// The source's bpc is updated where its bit depth is detected.
bool fx_img_convertToBestBpc(SxPicBuf& target, SxPicBuf& source);
