// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// OpenCV's matrices over the pixels of picture buffers.
#include "core/PicBufMat.h"

#include "core/PicBufView.h"

namespace vistrel {

std::optional<int> matDepthOf(ExImageDataType type)
{
    switch (type) {
    case ExImageDataType::None:
    case ExImageDataType::UInt8:
        return CV_8U;
    case ExImageDataType::Int8:
        return CV_8S;
    case ExImageDataType::UInt16:
    case ExImageDataType::Packed565:
        return CV_16U;
    case ExImageDataType::Int16:
        return CV_16S;
    case ExImageDataType::Int32:
        return CV_32S;
    case ExImageDataType::Float:
        return CV_32F;
    case ExImageDataType::Double:
        return CV_64F;
    default:
        return std::nullopt;
    }
}

cv::Mat matOver(const SxPicBuf& buffer, int depth, int channels)
{
    return {static_cast<int>(buffer.height), static_cast<int>(buffer.width),
            CV_MAKETYPE(depth, channels), buffer.data, buffer.stride};
}

cv::Mat valuesMatOver(const SxPicBuf& buffer, int depth)
{
    return {static_cast<int>(buffer.height), static_cast<int>(valuesPerLine(buffer)), depth,
            buffer.data, buffer.stride};
}

bool fitsMat(const SxPicBuf& buffer)
{
    constexpr auto most = static_cast<std::size_t>(std::numeric_limits<int>::max());
    return buffer.height <= most && valuesPerLine(buffer) <= most;
}

} // namespace vistrel
