// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The processing element "Rotate".
#include "chains/Rotate.h"

#include "chains/PixelMoves.h"

#include <array>

namespace vistrel {

namespace {

constexpr QLatin1String angleName("angle");

/// In the order of the choices.
const std::array<PixelMove, 3> turns{{
    {true, [](const cv::Mat& from, cv::Mat& to) { cv::rotate(from, to, cv::ROTATE_90_CLOCKWISE); },
     [](QPoint to, int, int height) { return QPoint(to.y(), height - 1 - to.x()); }},
    {false, [](const cv::Mat& from, cv::Mat& to) { cv::rotate(from, to, cv::ROTATE_180); },
     [](QPoint to, int width, int height) {
         return QPoint(width - 1 - to.x(), height - 1 - to.y());
     }},
    {true,
     [](const cv::Mat& from, cv::Mat& to) { cv::rotate(from, to, cv::ROTATE_90_COUNTERCLOCKWISE); },
     [](QPoint to, int width, int) { return QPoint(width - 1 - to.y(), to.x()); }},
}};

} // namespace

Rotate::Rotate()
    : ChainElement({choiceSetting(
        angleName, {QStringLiteral("90"), QStringLiteral("180"), QStringLiteral("270")})})
{
}

QString Rotate::apply(CxImageData& image)
{
    return movePixels(image, m_result,
                      turns.at(static_cast<std::size_t>(settings().choice(angleName))));
}

} // namespace vistrel
