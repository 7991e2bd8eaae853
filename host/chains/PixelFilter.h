// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Filters of OpenCV on pictures of every element type.
#pragma once

#include "chains/ResultPicture.h"

#include <QtCore/QString>

#include <opencv2/core.hpp>

#include <functional>
#include <vector>

class CxImageData;

namespace vistrel {

/// Reads from the first and writes the second, which has the same size and type.
using MatFunction = std::function<void(const cv::Mat& from, cv::Mat& to)>;

/// What a filter takes. Values of other types go to it as doubles and are rounded and cut off when
/// they come back; 64-bit integers only as far as a double holds them.
struct FilterKind {
    /// OpenCV's element types that it takes as they are.
    std::vector<int> depths;
    /// Whether a result depends on other values than the one in its place. Such a filter gets the
    /// colours of raw data apart from each other, two a matrix, and otherwise pixels with all their
    /// channels; others get one channel that has all values of a line.
    bool looksAround = false;
};

/// Replaces the pixels of a picture by the filter's result. Returns why it was left as it was, for
/// people, or an empty text. Throws what OpenCV throws and std::bad_alloc; the picture is then as
/// it was.
QString filterPixels(CxImageData& image, ResultPicture& result, const FilterKind& kind,
                     const MatFunction& filter);

/// The value of a white pixel, within the range of the element type.
double whiteOf(const SxPicBuf& buffer);

} // namespace vistrel
