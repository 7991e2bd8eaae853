// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// OpenCV's matrices over the pixels of picture buffers.
#pragma once

#include <SxPicBuf.h>

#include <opencv2/core.hpp>

#include <optional>

namespace vistrel {

/// OpenCV's element type; nothing for types that it does not have.
std::optional<int> matDepthOf(ExImageDataType type);

/// A matrix over the buffer's own pixels, which must be aligned. Its size must fit an int.
cv::Mat matOver(const SxPicBuf& buffer, int depth, int channels);

/// The same with a column for each value, for work that does not care about pixels.
cv::Mat valuesMatOver(const SxPicBuf& buffer, int depth);

/// Whether OpenCV's counters hold the number of lines and of values in a line.
bool fitsMat(const SxPicBuf& buffer);

} // namespace vistrel
