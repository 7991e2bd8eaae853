// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Parameters whose values are the host's own numbers, with constants for scripts.
#pragma once

#include "cameras/MappedParameter.h"

namespace vistrel {

/// The value of a camera whose state none of the host's numbers stands for.
inline constexpr int unknownEnumValue = -1;

/// Values that stand for entries of one node.
class EntryParameter : public MappedParameter {
public:
    using MappedParameter::MappedParameter;
    /// Whether the host has values for a parameter of that name.
    static bool hasValues(const QString& name);

    NodeResult read(CxValue& value) const override;
    NodeResult write(const CxValue& value) override;
    QStringList entries() const override;

protected:
    NodeLimits limits() const override { return {}; }

private:
    /// What of a value's entries the camera takes now; empty when it takes none.
    QString availableEntry(const ParameterEnumValue& value) const;
};

/// When frames are taken: all the time, on command, or by a signal. The camera keeps this in a
/// switch and a source.
class TriggerParameter : public MappedParameter {
public:
    TriggerParameter(const ParameterName& name, const CameraNodes& nodes);
    static bool isNamed(const QString& name);

    NodeResult read(CxValue& value) const override;
    NodeResult write(const CxValue& value) override;
    QStringList entries() const override;

protected:
    NodeLimits limits() const override { return {}; }

private:
    NodeResult selectFrameStart() const;
    NodeResult selectSource(int mode) const;
    QString hardwareSource() const;

    ArvGcNode* m_selector;
    ArvGcNode* m_source;
};

} // namespace vistrel
