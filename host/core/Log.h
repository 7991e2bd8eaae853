// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The host's log lines.
#pragma once

#include <QtCore/QString>

namespace vistrel {

/// Writes one line for people to Qt's critical channel, under the category "vistrel". Any thread.
void logError(const QString& message);

/// Writes one line that is no error to Qt's information channel, under the same category. Any
/// thread.
void logInfo(const QString& message);

} // namespace vistrel
