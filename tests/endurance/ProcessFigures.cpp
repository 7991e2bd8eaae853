// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The kernel's figures on the process.
#include "ProcessFigures.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QRegularExpression>

#include <malloc.h>

namespace {

/// The number after a word at the beginning of a line.
double fieldOf(const QString& path, const QString& name)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return -1;
    const QRegularExpression pattern(QStringLiteral("^%1:\\s+(\\d+)").arg(name),
                                     QRegularExpression::MultilineOption);
    return pattern.match(QString::fromLatin1(file.readAll())).captured(1).toDouble();
}

int entriesOf(const QString& path)
{
    return static_cast<int>(
        QDir(path).entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::System).size());
}

} // namespace

ProcessFigures ProcessFigures::now()
{
    malloc_trim(0); // what is free is nobody's
    return {.bytes = fieldOf(QStringLiteral("/proc/self/smaps_rollup"), QStringLiteral("Anonymous"))
                     * 1024,
            .threads = entriesOf(QStringLiteral("/proc/self/task")),
            .files = entriesOf(QStringLiteral("/proc/self/fd"))};
}
