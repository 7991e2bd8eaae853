// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Reads another object's `__array_interface__`.
#pragma once

#include "FuncImage/ArrayImport.h"
#include "PythonApi.h"

namespace array_interface {

/// The pixels that an interface dictionary describes. The shape is read height first; strides are
/// read as (pixel, line, channel), which contiguous arrays, whose strides are None, do not notice.
/// Refused with the reason; no error of Python's is left set.
/// @param interface  a dictionary.
Outcome<ArraySource> read(PyObject* interface);

/// Refuses a source that reaches outside a block of memory.
Outcome<bool> checkInside(const ArraySource& source, const quint8* block, quint64 size);

} // namespace array_interface
