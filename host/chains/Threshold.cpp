// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The processing element "Threshold".
#include "chains/Threshold.h"

#include "chains/PixelFilter.h"
#include "core/PicBufView.h"

#include <CxImageData.h>

#include <opencv2/imgproc.hpp>

namespace vistrel {

namespace {

constexpr QLatin1String levelName("level");
constexpr QLatin1String automaticName("automatic");
constexpr QLatin1String invertName("invert");

/// Any lower level asks for half of white.
constexpr double halfOfWhite = -1.0;
constexpr double largestLevel = 4294967295.0;

/// Whether OpenCV finds a level for such values by itself.
bool hasAutomaticLevel(const SxPicBuf& buffer)
{
    return buffer.dataType == ExImageDataType::UInt8 || buffer.dataType == ExImageDataType::UInt16;
}

} // namespace

Threshold::Threshold()
    : ChainElement({realSetting(levelName, halfOfWhite, halfOfWhite, largestLevel),
                    switchSetting(automaticName, false), switchSetting(invertName, false)})
{
}

QString Threshold::apply(CxImageData& image)
{
    const SxPicBuf& buffer = *image.picBuf();
    const bool isAutomatic = settings().isOn(automaticName);
    if (isAutomatic && !hasAutomaticLevel(buffer))
        return QStringLiteral("only unsigned values of 8 or 16 bits have an automatic level");
    const double white = whiteOf(buffer);
    const double wanted = settings().number(levelName);
    const double level = wanted < 0.0 ? white / 2 : wanted;
    const int rule = settings().isOn(invertName) ? cv::THRESH_BINARY_INV : cv::THRESH_BINARY;
    return filterPixels(image, m_result, {{CV_8U, CV_16U, CV_16S, CV_32F, CV_64F}, false},
                        [=](const cv::Mat& from, cv::Mat& to) {
                            cv::threshold(from, to, level, white,
                                          rule | (isAutomatic ? cv::THRESH_OTSU : 0));
                        });
}

} // namespace vistrel
