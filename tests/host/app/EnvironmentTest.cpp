// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Constants, paths, menu entries and waiting.
#include "AppFixture.h"

#include "cameras/ParameterNames.h"

#include <QtCore/QDir>
#include <QtCore/QElapsedTimer>
#include <QtCore/QTimer>
#include <QtWidgets/QMenu>

#include <limits>
#include <thread>

using namespace vistrel;

using Environment = HostTest;

namespace {

constexpr double endless = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

/// Whether an event that is there already is handled within something.
template<typename Action>
bool handlesPendingEvents(Action action)
{
    bool handled = false;
    QTimer::singleShot(0, [&handled] { handled = true; });
    action();
    return handled;
}

} // namespace

TEST_F(Environment, GivesEachParameterNameAsAConstant)
{
    const auto& constants = environment.apiParamDefs();
    ASSERT_EQ(constants.size(), parameterNames().size());
    for (const auto& constant : constants) {
        EXPECT_EQ(constant.name, constant.text.toUpper());
        EXPECT_TRUE(environment.isApiParamName(constant.text));
    }
    EXPECT_TRUE(parameterNames().contains(QStringLiteral("exposure_time_us")));
}

TEST_F(Environment, GivesEachEnumerationValueAsAConstant)
{
    const auto& constants = environment.apiParamEnumVals();
    ASSERT_FALSE(constants.isEmpty());
    ASSERT_EQ(constants.size(), parameterEnumValues().size());
    for (qsizetype i = 0; i < constants.size(); ++i) {
        EXPECT_EQ(constants[i].name, parameterEnumValues()[i].name);
        EXPECT_EQ(constants[i].value, parameterEnumValues()[i].value);
    }
}

TEST_F(Environment, KnowsParametersByTheirExactName)
{
    EXPECT_TRUE(environment.isApiParamName(QStringLiteral("gain_db")));
    EXPECT_FALSE(environment.isApiParamName(QStringLiteral("GAIN_DB")));
    EXPECT_FALSE(environment.isApiParamName(QString()));
}

TEST_F(Environment, StartsInTheProcesssOwnFolder)
{
    EXPECT_EQ(environment.workingDirectory(), QDir::currentPath());
}

TEST_F(Environment, ResolvesRelativePathsAgainstTheWorkingDirectory)
{
    environment.setWorkingDirectory(QStringLiteral("/data/größe/"));
    EXPECT_EQ(environment.workingDirectory(), QStringLiteral("/data/größe"));
    EXPECT_EQ(environment.resolvePath(QStringLiteral("a.png")),
              QStringLiteral("/data/größe/a.png"));
    EXPECT_EQ(environment.resolvePath(QStringLiteral("../b//c/./d.png")),
              QStringLiteral("/data/b/c/d.png"));
    EXPECT_EQ(environment.resolvePath(QString()), QStringLiteral("/data/größe"));
}

TEST_F(Environment, KeepsAbsolutePaths)
{
    EXPECT_EQ(environment.resolvePath(QStringLiteral("/x/../y/a.png")), QStringLiteral("/y/a.png"));
}

TEST_F(Environment, ExpandsTheHomeFolderOnlyAtTheBeginning)
{
    environment.setWorkingDirectory(QStringLiteral("/data"));
    const QString home = QDir::homePath();
    EXPECT_EQ(environment.resolvePath(QStringLiteral("~")), home);
    EXPECT_EQ(environment.resolvePath(QStringLiteral("~/a")), QDir::cleanPath(home + "/a"));
    EXPECT_EQ(environment.resolvePath(QStringLiteral("~a/b")), QStringLiteral("/data/~a/b"));
    EXPECT_EQ(environment.resolvePath(QStringLiteral("a/~/b")), QStringLiteral("/data/a/~/b"));
}

TEST_F(Environment, TakesARelativeWorkingDirectoryForOneOfTheProcess)
{
    environment.setWorkingDirectory(QStringLiteral("results"));
    EXPECT_EQ(environment.workingDirectory(), QDir::currentPath() + QStringLiteral("/results"));
}

