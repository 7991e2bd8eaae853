// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The processing element "Background Subtraction".
#pragma once

#include "chains/ChainElement.h"
#include "chains/RunningMean.h"

namespace vistrel {

/// Shows what differs from a background that follows the frames slowly. The first frame is the
/// first background; a frame of another size or type begins anew.
class BackgroundSubtraction : public ChainElement {
    Q_OBJECT
    Q_CLASSINFO("customName", "Background Subtraction")

public:
    BackgroundSubtraction();

private:
    QString apply(CxImageData& image) override;
    void forget() override { m_mean.forget(); }
    void subtract(const SxPicBufInfo& picture, const cv::Mat& from, cv::Mat& to);

    RunningMean m_mean;
    cv::Mat m_background; ///< the mean as a frame
    ResultPicture m_result;
};

} // namespace vistrel
