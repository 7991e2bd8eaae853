// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Pictures made from nested lists.
#pragma once

#include "FuncImage/ImageCopies.h"
#include "PythonApi.h"

namespace list_import {

/// A picture of a list of lines, of lines of values, or of lines of pixels of values; the first of
/// each says how long all are. The innermost first value decides the element type: 16 bits for
/// integers, floats for floats. Other values are left out.
/// @param list  a list; no error of Python's may be pending.
image_copies::NewImage imported(PyObject* list);

} // namespace list_import
