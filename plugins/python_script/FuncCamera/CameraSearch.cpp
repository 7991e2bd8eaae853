// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Finds one of the host's opened cameras.
#include "FuncCamera/CameraSearch.h"

#include "HostServices.h"

#include <CxCameraManager.h>
#include <CxCameraParameters.h>

namespace camera_search {

namespace {

constexpr char notAvailable[] = "Camera not available";
constexpr char notFound[] = "Camera not found";

/// The first camera whose field reads like the text. A host that lists a null handle has no camera
/// behind it.
void* firstWith(QString SxCameraInfo::*field, const QString& text, Qt::CaseSensitivity cs)
{
    CxCameraManager& cameras = host_services::cameras();
    for (void* const handle : cameras.openedCameras()) {
        const CxCameraParameters* parameters = cameras.cameraParameters(handle);
        if (parameters != nullptr && (parameters->cameraInfo().*field).compare(text, cs) == 0)
            return handle;
    }
    return nullptr;
}

} // namespace

Outcome<void*> atIndex(int index)
{
    const QList<void*> handles = host_services::cameras().openedCameras();
    if (index < 0 || index >= handles.size())
        return Refusal{notAvailable};
    return handles.at(index);
}

Outcome<void*> byField(QString SxCameraInfo::*field, const QString& text)
{
    void* const handle = firstWith(field, text, Qt::CaseInsensitive);
    if (handle == nullptr)
        return Refusal{notFound};
    return handle;
}

void* bySerialNumber(const QString& serialNumber)
{
    return firstWith(&SxCameraInfo::serialNumber, serialNumber, Qt::CaseSensitive);
}

} // namespace camera_search
