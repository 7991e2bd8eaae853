// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// What the program is made of.
#pragma once

#include <QtCore/QString>

namespace vistrel {

/// Names and versions of the program and its libraries, a line each.
/// @param languageVersion  as the script plugin gives it.
QString aboutText(const QString& languageVersion);

} // namespace vistrel
