// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The form of the plugin's log lines.
#pragma once

#include <QtCore/QString>

/// Writes one line to Qt's critical channel: the thread's id, the source file, "L" and the line,
/// ":", and the pattern with the detail in the place of its "%1". File and line are the caller's.
void logCritical(const char* pattern, const QString& detail, const char* file = __builtin_FILE(),
                 int line = __builtin_LINE());

/// The same for a message that is made up already.
void logCritical(const QString& message, const char* file = __builtin_FILE(),
                 int line = __builtin_LINE());
