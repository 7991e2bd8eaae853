// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// What a picture widget paints: any part of any picture, at any zoom and brightness.
#include "WidgetInWindow.h"

#include "../core/PixelFixtures.h"
#include "app/DisplayPicture.h"

using namespace vistrel;
using test::setValueAt;

using PictureDisplay = PictureInWindow;

namespace {

using Mode = Brightness::Mode;

/// A picture of 12 bits in which value(x, y) stands.
template<class Function>
std::unique_ptr<CxImageData> deepImage(unsigned width, unsigned height, Function value)
{
    auto image = makeImage(width, height, 0, ExImageDataType::UInt16, 12);
    for (unsigned y = 0; y < height; ++y)
        for (unsigned x = 0; x < width; ++x)
            setValueAt<quint16>(*image->picBuf(), y, x, static_cast<quint16>(value(x, y)));
    return image;
}

/// Raw pixels of a colour filter that let red light through.
std::unique_ptr<CxImageData> redRawImage(unsigned width, unsigned height)
{
    auto image = makeImage(width, height, 0);
    SxPicBuf& buffer = *image->picBuf();
    buffer.colorFilterArray = ExColorFilterArray::RGGB;
    for (unsigned y = 0; y < height; y += 2)
        for (unsigned x = 0; x < width; x += 2)
            setValueAt<quint8>(buffer, y, x, 200);
    return image;
}

QImage wholePicture(const SxPicBuf& buffer)
{
    return displayPicture(buffer, fullRange(buffer), QRect(0, 0, 1000, 1000), QSize(1000, 1000));
}

} // namespace

TEST_F(PictureDisplay, KeepsTheEdgesOfEnlargedPixels)
{
    show(deepImage(2, 1, [](unsigned x, unsigned) { return x == 0 ? 0 : 4095; }));
    EXPECT_EQ(paintedAt({99, 50}), QColor(0, 0, 0));
    EXPECT_EQ(paintedAt({100, 50}), QColor(255, 255, 255));
}

TEST_F(PictureDisplay, AveragesThePixelsOfASmallerPicture)
{
    show(deepImage(400, 200, [](unsigned x, unsigned y) { return (x + y) % 2 * 4095; }));
    for (const QPoint& point : {QPoint(0, 0), QPoint(57, 31), QPoint(199, 99)})
        EXPECT_NEAR(paintedAt(point).red(), 128, 1);
}

TEST_F(PictureDisplay, LeavesNoPixelOutOfASmallerPicture)
{
    for (const unsigned width : {210U, 300U, 390U}) {
        for (unsigned bright = 100; bright < 112; ++bright) {
            show(deepImage(width, width / 2,
                           [bright](unsigned x, unsigned) { return x == bright ? 4095 : 0; }));
            const QImage painted = widget.grab().toImage();
            int sum = 0;
            for (int x = 0; x < 200; ++x)
                sum += painted.pixelColor(x, 50).red();
            EXPECT_NEAR(sum, 255.0 * 200.0 / width, 40.0) << width << " " << bright;
        }
    }
}

TEST_F(PictureDisplay, ShowsAnyPartAtAnyZoom)
{
    const auto value = [](unsigned x, unsigned y) { return 16 * ((7 * x + 31 * y) % 256); };
    show(deepImage(300, 200, value));
    for (const double zoom : {1.0, 1.7, 8.0, 64.0}) {
        widget.setZoom(zoom);
        for (const QPoint& by : {QPoint(0, 0), QPoint(-90, -40), QPoint(61, 27)}) {
            drag({100, 50}, QPoint(100, 50) + by);
            const QImage painted = widget.grab().toImage();
            for (const QPoint& point : {QPoint(3, 5), QPoint(100, 51), QPoint(196, 97)}) {
                const QPoint pixel = widget.zoomPan().pixelAt(QPointF(point) + QPointF(0.5, 0.5));
                const unsigned wanted =
                    value(static_cast<unsigned>(pixel.x()), static_cast<unsigned>(pixel.y()));
                EXPECT_NEAR(painted.pixelColor(point).red(), wanted / 4095.0 * 255.0, 1.0)
                    << zoom << " " << point.x();
            }
        }
    }
}

