// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The part of a line that can be seen, in pieces that are drawn quickly.
#pragma once

#include <QtCore/QLineF>
#include <QtCore/QList>
#include <QtCore/QRectF>

namespace line_pieces {

/// The part of a segment inside a rectangle; a null line when there is none. Coordinates may be as
/// large as doubles are.
QLineF clipped(const QLineF& segment, const QRectF& view);

/// The segments of a line through the points, each cut off at the rectangle; what lies outside is
/// left out. A point with a coordinate that is not finite interrupts the line.
QList<QLineF> visibleSegments(const QList<QPointF>& points, const QRectF& view);

/// What it takes Qt's painter to draw the segments joined, as a number to compare: it grows with
/// the square of the rows that a segment crosses.
double joiningCost(const QList<QLineF>& segments);

/// The longest lines through at most `longest` points that the segments make up.
QList<QList<QPointF>> joined(const QList<QLineF>& segments, int longest);

} // namespace line_pieces
