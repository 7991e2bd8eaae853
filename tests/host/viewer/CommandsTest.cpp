// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Menus and keys, one command after the other, and what the window remembers.
#include "DialogClicker.h"
#include "ViewerFixture.h"

#include "app/Notification.h"
#include "core/Log.h"
#include "viewer/scripts/FindBar.h"
#include "viewer/window/ErrorLogPanel.h"

#include <QtWidgets/QDockWidget>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMenu>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QSplitter>

#include <gmock/gmock.h>

namespace vistrel {

using testing::HasSubstr;

namespace {

class CommandsTest : public ViewerTest {
protected:
    /// Presses keys in the editor of a window that is in use.
    void pressInEditor(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        m_viewer->window().activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&m_viewer->window()));
        QTest::keyClick(&editor(), key, modifiers);
    }
    QMenu* menu(const QString& title)
    {
        for (auto* candidate : m_viewer->window().findChildren<QMenu*>())
            if (candidate->title().remove(u'&') == title)
                return candidate;
        ADD_FAILURE() << "no menu " << qPrintable(title);
        return nullptr;
    }
    /// The entries that have no key, below a menu.
    static QStringList withoutKey(const QMenu& menu)
    {
        QStringList texts;
        for (const QAction* entry : menu.actions()) {
            if (entry->menu())
                texts += withoutKey(*entry->menu());
            else if (!entry->isSeparator() && entry->shortcut().isEmpty())
                texts += entry->text();
        }
        return texts;
    }
    void restart()
    {
        ASSERT_TRUE(m_viewer->window().close());
        m_viewer.reset();
        begin();
    }
};

} // namespace

TEST_F(CommandsTest, RunTheSelectedLinesByKey)
{
    editor().setText(QStringLiteral("print('one')\nprint('two')\nprint('three')\n"));
    editor().setSelection(1, 0, 2, 0);
    pressInEditor(Qt::Key_F9);
    EXPECT_EQ(m_viewer->scripts().outputText(), QStringLiteral("two\n"));
}

TEST_F(CommandsTest, StopTheScriptByKey)
{
    editor().setText(QStringLiteral("import vistrel\nvistrel.wait(60)"));
    whenAScriptRuns([this] { pressInEditor(Qt::Key_F5, Qt::ShiftModifier); });
    pressInEditor(Qt::Key_F5);
    EXPECT_THAT(m_viewer->scripts().watch().statusText().toStdString(), HasSubstr("stopped after"));
}

TEST_F(CommandsTest, CommentLinesByKey)
{
    editor().setText(QStringLiteral("a\nb\n"));
    editor().setCursorPosition(1, 0);
    pressInEditor(Qt::Key_Slash, Qt::ControlModifier);
    EXPECT_EQ(editor().text(), QStringLiteral("a\n# b\n"));
}

TEST_F(CommandsTest, GoBeforeTheKeysOfTheEditor)
{
    m_viewer->openFile(writePicture(QStringLiteral("a.pgm")));
    const int view = delegate().activeViewId();
    editor().setText(QStringLiteral("a\nb\n"));
    pressInEditor(Qt::Key_D, Qt::ControlModifier); // the editor's would double the line
    EXPECT_EQ(editor().text(), QStringLiteral("a\nb\n"));
    EXPECT_NE(delegate().activeViewId(), view);
    QTest::keyClick(&editor(), Qt::Key_X);
    pressInEditor(Qt::Key_Z, Qt::ControlModifier); // which the window leaves to the editor
    EXPECT_EQ(editor().text(), QStringLiteral("a\nb\n"));
}

TEST_F(CommandsTest, FindTextByKeys)
{
    editor().setText(QStringLiteral("a\nsought\nsought\n"));
    pressInEditor(Qt::Key_F, Qt::ControlModifier);
    auto* line = m_viewer->scripts().findBar().findChild<QLineEdit*>();
    EXPECT_TRUE(line->hasFocus());
    QTest::keyClicks(line, QStringLiteral("sought"));
    QTest::keyClick(line, Qt::Key_Return);
    pressInEditor(Qt::Key_F3);
    int row = -1;
    int column = -1;
    editor().getCursorPosition(&row, &column);
    EXPECT_EQ(row, 2);
}

TEST_F(CommandsTest, OpenAndCloseTabsByKeys)
{
    pressInEditor(Qt::Key_N, Qt::ControlModifier);
    EXPECT_EQ(m_viewer->scripts().tabs().count(), 2);
    pressInEditor(Qt::Key_W, Qt::ControlModifier);
    EXPECT_EQ(m_viewer->scripts().tabs().count(), 1);
}

TEST_F(CommandsTest, SaveTheScriptByKey)
{
    const QString path = writeFile(QStringLiteral("a.py"), "1\n");
    m_viewer->openFile(path);
    QTest::keyClicks(&editor(), QStringLiteral("x = "));
    pressInEditor(Qt::Key_S, Qt::ControlModifier);
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), "x = 1\n");
}

