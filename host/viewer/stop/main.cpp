// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// vistrel-stop-window: the viewer's companion, started by it and ended with it.
#include "viewer/stop/StopWindow.h"

#include <QtCore/QSocketNotifier>
#include <QtWidgets/QApplication>

#include <array>
#include <csignal>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

using vistrel::StopWindow;

/// Reads what the viewer has sent. False when the viewer is gone.
bool readLines(QByteArray& pending, StopWindow& window)
{
    std::array<char, 4096> bytes{};
    const ssize_t count = read(STDIN_FILENO, bytes.data(), bytes.size());
    if (count <= 0)
        return false;
    pending.append(bytes.data(), count);
    for (qsizetype end = pending.indexOf('\n'); end >= 0; end = pending.indexOf('\n')) {
        window.take(pending.left(end));
        pending.remove(0, end + 1);
    }
    return true;
}

/// Interrupts the thread on which the viewer runs scripts, its first one, and tells the viewer.
void interrupt(pid_t viewer)
{
    // When the viewer is gone its number may be somebody else's.
    if (getppid() != viewer)
        return;
    syscall(SYS_tgkill, viewer, viewer, SIGINT);
    constexpr std::array<char, 5> notice = {'s', 't', 'o', 'p', '\n'};
    static_cast<void>(!write(STDOUT_FILENO, notice.data(), notice.size()));
}

} // namespace

int main(int argc, char* argv[])
{
    // A Ctrl-C on the terminal is the viewer's business, and so is its end.
    std::signal(SIGINT, SIG_IGN);
    std::signal(SIGPIPE, SIG_IGN);
    const pid_t viewer = getppid();
    const QApplication application(argc, argv);
    QGuiApplication::setQuitOnLastWindowClosed(false);
    StopWindow window;
    QObject::connect(&window, &StopWindow::stopRequested, [viewer] { interrupt(viewer); });
    QByteArray pending;
    QSocketNotifier input(STDIN_FILENO, QSocketNotifier::Read);
    QObject::connect(&input, &QSocketNotifier::activated, [&] {
        if (!readLines(pending, window))
            QCoreApplication::quit();
    });
    return QApplication::exec();
}
