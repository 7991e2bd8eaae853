// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The built-in module `vistrel`: its function table and its registration.
#pragma once

#include "PythonApi.h"

/// Enters the module into the interpreter's table of built-in modules; before Py_Initialize.
void fx_pyapp_register();

/// Compiles a text as a file called "<string>" and evaluates it in `__main__`. Errors are printed
/// to sys.stderr and cleared, SystemExit included; nothing is returned and nothing is raised.
/// @param text  UTF-8, ends with a NUL.
void fx_pyapp_RunPythonString(const char* text);

/// The module's function table. Writable: the help texts are filled in when the module is made.
extern PyMethodDef px_app_funcs[];
