// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Where a picture lies in the area that shows it.
#pragma once

#include <QtCore/QPointF>
#include <QtCore/QRectF>
#include <QtCore/QSize>

namespace vistrel {

/// A picture fitted into an area, or enlarged and moved by hand. Pure geometry: the picture's
/// pixels are counted from its top left corner, the area's from its own.
class ZoomPan {
public:
    /// A different size of the picture fits it anew; a different area keeps zoom and middle.
    void setSizes(const QSize& picture, const QSize& area);

    /// As large as possible in the middle, and so for every area to come.
    void fit();
    /// Points of the area for a pixel of the picture, from 1/64 to 64. The picture's point below
    /// `around` stays there, as far as the picture does not leave the area.
    void setZoom(double zoom, const QPointF& around);
    void zoomBy(double factor, const QPointF& around) { setZoom(zoom() * factor, around); }
    /// Moves the picture, if it is larger than the area.
    void pan(const QPointF& by);

    bool isFitted() const { return m_isFitted; }
    double zoom() const { return m_zoom; }
    QPointF middleOfArea() const { return {m_area.width() / 2.0, m_area.height() / 2.0}; }
    /// The whole picture in the area, partly outside when it is enlarged.
    QRectF target() const;
    /// The pixel below a point of the area; outside the picture where the point is.
    QPoint pixelAt(const QPointF& point) const;
    /// The pixels that a rectangle of the area touches, cut at the picture's edges.
    QRect pixelsIn(const QRectF& rect) const;
    QRect allPixels() const { return {QPoint(), m_picture.toSize()}; }
    /// The pixels of which the area shows something.
    QRect visiblePixels() const { return pixelsIn({QPointF(), m_area}); }
    /// Where pixels of the picture lie in the area.
    QRectF placeOf(const QRect& pixels) const;

private:
    double fittingZoom() const;
    void keepInArea();

    QSizeF m_picture;
    QSizeF m_area;
    QPointF m_topLeft; // of the picture, in the area
    double m_zoom = 1.0;
    bool m_isFitted = true;
};

} // namespace vistrel
