// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// What an opened camera can be set to, for whoever shows it to people.
#pragma once

#include "cameras/NodeResult.h"

#include <CxCameraParam.h>

#include <QtCore/QList>
#include <QtCore/QRect>
#include <QtCore/QString>

#include <vector>

namespace vistrel {

/// Of what kind a feature's values are.
enum class FeatureKind { Integer, Float, Switch, Enumeration, Text, Command };

/// What a feature is; constant while its camera is open.
struct FeatureDescription {
    QString name;     ///< the host's or the camera's own, as scripts take it
    QString category; ///< the camera's heading; empty for the host's names
    QString help;     ///< what the camera says of it; may be empty
    QString unit;     ///< of its numbers; may be empty
    FeatureKind kind = FeatureKind::Text;
};

/// What an enumeration can be set to.
struct FeatureEntry {
    QString text; ///< for people
    NodeValue value;
};

/// What a feature is now. Everything may move with another one.
struct FeatureState {
    NodeValue value;   ///< no value for commands, and when it cannot be read
    NodeLimits limits; ///< of numbers
    QList<FeatureEntry> entries;
    bool isWritable = false;
    QString reason; ///< why there is no value; empty when there is one
};

/// Belongs to the camera manager and lives until its camera is closed: look it up by the camera's
/// handle (CameraManager::features) for every use. GUI thread.
class CameraFeatures {
public:
    /// The host's names that the camera supports, then everything that the camera shows to users
    /// of that experience, by its headings.
    virtual std::vector<FeatureDescription>
    describeFeatures(CxCameraParam::ExVisibility visibility) const = 0;
    /// Reads value and limits from the camera. Nothing is logged.
    virtual FeatureState featureState(const QString& name) const = 0;
    /// Sets a value as setParamDirect() does, in full precision; commands are executed by true. A
    /// text stands for a number that it reads as. A refusal is logged, and its reason is returned.
    virtual NodeResult setFeature(const QString& name, const NodeValue& value) = 0;
    /// The same for the region of interest, as setROIRectParams() does.
    virtual NodeResult setRegion(const QRect& region) = 0;
    /// Sets the largest region of interest that there is.
    virtual NodeResult setWholeSensor() = 0;

protected:
    ~CameraFeatures() = default;
};

} // namespace vistrel
