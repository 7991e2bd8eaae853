// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Numbers and switches under the host's names.
#include "cameras/MappedParameter.h"

#include "cameras/EnumParameters.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace vistrel {

namespace {

const QString automaticOff = QStringLiteral("Off");
const QString automaticOn = QStringLiteral("Continuous");

ArvGcNode* firstReadable(const QStringList& names, const CameraNodes& nodes)
{
    for (const QString& name : names) {
        ArvGcNode* node = nodes.find(name);
        if (node && nodes.isImplemented(node) && CameraNodes::isReadable(node)
            && CameraNodes::readerOf(node))
            return node;
    }
    return nullptr;
}

bool isRaw(ArvGcNode* node)
{
    return ParameterName::isRaw(CameraNodes::nameOf(ARV_GC_FEATURE_NODE(node)));
}

/// A limit in the host's type; whole numbers are rounded by `round` and end with 32 bits.
template<class Round>
CxValue typedLimit(const NodeValue& limit, CxValue::Type type, Round round)
{
    using Limits = std::numeric_limits<qint32>;
    const auto number = asNumber(limit);
    if (!number || std::isnan(*number))
        return {};
    if (type == CxValue::Float)
        return CxValue::fromFloat(static_cast<float>(*number));
    const double whole = std::clamp<double>(round(*number), Limits::min(), Limits::max());
    return CxValue::fromInt(static_cast<qint32>(whole));
}

double roundedUp(double number) { return std::ceil(number); }
double roundedDown(double number) { return std::floor(number); }

CxValue typedNumber(const NodeValue& value, CxValue::Type type)
{
    return typedLimit(value, type, [](double number) { return std::round(number); });
}

/// A switch may be an enumeration in the camera, of which some entries mean that it is on.
CxValue typedSwitch(const NodeValue& value)
{
    const QString* entry = std::get_if<QString>(&value);
    return CxValue::fromBool(entry ? *entry != automaticOff : asBoolean(value).value_or(false));
}

} // namespace

MappedParameter::MappedParameter(const ParameterName& name, const CameraNodes& nodes)
    : m_name(name)
    , m_nodes(nodes)
    , m_node(firstReadable(name.nodes, nodes))
    , m_reader(m_node ? CameraNodes::readerOf(m_node) : nullptr)
{
}

std::unique_ptr<MappedParameter> MappedParameter::make(const ParameterName& name,
                                                       const CameraNodes& nodes)
{
    if (TriggerParameter::isNamed(name.name))
        return std::make_unique<TriggerParameter>(name, nodes);
    if (EntryParameter::hasValues(name.name))
        return std::make_unique<EntryParameter>(name, nodes);
    return std::make_unique<MappedParameter>(name, nodes);
}

CxValue MappedParameter::paramValue()
{
    CxValue value;
    if (m_node)
        read(value);
    return value;
}

CxValue MappedParameter::minimum() { return typedLimit(limits().minimum, m_name.type, roundedUp); }

CxValue MappedParameter::maximum()
{
    return typedLimit(limits().maximum, m_name.type, roundedDown);
}

CxValue MappedParameter::increment()
{
    const NodeValue step = limits().increment;
    if (!asNumber(step) && m_node && m_name.type == CxValue::Int)
        return asNumber(limits().minimum) ? CxValue::fromInt(1) : CxValue();
    return typedLimit(step, m_name.type, roundedUp);
}

NodeResult MappedParameter::read(CxValue& value) const
{
    NodeValue raw;
    NodeResult result = m_nodes.readKnown(m_node, m_reader, raw);
    if (result.done())
        value = m_name.type == CxValue::Bool ? typedSwitch(raw) : typedNumber(raw, m_name.type);
    return result;
}

// Steps of the converter are no decibels, and what the camera calls a level's unit is right.
QString MappedParameter::unit() const
{
    const bool isLevel = ParameterName::isRaw(m_name.nodes.constLast());
    if (!m_node || !isLevel)
        return m_name.unit;
    const QString own = CameraNodes::unit(m_node);
    return own.isEmpty() && !isRaw(m_node) ? m_name.unit : own;
}

NodeResult MappedParameter::write(const CxValue& value)
{
    if (isNoNumber(value))
        return {ParameterStatus::WrongType, QStringLiteral("it takes a number")};
    const NodeValue wanted = nodeValue(value);
    if (m_name.type != CxValue::Bool || !ARV_IS_GC_ENUMERATION(m_node))
        return m_nodes.write(m_node, wanted);
    const auto on = asBoolean(wanted);
    if (!on)
        return CameraNodes::noSwitch();
    return m_nodes.write(m_node, *on ? automaticOn : automaticOff);
}

QStringList MappedParameter::entries() const
{
    QStringList texts;
    for (const ParameterEnumValue& value : values())
        texts.append(QStringLiteral("%1 (%2)").arg(value.name).arg(value.value));
    return texts;
}

NodeLimits MappedParameter::limits() const
{
    return m_node && m_name.type != CxValue::Bool ? m_nodes.limits(m_node) : NodeLimits();
}

} // namespace vistrel
