// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Texts between Python and Qt. They cross the border as UTF-8.
#pragma once

#include "PyRef.h"

#include <QtCore/QString>

#include <optional>
#include <string>

namespace python {

/// A new str. Null with Python's error set when there is no memory.
PyRef newText(const QString& text);

/// The UTF-8 form of a str; nothing, and no error set, for other objects and for texts that have no
/// such form (lone surrogates).
std::optional<std::string> utf8Of(PyObject* object);

} // namespace python
