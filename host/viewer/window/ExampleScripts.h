// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The example scripts that come with the program.
#pragma once

#include <QtCore/QStringList>

namespace vistrel {

/// Their files, by name; empty when they were not installed.
QStringList exampleScripts();

} // namespace vistrel
