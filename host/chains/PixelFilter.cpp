// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Filters of OpenCV on pictures of every element type.
#include "chains/PixelFilter.h"

#include "core/PicBufMat.h"
#include "core/PicBufView.h"
#include "core/ValueRange.h"

#include <CxImageData.h>
#include <CxPicBufAPI.h>

#include <algorithm>
#include <optional>

namespace vistrel {

namespace {

bool isRaw(const SxPicBufInfo& info)
{
    return info.colorFilterArray != ExColorFilterArray::None && info.channels == 1;
}

/// Why no filter takes such a picture; an empty text when one does.
QString reasonAgainst(const SxPicBuf& buffer)
{
    constexpr unsigned exactBits = std::numeric_limits<double>::digits;
    if (isPacked(buffer))
        return QStringLiteral("their pixels are packed into 16 bits");
    if (!isFloatingPoint(buffer) && significantBits(buffer) > exactBits)
        return QStringLiteral("their values have more than %1 bits").arg(exactBits);
    if (buffer.channels > CV_CN_MAX || !fitsMat(buffer))
        return QStringLiteral("they are too large");
    return {};
}

std::optional<int> directDepth(const SxPicBuf& buffer, const FilterKind& kind)
{
    const auto depth = matDepthOf(buffer.dataType);
    const bool isTaken = depth && std::count(kind.depths.begin(), kind.depths.end(), *depth) > 0;
    return isTaken ? depth : std::nullopt;
}

/// The pixels of two neighbours in every other line: of each colour of the filter one channel.
cv::Mat colourPairs(const cv::Mat& raw, int firstLine)
{
    const int lines = (raw.rows - firstLine + 1) / 2;
    return {lines, raw.cols / 2, CV_MAKETYPE(raw.depth(), 2),
            const_cast<uchar*>(raw.ptr(std::min(firstLine, raw.rows - 1))), raw.step * 2};
}

/// A line or column that has no pair stays as it is.
void filterRaw(const cv::Mat& from, cv::Mat& to, const MatFunction& filter)
{
    if (from.cols % 2 != 0)
        from.col(from.cols - 1).copyTo(to.col(to.cols - 1));
    for (const int firstLine : {0, 1}) {
        cv::Mat target = colourPairs(to, firstLine);
        if (!target.empty())
            filter(colourPairs(from, firstLine), target);
    }
}

void filterAligned(const SxPicBuf& source, const SxPicBuf& target, int depth,
                   const FilterKind& kind, const MatFunction& filter)
{
    if (!kind.looksAround) {
        cv::Mat to = valuesMatOver(target, depth);
        filter(valuesMatOver(source, depth), to);
        return;
    }
    const int channels = static_cast<int>(source.channels);
    cv::Mat to = matOver(target, depth, channels);
    if (isRaw(source))
        filterRaw(matOver(source, depth, channels), to, filter);
    else
        filter(matOver(source, depth, channels), to);
}

/// By way of pictures of doubles.
void filterAsDoubles(const SxPicBuf& source, SxPicBuf& target, const FilterKind& kind,
                     const MatFunction& filter)
{
    SxPicBufInfo info = source;
    info.dataType = ExImageDataType::Double;
    info.bpc = 0;
    info.stride = 0;
    ResultPicture from;
    ResultPicture to;
    CxPicBufAPI::ConvertPicToDifBpc(source, from.shaped(info), false);
    filterAligned(from.buffer(), to.shaped(info), CV_64F, kind, filter);
    CxPicBufAPI::ConvertPicToDifBpc(to.buffer(), target, false);
}

} // namespace

QString filterPixels(CxImageData& image, ResultPicture& result, const FilterKind& kind,
                     const MatFunction& filter)
{
    const SxPicBuf& source = *image.picBuf();
    QString reason = reasonAgainst(source);
    if (!reason.isEmpty())
        return reason;
    SxPicBuf& target = result.shaped(source);
    if (const auto depth = directDepth(source, kind))
        filterAligned(AlignedPicture(source).buffer(), target, *depth, kind, filter);
    else
        filterAsDoubles(source, target, kind, filter);
    result.exchange(image);
    return {};
}

double whiteOf(const SxPicBuf& buffer)
{
    const double white = fullRange(buffer).white;
    return visitElementType(buffer.dataType, [white](auto element) {
        return std::min(white, static_cast<double>(std::numeric_limits<decltype(element)>::max()));
    });
}

} // namespace vistrel
