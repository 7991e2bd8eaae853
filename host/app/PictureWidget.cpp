// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Paints a picture where zoom and pan put it.
#include "app/PictureWidget.h"

#include "app/PixelText.h"

#include <QtGui/QPainter>

#include <utility>

namespace vistrel {

PictureWidget::PictureWidget(QWidget* parent)
    : QWidget(parent)
    , m_mouse(*this, m_zoomPan)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::StrongFocus);
    followMouse();
}

void PictureWidget::followMouse()
{
    connect(&m_mouse, &PictureMouse::moved, this, &PictureWidget::showMoved);
    connect(&m_mouse, &PictureMouse::pixelChanged, this,
            [this] { Q_EMIT pixelTextChanged(textOfPixel()); });
    connect(&m_mouse, &PictureMouse::rectangleChanged, this, qOverload<>(&QWidget::update));
    connect(&m_mouse, &PictureMouse::rectangleDrawn, this, [this](const QRect& pixels) {
        Q_EMIT rectangleModeChanged(false);
        Q_EMIT rectangleDrawn(pixels);
    });
    connect(&m_mouse, &PictureMouse::rectangleCancelled, this, [this] {
        disconnect(m_asker);
        Q_EMIT rectangleModeChanged(false);
    });
}

void PictureWidget::setPicture(const SxPicBuf* picture)
{
    m_picture = picture && picture->data ? picture : nullptr;
    m_painter.forget();
    m_range.reset();
    m_zoomPan.setSizes(pictureSize(), size());
    showMoved();
    Q_EMIT pictureChanged();
    if (m_mouse.pixel())
        Q_EMIT pixelTextChanged(textOfPixel());
}

QSize PictureWidget::pictureSize() const
{
    return m_picture
               ? QSize(static_cast<int>(m_picture->width), static_cast<int>(m_picture->height))
               : QSize();
}

void PictureWidget::fit()
{
    m_zoomPan.fit();
    showMoved();
}

void PictureWidget::setZoom(double zoom)
{
    m_zoomPan.setZoom(zoom, m_zoomPan.middleOfArea());
    showMoved();
}

void PictureWidget::drawRectangle(const QObject* context, std::function<void(const QRect&)> taken)
{
    cancelRectangle();
    m_asker = connect(this, &PictureWidget::rectangleDrawn, context, std::move(taken),
                      Qt::SingleShotConnection);
    m_mouse.startRectangle();
    setFocus(Qt::OtherFocusReason); // for Escape
    Q_EMIT rectangleModeChanged(true);
}

void PictureWidget::cancelRectangle()
{
    if (!drawsRectangle())
        return;
    disconnect(m_asker);
    m_mouse.leaveRectangle();
    Q_EMIT rectangleModeChanged(false);
}

void PictureWidget::setBrightness(const Brightness& brightness)
{
    if (m_brightness == brightness)
        return;
    m_brightness = brightness;
    m_range.reset();
    update();
    Q_EMIT brightnessChanged();
}

ValueRange PictureWidget::shownRange()
{
    if (!m_range)
        m_range = m_picture ? rangeFor(m_brightness, *m_picture) : ValueRange();
    return *m_range;
}

void PictureWidget::setRegion(const QRect& pixels)
{
    if (m_region == pixels)
        return;
    m_region = pixels;
    update();
    Q_EMIT regionChanged();
}

QString PictureWidget::textOfPixel() const
{
    const std::optional<QPoint> pixel = m_mouse.pixel();
    return m_picture && pixel ? pixelText(*m_picture, *pixel) : QString();
}

void PictureWidget::showMoved()
{
    update();
    const double zoom = m_zoomPan.zoom();
    if (std::exchange(m_toldZoom, zoom) != zoom)
        Q_EMIT zoomChanged(zoom);
}

void PictureWidget::resizeEvent(QResizeEvent*)
{
    m_zoomPan.setSizes(pictureSize(), size());
    showMoved();
}

void PictureWidget::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::Dark));
    if (m_picture)
        m_painter.paint(painter, devicePixelRatioF(), *m_picture, shownRange(), m_zoomPan);
    paintFrames(painter);
}

void PictureWidget::paintFrames(QPainter& painter)
{
    const QColor color = palette().color(QPalette::Highlight);
    if (!m_region.isEmpty()) {
        painter.setPen(QPen(color, 1.0, Qt::DashLine));
        painter.drawRect(m_zoomPan.placeOf(m_region));
    }
    const QRect drawn = m_mouse.rectangle();
    if (!drawn.isEmpty()) {
        painter.setPen(QPen(color, 2.0));
        painter.drawRect(m_zoomPan.placeOf(drawn));
    }
}

} // namespace vistrel
