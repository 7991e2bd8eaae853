// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Reading and setting a parameter for a script, whichever way it was named.
#pragma once

#include "FuncCamera/CameraType.h"

#include <QtCore/QString>

/// Both return a new reference, or null: with an Exception set when the request is refused, without
/// any error when the object is bound to no open camera.

/// Sets a parameter and returns the host's status as an int.
PyObject* fx_pycam_set_parameter_helper(pycam_userdata* camera, const QString& name,
                                        PyObject* value);
/// The value of a parameter, or what the ending of its key asks for, see parameter_access::read().
PyObject* fx_pycam_get_parameter_helper(pycam_userdata* camera, const QString& key);
