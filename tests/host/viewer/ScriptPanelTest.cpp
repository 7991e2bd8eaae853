// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Running scripts from the panel: output, errors and their lines, stop, a second run.
#include "viewer/scripts/ScriptPanel.h"
#include "app/HostApplication.h"
#include "app/ScriptEngine.h"
#include "app/ScriptRuns.h"
#include "viewer/scripts/EditorTabs.h"
#include "viewer/scripts/ErrorPane.h"
#include "viewer/scripts/ScriptEditor.h"

#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

#include <gmock/gmock.h>

namespace vistrel {

using testing::ElementsAre;
using testing::HasSubstr;

namespace {

class Panel : public testing::Test {
protected:
    Panel()
    {
        QString error;
        EXPECT_TRUE(m_engine.load(QString(), error)) << qPrintable(error);
        QObject::connect(&m_panel.watch(), &RunWatch::ended,
                         [this](RunWatch::Ending ending) { m_endings.append(ending); });
    }

    ScriptEditor& editor() { return *m_panel.tabs().current(); }
    void run(const char* script)
    {
        editor().setText(QString::fromUtf8(script));
        m_panel.runCurrent();
    }
    std::string output() const { return m_panel.outputText().toStdString(); }
    std::string errors() const { return m_panel.errorText().toStdString(); }
    std::string status() { return m_panel.watch().statusText().toStdString(); }

    HostApplication m_host;
    ScriptEngine m_engine;
    ScriptRuns m_runs{m_engine, m_host.environment()};
    ScriptPanel m_panel{m_runs, m_host.environment(), QString()};
    QList<RunWatch::Ending> m_endings;
};

int cursorLine(const ScriptEditor& editor)
{
    int line = -1;
    int column = -1;
    editor.getCursorPosition(&line, &column);
    return line + 1;
}

} // namespace

TEST_F(Panel, ShowsWhatAScriptPrints)
{
    run("print('hello')\nprint(1 + 1)");
    EXPECT_EQ(output(), "hello\n2\n");
    EXPECT_THAT(m_endings, ElementsAre(RunWatch::Ending::Finished));
    EXPECT_THAT(status(), testing::MatchesRegex("New script finished in [0-9.]+ s"));
}

TEST_F(Panel, ShowsTheErrorAndMarksItsLine)
{
    run("a = 1\nb = 0\nprint(a / b)\n");
    EXPECT_THAT(errors(), HasSubstr("ZeroDivisionError"));
    EXPECT_EQ(cursorLine(editor()), 3);
    EXPECT_NE(editor().markersAtLine(2), 0U);
    EXPECT_THAT(m_endings, ElementsAre(RunWatch::Ending::Failed));
    EXPECT_THAT(status(), HasSubstr("failed after"));
}

TEST_F(Panel, ForgetsTheErrorsOfTheRunBefore)
{
    run("x");
    run("print('fine')");
    EXPECT_EQ(errors(), "");
    EXPECT_EQ(editor().markersAtLine(0), 0U);
    EXPECT_EQ(output(), "fine\n");
}

TEST_F(Panel, CountsTheLinesOfASelectionInTheWholeScript)
{
    editor().setText(QStringLiteral("one = 1\nif one:\n    two = 2\n    print(nothing)\n"));
    editor().setSelection(2, 0, 3, 10);
    m_panel.runSelection();
    EXPECT_THAT(errors(), HasSubstr("line 4"));
    EXPECT_EQ(cursorLine(editor()), 4);
}

TEST_F(Panel, GoesToTheLineOfATracebackThatIsClicked)
{
    run("def f():\n    return nothing\n\nf()\n");
    auto* pane = m_panel.findChild<ErrorPane*>();
    m_panel.resize(800, 600);
    m_panel.show();
    const QTextCursor link = pane->document()->find(QStringLiteral("line 4"));
    QTest::mouseClick(pane->viewport(), Qt::LeftButton, {}, pane->cursorRect(link).center());
    EXPECT_EQ(cursorLine(editor()), 4);
}

TEST_F(Panel, StopsAScriptThatWaits)
{
    std::string statusAtStop;
    QTimer::singleShot(100, [&] {
        m_panel.watch().stop();
        statusAtStop = status();
    });
    run("import vistrel\nvistrel.wait(60)\n");
    EXPECT_THAT(statusAtStop, HasSubstr("Stop requested"));
    EXPECT_THAT(m_endings, ElementsAre(RunWatch::Ending::Stopped));
    EXPECT_THAT(status(), HasSubstr("stopped after"));
}

TEST_F(Panel, StopsAScriptThatPrintsWithoutAnEnd)
{
    QTimer::singleShot(100, [&] { m_panel.watch().stop(); });
    run("while True:\n    print('again')\n");
    EXPECT_THAT(m_endings, ElementsAre(RunWatch::Ending::Stopped));
}

TEST_F(Panel, StopsAScriptThatGrabs)
{
    QString error;
    void* const camera =
        m_host.cameras().open(QString::fromLatin1(CameraManager::simulatedId), error);
    ASSERT_TRUE(m_host.delegate().setCameraAcquisition(true, camera)) << qPrintable(error);
    QTimer::singleShot(300, [&] { m_panel.watch().stop(); });
    run("import vistrel\n"
        "while True:\n"
        "    vistrel.wait_for_next_frame(5.0)\n"
        "    vistrel.get_view_image()\n");
    EXPECT_THAT(m_endings, ElementsAre(RunWatch::Ending::Stopped));
}

TEST_F(Panel, SaysThatAScriptThatRefusesToStopIsStillThere)
{
    QStringList states;
    QObject::connect(&m_panel.watch(), &RunWatch::changed,
                     [&] { states.append(m_panel.watch().statusText()); });
    QTimer::singleShot(100, [&] { m_panel.watch().stop(); });
    run("import vistrel\n"
        "try:\n    vistrel.wait(60)\n"
        "except KeyboardInterrupt:\n    vistrel.wait(0.5)\n"
        "print('ended by itself')\n");
    EXPECT_THAT(output(), HasSubstr("ended by itself"));
    EXPECT_THAT(m_endings, ElementsAre(RunWatch::Ending::Finished));
    EXPECT_GE(states.filter(QStringLiteral("Stop requested")).size(), 2);
}

TEST_F(Panel, RefusesASecondRunWhileOneIsOn)
{
    QTimer::singleShot(100, [&] {
        m_panel.runCurrent();
        m_panel.watch().stop();
    });
    run("import vistrel\nprint('once')\nvistrel.wait(60)\n");
    EXPECT_EQ(m_panel.outputText().count(QStringLiteral("once")), 1);
    EXPECT_THAT(m_endings, ElementsAre(RunWatch::Ending::Stopped));
}

TEST_F(Panel, HandlesEventsWhileAScriptPrints)
{
    int ticks = 0;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&] { ++ticks; });
    timer.start(10);
    run("import time\nfor i in range(20):\n    print(i)\n    time.sleep(0.02)\n");
    EXPECT_GT(ticks, 2);
}

