// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Which text runs when a person runs a part of a script.
#pragma once

#include <QtCore/QString>

namespace vistrel {

/// The whole lines from `firstLine` to `lastLine` of a text, both counted from 0, as a script of
/// its own: empty lines stand for the lines before, so that tracebacks name the lines of the whole
/// text, and an indentation that all lines share is taken away.
QString selectedScript(const QString& text, int firstLine, int lastLine);

} // namespace vistrel
