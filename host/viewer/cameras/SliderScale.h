// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Numbers on the way of a slider.
#pragma once

namespace vistrel {

/// From the least to the greatest number in steps that the camera takes. A range over many powers
/// of ten (an exposure time) is divided evenly by factors, every other one by differences.
class SliderScale {
public:
    /// Without a way: one position.
    SliderScale() = default;
    /// @param increment  0 for numbers without steps.
    SliderScale(double minimum, double maximum, double increment);

    /// Positions count from 0.
    int lastPosition() const { return m_last; }
    int positionOf(double number) const;
    /// A number that the camera takes, as far as it depends on limits and steps.
    double numberAt(int position) const;

    bool operator==(const SliderScale& other) const = default;

private:
    double snapped(double number) const;

    double m_minimum = 0.0;
    double m_maximum = 0.0;
    double m_increment = 0.0;
    bool m_byFactors = false;
    int m_last = 0;
};

} // namespace vistrel
