// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Reads the "File ..., line ..." lines of tracebacks and syntax errors.
#include "viewer/scripts/TracebackLines.h"

#include <QtCore/QRegularExpression>
#include <QtCore/QStringList>

#include <algorithm>

namespace vistrel {

std::optional<SourcePlace> sourcePlaceOf(const QString& line)
{
    static const QRegularExpression form(QStringLiteral("^\\s*File \"([^\"]+)\", line (\\d+)"));
    const QRegularExpressionMatch match = form.match(line);
    if (!match.hasMatch())
        return std::nullopt;
    return SourcePlace{match.captured(1), match.capturedView(2).toInt()};
}

std::optional<SourcePlace> errorPlaceOf(const QString& errors)
{
    QStringList lines = errors.split(u'\n');
    std::reverse(lines.begin(), lines.end());
    for (const QString& line : lines) {
        std::optional<SourcePlace> place = sourcePlaceOf(line);
        if (place && place->isScript())
            return place;
    }
    return std::nullopt;
}

} // namespace vistrel
