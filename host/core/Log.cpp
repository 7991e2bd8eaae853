// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The host's log lines.
#include "core/Log.h"

#include <QtCore/QLoggingCategory>

namespace {

Q_LOGGING_CATEGORY(hostLog, "vistrel")

} // namespace

void vistrel::logError(const QString& message) { qCCritical(hostLog).noquote() << message; }

void vistrel::logInfo(const QString& message) { qCInfo(hostLog).noquote() << message; }
