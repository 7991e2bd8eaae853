// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// A parameter under the host's name, kept in one of a camera's nodes.
#pragma once

#include "cameras/CameraNodes.h"
#include "cameras/ParameterNames.h"

#include <CxCameraParam.h>

#include <memory>

namespace vistrel {

/// A number or a switch; enumerations and others made of several nodes are derived from it.
class MappedParameter : public CxCameraParam {
public:
    /// Looks which of the nodes the camera has; outlived by `nodes`.
    MappedParameter(const ParameterName& name, const CameraNodes& nodes);
    /// The kind that the name asks for.
    static std::unique_ptr<MappedParameter> make(const ParameterName& name,
                                                 const CameraNodes& nodes);

    CxValue paramValue() override;
    CxValue minimum() override;
    CxValue maximum() override;
    CxValue increment() override;
    bool isUnsupported() const override { return !m_node; }

    const QString& name() const { return m_name.name; }
    /// Of its values; empty for numbers without one, and for steps that only the camera can tell.
    QString unit() const;
    /// The node that holds it; null when it is not supported.
    ArvGcNode* node() const { return m_node; }

    /// In the host's type; `value` is left alone on failure. The parameter is supported.
    virtual NodeResult read(CxValue& value) const;
    /// The parameter is supported.
    virtual NodeResult write(const CxValue& value);
    /// Whether its values are the host's constants.
    virtual bool hasNamedValues() const { return false; }
    /// What such a parameter takes now; empty for others.
    virtual QList<ParameterEnumValue> values() const { return {}; }
    /// The same as texts: names of constants with their numbers.
    QStringList entries() const;
    /// Of the host's values, which are other ones than the node's where that is an enumeration.
    CxValue::Type type() const { return m_name.type; }

protected:
    /// Limits in the node's own numbers; none for switches and enumerations.
    virtual NodeLimits limits() const;
    const CameraNodes& nodes() const { return m_nodes; }

private:
    const ParameterName& m_name;
    const CameraNodes& m_nodes;
    ArvGcNode* m_node;
    CameraNodes::Reader m_reader; ///< null with the node
};

} // namespace vistrel
