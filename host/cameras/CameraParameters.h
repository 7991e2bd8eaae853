// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The parameters of one opened camera, by the host's names and by the camera's own.
#pragma once

#include "cameras/CameraFeatures.h"
#include "cameras/CameraNodes.h"
#include "cameras/CameraValues.h"
#include "cameras/MappedParameter.h"
#include "cameras/RegionOfInterest.h"

#include <CxCameraParameters.h>

#include <QtCore/QHash>

#include <functional>
#include <memory>
#include <vector>

namespace vistrel {

class CameraStream;

class CameraParameters final : public CxCameraParameters, public CameraFeatures {
public:
    /// @param device, connection, stream  outlive this object.
    CameraParameters(ArvDevice* device, CameraConnection& connection, CameraStream& stream,
                     SxCameraInfo info);
    ~CameraParameters() override;

    const SxCameraInfo& cameraInfo() const override { return m_info; }

    /// The host's names only. Users are shown all of them.
    CxCameraParam* findParam(const QString& name, bool includeHidden) override;
    /// A name may end with ":min", ":max", ":inc", ":unit", ":entries" (a text, divided by ", ")
    /// or ":type" (of the camera's node). The value is empty where there is no such thing. The
    /// status is a ParameterStatus.
    bool getParamDirect(const QString& name, CxValue& value, int* status) override;
    /// Parameters that change the size of a frame restart a running stream. What is refused is
    /// logged with what would have been taken. The status is a ParameterStatus.
    bool setParamDirect(const QString& name, const CxValue& value, int* status,
                        ExCommitRefreshGuiMode mode) override;

    /// Whether the camera keeps defaults itself: a user set that it can load.
    bool keepsDefaults() const;
    /// All settings, as they are now: what restoreDefaults() falls back on for a camera that keeps
    /// no defaults itself.
    CameraValues settings(CxCameraParam::ExVisibility visibility = CxCameraParam::Guru) const;
    /// Gives the camera its own defaults, or these values when it keeps none. What it refuses is
    /// logged.
    void restoreDefaults(const CameraValues& fallback);

    /// Empty when the camera cannot tell.
    QRect currentROIRectParams() override;
    /// Restarts a running stream. A region that is refused is logged and leaves the one there is.
    /// See RegionOfInterest.
    void setROIRectParams(int x, int y, int width, int height, bool refreshGui) override;

    /// As JSON, by the names of the camera's nodes; a file that is there is replaced at once or
    /// stays. Failures are logged.
    bool saveParamValuesToFile(const QString& path,
                               CxCameraParam::ExVisibility visibility) override;
    /// Restarts a running stream. A file that is not whole, or of another camera model, changes
    /// nothing, and is refused with a line too.
    bool loadParamValuesFromFile(const QString& path, CxCameraParam::ExVisibility visibility,
                                 QList<QString>* messages, bool logErrors) override;

    void notifyShadingChanged() override;

    std::vector<FeatureDescription>
    describeFeatures(CxCameraParam::ExVisibility visibility) const override;
    FeatureState featureState(const QString& name) const override;
    NodeResult setFeature(const QString& name, const NodeValue& value) override;
    NodeResult setRegion(const QRect& region) override;
    NodeResult setWholeSensor() override;

private:
    /// The parameter of that name if the camera has it.
    MappedParameter* supported(const QString& name) const;
    ArvGcNode* nodeNamed(const QString& name) const;
    /// Says which names of the camera are near.
    NodeResult unknown(const QString& name) const;
    NodeResult read(const QString& name, CxValue& value) const;
    NodeResult readProperty(const QString& name, const QString& property, CxValue& value) const;
    NodeResult set(const QString& name, const CxValue& value);
    NodeResult write(const QString& name, const CxValue& value);
    void readShown(MappedParameter& parameter, FeatureState& state) const;
    void readShown(ArvGcNode* node, FeatureState& state) const;
    NodeResult changeRegion(int x, int y, int width, int height);
    bool mustPauseFor(ArvGcNode* node) const;
    QStringList apply(const CameraValues& values);
    void whileStreamPaused(const std::function<void()>& change);
    void logLine(const QString& text) const;

    CameraStream& m_stream;
    SxCameraInfo m_info;
    CameraNodes m_nodes;
    std::vector<std::unique_ptr<MappedParameter>> m_parameters;
    QHash<QString, MappedParameter*> m_parametersByName;
    RegionOfInterest m_region;
};

} // namespace vistrel
