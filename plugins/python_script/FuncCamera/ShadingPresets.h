// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// A camera's shading presets: named sets of parameter values. Free of Python.
#pragma once

#include <QtCore/QString>

class CxCameraParameters;

namespace shading_presets {

/// Writes a preset's values to the camera. An empty name means the first preset; when there is none
/// of that name nothing happens. Names are case-sensitive.
void activate(CxCameraParameters& camera, const QString& name);

/// Saves the camera's current values as the preset of that name, which keeps its place or is added
/// at the end, and gives it these texts.
void create(CxCameraParameters& camera, const QString& name, const QString& description,
            const QString& target);

} // namespace shading_presets
