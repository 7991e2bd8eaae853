// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The type `vistrel.Camera`: method table, slots, creation.
#include "FuncCamera/CameraType.h"

#include "CallGuard.h"
#include "CxPythonScriptPlugin.h"
#include "FuncCamera/CameraMethods.h"
#include "FuncCamera/KnownTexts.h"
#include "HostServices.h"
#include "Logging.h"
#include "PyRef.h"

#include <CxCameraManager.h>
#include <CxCameraParameters.h>

using python::guarded;
using python::slotOf;

PyObject* TxPyCameraType = nullptr;

// Shading presets are not among them: see CameraPresets.h.
PyMethodDef px_camera_meths[] = {
    {"open_device", guarded<fx_pycam_Open>, METH_VARARGS, nullptr},
    {"open_device_by_user_id", guarded<fx_pycam_OpenByUserId>, METH_VARARGS, nullptr},
    {"open_device_by_SN", guarded<fx_pycam_OpenBySN>, METH_VARARGS, nullptr},
    {"open_device_by_path", guarded<fx_pycam_OpenByPath>, METH_VARARGS, nullptr},
    {"close_device", guarded<fx_pycam_Close>, METH_NOARGS, nullptr},
    {"get_device_info_string", guarded<fx_pycam_GetDeviceInfoString>, METH_VARARGS, nullptr},
    {"set_param", guarded<fx_pycam_SetParam>, METH_VARARGS, nullptr},
    {"get_param", guarded<fx_pycam_GetParam>, METH_VARARGS, nullptr},
    {"set_roi", guarded<fx_pycam_SetRoi>, METH_VARARGS, nullptr},
    {"get_roi", guarded<fx_pycam_GetRoi>, METH_NOARGS, nullptr},
    {"start_acquisition", guarded<fx_pycam_StartAcquisition>, METH_NOARGS, nullptr},
    {"stop_acquisition", guarded<fx_pycam_StopAcquisition>, METH_NOARGS, nullptr},
    {"save_settings_to_file", guarded<fx_pycam_SaveSettingsToFile>, METH_VARARGS, nullptr},
    {"load_settings_from_file", guarded<fx_pycam_LoadSettingsFromFile>, METH_VARARGS, nullptr},
    {"ask_user_capture_image", guarded<fx_pycam_AskUserCaptureImage>, METH_VARARGS, nullptr},
    {"restart_with_default_settings", guarded<fx_pycam_RestartWithDefaultSettings>, METH_NOARGS,
     nullptr},
    {nullptr, nullptr, 0, nullptr},
};

namespace {

int fx_pycam_Init(PyObject* self, PyObject*, PyObject*)
{
    fx_pycam_record(self)->cameraHandle = nullptr;
    return 0;
}

// No deallocator: the record owns nothing, so the default one is right.
PyType_Slot TxPyCameraType_Slots[] = {
    {Py_tp_str, slotOf(python::guardedSlot<fx_pycam_ToString>)},
    {Py_tp_getattro, slotOf(guarded<fx_pycam_GetAttrO>)},
    {Py_tp_methods, px_camera_meths},
    {Py_tp_init, slotOf(fx_pycam_Init)},
    {Py_tp_new, slotOf(PyType_GenericNew)},
    {0, nullptr},
};

PyType_Spec TxPyCameraType_Spec{"vistrel.Camera", sizeof(pycam_userdata), 0, Py_TPFLAGS_DEFAULT,
                                TxPyCameraType_Slots};

} // namespace

void fx_pycams_TypeReady()
{
    known_texts::forget();
    CxPythonScriptPlugin::addHelpToPythonFunctions("vistrel", nullptr, "cameraObj",
                                                   px_camera_meths);
    TxPyCameraType = PyType_FromSpec(&TxPyCameraType_Spec);
    if (TxPyCameraType == nullptr) {
        logCritical("fx_pycams_TypeReady(): %1",
                    QStringLiteral("Failed to register vistrel.CameraType"));
        PyErr_Clear(); // the module is made without the type
    }
}

int fx_pycams_TypeAdd(PyObject* module)
{
    return python::addType(module, "Camera", TxPyCameraType);
}

PyObject* fx_pycams_GetCount(PyObject*, PyObject*)
{
    return PyLong_FromUnsignedLong(host_services::cameras().openedCameraCount());
}

CxCameraParameters* fx_pycam_parameters(const pycam_userdata* camera)
{
    return host_services::cameras().cameraParameters(camera->cameraHandle);
}
