// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Moving whole pixels of any kind about, colour filter included.
#pragma once

#include "chains/ResultPicture.h"

#include <QtCore/QPoint>
#include <QtCore/QString>

#include <opencv2/core.hpp>

#include <functional>

class CxImageData;

namespace vistrel {

/// How a picture's pixels are put elsewhere.
struct PixelMove {
    bool exchangesSides = false; ///< width becomes height
    /// Does it for a matrix; pixels are moved as bytes.
    std::function<void(const cv::Mat& from, cv::Mat& to)> move;
    /// Where the pixel comes from that goes to a place, by the source's width and height.
    std::function<QPoint(QPoint to, int width, int height)> origin;
};

/// Moves the pixels of a picture of any element type, packed ones too. A colour filter's pattern is
/// the one that the moved pixels have. Returns why the picture was left as it was, for people, or
/// an empty text.
QString movePixels(CxImageData& image, ResultPicture& result, const PixelMove& move);

} // namespace vistrel
