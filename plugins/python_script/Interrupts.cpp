// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Ctrl-C while a script waits in the host.
#include "Interrupts.h"

#include "PythonApi.h"

namespace python {

bool isUninterrupted() { return PyErr_CheckSignals() == 0; }

} // namespace python
