// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Statistics of wide and floating-point values: mean and squared deviations, kept from cancelling
// out.
#pragma once

#include "core/ExactSums.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstddef>
#include <limits>
#include <numeric>
#include <type_traits>
#include <vector>

namespace vistrel {

/// What distances are taken from, so that values far from 0 keep their last bits: the first value.
template<class Element>
Element referenceFor(Element first)
{
    if constexpr (std::is_floating_point_v<Element>)
        return std::isfinite(first) ? first : Element{0};
    else
        return first;
}

/// A 64-bit number as the sum of two doubles that hold its halves without rounding: each half
/// becomes the low bits of a double whose last bit is worth as much. Unlike the processor's own
/// conversion this is vector code.
struct SplitNumber {
    explicit SplitNumber(quint64 number)
        : upper(std::bit_cast<double>((number >> 32) | std::bit_cast<quint64>(0x1p84)))
        , lower(std::bit_cast<double>((number & 0xFFFFFFFF) | std::bit_cast<quint64>(0x1p52)))
    {
    }

    double upper; ///< 2^84 above the upper half
    double lower; ///< 2^52 above the lower half
};

/// The distance from a reference, as exact as a double is.
template<class Element>
double distanceFrom(Element value, Element reference)
{
    if constexpr (std::is_integral_v<Element> && sizeof(Element) == 8) {
        const SplitNumber a(withoutSign(value));
        const SplitNumber b(withoutSign(reference));
        return (a.upper - b.upper) + (a.lower - b.lower);
    } else if constexpr (std::is_same_v<Element, quint32>) {
        // Signed numbers of 32 bits are what the processor converts.
        const auto asSigned = [](quint32 number) {
            return static_cast<double>(static_cast<qint32>(number ^ 0x80000000U));
        };
        return asSigned(value) - asSigned(reference);
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

/// Mean and sum of squared deviations of one channel in one pass, block by block. Distances are
/// taken from a value of the block, so that values far from 0 keep their last bits: as that value
/// is itself one of the block's, no deviation is small against its distance from the mean.
template<class Element>
class BlockMoments {
public:
    BlockMoments()
    {
        m_smallest.fill(beyondLargest<Element>);
        m_largest.fill(beyondSmallest<Element>);
    }

    void addRun(const Element* run, std::size_t count)
    {
        if (m_count == 0.0 && count > 0)
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
        return statsOfDistances(*std::min_element(m_smallest.begin(), m_smallest.end()),
                                *std::max_element(m_largest.begin(), m_largest.end()), m_mean,
                                m_deviations / m_count, m_reference);
    }

private:
    static constexpr std::size_t blockSize = 1024;
    static constexpr std::size_t lanes = 8; ///< side by side, which become vector registers

    /// Sums of the distances from a reference and of their squares.
    struct Sums {
        void add(std::size_t lane, double distance)
        {
            distances[lane] += distance;
            squares[lane] += distance * distance;
        }

        std::array<double, lanes> distances{};
        std::array<double, lanes> squares{};
    };

    Sums sumsOf(const Element* run, std::size_t size, Element reference)
    {
        Sums sums;
        auto smallest = m_smallest;
        auto largest = m_largest;
        const auto take = [&](std::size_t lane, Element value) {
            smallest[lane] = value < smallest[lane] ? value : smallest[lane];
            largest[lane] = value > largest[lane] ? value : largest[lane];
            sums.add(lane, distanceFrom(value, reference));
        };
        std::size_t i = 0;
        for (; i + lanes <= size; i += lanes)
            for (std::size_t lane = 0; lane < lanes; ++lane)
                take(lane, run[i + lane]);
        for (; i < size; ++i)
            take(0, run[i]);
        m_smallest = smallest;
        m_largest = largest;
        return sums;
    }

    void addBlock(const Element* run, std::size_t size)
    {
        const Element reference = referenceFor(run[0]);
        const Sums sums = sumsOf(run, size, reference);
        const auto total = [](const auto& parts) {
            return std::accumulate(parts.begin(), parts.end(), 0.0);
        };
        const auto count = static_cast<double>(size);
        const double sum = total(sums.distances);
        const double deviations = std::max(total(sums.squares) - sum * (sum / count), 0.0);
        merge(count, distanceFrom(reference, m_reference) + sum / count, deviations);
    }

    void merge(double count, double mean, double deviations)
    {
        const double total = m_count + count;
        const double distance = mean - m_mean;
        m_deviations += deviations + distance * distance * (m_count * count / total);
        m_mean += distance * (count / total);
        m_count = total;
    }

    Element m_reference{}; ///< what m_mean is the distance from
    std::array<Element, lanes> m_smallest;
    std::array<Element, lanes> m_largest;
    double m_count = 0.0;
    double m_mean = 0.0;
    double m_deviations = 0.0;
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

} // namespace vistrel
