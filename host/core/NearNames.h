// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Which known names somebody may have meant.
#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>

namespace vistrel {

/// At most three names that are like a misspelt one, the likeliest first: few letters are wrong,
/// missing, too many or exchanged, in the whole name or in its beginning, or one name holds the
/// other. Case and underscores do not count.
QStringList nearNames(const QString& misspelt, const QStringList& known);

/// "; did you mean a, b or c?" for a log line, empty when no name is near.
QString nearNamesAsked(const QString& misspelt, const QStringList& known);

} // namespace vistrel
