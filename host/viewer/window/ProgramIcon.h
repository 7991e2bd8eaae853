// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The program's icon, drawn here: there is no file that it is made from.
#pragma once

#include <QtGui/QIcon>
#include <QtGui/QImage>

#include <array>

namespace vistrel {

/// Sides in pixels, as desktops ask for them.
inline constexpr std::array iconSides = {16, 32, 48, 64, 128, 256};

/// A lens before a histogram, on a transparent ground. Any thread, also without an application.
QImage iconPicture(int side);
/// All sizes in one.
QIcon programIcon();

} // namespace vistrel
