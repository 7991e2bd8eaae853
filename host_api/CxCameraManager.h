// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The cameras that the host has opened.
#pragma once

#include <QtCore/QList>

class CxCameraParameters;

/// The camera singleton. A camera is named by an opaque handle that is valid while it is open; a
/// handle is never dereferenced by anybody but the host. GUI thread, if not said otherwise.
class CxCameraManager {
public:
    /// The manager; never null while the host is up.
    static CxCameraManager* instance();

    /// Handles of the opened cameras, in the order in which they were opened.
    virtual QList<void*> openedCameras() = 0;
    /// How many there are. Any thread.
    virtual unsigned openedCameraCount() = 0;
    /// The parameters of an opened camera; null for null and for every handle of none.
    virtual CxCameraParameters* cameraParameters(void* cameraHandle) = 0;

protected:
    ~CxCameraManager() = default;
};
