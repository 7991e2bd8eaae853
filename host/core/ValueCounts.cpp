// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// A table of all values for narrow integers, 1024 bins between the extremes for all else.
#include "core/ValueCounts.h"

#include "core/ChannelNames.h"
#include "core/PicBufView.h"
#include "core/PixelLines.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <type_traits>

namespace vistrel {

namespace {

constexpr std::size_t wideBins = 1024;
constexpr double mostSampledPixels = 400'000.0;

template<class Element>
constexpr bool isNarrow = std::is_integral_v<Element> && sizeof(Element) <= 2;

/// Alpha says nothing about how bright a picture is.
std::size_t colorsOf(std::size_t channels) { return channels == 4 ? 3 : channels; }

/// Gives every lineStep-th line's channels to function(channel, first value).
template<class Element, class Lines, class Function>
void forEachRun(std::size_t channels, std::size_t pixels, std::size_t lineStep, Lines lines,
                Function function)
{
    ChannelRuns<Element> runs(channels);
    std::size_t number = 0;
    lines([&](const Element* line) {
        if (number++ % lineStep != 0)
            return;
        runs.load(line, channels * pixels);
        for (std::size_t c = 0; c < channels; ++c)
            function(c, runs.run(c));
    });
}

template<class Element>
class Extremes {
public:
    void add(const Element* values, std::size_t count)
    {
        for (std::size_t i = 0; i < count; ++i) {
            if constexpr (std::is_floating_point_v<Element>) {
                if (!std::isfinite(values[i]))
                    continue;
            }
            m_least = std::min(m_least, values[i]);
            m_most = std::max(m_most, values[i]);
        }
    }
    std::optional<ValueRange> range() const
    {
        if (m_least > m_most)
            return std::nullopt;
        return ValueRange{static_cast<double>(m_least), static_cast<double>(m_most)};
    }

private:
    Element m_least = std::numeric_limits<Element>::max();
    Element m_most = std::numeric_limits<Element>::lowest();
};

/// Counts narrow integers, without a question about each.
template<class Element>
class NarrowBins {
public:
    explicit NarrowBins(std::size_t channels)
        : m_counts(channels, std::vector<quint64>(std::size_t{1} << (8 * sizeof(Element))))
    {
    }

    void add(std::size_t channel, const Element* values, std::size_t count)
    {
        quint64* const counts = m_counts[channel].data() - least;
        for (std::size_t i = 0; i < count; ++i)
            ++counts[values[i]];
    }

    /// Without the empty bins above the significant bits.
    ValueCounts result(unsigned bits) &&
    {
        std::size_t used =
            std::is_signed_v<Element> ? m_counts.front().size() : fullScale(bits) + 1;
        for (const auto& counts : m_counts) {
            const auto last =
                std::find_if(counts.rbegin(), counts.rend(), [](quint64 n) { return n > 0; });
            used = std::max(used, static_cast<std::size_t>(counts.rend() - last));
        }
        for (auto& counts : m_counts)
            counts.resize(used);
        ValueCounts result;
        result.first = double{least};
        result.channels = std::move(m_counts);
        return result;
    }

private:
    static constexpr int least = std::numeric_limits<Element>::lowest();
    std::vector<std::vector<quint64>> m_counts;
};

template<class Element>
class WideBins {
public:
    WideBins(std::size_t channels, const ValueRange& extremes)
    {
        // The difference of the extremes may be too large for a number.
        const double width = extremes.white / wideBins - extremes.black / wideBins;
        const bool hasBinPerValue = width <= 0.0 || (std::is_integral_v<Element> && width < 1.0);
        m_result.first = extremes.black;
        m_result.binWidth = hasBinPerValue ? 1.0 : width;
        const std::size_t bins = hasBinPerValue
                                     ? static_cast<std::size_t>(extremes.white - extremes.black) + 1
                                     : wideBins;
        m_result.channels.assign(channels, std::vector<quint64>(bins));
    }

    void add(std::size_t channel, const Element* values, std::size_t count)
    {
        std::vector<quint64>& counts = m_result.channels[channel];
        const double first = m_result.first / m_result.binWidth;
        const double last = static_cast<double>(counts.size() - 1);
        for (std::size_t i = 0; i < count; ++i) {
            const auto value = static_cast<double>(values[i]);
            if (!std::isfinite(value))
                continue;
            const double bin = value / m_result.binWidth - first;
            ++counts[static_cast<std::size_t>(std::clamp(bin, 0.0, last))];
        }
    }

