// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Menu entries that scripts make.
#pragma once

#include <QtCore/QString>

class QAction;
class QMenu;

namespace vistrel {

/// Adds an entry, which belongs to the menu.
/// @param shortcut  keys such as "Ctrl+Shift+M", or empty. A script that is run again makes its
///                  entry again: the newest entry has the keys. Keys of the application itself are
///                  not given away, and what is no key is none: the log says so, and the entry has
///                  no shortcut.
QAction* addScriptEntry(QMenu& menu, const QString& title, const QString& shortcut);

/// The newest entry of that title, or "Submenu/Title"; mnemonics do not count. Null when there is
/// none.
QAction* findScriptEntry(const QMenu& menu, const QString& name);

} // namespace vistrel
