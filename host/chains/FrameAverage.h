// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The processing element "Frame Average".
#pragma once

#include "chains/ChainElement.h"
#include "chains/RunningMean.h"

namespace vistrel {

/// Takes the mean of the frames, which takes noise out of a scene that stands still: of all frames
/// until there are as many as wanted, then each new one replaces its share of the mean. A frame of
/// another size or type begins anew.
class FrameAverage : public ChainElement {
    Q_OBJECT
    Q_CLASSINFO("customName", "Frame Average")

public:
    FrameAverage();

private:
    QString apply(CxImageData& image) override;
    void forget() override { m_mean.forget(); }
    void average(const SxPicBufInfo& picture, const cv::Mat& from, cv::Mat& to);

    RunningMean m_mean;
    int m_frames = 0; ///< that are in the mean
    ResultPicture m_result;
};

} // namespace vistrel
