// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Turns mouse events into zoom, place and rectangles.
#include "app/PictureMouse.h"

#include "app/ZoomPan.h"

#include <QtGui/QKeyEvent>
#include <QtGui/QMouseEvent>
#include <QtGui/QWheelEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QWidget>

#include <cmath>
#include <utility>

namespace vistrel {

namespace {

constexpr double zoomPerNotch = 1.25;
constexpr double angleOfNotch = 120.0; // in Qt's eighths of a degree

} // namespace

PictureMouse::PictureMouse(QWidget& widget, ZoomPan& zoomPan)
    : m_widget(widget)
    , m_zoomPan(zoomPan)
{
    widget.setMouseTracking(true);
    widget.installEventFilter(this);
}

void PictureMouse::startRectangle()
{
    m_drawsRectangle = true;
    m_panning = Qt::NoButton;
    m_widget.setCursor(Qt::CrossCursor);
}

void PictureMouse::leaveRectangle()
{
    m_drawsRectangle = false;
    m_corner.reset();
    m_widget.unsetCursor();
    Q_EMIT rectangleChanged();
}

QRect PictureMouse::rectangle() const
{
    return m_corner && m_position ? m_zoomPan.pixelsIn(QRectF(*m_corner, *m_position)) : QRect();
}

std::optional<QPoint> PictureMouse::pixel() const
{
    return m_position ? std::optional(m_zoomPan.pixelAt(*m_position)) : std::nullopt;
}

bool PictureMouse::eventFilter(QObject* object, QEvent* event)
{
    switch (event->type()) {
    case QEvent::Wheel:
        zoom(*static_cast<QWheelEvent*>(event));
        return true;
    case QEvent::MouseButtonPress:
        press(*static_cast<QMouseEvent*>(event));
        return true;
    case QEvent::MouseMove:
        follow(static_cast<QMouseEvent*>(event)->position());
        return true;
    case QEvent::MouseButtonRelease:
        release(*static_cast<QMouseEvent*>(event));
        return true;
    case QEvent::MouseButtonDblClick:
        if (!m_drawsRectangle && static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton)
            toggleFit(static_cast<QMouseEvent*>(event)->position());
        return true;
    case QEvent::Leave:
        m_position.reset();
        Q_EMIT pixelChanged();
        break;
    case QEvent::ShortcutOverride: // or a shortcut would take the key away
        event->setAccepted(isLeavingKey(*event));
        return event->isAccepted();
    case QEvent::KeyPress:
        if (!isLeavingKey(*event))
            break;
        leaveRectangle();
        Q_EMIT rectangleCancelled();
        return true;
    default:
        break;
    }
    return QObject::eventFilter(object, event);
}

void PictureMouse::zoom(QWheelEvent& event)
{
    if (event.angleDelta().y() == 0) // sideways, or a touchpad that begins or ends
        return;
    m_zoomPan.zoomBy(std::pow(zoomPerNotch, event.angleDelta().y() / angleOfNotch),
                     event.position());
    Q_EMIT moved();
}

void PictureMouse::press(QMouseEvent& event)
{
    follow(event.position());
    if (m_drawsRectangle && event.button() == Qt::LeftButton) {
        m_corner = event.position();
    } else if (event.button() == Qt::LeftButton || event.button() == Qt::MiddleButton) {
        m_panning = event.button();
        m_widget.setCursor(Qt::ClosedHandCursor);
    }
}

void PictureMouse::follow(const QPointF& position)
{
    const QPointF before = std::exchange(m_position, position).value_or(position);
    if (m_panning != Qt::NoButton) {
        m_zoomPan.pan(position - before);
        Q_EMIT moved();
    }
    if (m_corner)
        Q_EMIT rectangleChanged();
    Q_EMIT pixelChanged();
}

void PictureMouse::release(QMouseEvent& event)
{
    follow(event.position());
    if (event.button() == m_panning) {
        m_panning = Qt::NoButton;
        m_widget.setCursor(m_drawsRectangle ? Qt::CrossCursor : Qt::ArrowCursor);
    }
    if (!m_corner || event.button() != Qt::LeftButton)
        return;
    const QPointF corner = *std::exchange(m_corner, std::nullopt);
    const QRect pixels = m_zoomPan.pixelsIn(QRectF(corner, event.position()));
    // A click is no rectangle: the user may try again.
    const bool isDrag =
        (event.position() - corner).manhattanLength() >= QApplication::startDragDistance();
    Q_EMIT rectangleChanged();
    if (!isDrag || pixels.isEmpty())
        return;
    leaveRectangle();
    Q_EMIT rectangleDrawn(pixels);
}

void PictureMouse::toggleFit(const QPointF& around)
{
    if (m_zoomPan.isFitted())
        m_zoomPan.setZoom(1.0, around);
    else
        m_zoomPan.fit();
    Q_EMIT moved();
}

bool PictureMouse::isLeavingKey(const QEvent& event) const
{
    return m_drawsRectangle && static_cast<const QKeyEvent&>(event).key() == Qt::Key_Escape;
}

} // namespace vistrel
