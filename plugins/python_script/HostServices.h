// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The host's singletons, fetched anew for every call.
#pragma once

#include <QtCore/QString>

class CxCameraManager;
class CxChainManager;
class CxImageFormatManager;
class CxRTTI;
class IxAppDelegate;
class IxScriptEnvironment;

/// Each function throws python::HostUnavailable when the host does not offer the service now.
namespace host_services {

IxAppDelegate& application();
CxCameraManager& cameras();
CxImageFormatManager& imageFormats();
CxChainManager& chains();
CxRTTI& classes();
/// The environment of the current run.
IxScriptEnvironment& environment();

/// The path to use for one that a script has given, in UTF-8.
QString resolvedPath(const char* scriptPath);

} // namespace host_services
