// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The host's error lines.
#pragma once

#include <QtCore/QString>

namespace vistrel {

/// Writes one line for people to Qt's critical channel, under the category "vistrel". Any thread.
void logError(const QString& message);

} // namespace vistrel
