// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Light and dark.
#pragma once

namespace vistrel {

/// Gives all windows dark or light colours.
void setDarkTheme(bool dark);
/// The same for a user who wants it so the next time, too.
void chooseDarkTheme(bool dark);
/// As it was chosen last; while nobody has, dark where the desktop is.
bool isDarkThemeChosen();

} // namespace vistrel
