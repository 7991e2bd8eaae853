// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The host's singletons.
#include "HostServices.h"

#include "CxPythonScriptPlugin.h"
#include "PyErrors.h"

#include <CxCameraManager.h>
#include <CxChainManager.h>
#include <CxImageFormatManager.h>
#include <CxRTTI.h>
#include <IxAppDelegate.h>
#include <IxScriptEnvironment.h>

namespace host_services {

namespace {

template<class Service>
Service& available(Service* service, const char* message)
{
    if (service == nullptr)
        throw python::HostUnavailable(message);
    return *service;
}

} // namespace

IxAppDelegate& application()
{
    return available(IxAppDelegate::instance(), "the host application is not available");
}

CxCameraManager& cameras()
{
    return available(CxCameraManager::instance(), "the host's cameras are not available");
}

CxImageFormatManager& imageFormats()
{
    return available(CxImageFormatManager::instance(), "the host's file formats are not available");
}

CxChainManager& chains()
{
    return available(CxChainManager::instance(), "the host's processing chains are not available");
}

CxRTTI& classes()
{
    return available(CxRTTI::instance(), "the host's class registry is not available");
}

IxScriptEnvironment& environment()
{
    return available(g_pScriptPlugin, "no script environment is available");
}

QString resolvedPath(const char* scriptPath)
{
    return environment().resolvePath(QString::fromUtf8(scriptPath));
}

} // namespace host_services
