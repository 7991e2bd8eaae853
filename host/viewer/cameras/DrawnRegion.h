// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// From what was drawn on a picture to the camera's region of interest.
#pragma once

#include <QtCore/QRect>
#include <QtCore/QSize>
#include <QtCore/QString>

namespace vistrel {

class Chain;

/// Where on the sensor a rectangle of the picture lies.
/// @param drawn    in pixels of the picture; what lies outside of it does not count.
/// @param picture  its size.
/// @param region   what the camera sends now, in pixels of the sensor: more than the picture's
///                 where it joins neighbours.
/// Empty when the rectangle is, and when the picture is not a picture of that region.
QRect regionOnSensor(const QRect& drawn, const QSize& picture, const QRect& region);

/// The name of an element that moves pixels, so that the picture does not lie as it lies on the
/// sensor; empty when none does.
QString elementThatMovesPixels(const Chain& chain);

} // namespace vistrel
