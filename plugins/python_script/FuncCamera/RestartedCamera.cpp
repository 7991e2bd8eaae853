// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Restarts a camera and finds it again.
#include "FuncCamera/RestartedCamera.h"

#include "FuncCamera/CameraSearch.h"
#include "HostServices.h"

#include <CxCameraManager.h>
#include <CxCameraParameters.h>
#include <IxAppDelegate.h>

#include <QtCore/QEventLoop>
#include <QtCore/QTimer>

namespace restarted_camera {

namespace {

constexpr int waitMilliseconds = 500;
constexpr int attempts = 60;

/// The host needs its events to close the camera and to see it come back.
void handleEvents()
{
    QEventLoop loop;
    QTimer::singleShot(waitMilliseconds, &loop, &QEventLoop::quit);
    loop.exec();
}

} // namespace

void* find(void* cameraHandle, bool (*mayGoOn)())
{
    const CxCameraParameters* parameters = host_services::cameras().cameraParameters(cameraHandle);
    if (parameters == nullptr || !mayGoOn())
        return nullptr;
    // A copy: the parameters go with the camera.
    const QString serialNumber = parameters->cameraInfo().serialNumber;
    host_services::application().restartCameraWithDefaults(cameraHandle);
    handleEvents();
    for (int attempt = 0; attempt < attempts && mayGoOn(); ++attempt) {
        handleEvents();
        void* const handle = camera_search::bySerialNumber(serialNumber);
        if (handle != nullptr)
            return handle;
    }
    return nullptr;
}

} // namespace restarted_camera
