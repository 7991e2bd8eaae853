// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Sums from which minimum, maximum, mean, deviation and root mean square come, in one pass.
#pragma once

#include "core/ExactSums.h"
#include "core/Moments.h"
#include "core/PixelLines.h"

#include <vector>

namespace vistrel {

template<class Element>
constexpr bool hasExactSums = std::is_integral_v<Element> && sizeof(Element) <= 2;

/// Moments for each channel of pixels that lie side by side, which are taken apart.
template<class Element>
class ChannelMoments {
public:
    explicit ChannelMoments(std::size_t channels)
        : m_runs(channels)
        , m_moments(channels)
    {
    }

    /// The first value is of the first channel; the last may be of any.
    void addLine(const Element* line, std::size_t values)
    {
        m_runs.load(line, values);
        for (std::size_t c = 0; c < m_moments.size(); ++c)
            m_moments[c].addRun(m_runs.run(c), m_runs.count(c));
    }

    bool isEmpty(std::size_t channel) const { return m_moments[channel].isEmpty(); }
    CxHistoData::CxPixelStats stats(std::size_t channel) const
    {
        return m_moments[channel].stats();
    }

private:
    ChannelRuns<Element> m_runs;
    std::vector<BlockMoments<Element>> m_moments;
};

template<class Element>
struct SumsFor {
    using Channels = ChannelMoments<Element>;
    using Columns = RunningColumnMoments<Element>;
};

template<class Element>
requires hasExactSums<Element>
struct SumsFor<Element> {
    using Channels = ExactChannelSums<Element>;
    using Columns = ExactColumnSums<Element>;
};

} // namespace vistrel
