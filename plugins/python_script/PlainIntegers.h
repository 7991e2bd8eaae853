// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Integer arguments of methods that are called once a pixel.
#pragma once

#include "PythonApi.h"

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <utility>

namespace python {

/// Stores an int of Python's own type; false, without an error, when it is another object or does
/// not fit.
template<class Integer>
bool storePlainInteger(PyObject* object, Integer& target)
{
    if (!PyLong_CheckExact(object))
        return false;
    int overflow = 0;
    const long long value = PyLong_AsLongLongAndOverflow(object, &overflow);
    if (overflow != 0 || !std::in_range<Integer>(value))
        return false;
    target = static_cast<Integer>(value);
    return true;
}

/// Reads arguments that are what nearly all callers pass, in a third of the time that
/// PyArg_ParseTuple takes. False, without an error, for all others, which are that function's to
/// convert or to refuse.
/// @param format  that of PyArg_ParseTuple, with a letter for each integer and an optional "|".
template<class... Integers>
bool takePlainIntegers(PyObject* args, std::string_view format, Integers&... targets)
{
    const auto given = static_cast<std::size_t>(PyTuple_Size(args));
    const std::size_t required = std::min(format.find('|'), sizeof...(targets));
    if (given < required || given > sizeof...(targets))
        return false;
    std::size_t next = 0;
    const auto take = [&](auto& target) {
        if (next == given)
            return true;
        auto* const item = PyTuple_GetItem(args, static_cast<Py_ssize_t>(next++));
        return storePlainInteger(item, target);
    };
    return (take(targets) && ...);
}

} // namespace python
