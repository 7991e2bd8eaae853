// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The built-in module `vistrel`: its function table and its registration.
#pragma once

#include "PythonApi.h"

/// Enters the module into the interpreter's table of built-in modules; before Py_Initialize.
void fx_pyapp_register();

/// The module's function table. Writable: the help texts are filled in when the module is made.
extern PyMethodDef px_app_funcs[];
/// The entry of that name, which must be there.
PyMethodDef* fx_pyapp_function(const char* name);
