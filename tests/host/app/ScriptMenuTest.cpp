// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Menu entries of scripts: found by name, their keyboard shortcuts.
#include "AppFixture.h"

#include "app/ScriptMenu.h"

#include <QtGui/QAction>
#include <QtGui/QKeySequence>
#include <QtWidgets/QMainWindow>
#include <QtWidgets/QMenu>
#include <QtWidgets/QMenuBar>

using namespace vistrel;

namespace {

QString tx(const char* text) { return QString::fromUtf8(text); }

class ScriptMenus : public testing::Test {
protected:
    ScriptMenus()
    {
        save.setShortcut(QKeySequence(tx("Ctrl+S")));
        window.addAction(&save);
    }

    QAction* add(const char* title, const char* shortcut = "")
    {
        return addScriptEntry(menu, tx(title), tx(shortcut));
    }

    QMainWindow window;
    QAction save{&window};
    QMenu& menu = *window.menuBar()->addMenu(tx("Scripts"));
};

} // namespace

TEST_F(ScriptMenus, FindEntriesByTheirTitle)
{
    QAction* entry = add("&Measure");
    EXPECT_EQ(findScriptEntry(menu, tx("Measure")), entry);
    EXPECT_EQ(findScriptEntry(menu, tx("measure")), nullptr);
    EXPECT_EQ(findScriptEntry(menu, QString()), nullptr);
}

TEST_F(ScriptMenus, FindEntriesOfSubmenus)
{
    QMenu* tools = menu.addMenu(tx("&Tools"));
    QAction* inner = addScriptEntry(*tools, tx("Run"), {});
    EXPECT_EQ(findScriptEntry(menu, tx("Run")), inner);
    EXPECT_EQ(findScriptEntry(menu, tx("Tools/Run")), inner);
    EXPECT_EQ(findScriptEntry(menu, tx("Other/Run")), nullptr);
    EXPECT_EQ(findScriptEntry(menu, tx("Tools")), nullptr);
}

TEST_F(ScriptMenus, FindTheLastOfSeveral)
{
    add("Run");
    QAction* second = add("Run");
    EXPECT_EQ(findScriptEntry(menu, tx("Run")), second);
}

TEST_F(ScriptMenus, DoNotFindWhatTheApplicationPutThere)
{
    menu.addAction(tx("Run"));
    EXPECT_EQ(findScriptEntry(menu, tx("Run")), nullptr);
}

TEST_F(ScriptMenus, GiveAnEntryItsShortcut)
{
    EXPECT_EQ(add("Run", "Ctrl+Shift+M")->shortcut(), QKeySequence(tx("Ctrl+Shift+M")));
    EXPECT_TRUE(add("Run")->shortcut().isEmpty());
}

TEST_F(ScriptMenus, GiveAShortcutToTheNewestEntry)
{
    const QAction* first = add("Run", "F9");
    const QAction* second = add("Run", "F9");
    EXPECT_TRUE(first->shortcut().isEmpty());
    EXPECT_EQ(second->shortcut(), QKeySequence(Qt::Key_F9));
}

TEST_F(ScriptMenus, LeaveTheApplicationItsShortcuts)
{
    const LogLines log;
    EXPECT_TRUE(add("Run", "Ctrl+S")->shortcut().isEmpty());
    EXPECT_EQ(save.shortcut(), QKeySequence(tx("Ctrl+S")));
    EXPECT_EQ(log.errors(), QStringList(tx("The application itself uses Ctrl+S: the entry Run has "
                                           "no shortcut")));
}

TEST_F(ScriptMenus, SayWhatIsNoShortcut)
{
    const LogLines log;
    EXPECT_TRUE(add("Run", "some words")->shortcut().isEmpty());
    EXPECT_EQ(log.errors(), QStringList(tx("\"some words\" is no keyboard shortcut: the entry Run "
                                           "has none")));
}
