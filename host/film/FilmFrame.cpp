// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Conversion of pictures of any kind for encoders.
#include "film/FilmFrame.h"

#include "core/PicBufMat.h"
#include "core/PicBufView.h"

#include <CxPicBufAPI.h>

#include <opencv2/imgproc.hpp>

#include <algorithm>

namespace vistrel {

namespace {

/// The smallest that the encoders take without writing beyond their memory.
constexpr unsigned leastSide = 16;

int encodedSide(unsigned side) { return static_cast<int>(std::max(side + side % 2, leastSide)); }

bool isPlainGrey(const SxPicBuf& picture)
{
    return picture.dataType == ExImageDataType::UInt8 && picture.channels == 1
           && significantBits(picture) == 8 && picture.colorFilterArray == ExColorFilterArray::None;
}

/// A record over the pixels of a matrix.
SxPicBuf bufferOver(const cv::Mat& rgba)
{
    SxPicBuf buffer;
    buffer.width = static_cast<quint32>(rgba.cols);
    buffer.height = static_cast<quint32>(rgba.rows);
    buffer.stride = static_cast<quint32>(rgba.step);
    buffer.channels = 4;
    buffer.bpc = 8;
    buffer.dataType = ExImageDataType::UInt8;
    buffer.isRgb = true;
    buffer.data = rgba.data;
    return buffer;
}

cv::Size largestWithin(const cv::Size& size, const cv::Size& bounds)
{
    const double scale = std::min(static_cast<double>(bounds.width) / size.width,
                                  static_cast<double>(bounds.height) / size.height);
    return {std::clamp(cvRound(size.width * scale), 1, bounds.width),
            std::clamp(cvRound(size.height * scale), 1, bounds.height)};
}

} // namespace

FilmFrame::FilmFrame(unsigned width, unsigned height)
    : m_size(encodedSide(width), encodedSide(height))
{
}

bool FilmFrame::draw(const SxPicBuf& picture)
{
    if (!hasPixels(picture) || !fitsMat(picture) || !convert(picture))
        return false;
    const bool hasFilmsSize =
        encodedSide(picture.width) == m_size.width && encodedSide(picture.height) == m_size.height;
    const int right = m_size.width - m_colours.cols;
    const int bottom = m_size.height - m_colours.rows;
    if (!hasFilmsSize)
        fit();
    else if (right == 0 && bottom == 0)
        m_pixels = m_colours;
    else if (right <= 1 && bottom <= 1)
        cv::copyMakeBorder(m_colours, m_pixels, 0, bottom, 0, right, cv::BORDER_REPLICATE);
    else
        cv::copyMakeBorder(m_colours, m_pixels, 0, bottom, 0, right, cv::BORDER_CONSTANT);
    return true;
}

bool FilmFrame::convert(const SxPicBuf& picture)
{
    if (isPlainGrey(picture)) {
        cv::cvtColor(matOver(picture, CV_8U, 1), m_colours, cv::COLOR_GRAY2BGR);
        return true;
    }
    m_rgba.create(static_cast<int>(picture.height), static_cast<int>(picture.width), CV_8UC4);
    SxPicBuf target = bufferOver(m_rgba);
    if (!CxPicBufAPI::ConvertPicToRGB(picture, target))
        return false;
    cv::cvtColor(m_rgba, m_colours, cv::COLOR_RGBA2BGR);
    return true;
}

void FilmFrame::fit()
{
    const cv::Size inner = largestWithin(m_colours.size(), m_size);
    const cv::Rect place((m_size.width - inner.width) / 2, (m_size.height - inner.height) / 2,
                         inner.width, inner.height);
    cv::Mat page(m_size, CV_8UC3, cv::Scalar::all(0));
    cv::Mat part = page(place);
    cv::resize(m_colours, part, inner, 0, 0, cv::INTER_AREA);
    m_pixels = page;
}

} // namespace vistrel
