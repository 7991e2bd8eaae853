// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Light and dark.
#pragma once

namespace vistrel {

/// Gives all windows dark or light colours and remembers the choice.
void setDarkTheme(bool dark);
/// As it was chosen last; dark where the desktop itself is.
bool isDarkThemeChosen();

} // namespace vistrel
