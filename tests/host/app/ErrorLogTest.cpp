// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The error lines that are kept for a reader.
#include "AppFixture.h"

#include "core/Log.h"

#include <QtCore/QDebug>

#include <thread>
#include <vector>

using namespace vistrel;

namespace {

QStringList texts(const ErrorLog& log)
{
    QStringList result;
    for (const ErrorLog::Line& line : log.lines())
        result << line.text;
    return result;
}

QString numbered(qsizetype number) { return QStringLiteral("line %1").arg(number); }

/// The lines also go where they went before: into a list instead of the tests' output.
class ErrorLogTest : public testing::Test {
protected:
    LogLines before;
    ErrorLog log;
};

} // namespace

TEST_F(ErrorLogTest, KeepsErrorLinesInTheirOrder)
{
    const QDateTime begin = QDateTime::currentDateTime();
    logError(QStringLiteral("first"));
    qCritical() << QStringLiteral("größe");
    EXPECT_EQ(texts(log), QStringList({"first", "\"größe\""}));
    EXPECT_GE(log.lines().constFirst().time, begin);
}

TEST_F(ErrorLogTest, KeepsNothingElse)
{
    qDebug("debug");
    qInfo("info");
    qWarning("warning");
    EXPECT_TRUE(log.lines().isEmpty());
}

TEST_F(ErrorLogTest, PassesLinesOn)
{
    logError(QStringLiteral("passed on"));
    EXPECT_EQ(before.errors(), QStringList("passed on"));
}

TEST_F(ErrorLogTest, ForgetsTheOldestLines)
{
    for (qsizetype i = 0; i < ErrorLog::most + 3; ++i)
        logError(numbered(i));
    ASSERT_EQ(log.lines().size(), ErrorLog::most);
    EXPECT_EQ(log.lines().constFirst().text, numbered(3));
    EXPECT_EQ(log.lines().constLast().text, numbered(ErrorLog::most + 2));
}

TEST_F(ErrorLogTest, TellsOfManyLinesOnce)
{
    int calls = 0;
    QObject::connect(&log, &ErrorLog::changed, [&calls] { ++calls; });
    for (qsizetype i = 0; i < 5; ++i)
        logError(numbered(i));
    EXPECT_EQ(calls, 0);
    QCoreApplication::processEvents();
    EXPECT_EQ(calls, 1);
    logError(numbered(5));
    QCoreApplication::processEvents();
    EXPECT_EQ(calls, 2);
}

TEST_F(ErrorLogTest, CanBeCleared)
{
    logError(QStringLiteral("gone"));
    log.clear();
    EXPECT_TRUE(log.lines().isEmpty());
    logError(QStringLiteral("new"));
    EXPECT_EQ(texts(log), QStringList("new"));
}

TEST_F(ErrorLogTest, TakesLinesFromEveryThread)
{
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([] {
            for (qsizetype line = 0; line < 100; ++line)
                logError(numbered(line));
        });
    }
    for (qsizetype looks = 0; looks < 50; ++looks)
        EXPECT_LE(log.lines().size(), 400);
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(log.lines().size(), 400);
}

TEST(ErrorLogsEnd, GivesTheHandlerBack)
{
    const LogLines before;
    {
        const ErrorLog log;
    }
    logError(QStringLiteral("afterwards"));
    EXPECT_EQ(before.errors(), QStringList("afterwards"));
}
