// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// One picture of a film.
#pragma once

#include <opencv2/core.hpp>

struct SxPicBuf;

namespace vistrel {

/// Draws pictures as encoders take them: blue, green, red of 8 bits, all of one size.
class FilmFrame {
public:
    /// For pictures of that size; others are fitted.
    FilmFrame(unsigned width, unsigned height);

    /// Sides are even and not below 16.
    cv::Size size() const { return m_size; }
    /// False for a picture that cannot be shown. Throws what OpenCV throws.
    bool draw(const SxPicBuf& picture);
    const cv::Mat& pixels() const { return m_pixels; }

private:
    bool convert(const SxPicBuf& picture);
    void fit();

    cv::Size m_size;
    cv::Mat m_rgba;
    cv::Mat m_colours; ///< blue, green, red in the picture's own size
    cv::Mat m_pixels;
};

} // namespace vistrel
