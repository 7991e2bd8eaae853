// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// What the mouse does to a picture.
#pragma once

#include <QtCore/QObject>
#include <QtCore/QPoint>
#include <QtCore/QRect>

#include <optional>

class QMouseEvent;
class QWheelEvent;
class QWidget;

namespace vistrel {

class ZoomPan;

/// Wheel: zoom to the cursor. Left or middle button: move the picture. Double click: fit, or 100 %
/// when it is fitted. In the rectangle mode the left button draws, and Escape leaves the mode.
class PictureMouse : public QObject {
    Q_OBJECT

public:
    /// Handles the widget's events from now on. Both must outlive it.
    PictureMouse(QWidget& widget, ZoomPan& zoomPan);

    /// The next drag draws a rectangle.
    void startRectangle();
    void leaveRectangle();
    bool drawsRectangle() const { return m_drawsRectangle; }
    /// The pixels of the rectangle that is being drawn; empty when there is none.
    QRect rectangle() const;
    /// The pixel below the mouse, also outside the picture; nothing when the mouse is elsewhere.
    std::optional<QPoint> pixel() const;

    bool eventFilter(QObject* object, QEvent* event) override;

Q_SIGNALS:
    /// Zoom or place of the picture is another.
    void moved();
    /// The mouse is over another pixel, or has left.
    void pixelChanged();
    void rectangleChanged();
    /// The button was released over at least one pixel; the mode has been left.
    void rectangleDrawn(const QRect& pixels);
    /// Escape was pressed; the mode has been left.
    void rectangleCancelled();

private:
    void zoom(QWheelEvent& event);
    void press(QMouseEvent& event);
    void follow(const QPointF& position);
    void release(QMouseEvent& event);
    void toggleFit(const QPointF& around);
    bool isLeavingKey(const QEvent& event) const;

    QWidget& m_widget;
    ZoomPan& m_zoomPan;
    bool m_drawsRectangle = false;
    std::optional<QPointF> m_position; // of the mouse, while it is over the widget
    std::optional<QPointF> m_corner;   // where the rectangle was begun
    Qt::MouseButton m_panning = Qt::NoButton;
};

} // namespace vistrel
