// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Views in the viewer: zoom, readout, brightness, histogram, full screen, saving, arranging.
#include "FileDialogFiller.h"
#include "ViewerFixture.h"

#include "viewer/pictures/BrightnessPanel.h"
#include "viewer/pictures/FullScreen.h"
#include "viewer/pictures/HistogramPlot.h"

#include <QtWidgets/QCheckBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QDockWidget>
#include <QtWidgets/QDoubleSpinBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QMdiArea>
#include <QtWidgets/QMdiSubWindow>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QStatusBar>

namespace vistrel {

namespace {

using Mode = Brightness::Mode;

class PictureViewsTest : public ViewerTest {
protected:
    PictureViewsTest()
    {
        m_viewer->window().activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&m_viewer->window()));
    }

    ImageView& show(std::unique_ptr<CxImageData> image)
    {
        EXPECT_TRUE(delegate().newViewWithImage(image.release(), QStringLiteral("picture")));
        QCoreApplication::processEvents();
        return active();
    }
    ImageView& active() { return *delegate().imageView(delegate().activeViewId()); }

    /// A picture of 12 bits, of one value but for its first pixel.
    ImageView& showDeep(quint16 value, quint16 first)
    {
        auto image = makeImage(40, 30, 0, ExImageDataType::UInt16, 12);
        SxPicBuf& buffer = *image->picBuf();
        for (unsigned i = 0; i < 40 * 30; ++i) {
            const quint16 stored = i == 0 ? first : value;
            std::memcpy(buffer.data + std::size_t{i} / 40 * buffer.stride
                            + std::size_t{i} % 40 * sizeof stored,
                        &stored, sizeof stored);
        }
        return show(std::move(image));
    }

    /// Where a pixel's middle lies in the main window.
    QPoint placeOf(const ImageView& view, const QPoint& pixel)
    {
        const QPointF middle = view.zoomPan().placeOf(QRect(pixel, QSize(1, 1))).center();
        return view.mapTo(&m_viewer->window(), middle.toPoint());
    }
    QWindow* window() { return m_viewer->window().windowHandle(); }
    void drag(const QPoint& from, const QPoint& to)
    {
        QTest::mousePress(window(), Qt::LeftButton, {}, from);
        QTest::mouseMove(window(), (from + to) / 2);
        QTest::mouseMove(window(), to);
        QTest::mouseRelease(window(), Qt::LeftButton, {}, to);
    }
    QString statusText(const char* name)
    {
        return m_viewer->window()
            .statusBar()
            ->findChild<QLabel*>(QString::fromLatin1(name))
            ->text();
    }
    BrightnessPanel& panel() { return m_viewer->brightness(); }
    template<class Input>
    Input& input(const char* name = "")
    {
        return *panel().findChild<Input*>(QString::fromLatin1(name));
    }
    QPushButton& button(const QString& text)
    {
        for (QPushButton* candidate : panel().findChildren<QPushButton*>())
            if (candidate->text().remove(u'&') == text)
                return *candidate;
        throw std::logic_error("no such button");
    }
    const ValueCounts& counts() { return *panel().plot().counts(); }
    void enter(const char* name, double value)
    {
        auto& box = input<QDoubleSpinBox>(name);
        box.setFocus();
        box.selectAll();
        QTest::keyClicks(&box, QString::number(value));
        QTest::keyClick(&box, Qt::Key_Return);
    }
};

} // namespace

TEST_F(PictureViewsTest, TellTheValuesBelowTheMouseInTheirOwnDepth)
{
    ImageView& view = showDeep(4095, 17);
    QTest::mouseMove(window(), placeOf(view, {0, 0}));
    EXPECT_EQ(statusText("pixelText"), QStringLiteral("x 0, y 0: 17"));
    QTest::mouseMove(window(), placeOf(view, {5, 7}));
    EXPECT_EQ(statusText("pixelText"), QStringLiteral("x 5, y 7: 4095"));
    ImageView& colours = show(makeImage(8, 6, 99, ExImageDataType::UInt8, 8, 3));
    QTest::mouseMove(window(), placeOf(colours, {3, 2}));
    EXPECT_EQ(statusText("pixelText"), QStringLiteral("x 3, y 2: R 99, G 99, B 99"));
    colours.closeMdiView();
    EXPECT_EQ(statusText("pixelText"), QString());
}

