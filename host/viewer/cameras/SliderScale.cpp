// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Linear and logarithmic scales.
#include "viewer/cameras/SliderScale.h"

#include <QtCore/QString>

#include <algorithm>
#include <cmath>

namespace vistrel {

namespace {

/// More than a slider has pixels.
constexpr int mostPositions = 1000;
/// From this on most of the way would be the largest power of ten alone.
constexpr double wideRange = 1e4;

/// To as many digits as somebody who moves a slider cares for.
double rounded(double number)
{
    constexpr int digits = 4;
    return QString::number(number, 'g', digits).toDouble();
}

} // namespace

SliderScale::SliderScale(double minimum, double maximum, double increment)
    : m_minimum(minimum)
    , m_maximum(std::max(minimum, maximum))
    , m_increment(increment)
    , m_byFactors(minimum > 0.0 && m_maximum / minimum >= wideRange)
    , m_last(m_maximum > minimum ? mostPositions : 0)
{
    const double steps = increment > 0.0 ? (m_maximum - minimum) / increment : mostPositions;
    if (!m_byFactors && steps < mostPositions)
        m_last = static_cast<int>(steps + 1e-9);
}

int SliderScale::positionOf(double number) const
{
    if (m_last == 0 || !(number > m_minimum))
        return 0;
    const double share = m_byFactors
                             ? std::log(number / m_minimum) / std::log(m_maximum / m_minimum)
                             : (number - m_minimum) / (m_maximum - m_minimum);
    const double way = m_last < mostPositions ? (number - m_minimum) / m_increment : share * m_last;
    return static_cast<int>(std::lround(std::min(way, static_cast<double>(m_last))));
}

double SliderScale::numberAt(int position) const
{
    if (position <= 0 || m_last == 0)
        return m_minimum;
    if (m_last < mostPositions && !m_byFactors)
        return m_minimum + position * m_increment;
    if (position >= m_last)
        return snapped(m_maximum);
    const double share = static_cast<double>(position) / m_last;
    return snapped(m_byFactors ? m_minimum * std::pow(m_maximum / m_minimum, share)
                               : m_minimum + share * (m_maximum - m_minimum));
}

double SliderScale::snapped(double number) const
{
    if (m_increment <= 0.0)
        return std::clamp(rounded(number), m_minimum, m_maximum);
    const double most = std::floor((m_maximum - m_minimum) / m_increment + 1e-9);
    const double steps = std::round((number - m_minimum) / m_increment);
    return m_minimum + std::min(steps, most) * m_increment;
}

} // namespace vistrel
