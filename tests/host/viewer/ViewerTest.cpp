// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The viewer as a whole, driven by its menus and keys.
#include "DialogClicker.h"
#include "ViewerFixture.h"

#include "core/Log.h"
#include "viewer/window/ErrorLogPanel.h"
#include "viewer/window/ProgramIcon.h"
#include "viewer/window/Theme.h"
#include "viewer/window/WorkStatus.h"

#include <QtCore/QMimeData>
#include <QtCore/QUrl>
#include <QtGui/QDropEvent>
#include <QtWidgets/QLabel>
#include <QtWidgets/QMdiArea>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QStatusBar>

#include <gmock/gmock.h>

namespace vistrel {

using testing::ElementsAre;
using testing::HasSubstr;

TEST_F(ViewerTest, RunsTheScriptInTheEditorByItsKey)
{
    editor().setText(QStringLiteral("print('by key')"));
    m_viewer->window().activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&m_viewer->window()));
    QTest::keyClick(&editor(), Qt::Key_F5);
    EXPECT_EQ(m_viewer->scripts().outputText(), QStringLiteral("by key\n"));
}

TEST_F(ViewerTest, OffersToRunOrToStopAsIsPossible)
{
    EXPECT_TRUE(action(QStringLiteral("Run"))->isEnabled());
    EXPECT_FALSE(action(QStringLiteral("Stop"))->isEnabled());
    bool mayRun = true;
    bool mayStop = false;
    whenAScriptRuns([&] {
        mayRun = action(QStringLiteral("Run"))->isEnabled();
        mayStop = action(QStringLiteral("Stop"))->isEnabled();
        choose(QStringLiteral("Stop"));
    });
    editor().setText(QStringLiteral("import vistrel\nvistrel.wait(60)"));
    choose(QStringLiteral("Run"));
    EXPECT_FALSE(mayRun);
    EXPECT_TRUE(mayStop);
    EXPECT_TRUE(action(QStringLiteral("Run"))->isEnabled());
}

TEST_F(ViewerTest, SaysInItsStatusLineHowARunEnded)
{
    editor().setText(QStringLiteral("1 / 0"));
    choose(QStringLiteral("Run"));
    QStringList texts;
    for (const QLabel* label : m_viewer->window().statusBar()->findChildren<QLabel*>())
        texts.append(label->text());
    EXPECT_THAT(texts.join(u'|').toStdString(), HasSubstr("failed after"));
}

TEST_F(ViewerTest, SaysInItsStatusLineAtOnceWhatTakesLong)
{
    const auto* status = m_viewer->window().statusBar()->findChild<WorkStatus*>();
    const auto* text = status->findChild<QLabel*>();
    EXPECT_FALSE(status->isVisible()); // the panel of the cameras is not seen
    {
        const LongWork work(QStringLiteral("Saving the settings of a camera"));
        EXPECT_TRUE(status->isVisible());
        EXPECT_EQ(text->text(), QStringLiteral("Saving the settings of a camera"));
        EXPECT_GE(text->width(), text->sizeHint().width()); // without an event loop
    }
    EXPECT_FALSE(status->isVisible());
}

TEST_F(ViewerTest, HasAnIconOfItsOwn)
{
    const QIcon icon = m_viewer->window().windowIcon();
    EXPECT_EQ(icon.availableSizes().size(), static_cast<qsizetype>(iconSides.size()));
    for (const int side : iconSides) {
        const QImage picture = iconPicture(side);
        EXPECT_EQ(picture.pixelColor(0, 0).alpha(), 0) << side;
        EXPECT_EQ(picture.pixelColor(side / 2, side / 2).alpha(), 255) << side;
        EXPECT_NE(picture.pixelColor(side / 2, side * 2 / 5),
                  picture.pixelColor(side / 2, side - 2));
    }
}

TEST_F(ViewerTest, OpensPicturesInViewsAndScriptsInTabs)
{
    EXPECT_TRUE(m_viewer->openFile(writePicture(QStringLiteral("a.pgm"))));
    EXPECT_TRUE(m_viewer->openFile(writeFile(QStringLiteral("b.py"), "print(1)\n")));
    EXPECT_NE(delegate().viewImage(delegate().activeViewId()), nullptr);
    EXPECT_EQ(editor().text(), QStringLiteral("print(1)\n"));
    EXPECT_EQ(m_viewer->recentFiles().files().size(), 2);
}

TEST_F(ViewerTest, TakesFilesThatAreDropped)
{
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(writePicture(QStringLiteral("a.pgm")))});
    QDragEnterEvent enter(QPoint(10, 10), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&m_viewer->window(), &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent drop(QPointF(10, 10), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&m_viewer->window(), &drop);
    EXPECT_GE(delegate().activeViewId(), 0);
}

TEST_F(ViewerTest, ShowsWhatTheLogSays)
{
    logError(QStringLiteral("something is wrong"));
    ErrorLogPanel& panel = m_viewer->errorLog();
    ASSERT_TRUE(handleEventsUntil([&] { return panel.topLevelItemCount() > 0; }));
    EXPECT_THAT(panel.topLevelItem(panel.topLevelItemCount() - 1)->text(1).toStdString(),
                HasSubstr("something is wrong"));
}

