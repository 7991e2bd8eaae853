// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// What the process has of Qt's user interface, asked before it is used: Qt ends a process that
// makes a widget without an application, and does not check the thread.
#pragma once

namespace user_interface {

/// Whether widgets can be made.
bool hasWidgets();
/// Whether there is a clipboard.
bool hasClipboard();
/// Whether this is the one thread that may use them. That is Qt's own rule, so Qt is asked and not
/// the host.
bool isGuiThread();

} // namespace user_interface
