// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The form of the plugin's log lines.
#include "Logging.h"

#include <QtCore/QDebug>
#include <QtCore/QFileInfo>
#include <QtCore/QThread>

void logCritical(const char* pattern, const QString& detail, std::source_location where)
{
    logCritical(QString::fromUtf8(pattern).arg(detail), where);
}

void logCritical(const QString& message, std::source_location where)
{
    const auto thread = reinterpret_cast<quintptr>(QThread::currentThreadId());
    const QString file = QFileInfo(QString::fromUtf8(where.file_name())).fileName();
    qCritical().noquote() << QStringLiteral("0x%1 %2 L%3: %4")
                                 .arg(QString::number(thread, 16), file,
                                      QString::number(where.line()), message);
}
