// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Saving what a view shows.
#pragma once

class QWidget;

namespace vistrel {

class AppDelegate;

/// Asks for a name and writes the active view's picture, with all its bits. The folder is
/// remembered.
void savePictureAs(QWidget& window, AppDelegate& delegate);

} // namespace vistrel
