// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Converts pictures of every element type and layout to 8-bit red, green, blue, alpha.
#include <CxPicBufAPI.h>

#include "core/PicBufMat.h"
#include "core/PicBufView.h"
#include "core/ShownValues.h"

namespace {

bool isRgbaOf(const SxPicBuf& target, const SxPicBuf& source)
{
    return vistrel::hasPixels(source) && vistrel::hasPixels(target) && vistrel::fitsMat(source)
           && vistrel::fitsMat(target) && vistrel::haveSameSize(target, source)
           && target.channels == 4 && target.dataType == ExImageDataType::UInt8;
}

} // namespace

bool CxPicBufAPI::ConvertPicToRGB(const SxPicBuf& source, SxPicBuf& target)
{
    if (!isRgbaOf(target, source) || source.channels > CV_CN_MAX)
        return false;
    return vistrel::guarded("Conversion to RGB", [&] {
        const vistrel::AlignedPicture aligned(source);
        cv::Mat pixels = vistrel::matOver(target, CV_8U, 4);
        vistrel::convertToRgba(aligned.buffer(), vistrel::fullRange(source), pixels);
        target.isRgb = true;
        return pixels.data == target.data;
    });
}
