// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Scaling by weights that are worked out for the visible columns and lines alone: the rectangle
// scaled to may be far larger than the target.
#include "core/Resampler.h"

#include "core/PicBufView.h"
#include "core/ValueConversion.h"

#include <vector>

namespace vistrel {

namespace {

/// The source positions that make one target position, with weights whose sum is 1.
struct Taps {
    qint64 first = 0;
    std::vector<double> weights;
};

/// The part of each source position that the target position covers.
Taps areaTaps(qint64 position, double scale, qint64 sourceSize)
{
    const double begin = static_cast<double>(position) * scale;
    const double end = std::min(begin + scale, static_cast<double>(sourceSize));
    Taps taps{.first = std::min(static_cast<qint64>(begin), sourceSize - 1), .weights = {}};
    double sum = 0.0;
    for (qint64 i = taps.first; i < sourceSize && static_cast<double>(i) < end; ++i) {
        const double covered =
            std::min(end, static_cast<double>(i + 1)) - std::max(begin, static_cast<double>(i));
        taps.weights.push_back(std::max(covered, 0.0));
        sum += taps.weights.back();
    }
    if (!(sum > 0.0))
        return {.first = taps.first, .weights = {1.0}};
    for (double& weight : taps.weights)
        weight /= sum;
    return taps;
}

/// The two neighbours of the target position's middle; beyond the edge the edge goes on.
Taps linearTaps(qint64 position, double scale, qint64 sourceSize)
{
    const double middle = (static_cast<double>(position) + 0.5) * scale - 0.5;
    const double inside = std::clamp(middle, 0.0, static_cast<double>(sourceSize - 1));
    const auto first = static_cast<qint64>(inside);
    const double second = inside - static_cast<double>(first);
    if (second > 0.0)
        return {.first = first, .weights = {1.0 - second, second}};
    return {.first = first, .weights = {1.0}};
}

/// Taps for the positions [begin, end) of a side that is scaled to targetSize.
std::vector<Taps> tapsFor(qint64 begin, qint64 end, qint64 sourceSize, qint64 targetSize,
                          Interpolation interpolation)
{
    const double scale = static_cast<double>(sourceSize) / static_cast<double>(targetSize);
    const auto make = interpolation == Interpolation::Area ? &areaTaps : &linearTaps;
    std::vector<Taps> taps;
    taps.reserve(static_cast<std::size_t>(end - begin));
    for (qint64 position = begin; position < end; ++position)
        taps.push_back(make(position, scale, sourceSize));
    return taps;
}

/// One target line: the source lines are mixed first, then their columns.
template<class Element>
class LineResampler {
public:
    LineResampler(const SxPicBuf& source, const PixelRect& from, std::vector<Taps> columns)
        : m_source(source)
        , m_from(from)
        , m_columns(std::move(columns))
        , m_mixed(static_cast<std::size_t>(from.width()) * source.channels)
    {
    }

    void write(const Taps& lines, Element* target)
    {
        mixLines(lines);
        const std::size_t channels = m_source.channels;
        for (const Taps& taps : m_columns) {
            const double* const first = &m_mixed[static_cast<std::size_t>(taps.first) * channels];
            for (std::size_t c = 0; c < channels; ++c, ++target) {
                double sum = 0.0;
                for (std::size_t i = 0; i < taps.weights.size(); ++i)
                    sum += taps.weights[i] * first[i * channels + c];
                *target = nearest<Element>(sum);
            }
        }
    }

private:
    void mixLines(const Taps& lines)
    {
        std::fill(m_mixed.begin(), m_mixed.end(), 0.0);
        auto y = static_cast<std::size_t>(m_from.top + lines.first);
        for (const double weight : lines.weights) {
            const Element* const line = lineOf<Element>(m_source, y++)
                                        + static_cast<std::size_t>(m_from.left) * m_source.channels;
            for (std::size_t i = 0; i < m_mixed.size(); ++i)
                m_mixed[i] += weight * static_cast<double>(line[i]);
        }
    }

    const SxPicBuf& m_source;
    PixelRect m_from;
    std::vector<Taps> m_columns;
    std::vector<double> m_mixed;
};

} // namespace

Interpolation interpolationFor(const PixelRect& from, const PixelRect& to)
{
    const bool growsNowhere = to.width() <= from.width() && to.height() <= from.height();
    return growsNowhere ? Interpolation::Area : Interpolation::Linear;
}

void resample(const SxPicBuf& source, const PixelRect& from, const SxPicBuf& target,
              const PixelRect& to, Interpolation interpolation)
{
    const PixelRect visible = to.within(PixelRect::of(target));
    const PixelRect part = visible.movedBy(-to.left, -to.top);
    const auto lines = tapsFor(part.top, part.bottom, from.height(), to.height(), interpolation);
    visitElementType(source.dataType, [&](auto element) {
        using Element = decltype(element);
        LineResampler<Element> resampler(
            source, from, tapsFor(part.left, part.right, from.width(), to.width(), interpolation));
        auto y = static_cast<std::size_t>(visible.top);
        for (const Taps& taps : lines)
            resampler.write(taps, lineOf<Element>(target, y++)
                                      + static_cast<std::size_t>(visible.left) * target.channels);
    });
}

} // namespace vistrel
