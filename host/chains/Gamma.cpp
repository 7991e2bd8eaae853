// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The processing element "Gamma".
#include "chains/Gamma.h"

#include "chains/PixelFilter.h"

#include <CxImageData.h>

#include <algorithm>
#include <cmath>

namespace vistrel {

namespace {

constexpr QLatin1String gammaName("gamma");

/// Values below 0 are mirrored; those above white go on along the curve.
double curve(double value, double white, double exponent)
{
    const double result = std::pow(std::abs(value) / white, exponent) * white;
    return value < 0 ? -result : result;
}

template<class Element>
cv::Mat newTable(double white, double exponent)
{
    constexpr int values = std::numeric_limits<Element>::max() + 1;
    cv::Mat table(1, values, cv::DataType<Element>::type);
    for (int value = 0; value < values; ++value)
        table.at<Element>(value) = cv::saturate_cast<Element>(
            curve(std::min(static_cast<double>(value), white), white, exponent));
    return table;
}

/// OpenCV looks up bytes only.
void lookUpWords(const cv::Mat& from, cv::Mat& to, const cv::Mat& table)
{
    const auto* const results = table.ptr<ushort>();
    cv::parallel_for_(cv::Range(0, from.rows), [&](const cv::Range& lines) {
        for (int y = lines.start; y < lines.end; ++y) {
            const auto* const source = from.ptr<ushort>(y);
            auto* const target = to.ptr<ushort>(y);
            for (int x = 0; x < from.cols; ++x)
                target[x] = results[source[x]];
        }
    });
}

void computeEach(const cv::Mat& from, cv::Mat& to, double white, double exponent)
{
    for (int y = 0; y < from.rows; ++y) {
        const auto* const source = from.ptr<double>(y);
        std::transform(source, source + from.cols, to.ptr<double>(y),
                       [=](double value) { return curve(value, white, exponent); });
    }
}

} // namespace

Gamma::Gamma()
    : ChainElement({realSetting(gammaName, 2.2, 0.1, 10.0)})
{
}

const cv::Mat& Gamma::tableFor(double white, int depth)
{
    if (m_table.empty() || m_table.depth() != depth || m_white != white) {
        const double exponent = 1.0 / settings().number(gammaName);
        m_table =
            depth == CV_8U ? newTable<uchar>(white, exponent) : newTable<ushort>(white, exponent);
        m_white = white;
    }
    return m_table;
}

QString Gamma::apply(CxImageData& image)
{
    const double white = whiteOf(*image.picBuf());
    const double exponent = 1.0 / settings().number(gammaName);
    const auto filter = [=, this](const cv::Mat& from, cv::Mat& to) {
        if (from.depth() == CV_8U)
            cv::LUT(from, tableFor(white, CV_8U), to);
        else if (from.depth() == CV_16U)
            lookUpWords(from, to, tableFor(white, CV_16U));
        else
            computeEach(from, to, white, exponent);
    };
    return filterPixels(image, m_result, {{CV_8U, CV_16U, CV_64F}, false}, filter);
}

} // namespace vistrel