TEST_F(Panel, ShowsOutputAndSaysThatItRunsWhileTheScriptIsOn)
{
    std::string statusMeanwhile;
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, [&] {
        if (output() != "begun\n")
            return;
        look.stop();
        statusMeanwhile = status();
        m_panel.watch().stop();
    });
    look.start(10);
    run("import vistrel\nprint('begun')\nvistrel.wait(60)\nprint('ended')\n");
    EXPECT_THAT(statusMeanwhile, testing::MatchesRegex("New script is running \\([0-9.]+ s\\)"));
    EXPECT_EQ(output(), "begun\n");
}

TEST_F(Panel, TakesOutputOfThreadsThatAScriptStarts)
{
    run("import threading\n"
        "threads = [threading.Thread(target=print, args=(i,)) for i in range(20)]\n"
        "for t in threads: t.start()\n"
        "for t in threads: t.join()\n");
    EXPECT_EQ(m_panel.outputText().count(u'\n'), 20);
}

TEST_F(Panel, ResolvesPathsAgainstTheFolderOfTheScript)
{
    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("where.py")));
    file.open(QIODevice::WriteOnly);
    file.write("import vistrel\nprint(vistrel.get_working_directory())\n");
    file.close();
    m_panel.tabs().open(file.fileName());
    m_panel.runCurrent();
    EXPECT_EQ(output(), folder.path().toStdString() + "\n");
}

TEST_F(Panel, OpensTheFileOfAMenuScriptWhenItsErrorIsClicked)
{
    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("menu.py")));
    file.open(QIODevice::WriteOnly);
    file.write("\nnothing\n");
    file.close();
    m_runs.runFile(file.fileName());
    auto* pane = m_panel.findChild<ErrorPane*>();
    m_panel.resize(800, 600);
    m_panel.show();
    const QTextCursor link = pane->document()->find(QStringLiteral("line 2"));
    QTest::mouseClick(pane->viewport(), Qt::LeftButton, {}, pane->cursorRect(link).center());
    EXPECT_EQ(editor().filePath(), file.fileName());
    EXPECT_EQ(cursorLine(editor()), 2);
}

} // namespace vistrel
