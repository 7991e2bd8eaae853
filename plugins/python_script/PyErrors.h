// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// How errors reach a script, and how a script's errors reach the user.
#pragma once

#include "PyRef.h"
#include "Refusal.h"

#include <stdexcept>

namespace python {

/// Thrown when a service of the host is not there (while it starts up or goes down).
/// Call guards turn it into an error of the script.
class HostUnavailable : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Sets an `Exception` with a fixed message. Returns null, so that a handler can return it.
/// A refusal without a message sets nothing: the interpreter then reports a null result itself.
PyObject* raise(Refusal refusal);

/// Ends a call whose result is returned while an error is pending. The interpreter answers that
/// with a SystemError chained to the pending error, but from 3.11 on only while the calling code is
/// cold: warm calls of one-argument methods go unchecked, and the error would surface at some later
/// instruction. Raising the very same SystemError here makes all calls alike.
///
/// @param method  the called method's table entry and
/// @param self    the object it is bound to: the message names both.
/// @param result  what the handler would return; released when an error is pending.
/// Returns the result when no error is pending, else null with the SystemError set.
PyObject* finishCall(PyMethodDef& method, PyObject* self, PyRef result);

/// Prints the pending error, if any, to sys.stderr and clears it.
///
/// SystemExit ends a script, never the process: PyErr_Print would call exit() for it. A text given
/// to it is printed, a number other than 0 is named.
void printPendingError();

} // namespace python
