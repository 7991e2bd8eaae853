// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// A mean over frames, for elements that look back.
#pragma once

#include "chains/PixelFilter.h"

namespace vistrel {

/// Kept in floating point.
class RunningMean {
public:
    /// The frames that it takes.
    static FilterKind kind();

    /// Makes the frame the mean when there is none yet or it has another size or type; whether it
    /// did. Channels are told apart by the picture only: the filter sees them side by side.
    bool begin(const cv::Mat& frame, const SxPicBufInfo& picture);
    /// mean += share * (frame - mean)
    void add(const cv::Mat& frame, double share);
    void forget() { m_mean.release(); }

    /// Rounded to the type of the frames.
    void store(cv::Mat& rounded) const { m_mean.convertTo(rounded, m_frameDepth); }

private:
    cv::Mat m_mean;
    SxPicBufInfo m_picture; ///< what the frames are
    int m_frameDepth = 0;
};

} // namespace vistrel
