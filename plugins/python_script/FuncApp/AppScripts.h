// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Texts of Python that run in the main namespace, and the module function for nested scripts.
#pragma once

#include "PythonApi.h"

PyObject* fx_pyapp_RunScript(PyObject* self, PyObject* args);

/// Compiles a text as a file called "<string>" and evaluates it in `__main__`. Errors are printed
/// to sys.stderr and cleared, SystemExit included; nothing is returned and nothing is raised.
/// @param text  UTF-8, ends with a NUL.
void fx_pyapp_RunPythonString(const char* text);
