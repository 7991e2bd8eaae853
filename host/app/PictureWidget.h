// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Shows a picture for a person to look at closely.
#pragma once

#include "app/Brightness.h"
#include "app/PictureMouse.h"
#include "app/PicturePainter.h"
#include "app/ZoomPan.h"

#include <QtWidgets/QWidget>

#include <functional>
#include <optional>

namespace vistrel {

/// A picture with zoom and pan, the values below the mouse, and a rectangle to be drawn. GUI
/// thread.
class PictureWidget : public QWidget {
    Q_OBJECT

public:
    explicit PictureWidget(QWidget* parent = nullptr);

    /// Shows that picture, which the widget does not own: it must live, and stay as it is, until
    /// the next call. Null shows nothing. One of the same size as before is shown at the same
    /// place.
    void setPicture(const SxPicBuf* picture);
    /// Null when nothing is shown.
    const SxPicBuf* picture() const { return m_picture; }
    /// Of the picture, in pixels; empty when nothing is shown.
    QSize pictureSize() const;

    const ZoomPan& zoomPan() const { return m_zoomPan; }
    /// The whole picture, as large as possible, from now on.
    void fit();
    /// Points of the screen for a pixel, around the middle.
    void setZoom(double zoom);
    void zoomBy(double factor) { setZoom(m_zoomPan.zoom() * factor); }

    /// Lets the user draw a rectangle with the mouse: once it is drawn, `taken` is called with its
    /// pixels, which lie inside the picture. It is not called when the user leaves the mode, when
    /// somebody else asks for a rectangle before, or when `context` is gone.
    void drawRectangle(const QObject* context, std::function<void(const QRect&)> taken);
    /// Leaves the mode.
    void cancelRectangle();
    bool drawsRectangle() const { return m_mouse.drawsRectangle(); }

    const Brightness& brightness() const { return m_brightness; }
    void setBrightness(const Brightness& brightness);
    /// The values that are black and white now, as the brightness has found them.
    ValueRange shownRange();

    /// A part of the picture that is of interest; null for all of it. It has a frame.
    const QRect& region() const { return m_region; }
    void setRegion(const QRect& pixels);

    /// "x 3, y 4: 4095" for the pixel below the mouse; empty when there is none.
    QString textOfPixel() const;

Q_SIGNALS:
    /// Another picture is shown, or none.
    void pictureChanged();
    void brightnessChanged();
    void regionChanged();
    void zoomChanged(double zoom);
    void pixelTextChanged(const QString& text);
    /// A rectangle may be drawn now, or not any more. When one asker follows another, it is first
    /// off and then on.
    void rectangleModeChanged(bool on);
    /// The user has drawn a rectangle; pixels of the picture.
    void rectangleDrawn(const QRect& pixels);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void followMouse();
    void showMoved();
    void paintFrames(QPainter& painter);

    const SxPicBuf* m_picture = nullptr;
    ZoomPan m_zoomPan;
    PictureMouse m_mouse;
    double m_toldZoom = 1.0; // what zoomChanged() said last
    QMetaObject::Connection m_asker;
    Brightness m_brightness;
    std::optional<ValueRange> m_range; // of the picture, when it has been asked for
    QRect m_region;
    PicturePainter m_painter;
};

} // namespace vistrel
