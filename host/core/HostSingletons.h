// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The objects behind the host's singletons: a program or a test installs its own.
#pragma once

class CxCameraManager;
class CxChainManager;
class CxImageFormatManager;
class CxRTTI;
class IxAppDelegate;

namespace vistrel {

/// Sets what the class's instance() returns; null takes it away. Nothing is owned: an object must
/// be taken away before it goes. Any thread.
void installAppDelegate(IxAppDelegate* delegate);
void installCameraManager(CxCameraManager* manager);
void installImageFormatManager(CxImageFormatManager* manager);
void installChainManager(CxChainManager* manager);
void installClassRegistry(CxRTTI* registry);

/// Installs an object for as long as a scope lasts.
template<auto Install>
class Installed {
public:
    /// @param object  not owned; must outlive this.
    template<typename Object>
    explicit Installed(Object& object)
    {
        Install(&object);
    }
    ~Installed() { Install(nullptr); }
    Installed(const Installed&) = delete;
    Installed& operator=(const Installed&) = delete;
};

using InstalledAppDelegate = Installed<installAppDelegate>;
using InstalledCameraManager = Installed<installCameraManager>;
using InstalledImageFormatManager = Installed<installImageFormatManager>;
using InstalledChainManager = Installed<installChainManager>;
using InstalledClassRegistry = Installed<installClassRegistry>;

} // namespace vistrel
