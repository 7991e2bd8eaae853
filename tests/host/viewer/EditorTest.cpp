// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The editor and its tabs, driven with keys and clicks.
#include "viewer/scripts/EditorTabs.h"
#include "viewer/scripts/ErrorPane.h"
#include "viewer/scripts/FindBar.h"
#include "viewer/scripts/OutputPane.h"
#include "viewer/scripts/ScriptEditor.h"

#include "../core/FileSizeLimit.h"
#include "DialogClicker.h"

#include <Qsci/qscilexerpython.h>

#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>

#include <gmock/gmock.h>

namespace vistrel {

namespace {

class Editor : public testing::Test {
protected:
    QString writeFile(const QString& name, const QByteArray& bytes)
    {
        QFile file(m_folder.filePath(name));
        file.open(QIODevice::WriteOnly);
        file.write(bytes);
        return file.fileName();
    }
    static QByteArray readFile(const QString& path)
    {
        QFile file(path);
        file.open(QIODevice::ReadOnly);
        return file.readAll();
    }
    ScriptEditor& editor() { return *m_tabs.current(); }

    QTemporaryDir m_folder;
    EditorTabs m_tabs;
};

} // namespace

TEST_F(Editor, BeginsWithOneEmptyScript)
{
    EXPECT_EQ(m_tabs.count(), 1);
    EXPECT_EQ(m_tabs.tabText(0), QStringLiteral("New script"));
}

TEST_F(Editor, MarksATabWhoseTextHasChanged)
{
    QTest::keyClicks(&editor(), QStringLiteral("x"));
    EXPECT_EQ(m_tabs.tabText(0), QStringLiteral("*New script"));
}

TEST_F(Editor, OpensAFileInTheEmptyTabAndOnlyOnce)
{
    const QString path = writeFile(QStringLiteral("a.py"), "print('\xc3\xa4')\r\n");
    ASSERT_TRUE(m_tabs.open(path));
    EXPECT_EQ(m_tabs.count(), 1);
    EXPECT_EQ(editor().text(), QStringLiteral("print('ä')\n"));
    EXPECT_FALSE(editor().isModified());
    m_tabs.newScript();
    ASSERT_TRUE(m_tabs.open(path));
    EXPECT_EQ(m_tabs.count(), 2);
    EXPECT_EQ(m_tabs.currentIndex(), 0);
}

TEST_F(Editor, SaysWhyAFileIsNotOpened)
{
    DialogClicker clicker({QStringLiteral("OK")});
    EXPECT_FALSE(m_tabs.open(m_folder.filePath(QStringLiteral("missing.py"))));
    EXPECT_THAT(clicker.texts().join(u'\n').toStdString(), testing::HasSubstr("missing.py"));
    EXPECT_EQ(m_tabs.count(), 1);
}

TEST_F(Editor, LeavesAFileAloneThatSavingWouldSpoil)
{
    const QString path = writeFile(QStringLiteral("latin.py"), "# gr\xf6\xdf"
                                                               "e\n");
    DialogClicker clicker({QStringLiteral("OK")});
    EXPECT_FALSE(m_tabs.open(path));
    EXPECT_THAT(clicker.texts().join(u'\n').toStdString(),
                testing::HasSubstr("latin.py cannot be read: it is not UTF-8"));
    EXPECT_EQ(editor().text(), QString());
    EXPECT_EQ(m_tabs.openFiles(), QStringList());
}

TEST_F(Editor, SavesWhatWasTyped)
{
    const QString path = writeFile(QStringLiteral("a.py"), "1\n");
    m_tabs.open(path);
    QTest::keyClicks(&editor(), QStringLiteral("x = "));
    QSignalSpy used(&m_tabs, &EditorTabs::fileUsed);
    EXPECT_TRUE(m_tabs.save());
    EXPECT_EQ(readFile(path), "x = 1\n");
    EXPECT_EQ(used.count(), 1);
    EXPECT_EQ(m_tabs.tabText(0), QStringLiteral("a.py"));
}

TEST_F(Editor, KeepsTextThatCannotBeSaved)
{
    const QString path = writeFile(QStringLiteral("a.py"), "1\n");
    m_tabs.open(path);
    QTest::keyClicks(&editor(), QStringLiteral("x"));
    m_folder.remove();
    DialogClicker clicker({QStringLiteral("OK")});
    EXPECT_FALSE(m_tabs.save());
    EXPECT_TRUE(editor().isModified());
}

TEST_F(Editor, LeavesTheFileWholeWhenTheDiskIsFull)
{
    const QString path = writeFile(QStringLiteral("a.py"), "1\n");
    m_tabs.open(path);
    QTest::keyClicks(&editor(), QStringLiteral("x"));
    DialogClicker clicker({QStringLiteral("OK")});
    {
        const test::FileSizeLimit full(1);
        EXPECT_FALSE(m_tabs.save());
    }
    EXPECT_TRUE(editor().isModified());
    EXPECT_EQ(readFile(path), "1\n");
}

TEST_F(Editor, ClosesATabWithChangesOnlyAfterAsking)
{
    QTest::keyClicks(&editor(), QStringLiteral("x"));
    DialogClicker clicker({QStringLiteral("Cancel"), QStringLiteral("Discard")});
    EXPECT_FALSE(m_tabs.close(0));
    EXPECT_EQ(editor().text(), QStringLiteral("x"));
    EXPECT_TRUE(m_tabs.close(0));
    EXPECT_EQ(m_tabs.count(), 1);
    EXPECT_EQ(editor().text(), QString());
}

TEST_F(Editor, CommentsLinesAndTakesTheMarksAway)
{
    editor().setText(QStringLiteral("a\n\n    b\nc\n"));
    editor().setSelection(0, 0, 3, 0);
    editor().toggleComment();
    EXPECT_EQ(editor().text(), QStringLiteral("# a\n\n#     b\nc\n"));
    editor().setSelection(0, 0, 3, 0);
    editor().toggleComment();
    EXPECT_EQ(editor().text(), QStringLiteral("a\n\n    b\nc\n"));
}

TEST_F(Editor, RunsTheCursorsLineWhenNothingIsSelected)
{
    editor().setText(QStringLiteral("a\nb\nc\n"));
    editor().setCursorPosition(1, 0);
    EXPECT_EQ(editor().selectedLines(), QStringLiteral("\nb\n"));
}

TEST_F(Editor, IndentsBehindAColonWithBlanks)
{
    QTest::keyClicks(&editor(), QStringLiteral("if x:"));
    QTest::keyClick(&editor(), Qt::Key_Return);
    QTest::keyClick(&editor(), Qt::Key_Tab);
    QTest::keyClicks(&editor(), QStringLiteral("y"));
    EXPECT_EQ(editor().text(), QStringLiteral("if x:\n    y"));
}

TEST_F(Editor, ColoursPythonAndNumbersItsLines)
{
    editor().setText(QStringLiteral("def f(): return 'text' # why\n"));
    editor().recolor();
    const auto styleAt = [&](long place) {
        return static_cast<int>(editor().SendScintilla(QsciScintillaBase::SCI_GETSTYLEAT, place));
    };
    EXPECT_EQ(styleAt(0), QsciLexerPython::Keyword);
    EXPECT_EQ(styleAt(4), QsciLexerPython::FunctionMethodName);
    EXPECT_EQ(styleAt(17), QsciLexerPython::SingleQuotedString);
    EXPECT_EQ(styleAt(24), QsciLexerPython::Comment);
    EXPECT_EQ(editor().marginType(0), QsciScintilla::NumberMargin);
    EXPECT_GT(editor().marginWidth(0), 0);
}

TEST_F(Editor, OffersNamesOfTheModuleWhileTyping)
{
    m_tabs.show();
    editor().setFocus();
    QTest::keyClicks(&editor(), QStringLiteral("vistrel.open"));
    editor().autoCompleteFromAll();
    ASSERT_TRUE(editor().isListActive());
    QTest::keyClick(&editor(), Qt::Key_Return);
    EXPECT_EQ(editor().text(), QStringLiteral("vistrel.open_file"));
}

TEST_F(Editor, ShowsTheSignatureBehindABracket)
{
    m_tabs.show();
    editor().setFocus();
    QTest::keyClicks(&editor(), QStringLiteral("vistrel.open_file("));
    EXPECT_NE(editor().SendScintilla(QsciScintillaBase::SCI_CALLTIPACTIVE), 0);
}

TEST_F(Editor, MarksTheLineOfAnErrorAndGoesThere)
{
    editor().setText(QStringLiteral("a\nb\nc\n"));
    editor().showError(2);
    int line = -1;
    int column = -1;
    editor().getCursorPosition(&line, &column);
    EXPECT_EQ(line, 1);
    EXPECT_NE(editor().markersAtLine(1), 0U);
    editor().clearErrors();
    EXPECT_EQ(editor().markersAtLine(1), 0U);
}

TEST_F(Editor, FindsTextForwardsBackwardsAndAroundTheEnd)
{
    editor().setText(QStringLiteral("x a\nx b\n"));
    FindBar bar(m_tabs);
    bar.open();
    auto* text = bar.findChild<QLineEdit*>();
    QTest::keyClicks(text, QStringLiteral("x"));
    const auto lineAfter = [&](auto find) {
        find();
        int line = -1;
        int column = -1;
        editor().getCursorPosition(&line, &column);
        return line;
    };
    EXPECT_EQ(lineAfter([&] { bar.findNext(); }), 0);
    EXPECT_EQ(lineAfter([&] { bar.findNext(); }), 1);
    EXPECT_EQ(lineAfter([&] { bar.findNext(); }), 0);
    EXPECT_EQ(lineAfter([&] { bar.findPrevious(); }), 1);
    QTest::keyClick(text, Qt::Key_Escape);
    EXPECT_TRUE(bar.isHidden());
}

TEST(OutputPane, ShowsTheLastLinesAndSaysThatOthersWereCut)
{
    OutputPane pane;
    for (int line = 0; line < OutputPane::keptLines + 500; ++line) {
        pane.append(QStringLiteral("line %1\n").arg(line));
        if (line % 1000 == 0)
            pane.flush();
    }
    pane.flush();
    EXPECT_TRUE(pane.text().endsWith(QStringLiteral("line 10499\n")));
    EXPECT_FALSE(pane.text().contains(QStringLiteral("line 100\n")));
    EXPECT_EQ(pane.cutLines(), 501);
    EXPECT_FALSE(pane.findChild<QLabel*>()->isHidden());
    pane.clear();
    EXPECT_EQ(pane.text(), QString());
    EXPECT_TRUE(pane.findChild<QLabel*>()->isHidden());
}

TEST(ErrorPane, TellsWhichLineOfATracebackWasClicked)
{
    ErrorPane pane;
    pane.resize(600, 200);
    pane.showErrors(QStringLiteral("Traceback (most recent call last):\n"
                                   "  File \"<string>\", line 7, in <module>\n"
                                   "NameError: name '<x>' is not defined\n"));
    EXPECT_TRUE(pane.toPlainText().contains(QStringLiteral("'<x>'")));
    QList<SourcePlace> chosen;
    QObject::connect(&pane, &ErrorPane::placeChosen,
                     [&](const SourcePlace& place) { chosen.append(place); });
    pane.show();
    QTextCursor link = pane.document()->find(QStringLiteral("line 7"));
    QTest::mouseClick(pane.viewport(), Qt::LeftButton, {}, pane.cursorRect(link).center());
    EXPECT_THAT(chosen, testing::ElementsAre(SourcePlace{QStringLiteral("<string>"), 7}));
}

TEST(ErrorPane, ShowsTheLastLinesOfAFlood)
{
    ErrorPane pane;
    QString flood;
    for (int line = 0; line < ErrorPane::keptLines + 500; ++line)
        flood += QStringLiteral("line %1\n").arg(line);
    pane.showErrors(flood);
    const QString shown = pane.toPlainText();
    EXPECT_TRUE(shown.startsWith(QStringLiteral("500 lines before these were cut.\nline 500\n")));
    EXPECT_TRUE(shown.trimmed().endsWith(QStringLiteral("line 2499")));
}

} // namespace vistrel
