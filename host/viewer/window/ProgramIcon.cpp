// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The icon in coordinates of its own, from 0 to 100.
#include "viewer/window/ProgramIcon.h"

#include <QtGui/QPainter>
#include <QtGui/QPainterPath>

namespace vistrel {

namespace {

constexpr double side = 100.0;
constexpr QRgb darkGround = 0xff23303d;
constexpr QRgb lightGround = 0xff3d5166;
constexpr QRgb curveColour = 0xff7cbcf2;
constexpr QRgb ringColour = 0xfff4f6f8;
constexpr QRgb glassColour = 0xff2f6fb7;
constexpr QRgb glintColour = 0xffc4e0fa;

void drawGround(QPainter& painter)
{
    QLinearGradient ground(0.0, 0.0, 0.0, side);
    ground.setColorAt(0.0, QColor(lightGround));
    ground.setColorAt(1.0, QColor(darkGround));
    painter.setBrush(ground);
    painter.drawRoundedRect(QRectF(2.0, 2.0, 96.0, 96.0), 18.0, 18.0);
}

void drawHistogram(QPainter& painter)
{
    QPainterPath curve(QPointF(10.0, 90.0));
    curve.cubicTo(22.0, 88.0, 24.0, 62.0, 34.0, 62.0);
    curve.cubicTo(44.0, 62.0, 44.0, 80.0, 54.0, 80.0);
    curve.cubicTo(66.0, 80.0, 68.0, 54.0, 78.0, 54.0);
    curve.cubicTo(86.0, 54.0, 86.0, 84.0, 90.0, 90.0);
    painter.setBrush(QColor(curveColour));
    painter.drawPath(curve);
}

void drawLens(QPainter& painter)
{
    const QPointF middle(50.0, 40.0);
    painter.setBrush(QColor(ringColour));
    painter.drawEllipse(middle, 28.0, 28.0);
    painter.setBrush(QColor(darkGround));
    painter.drawEllipse(middle, 22.0, 22.0);
    painter.setBrush(QColor(glassColour));
    painter.drawEllipse(middle, 16.0, 16.0);
    painter.setBrush(QColor(glintColour));
    painter.drawEllipse(middle - QPointF(6.0, 6.0), 5.0, 5.0);
}

} // namespace

QImage iconPicture(int pixels)
{
    QImage picture(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(pixels / side, pixels / side);
    painter.setPen(Qt::NoPen);
    drawGround(painter);
    drawHistogram(painter);
    drawLens(painter);
    return picture;
}

QIcon programIcon()
{
    QIcon icon;
    for (const int pixels : iconSides)
        icon.addPixmap(QPixmap::fromImage(iconPicture(pixels)));
    return icon;
}

} // namespace vistrel
