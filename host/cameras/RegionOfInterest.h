// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The part of the sensor that a camera sends.
#pragma once

#include "cameras/CameraNodes.h"

#include <QtCore/QRect>

namespace vistrel {

/// Counts in pixels of the sensor: where a camera joins neighbours (binning) its own numbers are
/// smaller. GUI thread.
class RegionOfInterest {
public:
    /// @param nodes  outlives this object.
    explicit RegionOfInterest(const CameraNodes& nodes);

    /// `region` is left alone on failure.
    NodeResult read(QRect& region) const;
    /// Refuses a region that is empty or reaches past the sensor, as far as the camera tells its
    /// size.
    NodeResult check(int left, int top, int width, int height) const;
    /// Sets the least region within the camera's steps that holds the one wanted; at the sensor's
    /// far edges, where that may not fit, the greatest that does. The region has passed
    /// check(); one that the camera refuses leaves the one it has.
    NodeResult write(int left, int top, int width, int height) const;
    /// Sets the largest region that there is.
    NodeResult writeWhole() const;

private:
    /// One direction.
    struct Axis {
        ArvGcNode* offset; ///< null when the camera has none: it is 0
        ArvGcNode* size;
        ArvGcNode* sensor;              ///< null when the camera does not tell
        bool sensorIsJoined;            ///< counts pixels as `size` does
        std::vector<ArvGcNode*> joined; ///< how many pixels make one
    };
    /// From the first pixel, `length` of them.
    struct Span {
        qint64 start = 0;
        qint64 length = 0;
    };

    Axis axis(const char* offset, const char* size, const char* sensor, const char* greatest,
              std::initializer_list<const char*> joined) const;
    NodeResult readNumber(ArvGcNode* node, qint64& number) const;
    NodeResult factor(const Axis& axis, qint64& number) const;
    NodeResult readAxis(const Axis& axis, Span& span) const;
    NodeResult writeAxis(const Axis& axis, const Span& wanted) const;
    NodeResult place(const Axis& axis, const Span& wanted) const;
    NodeResult sensorLength(const Axis& axis, qint64& length) const;

    const CameraNodes& m_nodes;
    Axis m_x;
    Axis m_y;
};

} // namespace vistrel
