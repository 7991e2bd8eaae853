// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Values as bytes, and bytes as colours.
#include "core/ShownValues.h"

#include "core/PicBufMat.h"
#include "core/PicBufView.h"

#include <opencv2/imgproc.hpp>

#include <array>
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

/// Where the colours are in a cell of a filter, counted from left to right and downwards.
struct CellPlaces {
    std::size_t red;
    std::array<std::size_t, 2> greens;
    std::size_t blue;
};

CellPlaces placesOf(ExColorFilterArray filter)
{
    switch (filter) {
    case ExColorFilterArray::BGGR:
        return {3, {1, 2}, 0};
    case ExColorFilterArray::GRBG:
        return {1, {0, 3}, 2};
    case ExColorFilterArray::GBRG:
        return {2, {0, 3}, 1};
    default:
        return {0, {1, 2}, 3};
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

bool isRaw(const SxPicBuf& buffer)
{
    return buffer.channels == 1 && !isPacked(buffer) && demosaicingOf(buffer);
}

bool isShownGrey(const SxPicBuf& buffer)
{
    return buffer.channels == 1 && !isPacked(buffer) && !isRaw(buffer);
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
    // Red is in the high bits; OpenCV calls that BGR565.
    if (isPacked(buffer))
        cv::cvtColor(matOver(buffer, CV_8U, 2), target, cv::COLOR_BGR5652RGBA);
    else
        convertBytesToRgba(buffer, bytesOf(buffer, range), target);
}

void convertBytesToRgba(const SxPicBuf& layout, const cv::Mat& bytes, cv::Mat& target)
{
    if (layout.channels == 4 && layout.isRgb) {
        bytes.copyTo(target);
    } else if (layout.channels == 4) {
        cv::cvtColor(bytes, target, cv::COLOR_BGRA2RGBA);
    } else if (layout.channels == 3) {
        cv::cvtColor(bytes, target, layout.isRgb ? cv::COLOR_RGB2RGBA : cv::COLOR_BGR2RGBA);
    } else if (layout.channels == 1) {
        convertMonoOrRaw(layout, bytes, target);
    } else {
        cv::Mat first;
        cv::extractChannel(bytes, first, 0);
        cv::cvtColor(first, target, cv::COLOR_GRAY2RGBA);
    }
}

cv::Mat coloursOfCells(const SxPicBuf& buffer, const ValueRange& range)
{
    cv::Mat bytes = bytesOf(buffer, range);
    const cv::Size cells = bytes.size() / 2;
    std::array<cv::Mat, 4> places; // of a cell: its upper line, its lower line
    cv::split(cv::Mat(cells, CV_8UC2, bytes.ptr(0), 2 * bytes.step), places.data());
    cv::split(cv::Mat(cells, CV_8UC2, bytes.ptr(1), 2 * bytes.step), places.data() + 2);
    const CellPlaces place = placesOf(buffer.colorFilterArray);
    std::array<cv::Mat, 3> colours = {places[place.red], cv::Mat(), places[place.blue]};
    cv::addWeighted(places[place.greens[0]], 0.5, places[place.greens[1]], 0.5, 0.0, colours[1]);
    cv::Mat result;
    cv::merge(colours.data(), colours.size(), result);
    return result;
}

} // namespace vistrel
