// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Parameters whose values are the host's own numbers, with constants for scripts.
#include "cameras/EnumParameters.h"

namespace vistrel {

namespace {

const QString triggerMode = QStringLiteral("trigger_mode");
const QString on = QStringLiteral("On");
const QString off = QStringLiteral("Off");
const QString software = QStringLiteral("Software");
const QString frameStart = QStringLiteral("FrameStart");

enum TriggerValue : int { TriggerOff = 0, TriggerSoftware = 1, TriggerHardware = 2 };

QList<ParameterEnumValue> valuesOf(const QString& parameter)
{
    QList<ParameterEnumValue> values;
    for (const ParameterEnumValue& value : parameterEnumValues()) {
        if (value.parameter == parameter)
            values.append(value);
    }
    return values;
}

const ParameterEnumValue* valueNumbered(const QString& parameter, const CxValue& number)
{
    const auto wanted = asInteger(nodeValue(number));
    for (const ParameterEnumValue& value : parameterEnumValues()) {
        if (value.parameter == parameter && wanted == value.value)
            return &value;
    }
    return nullptr;
}

NodeResult noSuchValue(const QStringList& entries)
{
    return {ParameterStatus::OutOfRange,
            QStringLiteral("its entries are %1").arg(entries.join(QStringLiteral(", ")))};
}

} // namespace

bool EntryParameter::hasValues(const QString& name) { return !valuesOf(name).isEmpty(); }

NodeResult EntryParameter::read(CxValue& value) const
{
    NodeValue raw;
    NodeResult result = nodes().read(node(), raw);
    if (!result.done())
        return result;
    int number = unknownEnumValue;
    for (const ParameterEnumValue& known : valuesOf(name())) {
        if (known.entries.contains(valueText(raw)))
            number = known.value;
    }
    value = CxValue::fromInt(number);
    return result;
}

NodeResult EntryParameter::write(const CxValue& value)
{
    const ParameterEnumValue* wanted = valueNumbered(name(), value);
    const QString entry = wanted ? entryOf(*wanted, nodes().entries(node())) : QString();
    return entry.isEmpty() ? noSuchValue(entries()) : nodes().write(node(), entry);
}

QList<ParameterEnumValue> EntryParameter::values() const
{
    const QStringList available = nodes().entries(node());
    QList<ParameterEnumValue> values;
    for (const ParameterEnumValue& value : valuesOf(name())) {
        if (!entryOf(value, available).isEmpty())
            values.append(value);
    }
    return values;
}

QString EntryParameter::entryOf(const ParameterEnumValue& value, const QStringList& available) const
{
    if (!ARV_IS_GC_ENUMERATION(node()))
        return value.entries.value(0);
    for (const QString& entry : value.entries) {
        if (available.contains(entry))
            return entry;
    }
    return {};
}

TriggerParameter::TriggerParameter(const ParameterName& name, const CameraNodes& nodes)
    : MappedParameter(name, nodes)
    , m_selector(nodes.find(QStringLiteral("TriggerSelector")))
    , m_source(nodes.find(QStringLiteral("TriggerSource")))
{
}

bool TriggerParameter::isNamed(const QString& name) { return name == triggerMode; }

NodeResult TriggerParameter::read(CxValue& value) const
{
    NodeValue before;
    NodeResult result = selectFrameStart(&before);
    NodeValue mode;
    if (result.done())
        result = nodes().read(node(), mode);
    NodeValue source = software;
    if (result.done() && m_source && valueText(mode) == on)
        result = nodes().read(m_source, source);
    if (!std::holds_alternative<std::monostate>(before))
        nodes().write(m_selector, before);
    if (!result.done())
        return result;
    const int triggered = valueText(source) == software ? TriggerSoftware : TriggerHardware;
    value = CxValue::fromInt(valueText(mode) == on ? triggered : TriggerOff);
    return result;
}

// The source first: the camera must not wait for a signal that was never meant.
NodeResult TriggerParameter::write(const CxValue& value)
{
    const ParameterEnumValue* wanted = valueNumbered(name(), value);
    if (!wanted)
        return noSuchValue(entries());
    NodeResult result = selectFrameStart();
    if (result.done() && wanted->value != TriggerOff)
        result = selectSource(wanted->value);
    return result.done() ? nodes().write(node(), wanted->value == TriggerOff ? off : on) : result;
}

QList<ParameterEnumValue> TriggerParameter::values() const { return valuesOf(name()); }

// Cameras with several triggers show one of them at a time.
NodeResult TriggerParameter::selectFrameStart(NodeValue* before) const
{
    NodeValue selected;
    if (!m_selector)
        return {};
    NodeResult result = nodes().read(m_selector, selected);
    if (!result.done() || valueText(selected) == frameStart)
        return result;
    if (!nodes().entries(m_selector).contains(frameStart))
        return {};
    if (before)
        *before = selected;
    return nodes().write(m_selector, frameStart);
}

/// A hardware source that the camera has already is kept: a user has chosen it.
NodeResult TriggerParameter::selectSource(int mode) const
{
    if (!m_source)
        return {};
    NodeValue current;
    if (NodeResult result = nodes().read(m_source, current); !result.done())
        return result;
    if (mode == TriggerSoftware)
        return nodes().write(m_source, software);
    return valueText(current) == software ? nodes().write(m_source, hardwareSource())
                                          : NodeResult();
}

QString TriggerParameter::hardwareSource() const
{
    for (const QString& entry : nodes().entries(m_source)) {
        if (entry.startsWith(u"Line"))
            return entry;
    }
    return QStringLiteral("Line1");
}

} // namespace vistrel
