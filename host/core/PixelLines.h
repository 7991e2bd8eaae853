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

/// The pixels of a line as one run a channel.
template<class Element>
class ChannelRuns {
public:
    ChannelRuns(std::size_t channels, std::size_t pixels)
        : m_channels(channels)
        , m_pixels(pixels)
        , m_values(channels > 1 ? channels * pixels : 0)
    {
        constexpr auto mostPixels = static_cast<std::size_t>(std::numeric_limits<int>::max());
        if (channels < 2 || channels > 4 || pixels > mostPixels)
            return;
        for (std::size_t c = 0; c < channels; ++c)
            m_runs.emplace_back(1, static_cast<int>(pixels), carrier, &m_values[c * pixels]);
    }

    void load(const Element* interleaved)
    {
        m_line = interleaved;
        if (!m_runs.empty()) {
            const cv::Mat pixels(1, static_cast<int>(m_pixels),
                                 CV_MAKETYPE(carrier, static_cast<int>(m_channels)),
                                 const_cast<Element*>(interleaved)); // it is only read
            cv::split(pixels, m_runs.data());
        } else if (m_channels > 1) {
            for (std::size_t c = 0; c < m_channels; ++c)
                takeEvery(m_line + c, m_channels, m_pixels, &m_values[c * m_pixels]);
        }
    }
    const Element* run(std::size_t channel) const
    {
        return m_channels == 1 ? m_line : &m_values[channel * m_pixels];
    }

private:
    /// OpenCV's type of that size: splitting only moves bits.
    static constexpr int carrier = sizeof(Element) == 1   ? CV_8U
                                   : sizeof(Element) == 2 ? CV_16U
                                   : sizeof(Element) == 4 ? CV_32S
                                                          : CV_64F;

    std::size_t m_channels;
    std::size_t m_pixels;
    std::vector<Element> m_values;
    std::vector<cv::Mat> m_runs; ///< over m_values, where OpenCV splits
    const Element* m_line = nullptr;
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
