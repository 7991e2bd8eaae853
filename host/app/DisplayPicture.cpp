// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Grey pictures stay grey; all others go by way of red, green, blue, alpha.
#include "app/DisplayPicture.h"

#include "core/PicBufMat.h"
#include "core/PicBufView.h"
#include "core/ShownValues.h"

#include <opencv2/imgproc.hpp>

#include <QtCore/QRect>

namespace vistrel {

namespace {

/// A record for a part of the buffer's pixels, which stay the buffer's.
SxPicBuf partOf(const SxPicBuf& buffer, const QRect& pixels)
{
    SxPicBuf part = buffer;
    part.data += static_cast<std::size_t>(pixels.y()) * buffer.stride
                 + static_cast<std::size_t>(pixels.x()) * buffer.bytesPerPixel();
    part.width = static_cast<quint32>(pixels.width());
    part.height = static_cast<quint32>(pixels.height());
    return part;
}

bool mayBeHalved(const cv::Size& size, const cv::Size& wanted)
{
    return size.width % 2 == 0 && size.height % 2 == 0 && size.width >= 2 * wanted.width
           && size.height >= 2 * wanted.height;
}

/// What a picture is reduced to.
cv::Size wantedSize(const cv::Size& size, const QSize& largest)
{
    return {std::clamp(largest.width(), 1, size.width),
            std::clamp(largest.height(), 1, size.height)};
}

cv::Mat reduced(const cv::Mat& pixels, const QSize& largest)
{
    const cv::Size wanted = wantedSize(pixels.size(), largest);
    cv::Mat result = pixels;
    // Averaging two by two is many times quicker than by any other factor.
    while (mayBeHalved(result.size(), wanted)) {
        cv::Mat half;
        cv::resize(result, half, result.size() / 2, 0.0, 0.0, cv::INTER_AREA);
        result = half;
    }
    if (result.size() == wanted)
        return result;
    cv::Mat last;
    // By less than two: enlarged first, which leaves no pixel out, and then halved.
    if (result.cols < 2 * wanted.width && result.rows < 2 * wanted.height) {
        cv::resize(result, last, wanted * 2, 0.0, 0.0, cv::INTER_LINEAR);
        result = last;
        last = cv::Mat();
    }
    cv::resize(result, last, wanted, 0.0, 0.0, cv::INTER_AREA);
    return last;
}

/// The matrix' pixels without a copy, if they are its own.
QImage imageOf(const cv::Mat& pixels, QImage::Format format)
{
    const bool ownsPixels = pixels.u != nullptr;
    const auto release = [](void* kept) { delete static_cast<cv::Mat*>(kept); };
    const QImage image(pixels.data, pixels.cols, pixels.rows, static_cast<qsizetype>(pixels.step),
                       format, ownsPixels ? +release : nullptr,
                       ownsPixels ? new cv::Mat(pixels) : nullptr);
    return ownsPixels ? image : image.copy();
}

/// Red, green, blue, alpha. What can be is made smaller first: all that follows costs by the pixel.
cv::Mat reducedColours(const SxPicBuf& buffer, const ValueRange& range, const QSize& largest)
{
    const cv::Size size(static_cast<int>(buffer.width), static_cast<int>(buffer.height));
    cv::Mat colours;
    if (isRaw(buffer) && mayBeHalved(size, wantedSize(size, largest))) {
        cv::cvtColor(reduced(coloursOfCells(buffer, range), largest), colours, cv::COLOR_RGB2RGBA);
    } else if (!isPacked(buffer) && (buffer.channels == 3 || buffer.channels == 4)) {
        convertBytesToRgba(buffer, reduced(bytesOf(buffer, range), largest), colours);
    } else {
        convertToRgba(buffer, range, colours);
        return reduced(colours, largest);
    }
    return colours;
}

QImage convertedPart(const SxPicBuf& part, const ValueRange& range, const QSize& largest)
{
    const AlignedPicture aligned(part);
    if (isShownGrey(part))
        return imageOf(reduced(bytesOf(aligned.buffer(), range), largest),
                       QImage::Format_Grayscale8);
    return imageOf(reducedColours(aligned.buffer(), range, largest), QImage::Format_RGBX8888);
}

} // namespace

QImage displayPicture(const SxPicBuf& buffer, const ValueRange& range, const QRect& pixels,
                      const QSize& largest)
{
    QImage result;
    if (!hasPixels(buffer) || !fitsMat(buffer) || buffer.channels > CV_CN_MAX)
        return result;
    const QRect whole(0, 0, static_cast<int>(buffer.width), static_cast<int>(buffer.height));
    const QRect inside = pixels & whole;
    if (inside.isEmpty())
        return result;
    guarded("Showing a picture", [&] {
        result = convertedPart(partOf(buffer, inside), range, largest);
        return true;
    });
    return result;
}

} // namespace vistrel