TEST_F(ViewerTest, RunsAnEntryThatAScriptHasPutIntoTheMenu)
{
    writeFile(QStringLiteral("entry.py"), "print('from the menu')\n");
    m_viewer->openFile(
        writeFile(QStringLiteral("main.py"),
                  "import vistrel\nvistrel.add_menu_item('My entry', 'entry.py')\n"));
    choose(QStringLiteral("Run"));
    choose(QStringLiteral("My entry"));
    EXPECT_EQ(m_viewer->scripts().outputText(), QStringLiteral("from the menu\n"));
}

TEST_F(ViewerTest, AsksBeforeChangesAreLostByItsEnd)
{
    QTest::keyClicks(&editor(), QStringLiteral("x"));
    DialogClicker clicker({QStringLiteral("Cancel"), QStringLiteral("Discard")});
    EXPECT_FALSE(m_viewer->window().close());
    EXPECT_TRUE(m_viewer->window().isVisible());
    EXPECT_TRUE(m_viewer->window().close());
}

TEST_F(ViewerTest, StaysOpenWhileAScriptRunsAndAsksItToStop)
{
    bool closed = true;
    whenAScriptRuns([&] { closed = m_viewer->window().close(); });
    editor().setText(QStringLiteral("import vistrel\nvistrel.wait(60)"));
    choose(QStringLiteral("Run"));
    EXPECT_FALSE(closed);
    EXPECT_THAT(m_viewer->scripts().watch().statusText().toStdString(), HasSubstr("stopped after"));
}

TEST_F(ViewerTest, RemembersItsScriptsAndFiles)
{
    const QString path = writeFile(QStringLiteral("kept.py"), "1\n");
    m_viewer->openFile(path);
    EXPECT_TRUE(m_viewer->window().close());
    m_viewer.reset();
    begin();
    EXPECT_THAT(m_viewer->scripts().tabs().openFiles(), ElementsAre(path));
    EXPECT_THAT(m_viewer->recentFiles().files(), ElementsAre(path));
}

TEST_F(ViewerTest, TellsTheVersionsOfWhatItIsMadeOf)
{
    DialogClicker clicker({QStringLiteral("OK")});
    choose(QStringLiteral("About"));
    const std::string text = clicker.texts().join(u'\n').toStdString();
    for (const char* part : {"Python 3", "Qt 6", "OpenCV 4", "Aravis 0.8", "vistrel-viewer"})
        EXPECT_THAT(text, HasSubstr(part));
}

TEST_F(ViewerTest, HasKeysForItsCommandsAndNoneTwice)
{
    QStringList keys;
    for (const QAction* command : m_viewer->window().findChildren<QAction*>())
        if (!command->shortcut().isEmpty())
            keys.append(command->shortcut().toString());
    EXPECT_GE(keys.size(), 18);
    EXPECT_EQ(keys.removeDuplicates(), 0);
}

TEST_F(ViewerTest, KeepsFilesInMindThatScriptsOpen)
{
    const QString path = writePicture(QStringLiteral("a.pgm"));
    editor().setText(QStringLiteral("import vistrel\nvistrel.open_file('%1')").arg(path));
    choose(QStringLiteral("Run"));
    EXPECT_THAT(m_viewer->recentFiles().files(), ElementsAre(path));
}

TEST_F(ViewerTest, LeavesTheChoiceOfColoursToTheDesktopUntilSomebodyChooses)
{
    setDarkTheme(true);
    EXPECT_FALSE(QSettings().contains(QStringLiteral("darkTheme")));
    action(QStringLiteral("Dark colours"))->toggle();
    EXPECT_TRUE(QSettings().contains(QStringLiteral("darkTheme")));
    setDarkTheme(false);
}

TEST_F(ViewerTest, LeavesWhoeverReadsTheLogWhereHeIs)
{
    ErrorLogPanel& panel = m_viewer->errorLog();
    const auto logged = [&panel](int count) {
        return handleEventsUntil([&] { return panel.topLevelItemCount() == count; });
    };
    for (int line = 0; line < 100; ++line)
        logError(QString::number(line));
    ASSERT_TRUE(logged(100));
    EXPECT_EQ(panel.verticalScrollBar()->value(), panel.verticalScrollBar()->maximum());
    panel.verticalScrollBar()->setValue(3);
    logError(QStringLiteral("one more"));
    ASSERT_TRUE(logged(101));
    EXPECT_EQ(panel.verticalScrollBar()->value(), 3);
}

TEST_F(ViewerTest, ChangesItsColours)
{
    QAction* dark = action(QStringLiteral("Dark colours"));
    dark->setChecked(true);
    EXPECT_LT(QApplication::palette().color(QPalette::Window).lightness(), 100);
    const QMdiArea& area = *m_viewer->window().area();
    EXPECT_TRUE(handleEventsUntil([&] { return area.background().color().lightness() < 100; }));
    dark->setChecked(false);
    EXPECT_GT(QApplication::palette().color(QPalette::Window).lightness(), 200);
}

} // namespace vistrel
