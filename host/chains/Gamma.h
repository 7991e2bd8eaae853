// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The processing element "Gamma".
#pragma once

#include "chains/ChainElement.h"
#include "chains/ResultPicture.h"

#include <opencv2/core.hpp>

namespace vistrel {

/// Lightens (above 1) or darkens (below 1) the middle of the range; 0 and white stay.
class Gamma : public ChainElement {
    Q_OBJECT
    Q_CLASSINFO("customName", "Gamma")

public:
    Gamma();

private:
    QString apply(CxImageData& image) override;
    void settingsChanged() override { m_table.release(); }
    const cv::Mat& tableFor(double white, int depth);

    cv::Mat m_table; ///< the result of every value of an unsigned type
    double m_white = 0.0;
    ResultPicture m_result;
};

} // namespace vistrel