TEST_F(Environment, TellsTheGuiThreadFromOthers)
{
    EXPECT_TRUE(environment.isGuiThread());
    bool elsewhere = true;
    std::thread([&] { elsewhere = environment.isGuiThread(); }).join();
    EXPECT_FALSE(elsewhere);
}

TEST_F(Environment, RunsAMenuEntrysScriptByTheHandler)
{
    QStringList calls;
    environment.setMenuHandler([&calls](const QString& path) { calls << path; });
    environment.setWorkingDirectory(QStringLiteral("/scripts"));
    environment.addMenuItem(app.menu(3), QStringLiteral("Run it"), QStringLiteral("it.py"),
                            QString());
    environment.setWorkingDirectory(QStringLiteral("/elsewhere"));
    ASSERT_EQ(app.menu(3)->actions().size(), 1);
    EXPECT_EQ(app.menu(3)->actions().constFirst()->text(), QStringLiteral("Run it"));
    app.menu(3)->actions().constFirst()->trigger();
    EXPECT_EQ(calls, QStringList("/scripts/it.py"));
}

TEST_F(Environment, OnlyLogsAMenuEntryWithoutAHandler)
{
    environment.addMenuItem(app.menu(3), QStringLiteral("Run it"), QStringLiteral("/it.py"), {});
    const LogLines log;
    app.menu(3)->actions().constFirst()->trigger();
    ASSERT_EQ(log.errors().size(), 1);
    EXPECT_TRUE(log.errors().constFirst().contains(QStringLiteral("/it.py")));
}

TEST_F(Environment, WaitsAsLongAsItIsTold)
{
    QElapsedTimer timer;
    timer.start();
    environment.wait(0.03);
    EXPECT_GE(timer.nsecsElapsed(), 30'000'000);
}

TEST_F(Environment, HandlesEventsWhileItWaits)
{
    int ticks = 0;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &timer, [&ticks] { ++ticks; });
    timer.start(1);
    environment.wait(0.2);
    EXPECT_GE(ticks, 1); // a busy machine may leave time for no more
}

TEST_F(Environment, ReturnsAtOnceFromAWaitForNoTime)
{
    for (const double seconds : {0.0, -1.0, -endless, notANumber})
        EXPECT_TRUE(handlesPendingEvents([&] { environment.wait(seconds); })) << seconds;
}

TEST_F(Environment, ReturnsFalseForAViewWithoutACamera)
{
    CxMdiView* view = app.view(openView());
    EXPECT_FALSE(environment.waitForNextFrame(view, -1.0));
    EXPECT_FALSE(environment.waitForNextFrame(view, 0.0));
    EXPECT_FALSE(environment.waitForNextFrame(view, 0.02));
    EXPECT_FALSE(environment.waitForNextFrame(view, notANumber));
}

TEST_F(Environment, StopsWaitingForAViewThatIsClosed)
{
    const int id = openView();
    QTimer::singleShot(0, &app, [this, id] { app.view(id)->closeMdiView(); });
    EXPECT_FALSE(environment.waitForNextFrame(app.view(id), 3600.0));
}

TEST_F(Environment, MayWaitWithinAWait)
{
    bool innerEnded = false;
    QTimer::singleShot(0, &app, [&] {
        environment.wait(0.05);
        innerEnded = true;
    });
    environment.wait(0.01);
    EXPECT_TRUE(innerEnded);
}

TEST_F(Environment, HasHelpForFunctionsAndMethods)
{
    EXPECT_NE(environment.functionHelp("vistrel", "wait"), nullptr);
    EXPECT_NE(environment.methodHelp("cameraObj", "start_acquisition"), nullptr);
    EXPECT_EQ(environment.functionHelp("vistrel", "no such function"), nullptr);
    EXPECT_EQ(environment.methodHelp("imgObj", "start_acquisition"), nullptr);
}
