// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// What the module's functions that talk to the user do with the host, free of Python.
#pragma once

#include "Refusal.h"

#include <QtCore/QString>

#include <array>

/// Plain workers for the GUI thread. All throw python::HostUnavailable when the host is not there.
namespace user_actions {

/// Shows a message with up to three buttons and waits until it is closed. Empty texts stand for
/// buttons that are not given. Without a second button the first one reads OK, whatever its text.
///
/// Returns the number of the button that closed the box, from 1. When none did, the number of the
/// first button that the box does not have, or 0 when it has all three.
int messageBox(const QString& title, const QString& text, const std::array<QString, 3>& buttons);

/// Asks for a line of text; empty when the user cancels.
QString askForString(const QString& title, const QString& label);

/// Adds an entry to the host's menu for scripts, or to the first of its submenus with that title,
/// which is made if need be. An empty title stands for the menu itself. A silent refusal when the
/// host has no such menu.
Outcome<bool> addMenuItem(const QString& title, const QString& script, const QString& submenu,
                          const QString& extra);

} // namespace user_actions
