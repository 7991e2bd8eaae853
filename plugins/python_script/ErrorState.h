// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// A captured Python error: taken from the interpreter, kept as an object, put back or dropped.
#pragma once

#include "PyRef.h"

namespace python {

/// The pending error with type, value and traceback. Empty when there was none.
class ErrorState {
public:
    /// Takes the pending error from the interpreter and makes its value an exception object.
    static ErrorState fetch();
    /// Makes it the pending error again; leaves this object empty.
    void restore();

    /// Borrowed; null when there was no error.
    PyObject* value() const { return m_value.get(); }
    /// Sets `cause` as both cause and context, as `raise ... from cause` does.
    void chainTo(const ErrorState& cause);

private:
    PyRef m_type;
    PyRef m_value;
    PyRef m_traceback;
};

} // namespace python
