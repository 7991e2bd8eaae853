// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Where a picture lies in its area, and what a person reads of a pixel.
#include "app/ZoomPan.h"
#include "app/PixelText.h"

#include <CxPicBufAPI.h>

#include <gtest/gtest.h>

namespace vistrel {

namespace {

ZoomPan picture100x50In(const QSize& area)
{
    ZoomPan zoomPan;
    zoomPan.setSizes(QSize(100, 50), area);
    return zoomPan;
}

} // namespace

TEST(ZoomPan, FitsThePictureIntoTheMiddle)
{
    EXPECT_EQ(picture100x50In(QSize(200, 300)).target(), QRectF(0, 100, 200, 100));
    EXPECT_EQ(picture100x50In(QSize(50, 50)).target(), QRectF(0, 12.5, 50, 25));
}

TEST(ZoomPan, StaysFittedWhenTheAreaChanges)
{
    ZoomPan zoomPan = picture100x50In(QSize(200, 100));
    zoomPan.setSizes(QSize(100, 50), QSize(400, 200));
    EXPECT_EQ(zoomPan.target(), QRectF(0, 0, 400, 200));
}

TEST(ZoomPan, KeepsThePointBelowTheCursor)
{
    ZoomPan zoomPan = picture100x50In(QSize(200, 100));
    const QPointF cursor(120, 40);
    const QPoint before = zoomPan.pixelAt(cursor);
    zoomPan.zoomBy(3.0, cursor);
    EXPECT_EQ(zoomPan.pixelAt(cursor), before);
    EXPECT_DOUBLE_EQ(zoomPan.zoom(), 6.0);
    EXPECT_FALSE(zoomPan.isFitted());
}

TEST(ZoomPan, LeavesNoGapBesideAnEnlargedPicture)
{
    ZoomPan zoomPan = picture100x50In(QSize(200, 100));
    zoomPan.setZoom(4.0, QPointF(0, 0));
    zoomPan.pan(QPointF(1000, 1000));
    EXPECT_EQ(zoomPan.target().topLeft(), QPointF(0, 0));
    zoomPan.pan(QPointF(-5000, -5000));
    EXPECT_EQ(zoomPan.target().bottomRight(), QPointF(200, 100));
}

TEST(ZoomPan, HasBoundsInBothDirections)
{
    ZoomPan zoomPan = picture100x50In(QSize(200, 100));
    zoomPan.zoomBy(1e9, QPointF(1, 1));
    EXPECT_DOUBLE_EQ(zoomPan.zoom(), 64.0);
    zoomPan.zoomBy(1e-9, QPointF(1, 1));
    EXPECT_DOUBLE_EQ(zoomPan.zoom(), 1.0 / 64.0);
}

TEST(ZoomPan, OfAnotherPictureIsFittedAnew)
{
    ZoomPan zoomPan = picture100x50In(QSize(200, 100));
    zoomPan.setZoom(10.0, QPointF());
    zoomPan.setSizes(QSize(10, 10), QSize(200, 100));
    EXPECT_TRUE(zoomPan.isFitted());
}

TEST(ZoomPan, KeepsItsZoomWhenTheAreaChanges)
{
    ZoomPan zoomPan = picture100x50In(QSize(200, 100));
    zoomPan.setZoom(10.0, QPointF(100, 50));
    const QPoint middle = zoomPan.pixelAt(QPointF(100, 50));
    zoomPan.setSizes(QSize(100, 50), QSize(300, 200));
    EXPECT_DOUBLE_EQ(zoomPan.zoom(), 10.0);
    EXPECT_EQ(zoomPan.pixelAt(QPointF(150, 100)), middle);
}

TEST(ZoomPan, FindsThePixelsInARectangleDrawnInAnyDirection)
{
    const ZoomPan zoomPan = picture100x50In(QSize(200, 100));
    EXPECT_EQ(zoomPan.pixelsIn(QRectF(QPointF(41, 21), QPointF(20, 10))), QRect(10, 5, 11, 6));
    EXPECT_EQ(zoomPan.pixelsIn(QRectF(-50, -50, 1000, 1000)), QRect(0, 0, 100, 50));
    EXPECT_TRUE(zoomPan.pixelsIn(QRectF(500, 500, 10, 10)).isEmpty());
}

TEST(ZoomPan, OfNothingIsHarmless)
{
    ZoomPan zoomPan;
    zoomPan.setSizes(QSize(), QSize(0, 0));
    zoomPan.zoomBy(2.0, QPointF(1, 1));
    zoomPan.pan(QPointF(3, 3));
    EXPECT_TRUE(zoomPan.pixelsIn(QRectF(0, 0, 10, 10)).isEmpty());
}

/// A square picture whose pixels the caller keeps.
template<typename Element>
SxPicBuf squareOver(Element* values, quint32 side, quint32 channels, ExImageDataType type)
{
    SxPicBuf buffer;
    buffer.width = buffer.height = side;
    buffer.stride = side * channels * static_cast<quint32>(sizeof(Element));
    buffer.channels = channels;
    buffer.dataType = type;
    buffer.data = reinterpret_cast<quint8*>(values);
    return buffer;
}

TEST(PixelText, GivesValuesInTheirOwnDepth)
{
    quint16 values[]{1, 2, 3, 4095};
    const SxPicBuf buffer = squareOver(values, 2, 1, ExImageDataType::UInt16);
    EXPECT_EQ(pixelText(buffer, QPoint(1, 1)), QStringLiteral("x 1, y 1: 4095"));
    EXPECT_EQ(pixelText(buffer, QPoint(2, 1)), QString());
    EXPECT_EQ(pixelText(buffer, QPoint(-1, 0)), QString());
}

TEST(PixelText, NamesColoursInTheOrderOfTheChannels)
{
    quint8 values[]{1, 2, 3, 4};
    SxPicBuf buffer = squareOver(values, 1, 4, ExImageDataType::UInt8);
    EXPECT_EQ(pixelText(buffer, QPoint()), QStringLiteral("x 0, y 0: B 1, G 2, R 3, A 4"));
    buffer.isRgb = true;
    EXPECT_EQ(pixelText(buffer, QPoint()), QStringLiteral("x 0, y 0: R 1, G 2, B 3, A 4"));
}

TEST(PixelText, ReadsSignedFloatingAndPackedValues)
{
    float real = -1.5F;
    EXPECT_EQ(pixelText(squareOver(&real, 1, 1, ExImageDataType::Float), QPoint()),
              QStringLiteral("x 0, y 0: -1.5"));
    qint8 small = -7;
    EXPECT_EQ(pixelText(squareOver(&small, 1, 1, ExImageDataType::Int8), QPoint()),
              QStringLiteral("x 0, y 0: -7"));
    quint16 packed = 0x1F << 11 | 5;
    EXPECT_EQ(pixelText(squareOver(&packed, 1, 1, ExImageDataType::Packed565), QPoint()),
              QStringLiteral("x 0, y 0: R 31, G 0, B 5"));
}

TEST(PixelText, OfNothingIsEmpty) { EXPECT_EQ(pixelText(SxPicBuf(), QPoint()), QString()); }

} // namespace vistrel
