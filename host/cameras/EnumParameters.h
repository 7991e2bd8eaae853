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
    QList<ParameterEnumValue> values() const override;
    bool hasNamedValues() const override { return true; }

protected:
    NodeLimits limits() const override { return {}; }

private:
    /// What stands for a value among those that the camera takes now; empty when none does.
    QString entryOf(const ParameterEnumValue& value, const QStringList& available) const;
};

/// When frames are taken: all the time, on command, or by a signal. The camera keeps this in a
/// switch and a source.
class TriggerParameter : public MappedParameter {
public:
    TriggerParameter(const ParameterName& name, const CameraNodes& nodes);
    static bool isNamed(const QString& name);

    NodeResult read(CxValue& value) const override;
    NodeResult write(const CxValue& value) override;
    QList<ParameterEnumValue> values() const override;
    bool hasNamedValues() const override { return true; }

protected:
    NodeLimits limits() const override { return {}; }

private:
    /// @param before  receives what was selected if it was another trigger; may be null.
    NodeResult selectFrameStart(NodeValue* before = nullptr) const;
    NodeResult selectSource(int mode) const;
    QString hardwareSource() const;

    ArvGcNode* m_selector;
    ArvGcNode* m_source;
};

} // namespace vistrel
