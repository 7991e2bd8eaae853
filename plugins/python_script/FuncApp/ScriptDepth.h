// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// How deep scripts may run each other.
#pragma once

namespace script_depth {

/// Prepares the look at Python's recursion limit; once for each interpreter. False with Python's
/// error set when there is no memory for it.
bool prepare();

/// Whether one more script may run on top of those that run on this thread. When not, a
/// RecursionError is set.
bool isRoomForAnother();

} // namespace script_depth