TEST_F(PictureViewsTest, ZoomByTheirKeysAndTellIt)
{
    ImageView& view = show(makeImage(400, 300, 1));
    press(Qt::CTRL | Qt::Key_1);
    EXPECT_DOUBLE_EQ(view.zoomPan().zoom(), 1.0);
    EXPECT_EQ(statusText("zoomText"), QStringLiteral("100 %"));
    press(Qt::CTRL | Qt::Key_Plus);
    EXPECT_EQ(statusText("zoomText"), QStringLiteral("125 %"));
    press(Qt::CTRL | Qt::Key_Minus);
    EXPECT_DOUBLE_EQ(view.zoomPan().zoom(), 1.0);
    press(Qt::CTRL | Qt::Key_0);
    EXPECT_TRUE(view.zoomPan().isFitted());
    showDeep(1, 2).setZoom(8.0);
    EXPECT_EQ(statusText("zoomText"), QStringLiteral("800 %"));
    delegate().activateView(view.id());
    EXPECT_NE(statusText("zoomText"), QStringLiteral("800 %"));
}

TEST_F(PictureViewsTest, KeepTheirOwnBrightness)
{
    ImageView& first = showDeep(1000, 500);
    input<QComboBox>().setCurrentIndex(static_cast<int>(Mode::Extremes));
    EXPECT_EQ(first.shownRange(), (ValueRange{500.0, 1000.0}));
    EXPECT_EQ(input<QDoubleSpinBox>("black").value(), 500.0);
    EXPECT_EQ(input<QDoubleSpinBox>("white").value(), 1000.0);
    ImageView& second = showDeep(3000, 0);
    EXPECT_EQ(second.brightness().mode, Mode::FullScale);
    EXPECT_EQ(input<QComboBox>().currentIndex(), static_cast<int>(Mode::FullScale));
    EXPECT_EQ(input<QDoubleSpinBox>("white").value(), 4095.0);
    delegate().activateView(first.id());
    EXPECT_EQ(input<QComboBox>().currentIndex(), static_cast<int>(Mode::Extremes));
}

TEST_F(PictureViewsTest, AreShownBetweenTheValuesThatAreEntered)
{
    ImageView& view = showDeep(1000, 500);
    enter("black", 800);
    enter("white", 1200);
    EXPECT_EQ(view.brightness(), (Brightness{Mode::Chosen, {800.0, 1200.0}}));
    EXPECT_EQ(input<QComboBox>().currentIndex(), static_cast<int>(Mode::Chosen));
    const QPoint middle = view.rect().center();
    EXPECT_NEAR(view.grab().toImage().pixelColor(middle).red(), 128, 1);
}

TEST_F(PictureViewsTest, BeginToChooseFromWhatWasFound)
{
    ImageView& view = showDeep(1000, 500);
    input<QComboBox>().setCurrentIndex(static_cast<int>(Mode::Extremes));
    input<QComboBox>().setCurrentIndex(static_cast<int>(Mode::Chosen));
    EXPECT_EQ(view.brightness(), (Brightness{Mode::Chosen, {500.0, 1000.0}}));
}

TEST_F(PictureViewsTest, ChangeTheirBrightnessByTheirKeys)
{
    ImageView& view = showDeep(1000, 500);
    press(Qt::CTRL | Qt::Key_B);
    EXPECT_EQ(view.brightness().mode, Mode::Percentiles);
    press(Qt::CTRL | Qt::SHIFT | Qt::Key_B);
    EXPECT_EQ(view.brightness().mode, Mode::FullScale);
}

