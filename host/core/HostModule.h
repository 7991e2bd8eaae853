// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The host's own modules: libraries that are loaded when they are first needed.
#pragma once

#include <QtCore/QFunctionPointer>
#include <QtCore/QString>

namespace vistrel {

/// Where a module lies: beside the host's library.
QString hostModulePath(const QString& fileName);

/// Loads a library, which then stays loaded, and finds a function in it; null with the reason in
/// `error` when that fails. Any thread.
QFunctionPointer hostModuleEntry(const QString& path, const char* function, QString& error);

} // namespace vistrel
