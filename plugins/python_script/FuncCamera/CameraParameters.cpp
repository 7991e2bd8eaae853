// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// `vistrel.Camera`: parameters by name.
#include "FuncCamera/CameraParameters.h"

#include "FuncCamera/CameraMethods.h"
#include "FuncCamera/KnownTexts.h"
#include "FuncCamera/ParameterAccess.h"
#include "FuncCamera/ParameterValues.h"
#include "PyErrors.h"

#include <optional>

namespace {

/// The key that was parsed from these very arguments before; empty when it was not.
QString knownKey(PyObject* args)
{
    return PyTuple_Size(args) == 1 ? known_texts::keys.find(PyTuple_GetItem(args, 0)) : QString();
}

/// The key in the arguments of get_param(); nothing, with Python's error set, for wrong ones.
std::optional<QString> parsedKey(PyObject* args)
{
    const char* name = nullptr;
    if (!PyArg_ParseTuple(args, "s", &name))
        return std::nullopt;
    const QString key = QString::fromUtf8(name);
    known_texts::keys.add(PyTuple_GetItem(args, 0), key);
    return key;
}

} // namespace

PyObject* fx_pycam_set_parameter_helper(pycam_userdata* camera, const QString& name,
                                        PyObject* value)
{
    CxCameraParameters* parameters = fx_pycam_parameters(camera);
    if (parameters == nullptr)
        return nullptr;
    Outcome<CxValue> built = parameter_values::fromPython(value);
    if (!built)
        return python::raise(built.refusal());
    return PyLong_FromLong(parameter_access::write(*parameters, name, built.value()));
}

PyObject* fx_pycam_get_parameter_helper(pycam_userdata* camera, const QString& key)
{
    CxCameraParameters* parameters = fx_pycam_parameters(camera);
    if (parameters == nullptr)
        return nullptr;
    Outcome<CxValue> value = parameter_access::read(*parameters, key);
    return value ? parameter_values::toPython(value.value()) : python::raise(value.refusal());
}

PyObject* fx_pycam_SetParam(PyObject* self, PyObject* args)
{
    const char* name = nullptr;
    PyObject* value = nullptr;
    if (!PyArg_ParseTuple(args, "sO", &name, &value))
        return nullptr;
    return fx_pycam_set_parameter_helper(fx_pycam_record(self), QString::fromUtf8(name), value);
}

PyObject* fx_pycam_GetParam(PyObject* self, PyObject* args)
{
    QString key = knownKey(args);
    if (key.isEmpty()) {
        const std::optional<QString> parsed = parsedKey(args);
        if (!parsed)
            return nullptr;
        key = *parsed;
    }
    return fx_pycam_get_parameter_helper(fx_pycam_record(self), key);
}
