// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Scale and offset.
#include "app/ZoomPan.h"

#include <algorithm>
#include <cmath>

namespace vistrel {

namespace {

constexpr double leastZoom = 1.0 / 64.0;
constexpr double mostZoom = 64.0;

/// Where a length begins that must fill an area if it can, and lies in its middle if it cannot.
double keptStart(double start, double length, double area)
{
    return length <= area ? (area - length) / 2.0 : std::clamp(start, area - length, 0.0);
}

} // namespace

void ZoomPan::setSizes(const QSize& picture, const QSize& area)
{
    const bool isOther = m_picture != QSizeF(picture);
    const QPointF growth((area.width() - m_area.width()) / 2.0,
                         (area.height() - m_area.height()) / 2.0);
    m_picture = picture;
    m_area = area;
    if (isOther || m_isFitted) {
        fit();
        return;
    }
    m_topLeft += growth;
    keepInArea();
}

double ZoomPan::fittingZoom() const
{
    if (m_picture.isEmpty() || m_area.isEmpty())
        return 1.0;
    return std::min(m_area.width() / m_picture.width(), m_area.height() / m_picture.height());
}

void ZoomPan::fit()
{
    m_isFitted = true;
    m_zoom = fittingZoom();
    keepInArea();
}

void ZoomPan::setZoom(double zoom, const QPointF& around)
{
    // A picture that is fitted beyond the bounds may be zoomed back from there.
    const double least = std::min(leastZoom, fittingZoom());
    const double most = std::max(mostZoom, fittingZoom());
    const double wanted = std::clamp(zoom, least, most);
    m_topLeft = around - (around - m_topLeft) * (wanted / m_zoom);
    m_zoom = wanted;
    m_isFitted = false;
    keepInArea();
}

void ZoomPan::pan(const QPointF& by)
{
    m_topLeft += by;
    keepInArea();
}

void ZoomPan::keepInArea()
{
    m_topLeft.setX(keptStart(m_topLeft.x(), m_picture.width() * m_zoom, m_area.width()));
    m_topLeft.setY(keptStart(m_topLeft.y(), m_picture.height() * m_zoom, m_area.height()));
}

QRectF ZoomPan::target() const { return {m_topLeft, m_picture * m_zoom}; }

QPoint ZoomPan::pixelAt(const QPointF& point) const
{
    const QPointF pixel = (point - m_topLeft) / m_zoom;
    return {static_cast<int>(std::floor(pixel.x())), static_cast<int>(std::floor(pixel.y()))};
}

QRect ZoomPan::pixelsIn(const QRectF& rect) const
{
    if (m_picture.isEmpty())
        return {};
    const QRectF normalized = rect.normalized();
    const QRect touched(pixelAt(normalized.topLeft()), pixelAt(normalized.bottomRight()));
    return touched & allPixels();
}

QRectF ZoomPan::placeOf(const QRect& pixels) const
{
    return {m_topLeft + QPointF(pixels.topLeft()) * m_zoom, QSizeF(pixels.size()) * m_zoom};
}

} // namespace vistrel