TEST_F(PictureDisplay, ShowsTheColoursOfRawPicturesAtAnyPlace)
{
    show(redRawImage(80, 60));
    widget.setZoom(11.0);
    for (const QPoint& by : {QPoint(0, 0), QPoint(-11, 0), QPoint(0, -11), QPoint(-33, -55)}) {
        drag({100, 50}, QPoint(100, 50) + by);
        EXPECT_EQ(paintedAt({3, 3}), QColor(200, 0, 0));
        EXPECT_EQ(paintedAt({190, 90}), QColor(200, 0, 0));
    }
}

TEST_F(PictureDisplay, ShowsTheColoursOfRawPicturesThatAreMadeSmaller)
{
    const QList<std::pair<ExColorFilterArray, QColor>> filters = {
        {ExColorFilterArray::RGGB, QColor(200, 0, 0)},
        {ExColorFilterArray::GRBG, QColor(0, 100, 0)},
        {ExColorFilterArray::GBRG, QColor(0, 100, 0)},
        {ExColorFilterArray::BGGR, QColor(0, 0, 200)}};
    for (const auto& [filter, colour] : filters) {
        auto raw = redRawImage(1200, 600); // the first pixel of each cell has light
        raw->picBuf()->colorFilterArray = filter;
        show(std::move(raw));
        EXPECT_EQ(paintedAt({100, 50}), colour) << static_cast<int>(filter);
    }
    auto raw = redRawImage(1200, 600);
    raw->picBuf()->colorFilterArray = ExColorFilterArray::GRBG;
    for (unsigned y = 1; y < 600; y += 2)
        for (unsigned x = 0; x < 1200; x += 2)
            setValueAt<quint8>(*raw->picBuf(), y, x, 80);
    show(std::move(raw));
    EXPECT_EQ(paintedAt({100, 50}), QColor(0, 100, 80));
}

TEST_F(PictureDisplay, ShowsThePlacesOfColoursThatAreMadeSmaller)
{
    for (const unsigned channels : {3U, 4U}) {
        for (const bool isRgb : {true, false}) {
            auto colours = makeImage(1200, 600, 0, ExImageDataType::UInt8, 8, channels);
            SxPicBuf& buffer = *colours->picBuf();
            buffer.isRgb = isRgb;
            for (unsigned y = 0; y < 600; ++y)
                for (unsigned x = 0; x < 600; ++x)
                    setValueAt<quint8>(buffer, y, std::size_t{x} * channels, 250);
            show(std::move(colours));
            EXPECT_EQ(paintedAt({30, 50}), isRgb ? QColor(250, 0, 0) : QColor(0, 0, 250));
            EXPECT_EQ(paintedAt({170, 50}), QColor(0, 0, 0));
        }
    }
}

TEST_F(PictureDisplay, ShowsColoursInTheirOrder)
{
    auto colours = makeImage(4, 4, 0, ExImageDataType::UInt8, 8, 3);
    SxPicBuf& buffer = *colours->picBuf();
    for (unsigned y = 0; y < 4; ++y)
        for (unsigned x = 0; x < 4; ++x)
            setValueAt<quint8>(buffer, y, std::size_t{3} * x, 250);
    EXPECT_EQ(wholePicture(buffer).pixelColor(1, 1), QColor(250, 0, 0));
    buffer.isRgb = false;
    EXPECT_EQ(wholePicture(buffer).pixelColor(1, 1), QColor(0, 0, 250));
}

TEST_F(PictureDisplay, ShowsDeepPicturesBetweenAChosenBlackAndWhite)
{
    show(deepImage(4, 1, [](unsigned x, unsigned) { return 500 + 500 * x; }));
    widget.setBrightness({Mode::Chosen, {1000.0, 2000.0}});
    const QList<int> wanted{0, 0, 128, 255};
    for (int x = 0; x < 4; ++x)
        EXPECT_NEAR(paintedAt({25 + 50 * x, 50}).red(), wanted[x], 1) << x;
}

