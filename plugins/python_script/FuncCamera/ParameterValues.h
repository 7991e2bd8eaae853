// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Camera parameter values between Python and the host.
#pragma once

#include "PyRef.h"
#include "Refusal.h"

#include <CxValue.h>

namespace parameter_values {

/// The value of an int, a float or a str, subclasses included. Refused for other types; also for an
/// int beyond the range of a C long, with Python's OverflowError set.
Outcome<CxValue> fromPython(PyObject* object);

/// A new int, float, bool or str by the value's type, None for an empty value. Null with Python's
/// error set when there is no memory.
PyObject* toPython(const CxValue& value);

} // namespace parameter_values
