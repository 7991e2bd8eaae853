// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The form of the plugin's log lines.
#pragma once

#include <QtCore/QString>

#include <source_location>

/// Writes one line to Qt's critical channel: the thread's id, the source file, "L" and the line,
/// ":", and the pattern with the detail in the place of its "%1".
void logCritical(const char* pattern, const QString& detail,
                 std::source_location where = std::source_location::current());

/// The same for a message that is made up already.
void logCritical(const QString& message,
                 std::source_location where = std::source_location::current());
