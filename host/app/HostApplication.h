// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The reference host as a whole: what every program makes first and ends last.
#pragma once

#include "app/AppDelegate.h"
#include "app/ErrorLog.h"
#include "app/ScriptEnvironment.h"
#include "cameras/CameraManager.h"
#include "chains/ChainManager.h"
#include "chains/ClassRegistry.h"
#include "core/HostSingletons.h"
#include "core/ImageFormats.h"

#include <QtCore/QtGlobal>

namespace vistrel {

/// Owns the host's services and makes them known as its singletons while it lives. It needs a
/// QApplication, and there is one at a time. GUI thread.
class HostApplication {
public:
    HostApplication() = default;
    Q_DISABLE_COPY_MOVE(HostApplication)

    ErrorLog& errorLog() { return m_errorLog; }
    CameraManager& cameras() { return m_cameras; }
    AppDelegate& delegate() { return m_delegate; }
    ScriptEnvironment& environment() { return m_environment; }

private:
    // In this order: views stop streams of cameras, and nobody finds what is about to go.
    ErrorLog m_errorLog;
    ImageFormatManager m_formats;
    CameraManager m_cameras;
    ClassRegistry m_classes;
    ChainManager m_chains;
    AppDelegate m_delegate{m_cameras};
    ScriptEnvironment m_environment;
    InstalledImageFormatManager m_installedFormats{m_formats};
    InstalledCameraManager m_installedCameras{m_cameras};
    InstalledClassRegistry m_installedClasses{m_classes};
    InstalledChainManager m_installedChains{m_chains};
    InstalledAppDelegate m_installedDelegate{m_delegate};
};

} // namespace vistrel
