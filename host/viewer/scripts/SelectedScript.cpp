// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Cuts lines out of a text without changing their numbers.
#include "viewer/scripts/SelectedScript.h"

#include <QtCore/QStringList>

#include <algorithm>

namespace vistrel {

namespace {

bool isBlank(const QString& line) { return line.trimmed().isEmpty(); }

QString indentationOf(const QString& line)
{
    const auto* end =
        std::find_if(line.cbegin(), line.cend(), [](QChar c) { return c != u' ' && c != u'\t'; });
    return line.left(end - line.cbegin());
}

QString commonStart(const QString& one, const QString& other)
{
    const auto ends = std::mismatch(one.cbegin(), one.cend(), other.cbegin(), other.cend());
    return one.left(ends.first - one.cbegin());
}

QString sharedIndentation(const QStringList& lines)
{
    QString shared;
    bool first = true;
    for (const QString& line : lines) {
        if (isBlank(line))
            continue;
        shared = first ? indentationOf(line) : commonStart(shared, indentationOf(line));
        first = false;
    }
    return shared;
}

} // namespace

QString selectedScript(const QString& text, int firstLine, int lastLine)
{
    QStringList lines = text.split(u'\n').mid(firstLine, lastLine - firstLine + 1);
    const qsizetype indentation = sharedIndentation(lines).size();
    for (QString& line : lines)
        line = isBlank(line) ? QString() : line.mid(indentation);
    return QString(firstLine, u'\n') + lines.join(u'\n') + u'\n';
}

} // namespace vistrel
