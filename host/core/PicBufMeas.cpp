// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Statistics of rectangles, lines and columns.
#include <CxPicBufMeas.h>

#include "core/ChannelNames.h"
#include "core/PicBufView.h"
#include "core/PixelLines.h"
#include "core/PixelStatistics.h"

#include <CxImageData.h>

using vistrel::AlignedPicture;
using vistrel::PixelRect;

CxHistoData::CxPixelStats vistrel::statsOfExactSums(quint64 count, quint64 sum, quint64 squares,
                                                    double minimum, double maximum, qint64 offset)
{
    // n^2 times the variance, which can need more than 64 bits.
    __extension__ using Wide = unsigned __int128;
    const Wide deviations = Wide{count} * squares - Wide{sum} * sum;
    const auto n = static_cast<double>(count);
    const qint64 realSum = static_cast<qint64>(sum) + static_cast<qint64>(count) * offset;
    return pixelStats(minimum, maximum, static_cast<double>(realSum) / n,
                      static_cast<double>(deviations) / n / n);
}

namespace {

/// The colours of a filter's four positions: the two of an even line, then those of an odd one.
QList<QString> filterNames(ExColorFilterArray pattern)
{
    const QString red = QStringLiteral("Red");
    const QString green1 = QStringLiteral("Green 1");
    const QString green2 = QStringLiteral("Green 2");
    const QString blue = QStringLiteral("Blue");
    switch (pattern) {
    case ExColorFilterArray::RGGB:
        return {red, green1, green2, blue};
    case ExColorFilterArray::GRBG:
        return {green1, red, blue, green2};
    case ExColorFilterArray::GBRG:
        return {green1, blue, red, green2};
    case ExColorFilterArray::BGGR:
        return {blue, green1, green2, red};
    default:
        return {};
    }
}

template<class Element>
using ChannelSums = typename vistrel::SumsFor<Element>::Channels;

template<class Element, class Lines>
void measureChannels(CxHistoData& result, std::size_t channels, std::size_t pixels, Lines lines)
{
    ChannelSums<Element> sums(channels);
    lines([&](const Element* line) { sums.addLine(line, channels * pixels); });
    for (std::size_t c = 0; c < channels; ++c)
        result.stats << sums.stats(c);
}

/// Even and odd columns are like two channels. Positions of which the rectangle has no pixel are
/// left out.
template<class Element>
void measureFilterPositions(CxHistoData& result, const SxPicBuf& buffer, const PixelRect& rect)
{
    std::vector<ChannelSums<Element>> sums(2, ChannelSums<Element>(2)); // of even and odd lines
    auto row = static_cast<std::size_t>(rect.top);
    vistrel::forEachLineOf<Element>(buffer, rect, [&](const Element* line) {
        sums[row++ % 2].addLine(line, static_cast<std::size_t>(rect.width()));
    });
    const QList<QString> names = filterNames(buffer.colorFilterArray);
    for (std::size_t position = 0; position < 4; ++position) {
        const std::size_t column = (position + static_cast<std::size_t>(rect.left)) % 2;
        if (sums[position / 2].isEmpty(column))
            continue;
        result.channelNames << names[static_cast<qsizetype>(position)];
        result.stats << sums[position / 2].stats(column);
    }
}

CxHistoData measured(const SxPicBuf& buffer, const PixelRect& rect, bool splitsFilter)
{
    CxHistoData result;
    if (splitsFilter) {
        vistrel::visitElementType(buffer.dataType, [&](auto element) {
            measureFilterPositions<decltype(element)>(result, buffer, rect);
        });
        return result;
    }
    result.channelNames = vistrel::channelNames(buffer);
    vistrel::visitLinesOf(buffer, rect, [&](auto element, std::size_t channels, auto lines) {
        measureChannels<decltype(element)>(result, channels, static_cast<std::size_t>(rect.width()),
                                           lines);
    });
    return result;
}

using StatsLists = QList<QList<CxHistoData::CxPixelStats>>;

template<class Element, class Lines>
void measureRows(StatsLists& stats, std::size_t channels, std::size_t pixels, Lines lines)
{
    lines([&](const Element* line) {
        ChannelSums<Element> sums(channels);
        sums.addLine(line, channels * pixels);
        for (std::size_t c = 0; c < channels; ++c)
            stats[static_cast<qsizetype>(c)] << sums.stats(c);
    });
}

/// Line by line too: walking down a column would fetch a cache line for every pixel.
template<class Element, class Lines>
void measureColumns(StatsLists& stats, std::size_t channels, std::size_t pixels, Lines lines)
{
    typename vistrel::SumsFor<Element>::Columns columns(channels * pixels);
    lines([&](const Element* line) { columns.addLine(line); });
    for (std::size_t i = 0; i < channels * pixels; ++i)
        stats[static_cast<qsizetype>(i % channels)] << columns.stats(i);
}

CxProfileData profiled(const SxPicBuf& buffer, const PixelRect& rect, bool rows)
{
    CxProfileData result;
    result.channelNames = vistrel::channelNames(buffer);
    result.stats.resize(result.channelNames.size());
    for (auto& channel : result.stats)
        channel.reserve(rows ? rect.height() : rect.width());
    vistrel::visitLinesOf(buffer, rect, [&](auto element, std::size_t channels, auto lines) {
        using Element = decltype(element);
        const auto pixels = static_cast<std::size_t>(rect.width());
        if (rows)
            measureRows<Element>(result.stats, channels, pixels, lines);
        else
            measureColumns<Element>(result.stats, channels, pixels, lines);
    });
    return result;
}

/// The image's buffer; null when it has no pixels. Looking at it changes nothing, though the
/// accessor also serves those that write.
const SxPicBuf* pixelsOf(const CxImageData* image)
{
    const SxPicBuf* const buffer =
        image != nullptr ? const_cast<CxImageData*>(image)->picBuf() : nullptr;
    return buffer != nullptr && vistrel::hasPixels(*buffer) ? buffer : nullptr;
}

PixelRect insideOf(const SxPicBuf& buffer, const QRect& rect)
{
    const PixelRect whole{.left = rect.left(),
                          .top = rect.top(),
                          .right = qint64{rect.right()} + 1,
                          .bottom = qint64{rect.bottom()} + 1};
    return whole.within(PixelRect::of(buffer));
}

} // namespace

bool CxPicBufMeas::measureHistogram(CxHistoData& result, const CxImageData* image,
                                    const QRect& rect, CxHistoData::ExHistoDataFlags flags)
{
    const SxPicBuf* const buffer = pixelsOf(image);
    if (buffer == nullptr || insideOf(*buffer, rect).isEmpty())
        return false;
    const bool isRaw = buffer->channels == 1 && !vistrel::isPacked(*buffer)
                       && !filterNames(buffer->colorFilterArray).isEmpty();
    return vistrel::guarded("Measuring a picture", [&] {
        const AlignedPicture aligned(*buffer);
        result = measured(aligned.buffer(), insideOf(*buffer, rect),
                          isRaw && flags.testFlag(CxHistoData::SplitRawColors));
        return true;
    });
}

bool CxPicBufMeas::measureRowsColumnsProfileStats(bool rows, CxProfileData& result,
                                                  const CxImageData* image, const QRect& rect)
{
    const SxPicBuf* const buffer = pixelsOf(image);
    if (buffer == nullptr || insideOf(*buffer, rect).isEmpty())
        return false;
    return vistrel::guarded("Measuring profiles", [&] {
        const AlignedPicture aligned(*buffer);
        result = profiled(aligned.buffer(), insideOf(*buffer, rect), rows);
        return true;
    });
}
