// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The parameters of one opened camera: values, region of interest, settings files, presets.
#pragma once

#include "CxCameraParam.h"
#include "CxShadingPreset.h"
#include "SxCameraInfo.h"

#include <QtCore/QList>
#include <QtCore/QRect>

/// Belongs to the host and lives until its camera is closed: look it up by the camera's handle
/// (CxCameraManager::cameraParameters) for every use. GUI thread only.
class CxCameraParameters {
public:
    /// How the user interface follows a value that was set.
    enum ExCommitRefreshGuiMode : int { NoRefresh = 0, RefreshLater = 1, RefreshNow = 2 };

    /// Who the camera is.
    virtual const SxCameraInfo& cameraInfo() const = 0;

    /// The parameter of that name, null when the host knows none.
    /// @param includeHidden  also parameters that users are not shown.
    virtual CxCameraParam* findParam(const QString& name, bool includeHidden) = 0;
    /// Reads a value by the host's or by the camera's own (GenICam) name.
    /// @param status  receives 0 or what went wrong; may be null.
    /// Returns false and leaves `value` alone when there is no such name or it cannot be read.
    virtual bool getParamDirect(const QString& name, CxValue& value, int* status) = 0;
    /// Sets a value by the host's or by the camera's own (GenICam) name.
    /// @param status  receives 0 or what went wrong; may be null.
    virtual bool setParamDirect(const QString& name, const CxValue& value, int* status,
                                ExCommitRefreshGuiMode mode) = 0;

    /// The region of interest in sensor pixels.
    virtual QRect currentROIRectParams() = 0;
    /// Sets the region of interest, in sensor pixels.
    /// @param refreshGui  whether the user interface follows.
    virtual void setROIRectParams(int x, int y, int width, int height, bool refreshGui) = 0;

    /// Writes all values up to a visibility to a file; false when it cannot be written.
    virtual bool saveParamValuesToFile(const QString& path,
                                       CxCameraParam::ExVisibility visibility) = 0;
    /// Sets all values from such a file; false when it cannot be read.
    /// @param messages  receives a line for each value that could not be set; may be null.
    /// @param logErrors whether these lines go to the log too.
    virtual bool loadParamValuesFromFile(const QString& path,
                                         CxCameraParam::ExVisibility visibility,
                                         QList<QString>* messages, bool logErrors) = 0;

    /// Tells the host that `shadingPresets` has changed.
    virtual void notifyShadingChanged() = 0;

    /// The camera's presets, in the user's order. Changed in place.
    QList<CxShadingPreset> shadingPresets;

protected:
    virtual ~CxCameraParameters() = default;
};