TEST_F(CommandsTest, OpenARecentFileByTheMenu)
{
    m_viewer->openFile(writeFile(QStringLiteral("a.py"), "'a'\n"));
    m_viewer->openFile(writeFile(QStringLiteral("b.py"), "'b'\n"));
    QMenu* const recent = menu(QStringLiteral("Open recent"));
    Q_EMIT recent->aboutToShow();
    ASSERT_EQ(recent->actions().size(), 2);
    EXPECT_EQ(recent->actions().at(0)->text(), QStringLiteral("b.py"));
    recent->actions().at(1)->trigger();
    EXPECT_EQ(editor().text(), QStringLiteral("'a'\n"));
}

TEST_F(CommandsTest, OpenAnExampleByTheMenu)
{
    const QList<QAction*> examples = menu(QStringLiteral("Examples"))->actions();
    EXPECT_GE(examples.size(), 10);
    for (QAction* example : examples)
        if (example->text() == QStringLiteral("first light"))
            example->trigger();
    EXPECT_THAT(editor().text().toStdString(), HasSubstr("import vistrel"));
    EXPECT_EQ(editor().title(), QStringLiteral("first_light.py"));
}

TEST_F(CommandsTest, ShowAndHideAPanelByItsKeyAndGoThere)
{
    QDockWidget& dock = m_viewer->chainDock();
    const QKeySequence keys = dock.toggleViewAction()->shortcut();
    ASSERT_FALSE(keys.isEmpty());
    pressInEditor(keys[0].key(), keys[0].keyboardModifiers());
    EXPECT_FALSE(dock.isVisible());
    pressInEditor(keys[0].key(), keys[0].keyboardModifiers());
    EXPECT_TRUE(dock.isVisible());
    EXPECT_TRUE(dock.isAncestorOf(QApplication::focusWidget()));
}

TEST_F(CommandsTest, HaveKeysAllOfThem)
{
    QStringList missing;
    for (const QAction* title : m_viewer->window().menuBar()->actions())
        missing += withoutKey(*title->menu());
    for (const QAction* example : menu(QStringLiteral("Examples"))->actions())
        missing.removeAll(example->text());
    EXPECT_EQ(missing.join(u',').toStdString(), "");
}

TEST_F(CommandsTest, AreListedWithTheirKeys)
{
    DialogClicker clicker({QStringLiteral("OK")});
    choose(QStringLiteral("Keyboard shortcuts"));
    const std::string text = clicker.texts().join(u'\n').toStdString();
    EXPECT_THAT(text, HasSubstr("Run selection"));
    EXPECT_THAT(text, HasSubstr("F9"));
    EXPECT_LE(clicker.texts().constFirst().count(QStringLiteral("<tr>")), 36); // of a small screen
}

TEST_F(CommandsTest, ForgetTheErrorsOfTheLog)
{
    logError(QStringLiteral("something is wrong"));
    ErrorLogPanel& panel = m_viewer->errorLog();
    ASSERT_TRUE(handleEventsUntil([&] { return panel.topLevelItemCount() > 0; }));
    panel.actions().constFirst()->trigger();
    EXPECT_TRUE(handleEventsUntil([&] { return panel.topLevelItemCount() == 0; }));
}

TEST_F(CommandsTest, OfScriptsShowNotificationsOverTheWindow)
{
    editor().setText(QStringLiteral("import vistrel\nvistrel.show_notification('measured')"));
    choose(QStringLiteral("Run"));
    auto* note = m_viewer->window().findChild<Notification*>();
    EXPECT_TRUE(note->isVisible());
    EXPECT_EQ(note->text(), QStringLiteral("measured"));
    EXPECT_TRUE(handleEventsUntil([&] { return !note->isVisible(); })); // it fades
}

TEST_F(CommandsTest, LeaveTheWindowAsItWasTheNextTime)
{
    m_viewer->errorLogDock().hide();
    m_viewer->window().resize(901, 702);
    auto* splitter = m_viewer->scripts().findChild<QSplitter*>();
    splitter->setSizes({100, 400});
    const QList<int> sizes = splitter->sizes();
    choose(QStringLiteral("Dark colours"));
    restart();
    EXPECT_FALSE(m_viewer->errorLogDock().isVisible());
    EXPECT_TRUE(m_viewer->scriptDock().isVisible());
    EXPECT_EQ(m_viewer->window().size(), QSize(901, 702));
    EXPECT_EQ(m_viewer->scripts().findChild<QSplitter*>()->sizes(), sizes);
    EXPECT_TRUE(action(QStringLiteral("Dark colours"))->isChecked());
}

TEST_F(CommandsTest, FillTheScreenAndGoBack)
{
    m_viewer->openFile(writePicture(QStringLiteral("a.pgm")));
    choose(QStringLiteral("Full screen"));
    EXPECT_TRUE(m_viewer->window().isFullScreen());
    choose(QStringLiteral("Full screen"));
    EXPECT_FALSE(m_viewer->window().isFullScreen());
}

} // namespace vistrel
