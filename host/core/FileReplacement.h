// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Files that are written as a whole or not at all.
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

namespace vistrel {

/// Whether the name belongs to something that is no file: a folder, a device or a pipe. Then
/// `error` says so: reading may wait for ever, and replacing would take it away. Any thread.
bool isNoFile(const QString& path, QString& error);

/// Writes a file beside the target and renames it over that, so that a full disk leaves the old
/// file whole. False with the reason in `error` when it cannot; devices, pipes and folders stay
/// what they are. Any thread.
bool replaceFile(const QString& path, const QByteArray& bytes, QString& error);

} // namespace vistrel
