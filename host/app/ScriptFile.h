// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Script texts from files.
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <optional>

namespace vistrel {

/// The text of a script file: UTF-8 with or without a byte order mark, every kind of line ends.
/// Nothing with the reason in `error` when it cannot be read or holds what no script can hold.
std::optional<QString> readScriptFile(const QString& path, QString& error);

/// The same for bytes that were read elsewhere.
std::optional<QString> scriptText(const QByteArray& bytes, QString& error);

} // namespace vistrel
