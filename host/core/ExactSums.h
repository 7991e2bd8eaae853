// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Statistics of integers of at most 16 bits from sums without a rounding error.
#pragma once

#include <CxHistoData.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <limits>
#include <numeric>
#include <type_traits>
#include <vector>

namespace vistrel {

/// The record for `count` values of that mean and variance.
inline CxHistoData::CxPixelStats pixelStats(double minimum, double maximum, double mean,
                                            double variance)
{
    return {.minimum = minimum,
            .maximum = maximum,
            .mean = mean,
            .standardDeviation = std::sqrt(variance),
            .rootMeanSquare = std::sqrt(variance + mean * mean)};
}

/// Statistics from exact sums of integers of at most 16 bits, which were shifted by -offset.
CxHistoData::CxPixelStats statsOfExactSums(quint64 count, quint64 sum, quint64 squares,
                                           double minimum, double maximum, qint64 offset);

/// What makes an unsigned number of a signed one: the sign bit turned over, which adds as much.
template<class Element>
constexpr qint64 signOffset =
    std::is_signed_v<Element> ? qint64{std::numeric_limits<Element>::min()} : qint64{0};

template<class Element>
constexpr auto withoutSign(Element value)
{
    using Unsigned = std::make_unsigned_t<Element>;
    return static_cast<Unsigned>(static_cast<Unsigned>(value)
                                 ^ static_cast<Unsigned>(signOffset<Element>));
}

/// What sums of the squares of a part are held in. The sums themselves need 32 bits.
template<class Element>
using SquaresOfPart = std::conditional_t<sizeof(Element) == 1, quint32, quint64>;
/// As many values as such sums hold.
inline constexpr std::size_t mostValuesOfPart = 65536;

/// Exact sums of the values of one channel, for elements of at most 16 bits.
template<class Element>
struct ExactTotal {
    using Unsigned = std::make_unsigned_t<Element>;

    /// Adds values side by side.
    void addRun(const Element* run, std::size_t values)
    {
        while (values > 0) {
            const std::size_t part = std::min(values, mostValuesOfPart);
            addPart(run, part);
            run += part;
            values -= part;
        }
    }

    void add(quint64 newSum, quint64 newSquares, Unsigned newSmallest, Unsigned newLargest)
    {
        sum += newSum;
        squares += newSquares;
        smallest = std::min(smallest, newSmallest);
        largest = std::max(largest, newLargest);
    }

    void addPart(const Element* run, std::size_t values)
    {
        quint32 partSum = 0;
        SquaresOfPart<Element> partSquares = 0;
        Unsigned partSmallest = smallest;
        Unsigned partLargest = largest;
        for (std::size_t i = 0; i < values; ++i) {
            const Unsigned value = withoutSign(run[i]);
            partSum += value;
            partSquares += quint32{value} * value;
            partSmallest = std::min(partSmallest, value);
            partLargest = std::max(partLargest, value);
        }
        add(partSum, partSquares, partSmallest, partLargest);
    }

    quint64 count = 0;
    quint64 sum = 0;
    quint64 squares = 0;
    Unsigned smallest = std::numeric_limits<Unsigned>::max();
    Unsigned largest = 0;
};

/// Exact sums of values that lie side by side, each for itself: they become vector registers.
template<class Element>
class ExactLanes {
public:
    static constexpr std::size_t size = 16 / sizeof(Element);

    /// Adds blocks of `size` values, whose beginnings are `step` values apart.
    void addBlocks(const Element* values, std::size_t blocks, std::size_t step)
    {
        ExactLanes lanes = *this; // a copy that nothing else points to stays in registers
        for (; blocks > 0; --blocks, values += step)
            for (std::size_t i = 0; i < size; ++i)
                lanes.addValue(i, withoutSign(values[i]));
        *this = lanes;
    }

    void addLaneTo(ExactTotal<Element>& total, std::size_t i) const
    {
        total.add(m_sums[i], m_squares[i], m_smallest[i], m_largest[i]);
    }

private:
    using Unsigned = std::make_unsigned_t<Element>;

    static constexpr std::array<Unsigned, size> filledWith(Unsigned value)
    {
        std::array<Unsigned, size> values{};
        values.fill(value);
        return values;
    }

    void addValue(std::size_t i, Unsigned value)
    {
        m_sums[i] += value;
        m_squares[i] += quint32{value} * value;
        m_smallest[i] = std::min(m_smallest[i], value);
        m_largest[i] = std::max(m_largest[i], value);
    }

    std::array<quint32, size> m_sums{};
    std::array<SquaresOfPart<Element>, size> m_squares{};
    std::array<Unsigned, size> m_smallest = filledWith(std::numeric_limits<Unsigned>::max());
    std::array<Unsigned, size> m_largest{};
};

/// Exact sums for each channel of pixels that lie side by side, for elements of at most 16 bits.
/// The channels are not taken apart: every so many registers, each value of a register belongs to
/// the same channel again.
template<class Element>
class ExactChannelSums {
public:
    explicit ExactChannelSums(std::size_t channels)
        : m_totals(channels)
        , m_lanes(channels / std::gcd(channels, lanes))
    {
    }

