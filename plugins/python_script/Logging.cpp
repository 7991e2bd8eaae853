// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The form of the plugin's log lines.
#include "Logging.h"

#include <QtCore/QDebug>
#include <QtCore/QFileInfo>
#include <QtCore/QThread>

void logCritical(const char* pattern, const QString& detail, const char* file, int line)
{
    logCritical(QString::fromUtf8(pattern).arg(detail), file, line);
}

void logCritical(const QString& message, const char* file, int line)
{
    const auto thread = reinterpret_cast<quintptr>(QThread::currentThreadId());
    const QString fileName = QFileInfo(QString::fromUtf8(file)).fileName();
    qCritical().noquote() << QStringLiteral("0x%1 %2 L%3: %4")
                                 .arg(QString::number(thread, 16), fileName, QString::number(line),
                                      message);
}
