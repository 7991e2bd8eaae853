// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Taking all settings of a camera, and giving them back to it.
#pragma once

#include "cameras/CameraNodes.h"
#include "cameras/CameraValues.h"

#include <CxCameraParam.h>

#include <QtCore/QStringList>

namespace vistrel {

/// Everything that the camera lets users of that experience write, but for what belongs to the
/// connection and not to the picture (addresses, packets, the name that a user gave the camera).
/// What cannot be read is left out. Where selectors have more positions than a person would set,
/// as those of tables have, the values are those of the position where they stand. Moves selectors
/// about and brings them back.
CameraValues currentSettings(const CameraNodes& nodes, CxCameraParam::ExVisibility visibility);

/// Gives values back, in as many passes as their dependence on each other asks for. Returns a line
/// for each that could not be set. Nothing of it is for a running stream.
QStringList applySettings(const CameraNodes& nodes, const CameraValues& values);

} // namespace vistrel
