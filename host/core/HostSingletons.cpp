// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The host's singletons as pointers that are set from outside.
#include "core/HostSingletons.h"

#include <CxCameraManager.h>
#include <CxChainManager.h>
#include <CxImageFormatManager.h>
#include <CxRTTI.h>
#include <IxAppDelegate.h>

#include <atomic>

namespace {

std::atomic<IxAppDelegate*> appDelegate{nullptr};
std::atomic<CxCameraManager*> cameraManager{nullptr};
std::atomic<CxImageFormatManager*> imageFormatManager{nullptr};
std::atomic<CxChainManager*> chainManager{nullptr};
std::atomic<CxRTTI*> classRegistry{nullptr};

} // namespace

IxAppDelegate* IxAppDelegate::instance() { return appDelegate; }

CxCameraManager* CxCameraManager::instance() { return cameraManager; }

CxImageFormatManager* CxImageFormatManager::instance() { return imageFormatManager; }

CxChainManager* CxChainManager::instance() { return chainManager; }

CxRTTI* CxRTTI::instance() { return classRegistry; }

namespace vistrel {

void installAppDelegate(IxAppDelegate* delegate) { appDelegate = delegate; }

void installCameraManager(CxCameraManager* manager) { cameraManager = manager; }

void installImageFormatManager(CxImageFormatManager* manager) { imageFormatManager = manager; }

void installChainManager(CxChainManager* manager) { chainManager = manager; }

void installClassRegistry(CxRTTI* registry) { classRegistry = registry; }

} // namespace vistrel
