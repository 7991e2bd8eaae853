// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Zoom, pan, the pixel below the mouse and rectangles, by wheel, buttons and keys.
#include "WidgetInWindow.h"

#include <QtTest/QSignalSpy>

using namespace vistrel;

using PictureMouseTest = PictureInWindow;

namespace {

/// What was drawn, as its asker sees it.
struct Asker : QObject {
    void ask(PictureWidget& widget)
    {
        widget.drawRectangle(this, [this](const QRect& pixels) { taken.append(pixels); });
    }
    QList<QRect> taken;
};

} // namespace

TEST_F(PictureMouseTest, WheelZoomsAndKeepsThePixelBelowTheCursor)
{
    show(400, 200);
    const QPoint cursor(61, 33);
    const QPoint before = widget.zoomPan().pixelAt(cursor);
    const double fitted = widget.zoomPan().zoom();
    for (int i = 0; i < 12; ++i) {
        turnWheel(cursor, 1);
        EXPECT_EQ(widget.zoomPan().pixelAt(cursor), before);
    }
    EXPECT_GT(widget.zoomPan().zoom(), 10.0 * fitted);
    turnWheel(cursor, -3);
    EXPECT_EQ(widget.zoomPan().pixelAt(cursor), before);
}

TEST_F(PictureMouseTest, WheelThatTurnsSidewaysLeavesThePictureFitted)
{
    show(400, 200);
    QWheelEvent event(QPoint(61, 33), widget.mapToGlobal(QPoint(61, 33)), QPoint(), QPoint(120, 0),
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&widget, &event);
    EXPECT_TRUE(widget.zoomPan().isFitted());
}

TEST_F(PictureMouseTest, DragMovesAnEnlargedPicture)
{
    show(400, 200);
    widget.setZoom(4.0);
    for (const Qt::MouseButton button : {Qt::LeftButton, Qt::MiddleButton}) {
        const QPointF before = widget.zoomPan().target().topLeft();
        drag({100, 50}, {120, 44}, button);
        EXPECT_EQ(widget.zoomPan().target().topLeft() - before, QPointF(20, -6));
    }
}

TEST_F(PictureMouseTest, MovingWithoutAButtonMovesNoPicture)
{
    show(400, 200);
    widget.setZoom(4.0);
    drag({100, 50}, {120, 44});
    const QRectF before = widget.zoomPan().target();
    move({10, 10});
    EXPECT_EQ(widget.zoomPan().target(), before);
}

TEST_F(PictureMouseTest, DoubleClickChangesBetweenFittedAndFullSize)
{
    show(400, 200);
    EXPECT_DOUBLE_EQ(widget.zoomPan().zoom(), 0.5);
    QTest::mouseDClick(window(), Qt::LeftButton, {}, {50, 50});
    EXPECT_DOUBLE_EQ(widget.zoomPan().zoom(), 1.0);
    QTest::mouseDClick(window(), Qt::LeftButton, {}, {50, 50});
    EXPECT_TRUE(widget.zoomPan().isFitted());
}

TEST_F(PictureMouseTest, TellsTheZoomWheneverItChanges)
{
    show(400, 200);
    QSignalSpy spy(&widget, &PictureWidget::zoomChanged);
    widget.setZoom(1.0);
    widget.setZoom(1.0);
    widget.fit();
    widget.resize(400, 200);
    QCoreApplication::processEvents();
    QList<double> zooms;
    for (const auto& call : spy)
        zooms.append(call.constFirst().toDouble());
    EXPECT_EQ(zooms, QList<double>({1.0, 0.5, 1.0}));
}

TEST_F(PictureMouseTest, TellsThePixelBelowTheMouse)
{
    show(200, 100, 9);
    QSignalSpy spy(&widget, &PictureWidget::pixelTextChanged);
    move({20, 30});
    ASSERT_FALSE(spy.isEmpty());
    EXPECT_EQ(spy.constLast().constFirst().toString(), QStringLiteral("x 20, y 30: 9"));
    // Another picture below a resting mouse.
    show(200, 100, 11);
    EXPECT_EQ(spy.constLast().constFirst().toString(), QStringLiteral("x 20, y 30: 11"));
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(&widget, &leave);
    EXPECT_EQ(spy.constLast().constFirst().toString(), QString());
}

