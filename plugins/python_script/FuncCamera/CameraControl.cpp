// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// `vistrel.Camera`: who the camera is, region of interest, live stream, settings files.
#include "FuncCamera/CameraMethods.h"
#include "FuncCamera/CameraType.h"
#include "FuncCamera/DeviceInfo.h"
#include "HostServices.h"
#include "PyText.h"

#include <CxCameraParameters.h>
#include <IxAppDelegate.h>

namespace {

/// Settings files hold every parameter, however seldom users are shown it.
constexpr CxCameraParam::ExVisibility allParameters = CxCameraParam::Guru;

/// The handle goes to the host as it is, null included: the host knows which ones are alive.
bool setAcquisition(PyObject* self, bool start)
{
    void* const handle = fx_pycam_record(self)->cameraHandle;
    return host_services::application().setCameraAcquisition(start, handle);
}

/// The camera's parameters, with the path that is the only argument; null with an error set.
CxCameraParameters* parametersAndPath(PyObject* self, PyObject* args, QString& path)
{
    const char* text = nullptr;
    if (!PyArg_ParseTuple(args, "s", &text))
        return nullptr;
    CxCameraParameters* const parameters = fx_pycam_parameters(fx_pycam_record(self));
    if (parameters != nullptr)
        path = host_services::resolvedPath(text);
    return parameters;
}

} // namespace

PyObject* fx_pycam_GetDeviceInfoString(PyObject* self, PyObject* args)
{
    const CxCameraParameters* parameters = fx_pycam_parameters(fx_pycam_record(self));
    if (parameters == nullptr)
        return nullptr;
    const char* key = nullptr;
    if (!PyArg_ParseTuple(args, "s", &key))
        return nullptr;
    const std::optional<QString> text = device_info::text(*parameters, QString::fromUtf8(key));
    return python::newText(text.value_or(QString())).release();
}

PyObject* fx_pycam_SetRoi(PyObject* self, PyObject* args)
{
    const pycam_userdata* const camera = fx_pycam_record(self);
    if (fx_pycam_parameters(camera) == nullptr)
        return nullptr;
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
    if (!PyArg_ParseTuple(args, "iiii", &x, &y, &width, &height))
        return nullptr;
    // A number may be an object of the script, whose code has run now: the camera may be gone.
    CxCameraParameters* parameters = fx_pycam_parameters(camera);
    if (parameters == nullptr)
        return nullptr;
    parameters->setROIRectParams(x, y, width, height, true);
    return python::newNone();
}

PyObject* fx_pycam_GetRoi(PyObject* self, PyObject*)
{
    CxCameraParameters* parameters = fx_pycam_parameters(fx_pycam_record(self));
    if (parameters == nullptr)
        return nullptr;
    const QRect roi = parameters->currentROIRectParams();
    return Py_BuildValue("iiii", roi.left(), roi.top(), roi.width(), roi.height());
}

PyObject* fx_pycam_StartAcquisition(PyObject* self, PyObject*)
{
    const bool started = setAcquisition(self, true);
    return PyLong_FromLong(started ? host_services::application().activeViewId() : -1);
}

PyObject* fx_pycam_StopAcquisition(PyObject* self, PyObject*)
{
    setAcquisition(self, false);
    return python::newNone();
}

PyObject* fx_pycam_SaveSettingsToFile(PyObject* self, PyObject* args)
{
    QString path;
    CxCameraParameters* parameters = parametersAndPath(self, args, path);
    if (parameters == nullptr)
        return nullptr;
    parameters->saveParamValuesToFile(path, allParameters);
    return python::newNone();
}

PyObject* fx_pycam_LoadSettingsFromFile(PyObject* self, PyObject* args)
{
    QString path;
    CxCameraParameters* parameters = parametersAndPath(self, args, path);
    if (parameters == nullptr)
        return nullptr;
    // No list for the lines about values that could not be set: the host writes them to its log.
    parameters->loadParamValuesFromFile(path, allParameters, nullptr, true);
    return python::newNone();
}