TEST_F(PictureViewsTest, HaveAHistogramInTheirOwnDepth)
{
    ImageView& view = showDeep(1000, 500);
    ASSERT_TRUE(panel().plot().counts());
    EXPECT_EQ(counts().bins(), 4096U);
    EXPECT_EQ(counts().channels[0][1000], 40U * 30U - 1U);
    EXPECT_EQ(counts().channels[0][500], 1U);
    // A picture that follows is counted a little later.
    view.setImage(makeImage(10, 10, 77));
    ASSERT_TRUE(handleEventsUntil([&] { return counts().channels[0].size() == 256; }));
    EXPECT_EQ(counts().channels[0][77], 100U);
    show(makeImage(8, 6, 99, ExImageDataType::UInt8, 8, 3));
    EXPECT_EQ(counts().channels.size(), 3U);
}

TEST_F(PictureViewsTest, AreCountedInARegionDrawnWithTheMouse)
{
    ImageView& view = showDeep(1000, 500);
    QTest::mouseClick(&button(QStringLiteral("Count region")), Qt::LeftButton);
    EXPECT_TRUE(view.drawsRectangle());
    drag(placeOf(view, {10, 10}), placeOf(view, {13, 12}));
    EXPECT_EQ(view.region(), QRect(10, 10, 4, 3));
    EXPECT_FALSE(button(QStringLiteral("Count region")).isChecked());
    EXPECT_EQ(counts().channels[0][1000], 12U);
    EXPECT_EQ(counts().channels[0][500], 0U);
    press(Qt::CTRL | Qt::SHIFT | Qt::Key_R);
    EXPECT_EQ(counts().channels[0][500], 1U);
}

TEST_F(PictureViewsTest, LeaveTheRectangleModeByButtonAndByEscape)
{
    ImageView& view = showDeep(1000, 500);
    QPushButton& draw = button(QStringLiteral("Count region"));
    QTest::mouseClick(&draw, Qt::LeftButton);
    QTest::mouseClick(&draw, Qt::LeftButton);
    EXPECT_FALSE(view.drawsRectangle());
    press(Qt::CTRL | Qt::Key_R);
    EXPECT_TRUE(view.drawsRectangle());
    EXPECT_TRUE(draw.isChecked());
    QTest::keyClick(window(), Qt::Key_Escape);
    EXPECT_FALSE(view.drawsRectangle());
    EXPECT_FALSE(draw.isChecked());
}

TEST_F(PictureViewsTest, AreShownBetweenTheLinesThatAreDraggedInTheHistogram)
{
    ImageView& view = showDeep(1000, 500);
    HistogramPlot& plot = panel().plot();
    const auto place = [&](double value) {
        const QPoint point(qRound(plot.positionOf(value)), plot.height() / 2);
        return plot.mapTo(&m_viewer->window(), point);
    };
    drag(place(4095), place(2000));
    EXPECT_EQ(view.brightness().mode, Mode::Chosen);
    EXPECT_EQ(view.brightness().chosen.black, 0.0);
    EXPECT_NEAR(view.brightness().chosen.white, 2000.0, 30.0);
    drag(place(0), place(4000)); // black stays below white
    EXPECT_EQ(view.brightness().chosen.black, view.brightness().chosen.white - 1.0);
}

TEST_F(PictureViewsTest, HistogramMayBeLogarithmicAndStaysSo)
{
    showDeep(1000, 500);
    QTest::mouseClick(&input<QCheckBox>(), Qt::LeftButton);
    EXPECT_TRUE(input<QCheckBox>().isChecked());
    m_viewer.reset();
    begin();
    EXPECT_TRUE(input<QCheckBox>().isChecked());
}

