// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The companion's window: when it shows itself and what it says.
#include "viewer/stop/StopWindow.h"

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>

#include <gtest/gtest.h>

namespace vistrel {

namespace {

constexpr int longEnoughMs = StopWindow::patienceMs + 30'000;

bool says(const StopWindow& window, const QString& text)
{
    for (const QLabel* label : window.findChildren<QLabel*>())
        if (label->text().contains(text))
            return true;
    return false;
}

} // namespace

TEST(StopWindow, StaysHiddenWhileNoScriptRuns)
{
    StopWindow window;
    window.take("alive");
    QTest::qWait(StopWindow::patienceMs + 200);
    EXPECT_TRUE(window.isHidden());
}

TEST(StopWindow, ShowsItselfWhenTheViewerIsSilentAndHidesWhenItAnswers)
{
    StopWindow window;
    window.take("run measure.py");
    EXPECT_TRUE(window.isHidden());
    ASSERT_TRUE(QTest::qWaitFor([&] { return window.isVisible(); }, longEnoughMs));
    EXPECT_TRUE(says(window, QStringLiteral("measure.py")));
    window.take("alive");
    EXPECT_TRUE(window.isHidden());
    ASSERT_TRUE(QTest::qWaitFor([&] { return window.isVisible(); }, longEnoughMs));
    window.take("end");
    EXPECT_TRUE(window.isHidden());
}

TEST(StopWindow, SaysThatAStopIsOnlyRequestedUntilTheScriptHasEnded)
{
    StopWindow window;
    window.take("run a.py");
    ASSERT_TRUE(QTest::qWaitFor([&] { return window.isVisible(); }, longEnoughMs));
    QSignalSpy requested(&window, &StopWindow::stopRequested);
    QTest::mouseClick(window.findChild<QPushButton*>(), Qt::LeftButton);
    EXPECT_EQ(requested.count(), 1);
    EXPECT_TRUE(window.isVisible());
    EXPECT_TRUE(says(window, QStringLiteral("Stop requested")));
    QTest::mouseClick(window.findChild<QPushButton*>(), Qt::LeftButton);
    EXPECT_EQ(requested.count(), 2);
    window.take("end");
    window.take("run b.py");
    EXPECT_FALSE(says(window, QStringLiteral("Stop requested")));
}

} // namespace vistrel
