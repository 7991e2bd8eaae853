// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// `vistrel.Camera`: asking the user for an image.
#include "FuncCamera/CameraMethods.h"
#include "FuncCamera/CameraType.h"
#include "FuncCamera/CapturedImage.h"
#include "Interrupts.h"
#include "PyRef.h"

PyObject* fx_pycam_AskUserCaptureImage(PyObject* self, PyObject* args)
{
    const char* title = nullptr;
    const char* message = nullptr;
    int value = -1;
    if (!PyArg_ParseTuple(args, "|ssi", &title, &message, &value))
        return nullptr;
    if (!python::isUninterrupted())
        return nullptr;
    return PyLong_FromLong(captured_image::showInView(fx_pycam_record(self)->cameraHandle,
                                                      QString::fromUtf8(title),
                                                      QString::fromUtf8(message), value));
}
