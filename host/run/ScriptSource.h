// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Script texts from files and from standard input.
#pragma once

#include <QtCore/QString>

namespace vistrel {

/// The text of a script: UTF-8 with or without a byte order mark, every kind of line ends. "-" is
/// standard input, read to its end. Throws UsageError when there is no such file, or when it holds
/// what no script can hold.
QString readScript(const QString& file);

} // namespace vistrel