    ValueCounts result() && { return std::move(m_result); }

private:
    ValueCounts m_result;
};

template<class Element, class Lines>
std::optional<ValueRange> extremes(std::size_t channels, std::size_t used, std::size_t pixels,
                                   std::size_t lineStep, Lines lines)
{
    Extremes<Element> found;
    if (used == channels) { // then nobody asks which value is whose
        forEachRun<Element>(1, pixels, lineStep, lines, [&](std::size_t, const Element* values) {
            found.add(values, channels * pixels);
        });
        return found.range();
    }
    forEachRun<Element>(channels, pixels, lineStep, lines,
                        [&](std::size_t channel, const Element* values) {
                            if (channel < used)
                                found.add(values, pixels);
                        });
    return found.range();
}

std::optional<ValueCounts> countAligned(const SxPicBuf& buffer, const PixelRect& rect,
                                        std::size_t lineStep)
{
    std::optional<ValueCounts> result;
    const auto pixels = static_cast<std::size_t>(rect.width());
    visitLinesOf(buffer, rect, [&](auto element, std::size_t channels, auto lines) {
        using Element = decltype(element);
        const auto count = [&](auto& bins) {
            forEachRun<Element>(channels, pixels, lineStep, lines,
                                [&](std::size_t channel, const Element* values) {
                                    bins.add(channel, values, pixels);
                                });
        };
        if constexpr (isNarrow<Element>) {
            NarrowBins<Element> bins(channels);
            count(bins);
            // The largest of packed values are green's, of 6 bits.
            result = std::move(bins).result(isPacked(buffer) ? 6 : significantBits(buffer));
        } else if (const auto range =
                       extremes<Element>(channels, channels, pixels, lineStep, lines)) {
            WideBins<Element> bins(channels, *range);
            count(bins);
            result = std::move(bins).result();
        }
    });
    return result;
}

/// The first bin at which more than `tail` of the counts have gone by.
template<class Iterator>
std::size_t binBeyond(Iterator begin, Iterator end, double tail)
{
    double passed = 0.0;
    const auto isBeyond = [&](quint64 count) {
        passed += static_cast<double>(count);
        return passed > tail;
    };
    return static_cast<std::size_t>(std::find_if(begin, end, isBeyond) - begin);
}

} // namespace

std::optional<ValueCounts> countValues(const SxPicBuf& buffer, const PixelRect& region,
                                       std::size_t lineStep)
{
    std::optional<ValueCounts> result;
    const PixelRect rect = region.within(PixelRect::of(buffer));
    if (!hasPixels(buffer) || rect.isEmpty())
        return result;
    guarded("Counting values", [&] {
        const AlignedPicture aligned(buffer);
        result = countAligned(aligned.buffer(), rect, std::max<std::size_t>(lineStep, 1));
        if (result)
            result->names = channelNames(buffer);
        return true;
    });
    return result;
}

std::optional<ValueRange> extremesOf(const SxPicBuf& buffer)
{
    std::optional<ValueRange> result;
    if (!hasPixels(buffer))
        return result;
    guarded("Looking for the extremes", [&] {
        const AlignedPicture aligned(buffer);
        visitLinesOf(aligned.buffer(), PixelRect::of(buffer),
                     [&](auto element, std::size_t channels, auto lines) {
                         result = extremes<decltype(element)>(channels, colorsOf(channels),
                                                              buffer.width, 1, lines);
                     });
        return true;
    });
    return result;
}

std::optional<ValueRange> percentilesOf(const SxPicBuf& buffer, double tail)
{
    const double pixels = static_cast<double>(buffer.width) * buffer.height;
    const auto step = static_cast<std::size_t>(std::ceil(pixels / mostSampledPixels));
    const auto counts = countValues(buffer, PixelRect::of(buffer), step);
    if (!counts)
        return std::nullopt;
    std::vector<quint64> sums(counts->bins());
    for (std::size_t c = 0; c < colorsOf(counts->channels.size()); ++c)
        std::transform(sums.begin(), sums.end(), counts->channels[c].begin(), sums.begin(),
                       std::plus<>());
    const quint64 all = std::accumulate(sums.begin(), sums.end(), quint64{0});
    const double outside = tail * static_cast<double>(all);
    const std::size_t low = binBeyond(sums.begin(), sums.end(), outside);
    const std::size_t high = sums.size() - 1 - binBeyond(sums.rbegin(), sums.rend(), outside);
    return ValueRange{counts->valueOf(low), counts->valueOf(high)};
}

} // namespace vistrel
