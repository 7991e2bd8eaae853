// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Statistics of integers of at most 16 bits from sums without a rounding error.
#pragma once

#include <CxHistoData.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
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

/// Exact sums of the values of one channel, for elements of at most 16 bits.
template<class Element>
class ExactSums {
public:
    void addRun(const Element* run, std::size_t count)
    {
        m_count += count;
        while (count > 0) { // as many as 32-bit sums hold
            const std::size_t part = std::min<std::size_t>(count, 65536);
            addPart(run, part);
            run += part;
            count -= part;
        }
    }

    bool isEmpty() const { return m_count == 0; }
    CxHistoData::CxPixelStats stats() const
    {
        const qint64 offset = signOffset<Element>;
        return statsOfExactSums(m_count, m_sum, m_squares, static_cast<double>(m_smallest + offset),
                                static_cast<double>(m_largest + offset), offset);
    }

private:
    using Unsigned = std::make_unsigned_t<Element>;
    using Squares = std::conditional_t<sizeof(Element) == 1, quint32, quint64>;

    void addPart(const Element* run, std::size_t count)
    {
        quint32 sum = 0;
        Squares squares = 0;
        Unsigned smallest = m_smallest;
        Unsigned largest = m_largest;
        for (std::size_t i = 0; i < count; ++i) {
            const Unsigned value = withoutSign(run[i]);
            sum += value;
            squares += quint32{value} * value;
            smallest = std::min(smallest, value);
            largest = std::max(largest, value);
        }
        m_sum += sum;
        m_squares += squares;
        m_smallest = smallest;
        m_largest = largest;
    }

    quint64 m_count = 0;
    quint64 m_sum = 0;
    quint64 m_squares = 0;
    Unsigned m_smallest = std::numeric_limits<Unsigned>::max();
    Unsigned m_largest = 0;
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
        if (++m_count % 65536 == 0) // as many as 32-bit sums hold
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
    using Squares = std::conditional_t<sizeof(Element) == 1, quint32, quint64>;

    static void addLineTo(const Element* __restrict line, std::size_t columns,
                          quint32* __restrict sums, Squares* __restrict squares,
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
    std::vector<Squares> m_shortSquares;
    std::vector<quint64> m_sums;
    std::vector<quint64> m_squares;
    std::vector<Unsigned> m_smallest;
    std::vector<Unsigned> m_largest;
};

} // namespace vistrel
