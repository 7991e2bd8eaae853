// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The lines of a rectangle, taken apart into channels.
#pragma once

#include "core/Packed565.h"
#include "core/PicBufView.h"
#include "core/PixelRect.h"

#include <opencv2/core.hpp>

#include <vector>

namespace vistrel {

/// Copies every `step`-th of the values at `from`, `count` in all.
template<class Element>
void takeEvery(const Element* from, std::size_t step, std::size_t count, Element* to)
{
    for (std::size_t i = 0; i < count; ++i, from += step)
        to[i] = *from;
}

/// The values of a line as one run a channel.
template<class Element>
class ChannelRuns {
public:
    explicit ChannelRuns(std::size_t channels)
        : m_runs(channels)
    {
    }

    /// The first value is of the first channel; the last may be of any.
    void load(const Element* interleaved, std::size_t values)
    {
        m_line = interleaved;
        m_count = values;
        if (m_runs.size() == 1)
            return;
        for (std::size_t c = 0; c < m_runs.size(); ++c)
            m_runs[c].resize(count(c));
        if (isSplitByOpenCV())
            split();
        else
            for (std::size_t c = 0; c < m_runs.size(); ++c)
                takeEvery(m_line + c, m_runs.size(), count(c), m_runs[c].data());
    }
    const Element* run(std::size_t channel) const
    {
        return m_runs.size() == 1 ? m_line : m_runs[channel].data();
    }
    std::size_t count(std::size_t channel) const
    {
        return (m_count + m_runs.size() - 1 - channel) / m_runs.size();
    }

private:
    /// OpenCV's type of that size: splitting only moves bits.
    static constexpr int carrier = sizeof(Element) == 1   ? CV_8U
                                   : sizeof(Element) == 2 ? CV_16U
                                   : sizeof(Element) == 4 ? CV_32S
                                                          : CV_64F;

    bool isSplitByOpenCV() const
    {
        return m_runs.size() <= 4 && m_count % m_runs.size() == 0
               && m_count <= static_cast<std::size_t>(std::numeric_limits<int>::max());
    }

    void split()
    {
        const auto pixels = static_cast<int>(count(0));
        const cv::Mat line(1, pixels, CV_MAKETYPE(carrier, static_cast<int>(m_runs.size())),
                           const_cast<Element*>(m_line)); // it is only read
        std::vector<cv::Mat> runs;
        for (std::vector<Element>& values : m_runs)
            runs.emplace_back(1, pixels, carrier, values.data());
        cv::split(line, runs.data());
    }

    const Element* m_line = nullptr;
    std::size_t m_count = 0;
    std::vector<std::vector<Element>> m_runs; ///< empty where the line itself is the only run
};

/// Gives every line of a rectangle inside the picture as values side by side: a pointer to the
/// first. Packed words are unpacked to red, green, blue on the way.
template<class Element, class Function>
void forEachLineOf(const SxPicBuf& buffer, const PixelRect& rect, Function function)
{
    const auto left = static_cast<std::size_t>(rect.left);
    for (auto y = static_cast<std::size_t>(rect.top); y < static_cast<std::size_t>(rect.bottom);
         ++y)
        function(lineOf<const Element>(buffer, y) + left * buffer.channels);
}

template<class Function>
void forEachUnpackedLineOf(const SxPicBuf& buffer, const PixelRect& rect, Function function)
{
    std::vector<quint8> values(static_cast<std::size_t>(rect.width()) * packed565::colors);
    for (auto y = static_cast<std::size_t>(rect.top); y < static_cast<std::size_t>(rect.bottom);
         ++y) {
        const quint16* word = lineOf<quint16>(buffer, y) + rect.left;
        for (std::size_t i = 0; i < values.size(); i += packed565::colors, ++word)
            for (std::size_t c = 0; c < packed565::colors; ++c)
                values[i + c] = static_cast<quint8>(packed565::valueOf(*word, c));
        function(static_cast<const quint8*>(values.data()));
    }
}

/// Calls function(Element{}, channels, lines), where lines(f) gives every line of the rectangle to
/// f(const Element*).
template<class Function>
void visitLinesOf(const SxPicBuf& buffer, const PixelRect& rect, Function function)
{
    if (isPacked(buffer)) {
        function(quint8{}, packed565::colors,
                 [&](auto each) { forEachUnpackedLineOf(buffer, rect, each); });
        return;
    }
    visitElementType(buffer.dataType, [&](auto element) {
        using Element = decltype(element);
        function(element, std::size_t{buffer.channels},
                 [&](auto each) { forEachLineOf<Element>(buffer, rect, each); });
    });
}

} // namespace vistrel
