// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Enlarged pixels keep their edges; pictures made smaller are averaged.
#include "app/PicturePainter.h"

#include "app/DisplayPicture.h"
#include "app/ZoomPan.h"

#include <QtGui/QPainter>

namespace vistrel {

namespace {

/// Two pixels more on each side, for the colours of raw pictures, and an even beginning.
QRect withNeighbours(const QRect& pixels)
{
    constexpr int margin = 2;
    const QPoint topLeft((pixels.left() - margin) & ~1, (pixels.top() - margin) & ~1);
    return {topLeft, pixels.bottomRight() + QPoint(margin, margin)};
}

} // namespace

void PicturePainter::paint(QPainter& painter, double pixelRatio, const SxPicBuf& picture,
                           const ValueRange& range, const ZoomPan& zoomPan)
{
    const QRect pixels = withNeighbours(zoomPan.visiblePixels()) & zoomPan.allPixels();
    const QRectF place = zoomPan.placeOf(pixels);
    const bool isReduced = zoomPan.zoom() * pixelRatio < 1.0;
    const QSize largest = isReduced ? (place.size() * pixelRatio).toSize() : pixels.size();
    const Key key{range, pixels, largest};
    if (m_image.isNull() || !(m_key == key)) {
        m_image = displayPicture(picture, range, pixels, largest);
        m_image.setDevicePixelRatio(isReduced ? pixelRatio : 1.0);
        m_key = key;
    }
    if (isReduced)
        painter.drawImage(place.topLeft().toPoint(), m_image); // as it is: much the quickest
    else
        painter.drawImage(place, m_image);
}

} // namespace vistrel
