// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Values as bytes, and bytes as colours.
#include "core/ShownValues.h"

#include "core/PicBufMat.h"
#include "core/PicBufView.h"

#include <opencv2/imgproc.hpp>

#include <optional>

namespace vistrel {

namespace {

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

} // namespace

ValueRange fullRange(const SxPicBuf& buffer)
{
    if (isFloatingPoint(buffer))
        return {0.0, buffer.saturation > 0.0F ? static_cast<double>(buffer.saturation) : 1.0};
    return {0.0, static_cast<double>(fullScale(significantBits(buffer)))};
}

bool isShownGrey(const SxPicBuf& buffer)
{
    return buffer.channels == 1 && !isPacked(buffer) && !demosaicingOf(buffer);
}

cv::Mat bytesOf(const SxPicBuf& buffer, const ValueRange& range)
{
    cv::Mat values = valuesOf(buffer);
    if (values.depth() == CV_8U && range == ValueRange())
        return values;
    const double factor = 255.0 / (range.white - range.black);
    cv::Mat bytes; // of its own: into itself, a matrix of bytes would change the buffer
    values.convertTo(bytes, CV_8U, factor, -range.black * factor);
    return bytes;
}

void convertToRgba(const SxPicBuf& buffer, const ValueRange& range, cv::Mat& target)
{
    if (isPacked(buffer)) {
        // Red is in the high bits; OpenCV calls that BGR565.
        cv::cvtColor(matOver(buffer, CV_8U, 2), target, cv::COLOR_BGR5652RGBA);
        return;
    }
    const cv::Mat values = bytesOf(buffer, range);
    if (buffer.channels == 4 && buffer.isRgb) {
        values.copyTo(target);
    } else if (buffer.channels == 4) {
        cv::cvtColor(values, target, cv::COLOR_BGRA2RGBA);
    } else if (buffer.channels == 3) {
        cv::cvtColor(values, target, buffer.isRgb ? cv::COLOR_RGB2RGBA : cv::COLOR_BGR2RGBA);
    } else if (buffer.channels == 1) {
        convertMonoOrRaw(buffer, values, target);
    } else {
        cv::Mat first;
        cv::extractChannel(values, first, 0);
        cv::cvtColor(first, target, cv::COLOR_GRAY2RGBA);
    }
}

} // namespace vistrel
