// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// A mean over frames, for elements that look back.
#include "chains/RunningMean.h"

#include <opencv2/imgproc.hpp>

namespace vistrel {

FilterKind RunningMean::kind() { return {{CV_8U, CV_16U, CV_32F, CV_64F}, false}; }

bool RunningMean::begin(const cv::Mat& frame)
{
    if (m_mean.size() == frame.size() && m_frameDepth == frame.depth())
        return false;
    m_frameDepth = frame.depth();
    frame.convertTo(m_mean, m_frameDepth == CV_64F ? CV_64F : CV_32F);
    return true;
}

void RunningMean::add(const cv::Mat& frame, double share)
{
    cv::accumulateWeighted(frame, m_mean, share);
}

} // namespace vistrel
