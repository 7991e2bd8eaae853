// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Sums from which minimum, maximum, mean, deviation and root mean square come, in one pass.
#pragma once

#include <CxHistoData.h>

#include <algorithm>
#include <array>
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

/// What distances are taken from, so that values far from 0 keep their last bits: the first value.
template<class Element>
Element referenceFor(Element first)
{
    if constexpr (std::is_floating_point_v<Element>)
        return std::isfinite(first) ? first : Element{0};
    else
        return first;
}

/// The distance from a reference; that of 64-bit integers is taken before a double rounds them.
template<class Element>
double distanceFrom(Element value, Element reference)
{
    if constexpr (std::is_integral_v<Element> && sizeof(Element) == 8) {
        const auto up = static_cast<quint64>(value) - static_cast<quint64>(reference);
        return value >= reference ? static_cast<double>(up) : -static_cast<double>(0 - up);
    } else {
        return static_cast<double>(value) - static_cast<double>(reference);
    }
}

/// The statistics of distances as those of the values.
template<class Element>
CxHistoData::CxPixelStats statsOfDistances(Element smallest, Element largest, double mean,
                                           double variance, Element reference)
{
    constexpr auto unknown = std::numeric_limits<double>::quiet_NaN();
    const bool isKnown = smallest <= largest; // not when no value was a number
    return pixelStats(isKnown ? static_cast<double>(smallest) : unknown,
                      isKnown ? static_cast<double>(largest) : unknown,
                      static_cast<double>(reference) + mean, variance);
}

template<class Element>
constexpr Element beyondLargest = std::numeric_limits<Element>::has_infinity
                                      ? std::numeric_limits<Element>::infinity()
                                      : std::numeric_limits<Element>::max();
template<class Element>
constexpr Element beyondSmallest = std::numeric_limits<Element>::has_infinity
                                       ? -std::numeric_limits<Element>::infinity()
                                       : std::numeric_limits<Element>::lowest();

/// Mean and sum of squared deviations of one channel, block by block: a block's mean first, then
/// the deviations from it while the block is still in the cache, so that nothing cancels out.
template<class Element>
class BlockMoments {
public:
    void addRun(const Element* run, std::size_t count)
    {
        if (m_count == 0 && count > 0)
            m_reference = referenceFor(run[0]);
        while (count > 0) {
            const std::size_t part = std::min(count, blockSize);
            addBlock(run, part);
            run += part;
            count -= part;
        }
    }

    bool isEmpty() const { return m_count == 0.0; }
    CxHistoData::CxPixelStats stats() const
    {
        return statsOfDistances(m_smallest, m_largest, m_mean, m_deviations / m_count, m_reference);
    }

private:
    static constexpr std::size_t blockSize = 1024;
    static constexpr std::size_t lanes = 8; ///< sums side by side, which become vector registers

    /// The sum of function(distance).
    template<class Function>
    double sumOf(std::size_t count, Function function) const
    {
        std::array<double, lanes> sums{};
        std::size_t i = 0;
        for (; i + lanes <= count; i += lanes)
            for (std::size_t lane = 0; lane < lanes; ++lane)
                sums[lane] += function(m_block[i + lane]);
        for (; i < count; ++i)
            sums[0] += function(m_block[i]);
        double sum = 0.0;
        for (const double part : sums)
            sum += part;
        return sum;
    }

    void takeBlock(const Element* run, std::size_t count)
    {
        Element smallest = m_smallest;
        Element largest = m_largest;
        for (std::size_t i = 0; i < count; ++i) {
            smallest = run[i] < smallest ? run[i] : smallest;
            largest = run[i] > largest ? run[i] : largest;
            m_block[i] = distanceFrom(run[i], m_reference);
        }
        m_smallest = smallest;
        m_largest = largest;
    }

    void addBlock(const Element* run, std::size_t size)
    {
        takeBlock(run, size);
        const auto count = static_cast<double>(size);
        const double mean = sumOf(size, [](double value) { return value; }) / count;
        const double rest = sumOf(size, [mean](double value) { return value - mean; }) / count;
        const double squares =
            sumOf(size, [mean](double value) { return (value - mean) * (value - mean); });
        merge(count, mean + rest, std::max(squares - count * rest * rest, 0.0));
    }

    void merge(double count, double mean, double deviations)
    {
        const double total = m_count + count;
        const double distance = mean - m_mean;
        m_deviations += deviations + distance * distance * (m_count * count / total);
        m_mean += distance * (count / total);
        m_count = total;
    }

    std::array<double, blockSize> m_block;
    Element m_reference{};
    Element m_smallest = beyondLargest<Element>;
    Element m_largest = beyondSmallest<Element>;
    double m_count = 0.0;
    double m_mean = 0.0;
    double m_deviations = 0.0;
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

/// Running mean and squared deviations for each of many columns.
template<class Element>
class RunningColumnMoments {
public:
    explicit RunningColumnMoments(std::size_t columns)
        : m_references(columns)
        , m_smallest(columns, beyondLargest<Element>)
        , m_largest(columns, beyondSmallest<Element>)
        , m_means(columns)
        , m_deviations(columns)
    {
    }

    void addLine(const Element* line)
    {
        if (m_count == 0.0)
            std::transform(line, line + m_references.size(), m_references.begin(),
                           &referenceFor<Element>);
        m_count += 1.0;
        addLineTo(line, m_references.size(), 1.0 / m_count, m_references.data(), m_smallest.data(),
                  m_largest.data(), m_means.data(), m_deviations.data());
    }

    CxHistoData::CxPixelStats stats(std::size_t column) const
    {
        return statsOfDistances(m_smallest[column], m_largest[column], m_means[column],
                                m_deviations[column] / m_count, m_references[column]);
    }

private:
    static void addLineTo(const Element* __restrict line, std::size_t columns, double share,
                          const Element* __restrict references, Element* __restrict smallest,
                          Element* __restrict largest, double* __restrict means,
                          double* __restrict deviations)
    {
        for (std::size_t i = 0; i < columns; ++i) {
            const double value = distanceFrom(line[i], references[i]);
            const double before = value - means[i];
            means[i] += before * share;
            deviations[i] += before * (value - means[i]);
            smallest[i] = line[i] < smallest[i] ? line[i] : smallest[i];
            largest[i] = line[i] > largest[i] ? line[i] : largest[i];
        }
    }

    double m_count = 0.0;
    std::vector<Element> m_references;
    std::vector<Element> m_smallest;
    std::vector<Element> m_largest;
    std::vector<double> m_means;
    std::vector<double> m_deviations;
};

template<class Element>
constexpr bool hasExactSums = std::is_integral_v<Element> && sizeof(Element) <= 2;

template<class Element>
struct SumsFor {
    using Channel = BlockMoments<Element>;
    using Columns = RunningColumnMoments<Element>;
};

template<class Element>
requires hasExactSums<Element>
struct SumsFor<Element> {
    using Channel = ExactSums<Element>;
    using Columns = ExactColumnSums<Element>;
};

} // namespace vistrel
