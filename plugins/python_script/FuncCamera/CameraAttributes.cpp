// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// `vistrel.Camera`: dynamic attributes, such as `camera.set_gain_db(3.0)`.
#include "CallGuard.h"
#include "FuncCamera/CameraMethods.h"
#include "FuncCamera/CameraParameters.h"
#include "FuncCamera/KnownTexts.h"
#include "HostServices.h"
#include "PyErrors.h"
#include "PyText.h"

#include <IxScriptEnvironment.h>

using python::PyRef;
using Access = ParameterAttribute::Access;

namespace {

// What a dynamic attribute is: one of these, bound to (camera, name of the attribute).
PyMethodDef px_cam_param_setter{"paramsetter", python::guarded<fx_pycam_setget_camera_parameter>,
                                METH_O, nullptr};
PyMethodDef px_cam_param_setter_bool{
    "paramsetter_bool", python::guarded<fx_pycam_setget_camera_parameter>, METH_NOARGS, nullptr};
PyMethodDef px_cam_param_getter{"paramgetter", python::guarded<fx_pycam_setget_camera_parameter>,
                                METH_NOARGS, nullptr};

PyMethodDef& recordFor(Access access)
{
    switch (access) {
    case Access::Set:
        return px_cam_param_setter;
    case Access::Enable:
    case Access::Disable:
        return px_cam_param_setter_bool;
    default:
        return px_cam_param_getter;
    }
}

using SharedAttribute = LockedPtr<ParameterAttribute>;

/// Never null. What is no text or has no UTF-8 form is an ordinary attribute.
SharedAttribute parsedName(PyObject* name)
{
    SharedAttribute attribute = known_texts::attributes.find(name);
    if (!attribute) {
        const std::string text = python::utf8Of(name).value_or("");
        attribute = SharedAttribute(ParameterAttribute::parse(QString::fromStdString(text)));
        known_texts::attributes.add(name, attribute);
    }
    return attribute;
}

PyObject* newCallable(Access access, PyObject* camera, PyObject* name)
{
    const PyRef bound = PyRef::take(PyTuple_New(2));
    if (!bound)
        return nullptr;
    // The tuple takes these references over.
    PyTuple_SetItem(bound.get(), 0, PyRef::retain(camera).release());
    PyTuple_SetItem(bound.get(), 1, PyRef::retain(name).release());
    return PyCFunction_NewEx(&recordFor(access), bound.get(), nullptr);
}

PyObject* callHelper(const ParameterAttribute& attribute, PyObject* camera, PyObject* argument)
{
    pycam_userdata* const record = fx_pycam_record(camera);
    switch (attribute.access) {
    case Access::Get:
        return fx_pycam_get_parameter_helper(record, attribute.key);
    case Access::Enable:
        return fx_pycam_set_parameter_helper(record, attribute.key, Py_True);
    case Access::Disable:
        return fx_pycam_set_parameter_helper(record, attribute.key, Py_False);
    case Access::Set:
        return fx_pycam_set_parameter_helper(record, attribute.key, argument);
    default:
        return nullptr;
    }
}

/// The camera of a callable's tuple; null for anything that newCallable() has not made.
PyObject* boundCamera(PyObject* self)
{
    if (!PyTuple_CheckExact(self) || PyTuple_Size(self) != 2)
        return nullptr;
    PyObject* const camera = PyTuple_GetItem(self, 0);
    return PyObject_TypeCheck(camera, reinterpret_cast<PyTypeObject*>(TxPyCameraType)) ? camera
                                                                                       : nullptr;
}

} // namespace

PyObject* fx_pycam_setget_camera_parameter(PyObject* self, PyObject* argument)
{
    PyObject* const camera = boundCamera(self);
    if (camera == nullptr)
        return python::newNone();
    const SharedAttribute attribute = parsedName(PyTuple_GetItem(self, 1));
    PyRef result = PyRef::take(callHelper(*attribute, camera, argument));
    if (result)
        return result.release();
    // Whatever goes wrong gives None; when an error is pending then, the call ends in the
    // interpreter's report of such a result.
    return python::finishCall(recordFor(attribute->access), self, PyRef::retain(Py_None));
}

PyObject* fx_pycam_GetAttrO(PyObject* self, PyObject* name)
{
    // Parameters come first: one that is called like a method's remainder hides the method.
    const SharedAttribute attribute = parsedName(name);
    if (attribute->access != Access::None
        && host_services::environment().isApiParamName(attribute->parameter))
        return newCallable(attribute->access, self, name);
    return PyObject_GenericGetAttr(self, name);
}
