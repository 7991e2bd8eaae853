// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// A camera's settings as a file: JSON, for people to read too.
#pragma once

#include "cameras/CameraValues.h"

#include <QtCore/QString>

#include <optional>

namespace vistrel {

/// Values of a camera, and whose they are.
struct CameraSettings {
    QString model;
    QString serialNumber; ///< for people; settings fit every camera of the model
    CameraValues values;
};

/// Replaces the file at once or not at all; false with the reason in `error`.
bool writeSettingsFile(const QString& path, const CameraSettings& settings, QString& error);
/// Nothing, with the reason in `error`, for a file that is not whole, or no such file.
std::optional<CameraSettings> readSettingsFile(const QString& path, QString& error);

} // namespace vistrel
