// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The processing element "Flip".
#include "chains/Flip.h"

#include "chains/PixelMoves.h"

namespace vistrel {

namespace {

constexpr QLatin1String directionName("direction");

enum Direction : int { Horizontal, Vertical, Both };

/// OpenCV's numbers for the axes.
int flipCode(Direction direction)
{
    return direction == Horizontal ? 1 : direction == Vertical ? 0 : -1;
}

PixelMove flipTowards(Direction direction)
{
    return {
        false,
        [direction](const cv::Mat& from, cv::Mat& to) { cv::flip(from, to, flipCode(direction)); },
        [direction](QPoint to, int width, int height) {
            return QPoint(direction == Vertical ? to.x() : width - 1 - to.x(),
                          direction == Horizontal ? to.y() : height - 1 - to.y());
        }};
}

} // namespace

Flip::Flip()
    : ChainElement(
        {choiceSetting(directionName, {QStringLiteral("horizontal"), QStringLiteral("vertical"),
                                       QStringLiteral("both")})})
{
}

QString Flip::apply(CxImageData& image)
{
    return movePixels(image, m_result,
                      flipTowards(static_cast<Direction>(settings().choice(directionName))));
}

} // namespace vistrel
