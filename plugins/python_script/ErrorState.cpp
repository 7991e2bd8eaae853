// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// A captured Python error.
#include "ErrorState.h"

// The calls for the whole error triple are deprecated from 3.12 on; their successors are not in the
// limited API of 3.8.
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"

namespace python {

ErrorState ErrorState::fetch()
{
    PyObject* type = nullptr;
    PyObject* value = nullptr;
    PyObject* traceback = nullptr;
    PyErr_Fetch(&type, &value, &traceback);
    PyErr_NormalizeException(&type, &value, &traceback);
    if (value != nullptr && traceback != nullptr)
        PyException_SetTraceback(value, traceback);
    ErrorState state;
    state.m_type = PyRef::take(type);
    state.m_value = PyRef::take(value);
    state.m_traceback = PyRef::take(traceback);
    return state;
}

void ErrorState::restore()
{
    PyErr_Restore(m_type.release(), m_value.release(), m_traceback.release());
}

void ErrorState::chainTo(const ErrorState& cause)
{
    // Both calls take over the reference that they are given.
    PyException_SetCause(m_value.get(), PyRef::retain(cause.value()).release());
    PyException_SetContext(m_value.get(), PyRef::retain(cause.value()).release());
}

} // namespace python
