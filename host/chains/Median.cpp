// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The processing element "Median".
#include "chains/Median.h"

#include "chains/PixelFilter.h"
#include "core/PicBufView.h"

#include <CxImageData.h>

#include <opencv2/imgproc.hpp>

namespace vistrel {

namespace {

constexpr QLatin1String radiusName("radius");

/// OpenCV's largest for elements of more than 8 bits.
constexpr int largestDeepRadius = 2;

/// OpenCV takes 1, 3 or 4 channels at once.
void medianOfAnyChannels(const cv::Mat& from, cv::Mat& to, int window)
{
    const int channels = from.channels();
    if (channels == 1 || channels == 3 || channels == 4) {
        cv::medianBlur(from, to, window);
        return;
    }
    std::vector<cv::Mat> planes;
    cv::split(from, planes);
    for (cv::Mat& plane : planes)
        cv::medianBlur(plane, plane, window);
    cv::merge(planes, to);
}

/// Values that OpenCV's median does not take, but a float holds exactly, go through as floats;
/// doubles are cut to them.
void medianOf(const cv::Mat& from, cv::Mat& to, int window)
{
    if (from.depth() != CV_64F) {
        medianOfAnyChannels(from, to, window);
        return;
    }
    cv::Mat values;
    from.convertTo(values, CV_32F);
    medianOfAnyChannels(values, values, window);
    values.convertTo(to, CV_64F);
}

/// Whether a float holds every value.
bool fitsFloat(const SxPicBuf& buffer)
{
    constexpr unsigned exactBits = std::numeric_limits<float>::digits;
    return buffer.dataType != ExImageDataType::Double
           && (isFloatingPoint(buffer) || significantBits(buffer) <= exactBits);
}

} // namespace

Median::Median()
    : ChainElement({wholeSetting(radiusName, 1, 1, 50)})
{
}

QString Median::apply(CxImageData& image)
{
    const SxPicBuf& buffer = *image.picBuf();
    const int radius = settings().whole(radiusName);
    if (!isPacked(buffer) && !fitsFloat(buffer))
        return QStringLiteral("their values have more than 24 bits");
    if (elementBits(buffer) > 8 && radius > largestDeepRadius)
        return QStringLiteral("more than 8 bits a value need a radius of %1 at most")
            .arg(largestDeepRadius);
    // Bytes with a sign go as floats, for which the radius is bounded too.
    const bool isSignedByte = buffer.dataType == ExImageDataType::Int8;
    const int window = 2 * (isSignedByte ? std::min(radius, largestDeepRadius) : radius) + 1;
    return filterPixels(image, m_result, {{CV_8U, CV_16U, CV_32F}, true},
                        [=](const cv::Mat& from, cv::Mat& to) { medianOf(from, to, window); });
}

} // namespace vistrel
