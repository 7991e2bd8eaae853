// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The processing element "Background Subtraction".
#include "chains/BackgroundSubtraction.h"

#include <CxImageData.h>

namespace vistrel {

namespace {

constexpr QLatin1String rateName("rate");
constexpr QLatin1String differenceName("difference");

enum Difference : int { Absolute, Brighter, Darker };

void subtractIn(Difference difference, const cv::Mat& frame, const cv::Mat& background, cv::Mat& to)
{
    switch (difference) {
    case Absolute:
        cv::absdiff(frame, background, to);
        return;
    case Brighter:
        cv::subtract(frame, background, to);
        break;
    case Darker:
        cv::subtract(background, frame, to);
        break;
    }
    if (to.depth() == CV_32F || to.depth() == CV_64F) // unsigned values have stopped at 0
        cv::max(to, 0.0, to);
}

} // namespace

BackgroundSubtraction::BackgroundSubtraction()
    : ChainElement(
        {realSetting(rateName, 0.05, 0.0, 1.0),
         choiceSetting(differenceName, {QStringLiteral("absolute"), QStringLiteral("brighter"),
                                        QStringLiteral("darker")})})
{
}

void BackgroundSubtraction::subtract(const SxPicBufInfo& picture, const cv::Mat& from, cv::Mat& to)
{
    const bool isFirst = m_mean.begin(from, picture);
    m_mean.store(m_background);
    subtractIn(static_cast<Difference>(settings().choice(differenceName)), from, m_background, to);
    if (!isFirst)
        m_mean.add(from, settings().number(rateName));
}

QString BackgroundSubtraction::apply(CxImageData& image)
{
    const SxPicBufInfo picture = *image.picBuf();
    return filterPixels(image, m_result, RunningMean::kind(),
                        [&](const cv::Mat& from, cv::Mat& to) { subtract(picture, from, to); });
}

} // namespace vistrel
