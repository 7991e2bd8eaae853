// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// `vistrel.Camera`: starting and stopping the live stream.
#include "FuncCamera/CameraMethods.h"
#include "FuncCamera/CameraType.h"
#include "HostServices.h"
#include "PyRef.h"

#include <IxAppDelegate.h>

namespace {

/// The handle goes to the host as it is, null included: the host knows which ones are alive.
bool setAcquisition(PyObject* self, bool start)
{
    void* const handle = reinterpret_cast<pycam_userdata*>(self)->cameraHandle;
    return host_services::application().setCameraAcquisition(start, handle);
}

} // namespace

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