TEST_F(PictureDisplay, FindsBlackAndWhiteInThePicture)
{
    show(deepImage(4, 1, [](unsigned x, unsigned) { return 500 + 500 * x; }));
    widget.setBrightness({Mode::Extremes, {}});
    EXPECT_EQ(widget.shownRange(), (ValueRange{500.0, 2000.0}));
    EXPECT_EQ(paintedAt({10, 50}).red(), 0);
    EXPECT_EQ(paintedAt({75, 50}).red(), 85);
    EXPECT_EQ(paintedAt({190, 50}).red(), 255);
    // and anew in the next one
    show(deepImage(4, 1, [](unsigned x, unsigned) { return 100 * x; }));
    EXPECT_EQ(widget.shownRange(), (ValueRange{0.0, 300.0}));
    EXPECT_EQ(paintedAt({75, 50}).red(), 85);
}

TEST_F(PictureDisplay, LetsAFewPixelsLieBeyondThePercentiles)
{
    show(deepImage(100, 50,
                   [](unsigned x, unsigned y) { return x + y == 0 ? 4095 : 1000 + 10 * x; }));
    widget.setBrightness({Mode::Percentiles, {}});
    EXPECT_NEAR(widget.shownRange().black, 1000.0, 10.0);
    EXPECT_NEAR(widget.shownRange().white, 1990.0, 10.0);
}

TEST_F(PictureDisplay, OfOneValueIsBlackWhenBlackAndWhiteAreFound)
{
    show(deepImage(4, 4, [](unsigned, unsigned) { return 1234; }));
    for (const Mode mode : {Mode::Extremes, Mode::Percentiles}) {
        widget.setBrightness({mode, {}});
        EXPECT_EQ(paintedAt({100, 50}), QColor(0, 0, 0));
    }
}

TEST_F(PictureDisplay, ScalesTheBrightnessOfColours)
{
    auto colours = makeImage(4, 4, 0, ExImageDataType::UInt16, 12, 3);
    for (unsigned i = 0; i < 12; i += 3)
        for (unsigned y = 0; y < 4; ++y)
            setValueAt<quint16>(*colours->picBuf(), y, i, 400);
    show(std::move(colours));
    widget.setBrightness({Mode::Chosen, {0.0, 400.0}});
    EXPECT_EQ(paintedAt({100, 50}), QColor(255, 0, 0));
}

TEST_F(PictureDisplay, MarksItsRegion)
{
    show(20, 10, 0);
    widget.setRegion(QRect(2, 2, 5, 5));
    const QImage painted = widget.grab().toImage();
    const QColor line = widget.palette().color(QPalette::Highlight);
    int marked = 0;
    for (int y = 20; y <= 70; ++y)
        marked += painted.pixelColor(20, y) == line ? 1 : 0;
    EXPECT_GT(marked, 20);
    widget.setRegion(QRect());
    EXPECT_EQ(paintedAt({20, 21}), QColor(0, 0, 0));
}

TEST_F(PictureDisplay, OfEveryLayoutIsHarmless)
{
    test::forEachLayout([this](const test::Layout& layout) {
        auto shown = test::newImage(layout);
        test::fillRandomly(*shown->picBuf(), 3);
        show(std::move(shown));
        for (const Mode mode : {Mode::FullScale, Mode::Extremes, Mode::Percentiles, Mode::Chosen}) {
            widget.setBrightness({mode, {3.0, 70.0}});
            EXPECT_FALSE(widget.grab().isNull());
        }
        move({100, 50});
        EXPECT_NE(widget.textOfPixel(), QString());
    });
}

TEST_F(PictureDisplay, OfEverySizeIsHarmless)
{
    for (const QSize& size : {QSize(1, 1), QSize(20000, 20), QSize(20, 20000), QSize(3, 1)}) {
        show(static_cast<unsigned>(size.width()), static_cast<unsigned>(size.height()), 200);
        for (int notches = 0; notches < 30; ++notches) {
            const QSizeF shown = widget.zoomPan().target().size();
            if (std::min(shown.width(), shown.height()) >= 2.0) // else a line beside the middle
                EXPECT_EQ(paintedAt({100, 50}), QColor(200, 200, 200)) << size.width();
            else
                EXPECT_FALSE(widget.grab().isNull());
            turnWheel({100, 50}, 1);
        }
    }
}

TEST_F(PictureDisplay, OfAWidgetWithoutSizeIsHarmless)
{
    show(8, 8);
    widget.resize(0, 0);
    EXPECT_TRUE(widget.grab().isNull());
    widget.fit();
    widget.setZoom(3.0);
}
