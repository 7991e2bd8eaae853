// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Paints the visible part of a picture.
#pragma once

#include "core/ValueRange.h"

#include <QtCore/QRect>
#include <QtGui/QImage>

class QPainter;

namespace vistrel {

class ZoomPan;

/// Converts and scales what is seen and nothing else, and keeps it for the next time.
class PicturePainter {
public:
    /// The picture's pixels are others.
    void forget() { m_image = QImage(); }
    /// Paints into an area of the painter's device, which begins at its origin.
    /// @param pixelRatio  of the device.
    void paint(QPainter& painter, double pixelRatio, const SxPicBuf& picture,
               const ValueRange& range, const ZoomPan& zoomPan);

private:
    /// What the image depends on beside the pixels.
    struct Key {
        ValueRange range;
        QRect pixels;
        QSize largest;

        bool operator==(const Key&) const = default;
    };

    Key m_key;
    QImage m_image; // made when first painted, so that views without a screen cost nothing
};

} // namespace vistrel
