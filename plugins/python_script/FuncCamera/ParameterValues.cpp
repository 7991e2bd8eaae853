// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Camera parameter values between Python and the host.
#include "FuncCamera/ParameterValues.h"

#include "PyText.h"

namespace parameter_values {

namespace {

constexpr char unsupportedType[] = "Unsupported camera parameter value type.";

/// The host's integers have 32 bits: of a wider number the low ones go.
Outcome<CxValue> integerOf(PyObject* object)
{
    const long number = PyLong_AsLong(object);
    if (number == -1 && PyErr_Occurred() != nullptr)
        return silentRefusal;
    return CxValue::fromInt(static_cast<qint32>(number));
}

/// Empty for a text that UTF-8 cannot hold.
CxValue textOf(PyObject* object)
{
    return CxValue::fromString(QString::fromStdString(python::utf8Of(object).value_or("")));
}

} // namespace

Outcome<CxValue> fromPython(PyObject* object)
{
    // A bool is an int too and goes as 1 or 0; the type of the parameter makes a boolean of it.
    if (PyLong_Check(object))
        return integerOf(object);
    if (PyFloat_Check(object))
        return CxValue::fromFloat(static_cast<float>(PyFloat_AsDouble(object)));
    if (PyUnicode_Check(object))
        return textOf(object);
    return Refusal{unsupportedType};
}

PyObject* toPython(const CxValue& value)
{
    switch (value.type()) {
    case CxValue::Int:
        return PyLong_FromLong(value.toInt());
    case CxValue::Float:
        return PyFloat_FromDouble(double{value.toFloat()});
    case CxValue::Bool:
        return python::newBool(value.toBool());
    case CxValue::String:
        return python::newText(value.toString()).release();
    default:
        return python::newNone();
    }
}

} // namespace parameter_values
