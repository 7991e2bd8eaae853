// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Restarts a camera and finds it again. Free of Python.
#pragma once

namespace restarted_camera {

/// Restarts an opened camera with its default settings and waits, while the host's events are
/// handled, until one with its serial number is open: for 30.5 seconds at most, looking twice a
/// second.
///
/// @param cameraHandle  may be dead or null: null comes back at once then.
/// @param mayGoOn       asked before each wait; false ends the search.
/// Returns the handle that the camera has now, or null. Throws python::HostUnavailable when the
/// host is gone.
void* find(void* cameraHandle, bool (*mayGoOn)());

} // namespace restarted_camera