TEST_F(PictureMouseTest, DrawsARectangleOfWholePixels)
{
    show(20, 10); // ten points a pixel
    Asker asker;
    asker.ask(widget);
    EXPECT_TRUE(widget.drawsRectangle());
    drag({25, 33}, {68, 71});
    EXPECT_EQ(asker.taken, QList<QRect>({QRect(QPoint(2, 3), QPoint(6, 7))}));
    EXPECT_FALSE(widget.drawsRectangle());
    drag({25, 33}, {68, 71}); // moves the picture again
    EXPECT_EQ(asker.taken.size(), 1);
}

TEST_F(PictureMouseTest, RectangleIsCutAtThePicturesEdges)
{
    show(20, 10);
    Asker asker;
    asker.ask(widget);
    drag({150, 50}, {-500, -900});
    EXPECT_EQ(asker.taken, QList<QRect>({QRect(QPoint(0, 0), QPoint(15, 5))}));
}

TEST_F(PictureMouseTest, RectangleIsShownWhileItIsDrawn)
{
    show(20, 10, 0);
    Asker asker;
    asker.ask(widget);
    QTest::mousePress(window(), Qt::LeftButton, {}, {25, 33});
    move({68, 71});
    const QColor line = widget.palette().color(QPalette::Highlight);
    EXPECT_EQ(paintedAt({20, 55}), line);
    EXPECT_EQ(paintedAt({70, 55}), line);
    QTest::keyClick(window(), Qt::Key_Escape);
    EXPECT_EQ(paintedAt({20, 55}), QColor(0, 0, 0));
}

TEST_F(PictureMouseTest, EscapeLeavesTheRectangleMode)
{
    show(20, 10);
    Asker asker;
    QSignalSpy modes(&widget, &PictureWidget::rectangleModeChanged);
    asker.ask(widget);
    QTest::mousePress(window(), Qt::LeftButton, {}, {25, 33});
    QTest::keyClick(window(), Qt::Key_Escape);
    QTest::mouseRelease(window(), Qt::LeftButton, {}, {90, 90});
    EXPECT_FALSE(widget.drawsRectangle());
    EXPECT_TRUE(asker.taken.isEmpty());
    EXPECT_EQ(modes.size(), 2);
    Q_EMIT widget.rectangleDrawn(QRect(1, 1, 1, 1)); // as for an asker to come
    EXPECT_TRUE(asker.taken.isEmpty());
}

TEST_F(PictureMouseTest, AClickIsNoRectangle)
{
    show(20, 10);
    Asker asker;
    asker.ask(widget);
    QTest::mouseClick(window(), Qt::LeftButton, {}, {25, 33});
    EXPECT_TRUE(widget.drawsRectangle());
    EXPECT_TRUE(asker.taken.isEmpty());
    drag({25, 33}, {68, 71});
    EXPECT_EQ(asker.taken.size(), 1);
}

TEST_F(PictureMouseTest, ALaterAskerForARectangleReplacesTheEarlier)
{
    show(20, 10);
    Asker first;
    Asker second;
    first.ask(widget);
    QSignalSpy modes(&widget, &PictureWidget::rectangleModeChanged);
    second.ask(widget);
    drag({25, 33}, {68, 71});
    EXPECT_TRUE(first.taken.isEmpty());
    EXPECT_EQ(second.taken.size(), 1);
    QList<bool> told;
    for (const auto& call : modes)
        told.append(call.constFirst().toBool());
    EXPECT_EQ(told, QList<bool>({false, true, false}));
}

TEST_F(PictureMouseTest, OfNoPictureIsHarmless)
{
    Asker asker;
    asker.ask(widget);
    drag({25, 33}, {68, 71});
    turnWheel({10, 10}, 3);
    widget.setZoom(1.0);
    widget.fit();
    EXPECT_TRUE(asker.taken.isEmpty());
    EXPECT_EQ(widget.textOfPixel(), QString());
    EXPECT_EQ(paintedAt({10, 10}), background());
}