    /// The first value is of the first channel; the last may be of any.
    void addLine(const Element* line, std::size_t values)
    {
        for (std::size_t c = 0; c < m_totals.size(); ++c)
            m_totals[c].count += (values + m_totals.size() - 1 - c) / m_totals.size();
        if (m_totals.size() == 1) { // the compiler knows a quicker way for these
            m_totals.front().addRun(line, values);
            return;
        }
        const std::size_t period = m_lanes.size() * lanes;
        if (period == 0) // no channels
            return;
        while (values >= period) {
            const std::size_t blocks = std::min(values / period, mostValuesOfPart - m_blocks);
            addBlocks(line, blocks);
            line += blocks * period;
            values -= blocks * period;
        }
        addRest(line, values);
    }

    bool isEmpty(std::size_t channel) const { return m_totals[channel].count == 0; }
    CxHistoData::CxPixelStats stats(std::size_t channel)
    {
        flush();
        const ExactTotal<Element>& total = m_totals[channel];
        const qint64 offset = signOffset<Element>;
        return statsOfExactSums(total.count, total.sum, total.squares,
                                static_cast<double>(total.smallest + offset),
                                static_cast<double>(total.largest + offset), offset);
    }

private:
    static constexpr std::size_t lanes = ExactLanes<Element>::size;

    void addBlocks(const Element* values, std::size_t blocks)
    {
        for (std::size_t i = 0; i < m_lanes.size(); ++i)
            m_lanes[i].addBlocks(values + i * lanes, blocks, m_lanes.size() * lanes);
        m_blocks += blocks;
        if (m_blocks == mostValuesOfPart)
            flush();
    }

    void addRest(const Element* values, std::size_t count)
    {
        for (std::size_t c = 0; c < m_totals.size(); ++c) {
            for (std::size_t i = c; i < count; i += m_totals.size()) {
                const auto value = withoutSign(values[i]);
                m_totals[c].add(value, quint32{value} * value, value, value);
            }
        }
    }

    void flush()
    {
        for (std::size_t i = 0; i < m_lanes.size() * lanes; ++i)
            m_lanes[i / lanes].addLaneTo(m_totals[i % m_totals.size()], i % lanes);
        std::fill(m_lanes.begin(), m_lanes.end(), ExactLanes<Element>());
        m_blocks = 0;
    }

    std::vector<ExactTotal<Element>> m_totals; ///< by channel
    std::vector<ExactLanes<Element>> m_lanes;  ///< as many as values repeat their channels after
    std::size_t m_blocks = 0;                  ///< what each of the lanes has added up
};

/// Exact sums for each of many columns, for elements of at most 16 bits.
template<class Element>
class ExactColumnSums {
public:
    explicit ExactColumnSums(std::size_t columns)
        : m_shortSums(columns)
        , m_shortSquares(columns)
        , m_sums(columns)
        , m_squares(columns)
        , m_smallest(columns, std::numeric_limits<Unsigned>::max())
        , m_largest(columns)
    {
    }

    void addLine(const Element* line)
    {
        addLineTo(line, m_sums.size(), m_shortSums.data(), m_shortSquares.data(), m_smallest.data(),
                  m_largest.data());
        if (++m_count % mostValuesOfPart == 0)
            flush();
    }

    CxHistoData::CxPixelStats stats(std::size_t column) const
    {
        const qint64 offset = signOffset<Element>;
        return statsOfExactSums(m_count, m_sums[column] + m_shortSums[column],
                                m_squares[column] + m_shortSquares[column],
                                static_cast<double>(m_smallest[column] + offset),
                                static_cast<double>(m_largest[column] + offset), offset);
    }

private:
    using Unsigned = std::make_unsigned_t<Element>;

    static void addLineTo(const Element* __restrict line, std::size_t columns,
                          quint32* __restrict sums, SquaresOfPart<Element>* __restrict squares,
                          Unsigned* __restrict smallest, Unsigned* __restrict largest)
    {
        for (std::size_t i = 0; i < columns; ++i) {
            const Unsigned value = withoutSign(line[i]);
            sums[i] += value;
            squares[i] += quint32{value} * value;
            smallest[i] = std::min(smallest[i], value);
            largest[i] = std::max(largest[i], value);
        }
    }

    void flush()
    {
        for (std::size_t i = 0; i < m_sums.size(); ++i) {
            m_sums[i] += m_shortSums[i];
            m_squares[i] += m_shortSquares[i];
            m_shortSums[i] = 0;
            m_shortSquares[i] = 0;
        }
    }

    quint64 m_count = 0;
    std::vector<quint32> m_shortSums;
    std::vector<SquaresOfPart<Element>> m_shortSquares;
    std::vector<quint64> m_sums;
    std::vector<quint64> m_squares;
    std::vector<Unsigned> m_smallest;
    std::vector<Unsigned> m_largest;
};

} // namespace vistrel