TEST_F(PictureViewsTest, FillTheScreenAndComeBack)
{
    ImageView& view = showDeep(1000, 500);
    show(makeImage(4, 4, 1));
    delegate().activateView(view.id());
    const QRect before = view.parentWidget()->geometry();
    press(Qt::Key_F11);
    EXPECT_TRUE(m_viewer->window().isFullScreen());
    EXPECT_TRUE(view.parentWidget()->isMaximized());
    for (const QDockWidget* dock : m_viewer->window().findChildren<QDockWidget*>())
        EXPECT_FALSE(dock->isVisible());
    EXPECT_EQ(m_viewer->window().menuBar()->height(), 0);
    press(Qt::CTRL | Qt::Key_1); // keys work as before
    EXPECT_DOUBLE_EQ(view.zoomPan().zoom(), 1.0);
    QTest::keyClick(window(), Qt::Key_Escape);
    EXPECT_FALSE(m_viewer->window().isFullScreen());
    EXPECT_EQ(view.parentWidget()->geometry(), before);
    EXPECT_TRUE(m_viewer->scriptDock().isVisible());
    EXPECT_GT(m_viewer->window().menuBar()->height(), 0);
    EXPECT_FALSE(action(QStringLiteral("Full screen"))->isChecked());
}

TEST_F(PictureViewsTest, FillTheScreenAllOfIt)
{
    ImageView& first = showDeep(1000, 500);
    ImageView& second = show(makeImage(4, 4, 1));
    press(Qt::Key_F11);
    const auto fillsWindow = [this](const ImageView& view) {
        const MainWindow& window = m_viewer->window();
        return handleEventsUntil(
            [&] { return QRect(view.mapTo(&window, QPoint()), view.size()) == window.rect(); });
    };
    EXPECT_TRUE(fillsWindow(second)); // also without its title bar
    delegate().activateView(first.id());
    EXPECT_TRUE(fillsWindow(first));
}

TEST_F(PictureViewsTest, OnTheFullScreenLeaveTheRectangleModeFirst)
{
    ImageView& view = showDeep(1000, 500);
    press(Qt::Key_F11);
    press(Qt::CTRL | Qt::Key_R);
    QTest::keyClick(window(), Qt::Key_Escape);
    EXPECT_FALSE(view.drawsRectangle());
    EXPECT_TRUE(m_viewer->fullScreen().isOn());
    press(Qt::Key_F11);
    EXPECT_FALSE(m_viewer->fullScreen().isOn());
}

TEST_F(PictureViewsTest, OnTheFullScreenMayBeClosed)
{
    ImageView& view = showDeep(1000, 500);
    press(Qt::Key_F11);
    view.closeMdiView();
    EXPECT_FALSE(m_viewer->window().isFullScreen());
    EXPECT_TRUE(m_viewer->scriptDock().isVisible());
    press(Qt::Key_F11); // nothing to show
    EXPECT_FALSE(m_viewer->window().isFullScreen());
    EXPECT_FALSE(action(QStringLiteral("Full screen"))->isChecked());
}

TEST_F(PictureViewsTest, LeaveTheFullScreenWhenAScriptTakesTheWindowOffIt)
{
    showDeep(1000, 500);
    press(Qt::Key_F11);
    delegate().setFullScreen(false);
    EXPECT_FALSE(m_viewer->fullScreen().isOn());
    EXPECT_TRUE(m_viewer->scriptDock().isVisible());
}

TEST_F(PictureViewsTest, PanelsAreWhereTheyWereAfterAnEndOnTheFullScreen)
{
    showDeep(1000, 500);
    press(Qt::Key_F11);
    EXPECT_TRUE(m_viewer->window().close());
    m_viewer.reset();
    begin();
    EXPECT_FALSE(m_viewer->window().isFullScreen());
    EXPECT_TRUE(m_viewer->scriptDock().isVisible());
}

TEST_F(PictureViewsTest, AreSavedWithAllTheirBits)
{
    showDeep(1000, 500);
    const QString path = m_folder.filePath(QStringLiteral("saved.png"));
    FileDialogFiller filler({path});
    press(Qt::CTRL | Qt::ALT | Qt::Key_S);
    ASSERT_TRUE(QFileInfo::exists(path));
    ASSERT_TRUE(m_viewer->openFile(path));
    const SxPicBuf& read = *active().image()->picBuf();
    quint16 last = 0;
    std::memcpy(&last, read.data + std::size_t{29} * read.stride + 39 * sizeof last, sizeof last);
    EXPECT_EQ(read.dataType, ExImageDataType::UInt16);
    EXPECT_EQ(last, 1000);
}

