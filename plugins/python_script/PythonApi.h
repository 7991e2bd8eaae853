// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The one gate to Python: nothing else includes Python.h. It keeps the plugin to the limited API of
// 3.8, so that one binary runs under every later version.
#pragma once

#if !defined(Py_LIMITED_API) || Py_LIMITED_API != 0x03080000
#error "Py_LIMITED_API must be 0x03080000 in every file of the plugin"
#endif

// Lengths of parsed and built texts are Py_ssize_t.
#define PY_SSIZE_T_CLEAN

// PyType_Spec has a member called slots, which Qt's keyword macro would wipe out.
#pragma push_macro("slots")
#undef slots
#include <Python.h>
#pragma pop_macro("slots")
