// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Prints the seconds from loading the plugin to the end of its first run, in which the interpreter
// starts. A process has one such run.
#include "HostedPlugin.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QTextStream>
#include <QtWidgets/QApplication>

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    vistrel::HostApplication host;
    QElapsedTimer timer;
    timer.start();
    HostedPlugin plugin(host.environment());
    plugin.run(QString(), [](const QString&, bool) {});
    const qint64 nanoseconds = timer.nsecsElapsed();
    QTextStream(stdout) << static_cast<double>(nanoseconds) / 1e9 << Qt::endl;
}
