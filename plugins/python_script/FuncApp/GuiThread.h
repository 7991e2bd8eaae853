// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The main-thread rule of the module's functions.
#pragma once

namespace gui_thread {

inline constexpr char refusal[] = "running GUI function from non-main thread";

/// Whether the environment lets this thread touch the user interface; when it does not, an error
/// with that message is set. Ask before the arguments are parsed: a refused call never reports an
/// argument error. The environment decides, threads are never compared here.
bool isAllowed(const char* message = refusal);

} // namespace gui_thread
