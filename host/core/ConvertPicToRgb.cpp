// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Converts pictures of every element type and layout to 8-bit red, green, blue, alpha.
#include <CxPicBufAPI.h>

#include "core/PicBufMat.h"
#include "core/PicBufView.h"

#include <opencv2/imgproc.hpp>

#include <optional>

namespace {

using vistrel::matDepthOf;
using vistrel::matOver;

/// Doubles made from elements that OpenCV has no type for.
template<class Element>
cv::Mat doublesFrom(const SxPicBuf& buffer)
{
    const auto columns = static_cast<int>(buffer.width * buffer.channels);
    cv::Mat result(static_cast<int>(buffer.height), columns, CV_64F);
    for (int y = 0; y < result.rows; ++y) {
        const auto* source = reinterpret_cast<const Element*>(
            buffer.data + std::size_t{buffer.stride} * static_cast<std::size_t>(y));
        auto* target = result.ptr<double>(y);
        for (int x = 0; x < columns; ++x)
            target[x] = static_cast<double>(source[x]);
    }
    return result.reshape(static_cast<int>(buffer.channels));
}

/// The values as they are, in some type that OpenCV has.
cv::Mat valuesOf(const SxPicBuf& buffer)
{
    const auto channels = static_cast<int>(buffer.channels);
    if (const auto depth = matDepthOf(buffer.dataType))
        return matOver(buffer, *depth, channels);
    switch (buffer.dataType) {
    case ExImageDataType::UInt32:
        return doublesFrom<quint32>(buffer);
    case ExImageDataType::Int64:
        return doublesFrom<qint64>(buffer);
    case ExImageDataType::UInt64:
        return doublesFrom<quint64>(buffer);
    default:
        return {};
    }
}

/// What the largest value becomes 255 with.
double scaleTo8Bits(const SxPicBuf& buffer)
{
    if (vistrel::isFloatingPoint(buffer))
        return 255.0 / (buffer.saturation > 0.0F ? static_cast<double>(buffer.saturation) : 1.0);
    return 255.0 / static_cast<double>(vistrel::fullScale(vistrel::significantBits(buffer)));
}

cv::Mat as8Bits(const SxPicBuf& buffer)
{
    cv::Mat values = valuesOf(buffer);
    const bool isDone = values.depth() == CV_8U && vistrel::significantBits(buffer) == 8;
    if (!isDone)
        values.convertTo(values, CV_8U, scaleTo8Bits(buffer));
    return values;
}

/// OpenCV names a Bayer pattern by the second and third pixel of the second line.
std::optional<int> demosaicingOf(const SxPicBuf& buffer)
{
    switch (buffer.colorFilterArray) {
    case ExColorFilterArray::RGGB:
        return cv::COLOR_BayerBG2RGBA;
    case ExColorFilterArray::GRBG:
        return cv::COLOR_BayerGB2RGBA;
    case ExColorFilterArray::GBRG:
        return cv::COLOR_BayerGR2RGBA;
    case ExColorFilterArray::BGGR:
        return cv::COLOR_BayerRG2RGBA;
    default:
        return std::nullopt;
    }
}

void convertMonoOrRaw(const SxPicBuf& buffer, const cv::Mat& values, cv::Mat& target)
{
    const auto demosaicing = demosaicingOf(buffer);
    // Demosaicing needs a neighbourhood.
    const bool isLargeEnough = values.cols > 2 && values.rows > 2;
    cv::cvtColor(values, target, demosaicing && isLargeEnough ? *demosaicing : cv::COLOR_GRAY2RGBA);
}

void convert(const SxPicBuf& source, cv::Mat& target)
{
    if (source.dataType == ExImageDataType::Packed565) {
        // Red is in the high bits; OpenCV calls that BGR565.
        cv::cvtColor(matOver(source, CV_8U, 2), target, cv::COLOR_BGR5652RGBA);
        return;
    }
    cv::Mat values = as8Bits(source);
    if (source.channels == 4 && source.isRgb) {
        values.copyTo(target);
    } else if (source.channels == 4) {
        cv::cvtColor(values, target, cv::COLOR_BGRA2RGBA);
    } else if (source.channels == 3) {
        cv::cvtColor(values, target, source.isRgb ? cv::COLOR_RGB2RGBA : cv::COLOR_BGR2RGBA);
    } else if (source.channels == 1) {
        convertMonoOrRaw(source, values, target);
    } else {
        cv::Mat first;
        cv::extractChannel(values, first, 0);
        cv::cvtColor(first, target, cv::COLOR_GRAY2RGBA);
    }
}

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
        cv::Mat pixels = matOver(target, CV_8U, 4);
        convert(aligned.buffer(), pixels);
        target.isRgb = true;
        return pixels.data == target.data;
    });
}
