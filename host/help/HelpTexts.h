// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Help texts of the scripts' functions and methods. Their one source is vistrel.pyi.
#pragma once

namespace vistrel {

// A text is UTF-8 and stays valid while the library is loaded. Its first line is a signature in the
// form that Python's inspect module takes from built-in functions. Any thread.

/// Help text of a module function; null when there is none or an argument is null.
const char* functionHelp(const char* module, const char* function);

/// Help text of a method; null when there is none or an argument is null.
/// @param type  "cameraObj", "imgObj" or "graphObj".
const char* methodHelp(const char* type, const char* method);

} // namespace vistrel
