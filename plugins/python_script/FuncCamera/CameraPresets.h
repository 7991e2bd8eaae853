// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Shading presets with the calling convention of a camera's methods, for whoever loads the plugin.
#pragma once

#include "PythonApi.h"

/// These stand in no method table: scripts have no name for them. They are exported by their plain
/// names instead, so that a host can call them or put them into a table of its own. `self` is a
/// camera object, `args` a tuple; both return a new reference or null.
extern "C" {

/// (name=""): writes a preset's values to the camera; without a name those of the first preset.
/// Null without an error when the object is bound to no open camera.
__attribute__((visibility("default"))) PyObject* fx_pycam_ActivateShadingPreset(PyObject* self,
                                                                                PyObject* args);

/// (name, description, target=""): saves the camera's current values as a preset.
/// Null without an error when the object is bound to no open camera.
__attribute__((visibility("default"))) PyObject* fx_pycam_CreateShadingPreset(PyObject* self,
                                                                              PyObject* args);
}
