// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The processing element "Gaussian Blur".
#include "chains/GaussianBlur.h"

#include "chains/PixelFilter.h"

#include <opencv2/imgproc.hpp>

namespace vistrel {

namespace {

constexpr QLatin1String sigmaName("sigma");
constexpr QLatin1String radiusName("radius");

} // namespace

GaussianBlur::GaussianBlur()
    : ChainElement({realSetting(sigmaName, 1.0, 0.1, 50.0), wholeSetting(radiusName, 0, 0, 150)})
{
}

QString GaussianBlur::apply(CxImageData& image)
{
    const double sigma = settings().number(sigmaName);
    // A window of 0 lets OpenCV choose by sigma.
    const int radius = settings().whole(radiusName);
    const int window = radius > 0 ? 2 * radius + 1 : 0;
    const FilterKind kind{{CV_8U, CV_16U, CV_16S, CV_32F, CV_64F}, true};
    return filterPixels(image, m_result, kind, [=](const cv::Mat& from, cv::Mat& to) {
        cv::GaussianBlur(from, to, cv::Size(window, window), sigma, sigma);
    });
}

} // namespace vistrel
