// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Finds one of the host's opened cameras, free of Python.
#pragma once

#include "Refusal.h"

#include <SxCameraInfo.h>

/// All throw python::HostUnavailable when the host is not there.
namespace camera_search {

/// The handle at a position of the list of opened cameras.
Outcome<void*> atIndex(int index);

/// The handle of the first opened camera whose field reads like the text, whatever the case.
Outcome<void*> byField(QString SxCameraInfo::*field, const QString& text);

/// The handle of the first opened camera with exactly that serial number; null when there is none.
void* bySerialNumber(const QString& serialNumber);

} // namespace camera_search
