// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The part of a line that can be seen, in pieces that are drawn quickly.
#include "FuncGraph/LinePieces.h"

#include <cmath>
#include <numeric>

namespace line_pieces {

namespace {

// Halves of larger coordinates would overflow when they are subtracted.
constexpr double largest = 1e300;

bool isFinite(const QPointF& point) { return std::isfinite(point.x()) && std::isfinite(point.y()); }

QPointF bounded(const QPointF& point)
{
    return {qBound(-largest, point.x(), largest), qBound(-largest, point.y(), largest)};
}

/// The part of a segment that remains, as parameters from 0 to 1.
struct Remainder {
    double from = 0.0;
    double to = 1.0;

    /// Takes off what is outside of one border. `toBorder` is the signed distance from the
    /// segment's start inwards to the border, `step` the way of the segment in that direction.
    void cut(double step, double toBorder)
    {
        if (step > 0)
            to = qMin(to, toBorder / step);
        else if (step < 0)
            from = qMax(from, toBorder / step);
        else if (toBorder < 0)
            to = -1.0;
    }
    bool isEmpty() const { return !(from <= to); }
};

} // namespace

// Liang and Barsky's line clipping.
QLineF clipped(const QLineF& segment, const QRectF& view)
{
    const QPointF start = bounded(segment.p1());
    const QPointF end = bounded(segment.p2());
    const QPointF step = end - start;
    Remainder rest;
    rest.cut(-step.x(), start.x() - view.left());
    rest.cut(step.x(), view.right() - start.x());
    rest.cut(-step.y(), start.y() - view.top());
    rest.cut(step.y(), view.bottom() - start.y());
    if (rest.isEmpty())
        return {};
    // Ends that stay are kept to the bit, so that segments which meet go on meeting.
    return {rest.from > 0.0 ? start + rest.from * step : start,
            rest.to < 1.0 ? start + rest.to * step : end};
}

QList<QLineF> visibleSegments(const QList<QPointF>& points, const QRectF& view)
{
    QList<QLineF> segments;
    segments.reserve(points.size());
    for (qsizetype i = 1; i < points.size(); ++i) {
        if (!isFinite(points[i - 1]) || !isFinite(points[i]))
            continue;
        const QLineF segment = clipped(QLineF(points[i - 1], points[i]), view);
        if (!segment.isNull())
            segments.append(segment);
    }
    return segments;
}

double joiningCost(const QList<QLineF>& segments)
{
    return std::accumulate(
        segments.begin(), segments.end(), 0.0,
        [](double cost, const QLineF& segment) { return cost + segment.dy() * segment.dy(); });
}

QList<QList<QPointF>> joined(const QList<QLineF>& segments, int longest)
{
    QList<QList<QPointF>> lines;
    for (const QLineF& segment : segments) {
        const bool goesOn = !lines.isEmpty() && lines.last().size() < longest
                            && lines.last().last() == segment.p1();
        if (!goesOn)
            lines.append({segment.p1()});
        lines.last().append(segment.p2());
    }
    return lines;
}

} // namespace line_pieces