TEST_F(PictureViewsTest, AreSavedWhereTheLastOneWas)
{
    showDeep(1000, 500);
    FileDialogFiller filler({m_folder.filePath(QStringLiteral("a.tif")), QStringLiteral("b.tif")});
    choose(QStringLiteral("Save picture as..."));
    choose(QStringLiteral("Save picture as..."));
    EXPECT_TRUE(QFileInfo::exists(m_folder.filePath(QStringLiteral("b.tif"))));
}

TEST_F(PictureViewsTest, AreDuplicatedWithTheirBrightness)
{
    ImageView& first = showDeep(1000, 500);
    first.setBrightness({Mode::Chosen, {3.0, 5.0}});
    press(Qt::CTRL | Qt::Key_D);
    ImageView& second = active();
    ASSERT_NE(&first, &second);
    EXPECT_EQ(second.brightness(), first.brightness());
    EXPECT_EQ(second.pictureSize(), QSize(40, 30));
    EXPECT_NE(second.picture()->data, first.picture()->data);
}

TEST_F(PictureViewsTest, AreTiledCascadedAndClosed)
{
    for (int byte : {1, 2, 3})
        show(makeImage(20, 20, byte));
    QMdiArea& area = *m_viewer->window().area();
    press(Qt::CTRL | Qt::Key_T);
    const QList<QMdiSubWindow*> windows = area.subWindowList();
    ASSERT_EQ(windows.size(), 3);
    int covered = 0;
    for (const QMdiSubWindow* one : windows) {
        covered += one->width() * one->height();
        for (const QMdiSubWindow* other : windows)
            EXPECT_TRUE(one == other || !one->geometry().intersects(other->geometry()));
    }
    EXPECT_GT(covered, area.viewport()->width() * area.viewport()->height() * 9 / 10);
    press(Qt::CTRL | Qt::SHIFT | Qt::Key_T);
    EXPECT_TRUE(windows[0]->geometry().intersects(windows[1]->geometry()));
    EXPECT_NE(windows[0]->pos(), windows[1]->pos());
    press(Qt::CTRL | Qt::SHIFT | Qt::Key_W);
    EXPECT_TRUE(handleEventsUntil([&] { return area.subWindowList().size() == 2; }));
}

TEST_F(PictureViewsTest, OfAFewPixelsAreLargeEnoughToSeeThem)
{
    const ImageView& view = show(makeImage(2, 2, 1));
    EXPECT_GE(view.width(), 300);
    EXPECT_GE(view.zoomPan().zoom(), 64.0);
}

TEST_F(PictureViewsTest, CommandsWithoutAViewAreHarmless)
{
    for (const char* text : {"Zoom in", "Zoom out", "Fit", "100 %", "Best brightness",
                             "Full-scale brightness", "Count region", "Count whole picture",
                             "Duplicate", "Tile", "Cascade", "Close view", "Save picture as..."})
        choose(QString::fromLatin1(text));
    EXPECT_EQ(delegate().activeViewId(), -1);
    EXPECT_EQ(statusText("zoomText"), QString());
}

TEST_F(PictureViewsTest, OfEveryTypeAndSizeAreHarmless)
{
    for (quint32 type = 1; type <= 11; ++type) {
        for (const QSize& size : {QSize(1, 1), QSize(2000, 2), QSize(3, 500)}) {
            auto image =
                makeImage(static_cast<unsigned>(size.width()), static_cast<unsigned>(size.height()),
                          0x35, static_cast<ExImageDataType>(type), 8);
            ImageView& view = show(std::move(image));
            for (const Mode mode : {Mode::Extremes, Mode::Percentiles, Mode::Chosen})
                input<QComboBox>().setCurrentIndex(static_cast<int>(mode));
            EXPECT_FALSE(m_viewer->window().grab().isNull());
            view.closeMdiView();
        }
    }
    show(std::make_unique<CxImageData>()); // without pixels
    EXPECT_FALSE(m_viewer->window().grab().isNull());
    EXPECT_FALSE(panel().plot().counts());
}

} // namespace vistrel
