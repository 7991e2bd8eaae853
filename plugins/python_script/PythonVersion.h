// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Which Python the plugin runs under: not always the one it was built with.
#pragma once

#include <QtCore/QString>

namespace python {

/// Whether the running interpreter is of that version or later. Works before it is started.
bool isAtLeast(int major, int minor);

/// "3.11" of "3.11.2 (main, ...)". Works before the interpreter is started.
QString versionOfLibraryFolder();

/// "Python 3.11.2" of "3.11.2 (main, ...)": all up to the first blank, or the whole text when there
/// is no blank behind its first character.
QString languageVersionOf(const char* versionText);

} // namespace python
