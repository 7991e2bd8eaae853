// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// A picture widget in a window of its own, used with mouse and keys.
#pragma once

#include "AppFixture.h"

#include "app/PictureWidget.h"

#include <QtTest/QTest>
#include <QtWidgets/QApplication>

namespace vistrel {

/// The events go the way of real ones, through the window.
class PictureInWindow : public testing::Test {
protected:
    PictureInWindow()
    {
        widget.resize(200, 100);
        widget.show();
        widget.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&widget));
    }

    /// Shows an image of equal bytes.
    void show(unsigned width, unsigned height, int byte = 7)
    {
        show(makeImage(width, height, byte));
    }
    void show(std::unique_ptr<CxImageData> shown)
    {
        image.swap(shown);
        widget.setPicture(image->picBuf());
    }

    QWindow* window() { return widget.windowHandle(); }
    void move(const QPoint& point) { QTest::mouseMove(window(), point); }
    void drag(const QPoint& from, const QPoint& to, Qt::MouseButton button = Qt::LeftButton)
    {
        move(from);
        QTest::mousePress(window(), button, {}, from);
        move((from + to) / 2);
        move(to);
        QTest::mouseRelease(window(), button, {}, to);
    }
    /// Turns the wheel away from the user, or towards him.
    void turnWheel(const QPoint& at, int notches)
    {
        QWheelEvent event(at, widget.mapToGlobal(at), QPoint(), QPoint(0, 120 * notches),
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&widget, &event);
    }
    QColor paintedAt(const QPoint& point) { return widget.grab().toImage().pixelColor(point); }
    QColor background() const { return QColor(widget.palette().color(QPalette::Dark).rgb()); }

    std::unique_ptr<CxImageData> image; // outlives the widget
    PictureWidget widget;
};

} // namespace vistrel
