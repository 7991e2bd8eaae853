// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// A named set of camera parameter values.
#pragma once

#include "CxValue.h"

#include <QtCore/QList>
#include <QtCore/QString>

class CxCameraParameters;

/// A snapshot of a camera's values that can be written back to it. Copied by value.
class CxShadingPreset {
public:
    struct SxSavedValue {
        QString name;
        CxValue value;
    };

    /// Replaces the saved values by the camera's current ones; the camera is not null.
    void saveCurrentValuesFrom(CxCameraParameters* camera);
    /// Writes the saved values to a camera, which is not null.
    void activateValuesTo(CxCameraParameters* camera) const;

    QString name; ///< unique within a camera, case-sensitive
    QList<SxSavedValue> values;
    QString description; ///< for people
    QString target;      ///< what the preset was taken with
};
