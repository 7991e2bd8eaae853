// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// What each file format holds, and how a picture is made to fit without losing anything.
#pragma once

#include "core/ImageCodecs.h"

#include <opencv2/core.hpp>

#include <string>
#include <vector>

namespace vistrel {

/// Makes of a picture what OpenCV's encoder of a format takes, blue first.
/// Returns false with the reason in `error` when the format cannot hold it.
bool fitToFormat(const SxPicBuf& picture, ImageFileFormat format, cv::Mat& fitted, QString& error);

/// The encoder's name: the ending of its files.
std::string encoderName(ImageFileFormat format);

/// The encoder's settings for these pixels.
std::vector<int> encoderSettings(ImageFileFormat format, const cv::Mat& fitted);

} // namespace vistrel
