// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Passing messages: over a window that is seen, in the log otherwise.
#include "AppFixture.h"

#include "app/MainWindow.h"
#include "app/Notification.h"

using namespace vistrel;
using namespace std::chrono_literals;

namespace {

QString tx(const char* text) { return QString::fromUtf8(text); }

class Notifications : public HostTest {
protected:
    Notification* shown() { return app.mainWindow()->findChild<Notification*>(); }
};

} // namespace

TEST_F(Notifications, LieOverAWindowThatIsSeen)
{
    app.mainWindow()->show();
    app.showNotification(tx("saved 4 files"));
    ASSERT_NE(shown(), nullptr);
    EXPECT_TRUE(shown()->isVisible());
    EXPECT_EQ(shown()->text(), tx("saved 4 files"));
    EXPECT_TRUE(app.mainWindow()->rect().contains(shown()->geometry()));
}

TEST_F(Notifications, AreLogLinesWhereNobodySeesAWindow)
{
    static QStringList lines;
    lines.clear();
    const auto previous = qInstallMessageHandler(
        [](QtMsgType, const QMessageLogContext&, const QString& line) { lines << line; });
    app.showNotification(tx("without a window"));
    static_cast<void>(app.mainWindow());
    app.showNotification(tx("with a hidden one"));
    qInstallMessageHandler(previous);
    EXPECT_EQ(lines, QStringList({tx("without a window"), tx("with a hidden one")}));
    EXPECT_FALSE(shown()->isVisible());
}

TEST_F(Notifications, AreToldToWhoeverListens)
{
    QStringList told;
    QObject::connect(&app, &AppDelegate::notified, [&told](const QString& text) { told << text; });
    app.showNotification(tx("one"));
    app.mainWindow()->show();
    app.showNotification(tx("two"));
    EXPECT_EQ(told, QStringList({tx("one"), tx("two")}));
}

TEST_F(Notifications, ReplaceTheOneBefore)
{
    app.mainWindow()->show();
    app.showNotification(tx("one"));
    app.showNotification(tx("two"));
    EXPECT_EQ(app.mainWindow()->findChildren<Notification*>().size(), 1);
    EXPECT_EQ(shown()->text(), tx("two"));
}

TEST_F(Notifications, StayInTheWindowWhenItShrinks)
{
    QWidget* window = app.mainWindow();
    window->show();
    app.showNotification(QStringLiteral("word ").repeated(200));
    window->resize(300, 200);
    QCoreApplication::processEvents();
    EXPECT_TRUE(window->rect().contains(shown()->geometry()));
}

TEST_F(Notifications, ShowMarkupAsItIs)
{
    app.mainWindow()->show();
    app.showNotification(tx("<b>a < b</b>"));
    EXPECT_EQ(shown()->textFormat(), Qt::PlainText);
}

TEST_F(Notifications, FadeAway)
{
    QWidget window;
    window.show();
    Notification message(window, 1ms, 20ms);
    message.announce(tx("short"));
    EXPECT_TRUE(message.isVisible());
    EXPECT_TRUE(handleEventsUntil([&] { return !message.isVisible(); }));
    message.announce(tx("again"));
    EXPECT_TRUE(message.isVisible());
}
