// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Converting single values between element types without leaving the target's range.
#pragma once

#include <cmath>
#include <limits>
#include <type_traits>
#include <utility>

namespace vistrel {

/// The integer nearest to `value`, halves to even, for |value| below 2^51. Adding a number so large
/// that its last bit is worth 1 rounds, without the call into the C library that stops vector code.
inline double nearestWhole(double value)
{
    constexpr double lastBitIsOne = 0x1.8p52;
    return (value + lastBitIsOne) - lastBitIsOne;
}

/// Rounds to the nearest integer, halves to even, and cuts off at the type's range; what is no
/// number becomes 0. Floating-point elements take the value as it is.
template<class Element, class Real>
Element nearest(Real value)
{
    if constexpr (std::is_floating_point_v<Element>) {
        return static_cast<Element>(value);
    } else if constexpr (sizeof(Element) <= 4) {
        constexpr double low = std::numeric_limits<Element>::min();
        constexpr double high = std::numeric_limits<Element>::max();
        const auto known = std::isnan(value) ? 0.0 : static_cast<double>(value);
        const double inRange = known < low ? low : (known > high ? high : known);
        return static_cast<Element>(nearestWhole(inRange));
    } else {
        // The largest 64-bit numbers have no double: compare before converting.
        constexpr auto low = static_cast<Real>(std::numeric_limits<Element>::min());
        constexpr auto high = static_cast<Real>(std::numeric_limits<Element>::max());
        const Real whole = std::nearbyint(value);
        if (whole >= high)
            return std::numeric_limits<Element>::max();
        if (whole > low)
            return static_cast<Element>(whole);
        return std::isnan(value) ? Element{0} : std::numeric_limits<Element>::min();
    }
}

/// The same value, cut off at the range of an integer type or at the finite range of a float.
template<class To, class From>
To cutOff(From value)
{
    if constexpr (std::is_floating_point_v<From> && std::is_integral_v<To>) {
        return nearest<To>(value);
    } else if constexpr (std::is_integral_v<From> && std::is_integral_v<To>) {
        using Source = std::numeric_limits<From>;
        using Target = std::numeric_limits<To>;
        constexpr From low = std::cmp_less(Source::min(), Target::min())
                                 ? static_cast<From>(Target::min())
                                 : Source::min();
        constexpr From high = std::cmp_greater(Source::max(), Target::max())
                                  ? static_cast<From>(Target::max())
                                  : Source::max();
        return static_cast<To>(value < low ? low : (value > high ? high : value));
    } else if constexpr (std::is_same_v<From, double> && std::is_same_v<To, float>) {
        constexpr double high = std::numeric_limits<float>::max();
        const bool isFinite = std::abs(value) <= std::numeric_limits<double>::max();
        const double inRange = value > high ? high : (value < -high ? -high : value);
        return static_cast<float>(isFinite ? inRange : value);
    } else {
        return static_cast<To>(value);
    }
}

} // namespace vistrel
