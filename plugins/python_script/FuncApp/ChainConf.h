// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The settings of a chain element: a script's dictionary as attributes of an XML element.
#pragma once

#include "ErrorState.h"

class QDomElement;

namespace chain_conf {

/// Sets one attribute of `conf` for each entry: integers and truth values as integers, cut to 32
/// bits, then floats and texts. Values of other kinds are left out.
///
/// A key that has no UTF-8 form is left out too, and a text that has none; an integer that does not
/// fit into a C long becomes -1. The last such error is returned, taken from the interpreter; it is
/// empty when there was none.
python::ErrorState fill(QDomElement& conf, PyObject* dictionary);

} // namespace chain_conf
