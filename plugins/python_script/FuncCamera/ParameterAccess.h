// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Reads and sets parameters of a camera by name. Free of Python.
#pragma once

#include "Refusal.h"

#include <CxValue.h>

class CxCameraParameters;

namespace parameter_access {

/// Reads a parameter's value; with one of the endings ":min", ":max" and ":inc" its limit or step
/// (":info" reads the value too). A name that the host does not list may be one of the texts that
/// say who the camera is ("device_sn" and its like), or one that the camera knows itself.
/// Refused when the camera lacks the parameter.
Outcome<CxValue> read(CxCameraParameters& camera, const QString& key);

/// Sets a parameter, or whatever the camera has under that name. A value for a listed parameter is
/// converted to the type that the parameter has. Returns the host's status: 0 unless it reports
/// otherwise.
int write(CxCameraParameters& camera, const QString& name, const CxValue& value);

} // namespace parameter_access
