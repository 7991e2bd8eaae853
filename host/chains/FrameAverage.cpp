// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The processing element "Frame Average".
#include "chains/FrameAverage.h"

#include <CxImageData.h>

#include <algorithm>

namespace vistrel {

namespace {

constexpr QLatin1String framesName("frames");

} // namespace

FrameAverage::FrameAverage()
    : ChainElement({wholeSetting(framesName, 8, 2, 1000)})
{
}

void FrameAverage::average(const SxPicBufInfo& picture, const cv::Mat& from, cv::Mat& to)
{
    if (m_mean.begin(from, picture)) {
        m_frames = 1;
    } else {
        m_frames = std::min(m_frames + 1, settings().whole(framesName));
        m_mean.add(from, 1.0 / m_frames);
    }
    m_mean.store(to);
}

QString FrameAverage::apply(CxImageData& image)
{
    const SxPicBufInfo picture = *image.picBuf();
    return filterPixels(image, m_result, RunningMean::kind(),
                        [&](const cv::Mat& from, cv::Mat& to) { average(picture, from, to); });
}

} // namespace vistrel
