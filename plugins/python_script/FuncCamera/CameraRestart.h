// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Restarting a camera from a script.
#pragma once

/// Restarts a camera with its default settings and returns the handle that it has afterwards; null
/// when it does not come back in time, when the handle is dead, and when the script is interrupted
/// (Python's error is set then).
void* fx_script_restartCamera(void* cameraHandle);
