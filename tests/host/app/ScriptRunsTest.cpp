// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// A program's runs: one at a time, told to those who watch, also when chosen in the menu.
#include "AppFixture.h"

#include "app/ScriptEngine.h"
#include "app/ScriptRuns.h"

#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtCore/QTimer>
#include <QtGui/QAction>
#include <QtWidgets/QMenu>

#include <stdexcept>

using namespace vistrel;

namespace {

QString tx(const char* text) { return QString::fromUtf8(text); }

QString lastLine(const QString& text) { return text.trimmed().section(u'\n', -1); }

class Runs : public HostTest {
protected:
    Runs()
    {
        QString error;
        EXPECT_TRUE(engine.load(QString(), error)) << qPrintable(error);
        runs.setOutput([this](const QString& text) { output += text; });
        QObject::connect(&runs, &ScriptRuns::started,
                         [this](const QString& name) { told << tx("started ") + name; });
        QObject::connect(&runs, &ScriptRuns::ended,
                         [this](const QString& name, const QString& errors) {
                             told << tx("ended ") + name + lastLine(errors);
                         });
        QObject::connect(&runs, &ScriptRuns::refused,
                         [this](const QString& reason) { told << reason; });
    }

    QString scriptFile(const char* text)
    {
        QFile file(folder.filePath(tx("script.py")));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
        return file.fileName();
    }

    QAction* menuEntry(const QString& script)
    {
        environment.addMenuItem(app.menu(3), tx("Entry"), script, {});
        return app.menu(3)->actions().constLast();
    }

    const QTemporaryDir folder;
    ScriptEngine engine;
    ScriptRuns runs{engine, environment};
    QString output;
    QStringList told;
};

} // namespace

TEST_F(Runs, TellThatTheyStartAndEnd)
{
    EXPECT_TRUE(runs.run(tx("print('hello')"), tx("greeting")));
    EXPECT_FALSE(runs.run(tx("raise Exception('no')"), tx("failure")));
    EXPECT_EQ(output, tx("hello\n"));
    EXPECT_EQ(told, QStringList({tx("started greeting"), tx("ended greeting"),
                                 tx("started failure"), tx("ended failureException: no")}));
}

TEST_F(Runs, RefuseAScriptWhileAnotherOneRuns)
{
    const LogLines log;
    bool wasRunning = false;
    bool wasRun = true;
    QTimer::singleShot(0, &app, [&] {
        wasRunning = runs.isRunning();
        wasRun = runs.run(tx("print('second')"), tx("second"));
    });
    EXPECT_FALSE(runs.isRunning());
    EXPECT_TRUE(runs.run(tx("import vistrel; vistrel.wait(0.05); print('first')"), tx("first")));
    EXPECT_TRUE(wasRunning);
    EXPECT_FALSE(wasRun);
    EXPECT_FALSE(runs.isRunning());
    EXPECT_EQ(output, tx("first\n"));
    const QString line = tx("The script second was not run: another script is running");
    EXPECT_EQ(log.errors(), QStringList(line));
    EXPECT_EQ(told, QStringList({tx("started first"), line, tx("ended first")}));
}

TEST_F(Runs, TakeFiles)
{
    const LogLines log;
    EXPECT_TRUE(runs.runFile(scriptFile("print('from a file')")));
    EXPECT_EQ(output, tx("from a file\n"));
    EXPECT_FALSE(runs.runFile(tx("/nowhere.py")));
    ASSERT_EQ(log.errors().size(), 1);
    EXPECT_TRUE(log.errors().constFirst().startsWith(tx("The script /nowhere.py was not run: ")));
    EXPECT_EQ(told.constLast(), log.errors().constFirst());
}

TEST_F(Runs, BeginWithAChoiceInTheMenu)
{
    const QString file = scriptFile("print('chosen')\n1/0");
    menuEntry(file)->trigger();
    EXPECT_EQ(output, tx("chosen\n"));
    ASSERT_EQ(told.size(), 2);
    EXPECT_TRUE(told.constLast().endsWith(tx("division by zero")));
    menuEntry(file)->trigger();
    EXPECT_EQ(told.size(), 4);
}

TEST_F(Runs, RefuseAChoiceWhileAScriptRuns)
{
    const LogLines log;
    QAction* entry = menuEntry(scriptFile("print('chosen')"));
    QTimer::singleShot(0, entry, &QAction::trigger);
    EXPECT_TRUE(runs.run(tx("import vistrel; vistrel.wait(0.05)")));
    EXPECT_EQ(output, QString());
    ASSERT_EQ(log.errors().size(), 1);
    EXPECT_TRUE(log.errors().constFirst().endsWith(tx("another script is running")));
}

TEST_F(Runs, SayThatAChosenScriptIsGone)
{
    const LogLines log;
    QAction* entry = menuEntry(scriptFile(""));
    QFile::remove(folder.filePath(tx("script.py")));
    entry->trigger();
    ASSERT_EQ(log.errors().size(), 1);
    EXPECT_TRUE(log.errors().constFirst().contains(tx("script.py")));
    EXPECT_EQ(told, log.errors());
}

TEST_F(Runs, FailWhenTheOutputsReceiverThrows)
{
    runs.setOutput([](const QString&) { throw std::runtime_error("no place left"); });
    const LogLines log;
    EXPECT_FALSE(runs.run(tx("print(1)")));
    EXPECT_FALSE(runs.isRunning());
    menuEntry(scriptFile("print(1)"))->trigger();
    EXPECT_EQ(log.errors().size(), 2);
    EXPECT_EQ(told.size(), 4);
    EXPECT_FALSE(runs.isRunning());
}

TEST_F(Runs, CanBeInterruptedByTheUserInterface)
{
    runs.interrupt(); // nobody there
    QTimer::singleShot(0, &runs, [this] { runs.interrupt(); });
    EXPECT_FALSE(runs.run(tx("import vistrel; vistrel.wait(3600.0)")));
    EXPECT_TRUE(told.constLast().endsWith(tx("KeyboardInterrupt"))) << qPrintable(told.constLast());
}

TEST_F(Runs, ThatGiveTheSignalItsDefaultActionAreNotInterrupted)
{
    const LogLines log;
    QTimer::singleShot(0, &runs, [this] { runs.interrupt(); });
    EXPECT_TRUE(runs.run(tx("import signal, vistrel\n"
                            "signal.signal(signal.SIGINT, signal.SIG_DFL)\n"
                            "vistrel.wait(0.05)\n"
                            "signal.signal(signal.SIGINT, signal.default_int_handler)")));
    ASSERT_EQ(log.errors().size(), 1);
    EXPECT_TRUE(log.errors().constFirst().contains(tx("cannot be interrupted")));
}

TEST_F(Runs, WithoutAReceiverDropTheOutput)
{
    runs.setOutput(nullptr);
    EXPECT_TRUE(runs.run(tx("print(1)")));
}
