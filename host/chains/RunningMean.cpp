// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// A mean over frames, for elements that look back.
#include "chains/RunningMean.h"

#include <opencv2/imgproc.hpp>

#include <tuple>

namespace vistrel {

namespace {

/// Whether the values of two pictures mean the same.
bool isAlike(const SxPicBufInfo& one, const SxPicBufInfo& other)
{
    const auto kindOf = [](const SxPicBufInfo& info) {
        return std::tie(info.width, info.height, info.channels, info.dataType, info.bpc, info.isRgb,
                        info.colorFilterArray);
    };
    return kindOf(one) == kindOf(other);
}

} // namespace

FilterKind RunningMean::kind() { return {{CV_8U, CV_16U, CV_32F, CV_64F}, false}; }

bool RunningMean::begin(const cv::Mat& frame, const SxPicBufInfo& picture)
{
    if (!m_mean.empty() && isAlike(m_picture, picture))
        return false;
    m_picture = picture;
    m_frameDepth = frame.depth();
    frame.convertTo(m_mean, m_frameDepth == CV_64F ? CV_64F : CV_32F);
    return true;
}

void RunningMean::add(const cv::Mat& frame, double share)
{
    cv::accumulateWeighted(frame, m_mean, share);
}

} // namespace vistrel
