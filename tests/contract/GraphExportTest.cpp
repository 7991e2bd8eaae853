// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Graphs drawn into pictures and copied to the clipboard.
#include "GraphFixture.h"

#include <CxPicBufAPI.h>

#include <QtGui/QClipboard>
#include <QtGui/QGuiApplication>

#include <cstring>

namespace {

class GraphExport : public GraphTest {
protected:
    static constexpr char wrongFormat[] = "Exception: Image must have RGB or RGBA format";

    /// The error of drawing into a picture that this was done to.
    template<class Change>
    QString drawError(std::unique_ptr<CxImageData> image, Change change)
    {
        change(*bind(std::move(image)).picBuf());
        return error("vistrel.Graph().draw_into_image(p)");
    }
    QString drawError(std::unique_ptr<CxImageData> image)
    {
        return drawError(std::move(image), [](SxPicBuf&) {});
    }

    static QString clipboardText() { return QGuiApplication::clipboard()->text(); }

    /// A picture over memory of the test's own, all bytes of which are 0x5a.
    CxImageData& bindMemory(unsigned width, unsigned height, unsigned channels, unsigned stride,
                            unsigned offset)
    {
        memory.fill(char(0x5a), static_cast<qsizetype>(stride) * height + offset + 64);
        SxPicBuf buffer;
        static_cast<SxPicBufInfo&>(buffer) =
            *makeImage(width, height, channels, ExImageDataType::UInt8, 8)->picBuf();
        buffer.stride = stride;
        buffer.data = reinterpret_cast<quint8*>(memory.data()) + offset;
        auto image = std::make_unique<CxImageData>();
        image->setPicBuf(buffer);
        return bind(std::move(image));
    }
    QByteArray memory;
};

TEST_F(GraphExport, ThePointsAreWhereTheAxesSayTheyAre)
{
    const ChartPicture chart = draw(series("(0, 0), (10, 40), (20, 10), (40, 30)"));
    ASSERT_TRUE(chart.hasAxes());
    const QRectF ranges(0, 0, 40, 40);
    for (const QPointF& point : {QPointF(5, 20), QPointF(10, 40), QPointF(15, 25), QPointF(20, 10),
                                 QPointF(30, 20), QPointF(40, 30)})
        EXPECT_TRUE(chart.shows(Qt::red, point.x(), point.y(), ranges)) << point.x();
    for (const QPointF& point : {QPointF(5, 30), QPointF(20, 20), QPointF(30, 10)})
        EXPECT_FALSE(chart.shows(Qt::red, point.x(), point.y(), ranges)) << point.x();
}

TEST_F(GraphExport, TheLineGoesThroughThePointsInTheOrderOfX)
{
    const ChartPicture chart = draw(series("(3, 1), (1, 2), (2, 3)"));
    const QRectF ranges(1, 1, 2, 2);
    EXPECT_TRUE(chart.shows(Qt::red, 1.5, 2.5, ranges));
    EXPECT_TRUE(chart.shows(Qt::red, 2.5, 2.0, ranges));
    EXPECT_FALSE(chart.shows(Qt::red, 2.0, 1.5, ranges)) << "no line from (3, 1) to (1, 2)";
}

TEST_F(GraphExport, ManyPointsInAnyOrderAreSorted)
{
    const ChartPicture chart = draw("s = g.add_series()\n"
                                    "for i in range(5000): x = i * 1237 % 5000; "
                                    "g.series_add_point(s, x, abs(x - 2500))");
    const QRectF ranges(0, 0, 4999, 2500);
    EXPECT_TRUE(chart.shows(Qt::red, 1250, 1250, ranges));
    EXPECT_TRUE(chart.shows(Qt::red, 3750, 1250, ranges));
    EXPECT_FALSE(chart.shows(Qt::red, 2500, 1250, ranges));
}

TEST_F(GraphExport, AManualXRangeIsShownExactlyWhileYFitsTheData)
{
    const ChartPicture chart =
        draw(series("(0, 100), (10, 200), (20, 100)") + "g.set_x_axis_range(5, 25)");
    const QRectF ranges(5, 100, 20, 100);
    EXPECT_TRUE(chart.shows(Qt::red, 10, 200, ranges));
    EXPECT_TRUE(chart.shows(Qt::red, 7.5, 175, ranges));
    EXPECT_TRUE(chart.shows(Qt::red, 15, 150, ranges));
}

TEST_F(GraphExport, AFittedAxisTakesInWhatTheOtherAxisLeavesOut)
{
    const std::string line = series("(0, 0), (10, 100), (20, 100), (30, 400)");
    EXPECT_TRUE(
        draw(line + "g.set_x_axis_range(10, 20)").shows(Qt::red, 15, 100, {10, 0, 10, 400}));
    EXPECT_TRUE(draw(line + "g.set_y_axis_range(0, 100)").shows(Qt::red, 5, 50, {0, 0, 30, 100}));
}

TEST_F(GraphExport, BothAxesFitAllSeriesAndLaterOnesAreDrawnOverEarlierOnes)
{
    const ChartPicture chart = draw(series("(0, 5), (20, 25)") + series("(10, 15), (40, 45)"));
    const QRectF ranges(0, 5, 40, 40);
    EXPECT_TRUE(chart.shows(Qt::red, 5, 10, ranges));
    EXPECT_TRUE(chart.shows(Qt::blue, 30, 35, ranges));
    EXPECT_TRUE(chart.shows(Qt::blue, 15, 20, ranges));
    EXPECT_FALSE(chart.shows(Qt::red, 15, 20, ranges)) << "the blue line covers it";
}

TEST_F(GraphExport, ALineIsTwoPixelsWide)
{
    const ChartPicture chart = draw(series("(0, 5), (10, 5)")
                                    + "g.set_y_axis_range(0, 10); g.set_grid_color(255, 255, 255)");
    double covered = 0.0; // by red, of white
    for (int y = 0; y < 300; ++y) {
        const QColor color = chart.image().pixelColor(215, y);
        covered += (color.red() - color.green()) / 255.0;
    }
    EXPECT_NEAR(covered, 2.0, 0.05);
}

TEST_F(GraphExport, AxesTicksAndLabelsHaveTheAxesColor)
{
    const ChartPicture chart =
        draw("g.set_axes_color(0, 0, 255); g.set_grid_color(255, 255, 255)", Qt::blue);
    ASSERT_TRUE(chart.hasAxes());
    // Between white and blue, and nothing else.
    for (int y = 0; y < 300; ++y) {
        for (int x = 0; x < 400; ++x) {
            const QColor color = chart.image().pixelColor(x, y);
            ASSERT_TRUE(color.blue() == 255 && color.red() == color.green())
                << x << ' ' << y << ' ' << qPrintable(color.name());
        }
    }
}

TEST_F(GraphExport, DrawingLeavesTheOrderOfThePointsAsItIs)
{
    draw(series("(3, 1), (1, 2)") + "g.draw_into_image(p); g.copy_series_data_to_clipboard(1)");
    EXPECT_EQ(clipboardText(), QStringLiteral("x\ty\n3\t1\n1\t2\n"));
}

TEST_F(GraphExport, LinesFarOutsideLeaveThePictureInTheRightDirection)
{
    const ChartPicture chart = draw(series("(-1e6, -2e6), (1e6, 2e6)")
                                    + "g.set_x_axis_range(-10, 10); g.set_y_axis_range(-10, 10)");
    const QRectF ranges(-10, -10, 20, 20);
    EXPECT_TRUE(chart.shows(Qt::red, 2, 4, ranges));
    EXPECT_TRUE(chart.shows(Qt::red, -4, -8, ranges));
    EXPECT_FALSE(chart.shows(Qt::red, 4, 4, ranges));
}

TEST_F(GraphExport, AValueThatIsNoNumberLeavesAGap)
{
    const ChartPicture chart =
        draw(series("(0, 0), (10, 10), (20, float('nan')), (30, 30), (40, 40), (50, float('inf')), "
                    "(float('inf'), 5), (float('nan'), 5)"));
    const QRectF ranges(0, 0, 50, 40);
    const QRectF drawn(0, 0, 40, 40);
    EXPECT_TRUE(chart.shows(Qt::red, 5, 5, ranges) || chart.shows(Qt::red, 5, 5, drawn));
    EXPECT_FALSE(chart.shows(Qt::red, 20, 20, ranges) || chart.shows(Qt::red, 20, 20, drawn));
}

TEST_F(GraphExport, AnInvertedRangeIsTurnedRound)
{
    const std::string line = series("(0, 0), (10, 10)");
    EXPECT_EQ(draw(line + "g.set_x_axis_range(9, 3)").image(),
              draw(line + "g.set_x_axis_range(3, 9)").image());
}

TEST_F(GraphExport, ARangeWithoutTicksIsIgnored)
{
    const std::string line = series("(0, 0), (10, 10)");
    const QImage fitted = draw(line).image();
    for (const char* range :
         {"5, 5", "float('nan'), 1", "0, float('inf')", "0, 1e-320", "-1.7e308, 1.7e308"})
        EXPECT_EQ(draw(line + "g.set_x_axis_range(" + range + ")").image(), fitted) << range;
}

TEST_F(GraphExport, AGraphWithoutSeriesIsAnEmptyChart)
{
    const ChartPicture chart = draw("");
    EXPECT_TRUE(chart.hasAxes());
    EXPECT_EQ(chart.corner(), QColor(Qt::white));
    EXPECT_GT(chart.count(Qt::lightGray), 500) << "grid";
    EXPECT_EQ(draw("g.add_series()").image(), chart.image()) << "no points, no difference";
}

TEST_F(GraphExport, TheWholePictureIsPaintedOver)
{
    CxImageData& image = bindPicture(60, 40);
    std::memset(image.picBuf()->data, 0x77, image.picBuf()->dataSize());
    draw("g.set_background_color(1, 2, 3)");
    const ChartPicture chart(image);
    EXPECT_EQ(chart.count(QColor(0x77, 0x77, 0x77)), 0);
    for (const QPoint& corner : {QPoint(0, 0), QPoint(59, 0), QPoint(59, 39)})
        EXPECT_EQ(chart.image().pixelColor(corner), QColor(1, 2, 3));
}

TEST_F(GraphExport, FourChannelsShowTheColorsAndAreOpaque)
{
    const ChartPicture chart = draw("g.set_background_color(10, 20, 30)");
    EXPECT_EQ(chart.corner(), QColor(10, 20, 30, 255));
}

TEST_F(GraphExport, ThreeChannelsShowRedAndBlueExchanged)
{
    bindPicture(400, 300, 3);
    const ChartPicture chart =
        draw(series("(0, 0), (10, 10)") + "g.set_background_color(10, 20, 30)");
    EXPECT_EQ(chart.corner(), QColor(30, 20, 10));
    EXPECT_TRUE(chart.shows(Qt::blue, 5, 5, {0, 0, 10, 10})) << "a red series is drawn blue";
}

TEST_F(GraphExport, ThePictureStaysMarkedAsRgb)
{
    for (const unsigned channels : {3U, 4U}) {
        const SxPicBuf before = *bindPicture(64, 48, channels).picBuf();
        draw("");
        const SxPicBuf& after = *bound->picBuf();
        EXPECT_TRUE(after.isRgb);
        EXPECT_EQ(after.data, before.data);
        EXPECT_EQ(after.stride, before.stride);
        EXPECT_EQ(after.channels, channels);
    }
}

TEST_F(GraphExport, PaddingOfLinesAndWhatLiesBehindThePictureAreKept)
{
    struct Layout {
        unsigned channels, stride, offset;
    };
    for (const Layout& layout :
         {Layout{3, 40 * 3 + 7, 0}, Layout{4, 40 * 4 + 12, 0}, Layout{4, 40 * 4 + 5, 0},
          Layout{4, 40 * 4, 1}, Layout{3, 40 * 3, 1}}) {
        bindMemory(40, 30, layout.channels, layout.stride, layout.offset);
        draw(series("(0, 0), (1, 1)") + "g.set_background_color(10, 20, 30)");
        const char first = layout.channels == 3 ? 30 : 10;
        const unsigned bytes = 40 * layout.channels;
        for (unsigned at = 0; at < static_cast<unsigned>(memory.size()); ++at) {
            const unsigned inside = at - layout.offset;
            const bool isPixel = at >= layout.offset && inside / layout.stride < 30
                                 && inside % layout.stride < bytes;
            if (isPixel)
                continue;
            ASSERT_EQ(memory[at], char(0x5a)) << at << " of stride " << layout.stride;
        }
        EXPECT_EQ(memory[layout.offset], first);
    }
}

TEST_F(GraphExport, OddlyAlignedPicturesShowTheSameAsOthers)
{
    const QImage usual = draw(series("(0, 0), (1, 1)")).image();
    bindMemory(400, 300, 4, 400 * 4 + 3, 1);
    EXPECT_EQ(draw(series("(0, 0), (1, 1)")).image(), usual);
}

TEST_F(GraphExport, RefusesPicturesOfOtherFormatsAndLeavesThemAlone)
{
    const QString refusal = QLatin1String(wrongFormat);
    EXPECT_EQ(drawError(makeImage(8, 8, 1, ExImageDataType::UInt8, 8)), refusal);
    EXPECT_EQ(drawError(makeImage(8, 8, 2, ExImageDataType::UInt8, 8)), refusal);
    EXPECT_EQ(drawError(makeImage(8, 8, 5, ExImageDataType::UInt8, 8)), refusal);
    EXPECT_EQ(drawError(makeImage(8, 8, 3, ExImageDataType::UInt16, 16)), refusal);
    EXPECT_EQ(drawError(makeImage(8, 8, 4, ExImageDataType::Float, 32)), refusal);
    EXPECT_EQ(drawError(makeImage(8, 8, 1, ExImageDataType::Packed565, 16)), refusal);
    const auto colors = [] { return makeImage(8, 8, 3, ExImageDataType::UInt8, 8); };
    EXPECT_EQ(drawError(colors(), [](SxPicBuf& buffer) { buffer.isRgb = false; }), refusal);
    EXPECT_EQ(
        drawError(colors(),
                  [](SxPicBuf& buffer) { buffer.storageFormat = ExDataStorageFormat::Unknown; }),
        refusal);
    const SxPicBuf& last = *bound->picBuf();
    EXPECT_EQ(QByteArray(reinterpret_cast<const char*>(last.data), 8 * 24), QByteArray(8 * 24, 0));
}

TEST_F(GraphExport, EightBitTypesAreAccepted)
{
    for (const ExImageDataType type : {ExImageDataType::None, ExImageDataType::Int8,
                                       ExImageDataType::UInt8, static_cast<ExImageDataType>(12)}) {
        bindPicture(50, 40).picBuf()->dataType = type;
        EXPECT_EQ(error("vistrel.Graph().draw_into_image(p)"), QString());
    }
}

TEST_F(GraphExport, AnEmptyImageIsTheInterpretersOwnError)
{
    expectSilentNull("vistrel.Graph().draw_into_image(vistrel.Image())");
}

TEST_F(GraphExport, AnythingElseIsNoImage)
{
    for (const char* other : {"None", "5", "'x'", "vistrel.Graph()", "vistrel.Camera()"})
        EXPECT_EQ(error((std::string("vistrel.Graph().draw_into_image(") + other + ")").c_str()),
                  QStringLiteral("Exception: the object passed is not a vistrel.Image"));
}

TEST_F(GraphExport, APictureWithoutPixelsIsLeftAlone)
{
    bindPicture(50, 40);
    SxPicBuf vanished = *bound->picBuf();
    std::swap(vanished.data, bound->picBuf()->data);
    EXPECT_EQ(run("vistrel.Graph().draw_into_image(p)"), QString());
    EXPECT_TRUE(bound->picBuf()->isRgb);
    bound->picBuf()->data = vanished.data;
}

TEST_F(GraphExport, APictureBeyondThePaintersReachIsPaintedThatFarAndLogged)
{
    constexpr unsigned reach = 8388607;
    for (const bool isWide : {true, false}) {
        for (const unsigned length : {reach, reach + 1}) {
            const SxPicBuf& picture =
                *bindPicture(isWide ? length : 1, isWide ? 1 : length).picBuf();
            log.clear();
            EXPECT_EQ(run("g = vistrel.Graph()\ng.set_background_color(9, 9, 9)\n"
                          "g.draw_into_image(p)"),
                      QString());
            EXPECT_EQ(picture.data[std::size_t{reach - 1} * 4], 9);
            EXPECT_EQ(log.size(), length > reach ? 1 : 0);
        }
        EXPECT_EQ(bound->picBuf()->data[std::size_t{reach} * 4], 0);
        const QString size = isWide ? QStringLiteral("8388608 x 1") : QStringLiteral("1 x 8388608");
        EXPECT_TRUE(
            log.last().endsWith(QStringLiteral("fx_script_DrawIntoImage(): the picture has ") + size
                                + QStringLiteral(" pixels, of which a chart takes 8388607 "
                                                 "in each direction")))
            << qPrintable(log.last());
    }
}

TEST_F(GraphExport, TheClipboardGetsTheFirstSeriesForNumberOne)
{
    run(("g = vistrel.Graph()\n" + series("(3, 1.5), (-1, 2)") + series("(7, 7)")
         + "g.copy_series_data_to_clipboard(1)")
            .c_str());
    EXPECT_EQ(clipboardText(), QStringLiteral("x\ty\n3\t1.5\n-1\t2\n"));
    EXPECT_EQ(after(series("(3, 1)") + series("(7, 7)"), "g.copy_series_data_to_clipboard(2)"),
              QStringLiteral("None"));
    EXPECT_EQ(clipboardText(), QStringLiteral("x\ty\n7\t7\n"));
}

TEST_F(GraphExport, NumbersOfNoSeriesCopyNothing)
{
    QGuiApplication::clipboard()->setText(QStringLiteral("kept"));
    EXPECT_EQ(after(series("(3, 1)"), "g.copy_series_data_to_clipboard(0), "
                                      "g.copy_series_data_to_clipboard(2), "
                                      "g.copy_series_data_to_clipboard(-2147483648)"),
              QStringLiteral("None None None"));
    EXPECT_EQ(clipboardText(), QStringLiteral("kept"));
}

TEST_F(GraphExport, ClipboardNumbersHave16DigitsWithoutTrailingZeros)
{
    run(("g = vistrel.Graph()\n"
         + series("(0.1, 2), (1/3, 1e300), (float('nan'), float('-inf')), (1e-5, 0)")
         + "g.copy_series_data_to_clipboard(1)")
            .c_str());
    EXPECT_EQ(clipboardText(), QStringLiteral("x\ty\n0.1\t2\n0.3333333333333333\t1e+300\n"
                                              "nan\t-inf\n1e-05\t0\n"));
}

TEST_F(GraphExport, ASeriesWithoutPointsCopiesItsHeader)
{
    run("g = vistrel.Graph(); g.add_series(); g.copy_series_data_to_clipboard(1)");
    EXPECT_EQ(clipboardText(), QStringLiteral("x\ty\n"));
}

TEST_F(GraphExport, TheEnvironmentIsNotAskedForTheThread)
{
    bindPicture();
    EXPECT_CALL(environment, isGuiThread()).Times(0);
    EXPECT_EQ(run("g = vistrel.Graph(); g.add_series(); g.draw_into_image(p); "
                  "g.copy_series_data_to_clipboard(1)"),
              QString());
}

TEST_F(GraphExport, ThreadsWithoutTheUserInterfaceBuildChartsButDoNotDrawThem)
{
    bindPicture();
    const QString refusal =
        QStringLiteral("Exception: a graph is drawn and copied on the GUI thread only");
    EXPECT_EQ(errorOffGuiThread("vistrel.Graph().draw_into_image(p)"), refusal);
    EXPECT_EQ(errorOffGuiThread("g = vistrel.Graph(); g.add_series(); "
                                "g.copy_series_data_to_clipboard(1)"),
              refusal);
    EXPECT_EQ(errorOffGuiThread("g = vistrel.Graph(); g.add_series(); "
                                "g.series_add_point(0, 1, 2); "
                                "caught.append(Exception(g.get_series_count()))"),
              QStringLiteral("Exception: 1"));
}

} // namespace
