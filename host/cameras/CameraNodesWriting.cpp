// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Writing nodes, and saying what would have been allowed.
#include "cameras/AravisHandles.h"
#include "cameras/CameraNodes.h"

#include <cmath>

namespace vistrel {

namespace {

NodeResult wrongType(const QString& reason) { return {ParameterStatus::WrongType, reason}; }

QString limitsText(const NodeLimits& limits)
{
    const auto isThere = [](const NodeValue& value) {
        return !std::holds_alternative<std::monostate>(value);
    };
    QString text = QStringLiteral("it takes values");
    if (isThere(limits.minimum))
        text += QStringLiteral(" from %1").arg(valueText(limits.minimum));
    if (isThere(limits.maximum))
        text += QStringLiteral(" to %1").arg(valueText(limits.maximum));
    if (isThere(limits.increment))
        text += QStringLiteral(" in steps of %1").arg(valueText(limits.increment));
    return text;
}

NodeResult outside(const NodeLimits& limits)
{
    return {ParameterStatus::OutOfRange, limitsText(limits)};
}

/// Aravis looks at the range only.
bool isOffTheSteps(qint64 number, const NodeLimits& limits)
{
    const qint64* least = std::get_if<qint64>(&limits.minimum);
    const qint64* step = std::get_if<qint64>(&limits.increment);
    // Unsigned, since the least may be the least of all.
    return least && step && *step > 1 && number >= *least
           && (static_cast<quint64>(number) - static_cast<quint64>(*least))
                      % static_cast<quint64>(*step)
                  != 0;
}

/// A 32-bit float cannot hold every limit: one that is the limit's neighbour stands for it.
double snappedToLimits(double number, const NodeLimits& limits)
{
    const double* least = std::get_if<double>(&limits.minimum);
    const double* greatest = std::get_if<double>(&limits.maximum);
    const auto isSame = [number](const double* limit) {
        return static_cast<float>(*limit) == static_cast<float>(number);
    };
    if (least && number < *least && isSame(least))
        return *least;
    return greatest && number > *greatest && isSame(greatest) ? *greatest : number;
}

} // namespace

NodeResult CameraNodes::noSwitch()
{
    return wrongType(QStringLiteral("it takes true or false, 1 or 0"));
}

NodeResult CameraNodes::write(ArvGcNode* node, const NodeValue& value) const
{
    if (NodeResult reason = usable(node); !reason.done())
        return reason;
    return writeAny(node, value);
}

// An enumeration is also an integer and a text to Aravis: it comes first.
NodeResult CameraNodes::writeAny(ArvGcNode* node, const NodeValue& value) const
{
    if (ARV_IS_GC_COMMAND(node))
        return asBoolean(value).value_or(false)
                   ? execute(ARV_GC_COMMAND(node))
                   : wrongType(QStringLiteral("it is executed by setting it to 1"));
    if (std::holds_alternative<std::monostate>(value))
        return wrongType(QStringLiteral("there is no value"));
    if (ARV_IS_GC_ENUMERATION(node))
        return writeEnumeration(ARV_GC_ENUMERATION(node), value);
    if (ARV_IS_GC_BOOLEAN(node))
        return writeBoolean(ARV_GC_BOOLEAN(node), value);
    if (ARV_IS_GC_FLOAT(node))
        return writeFloat(ARV_GC_FLOAT(node), value);
    if (ARV_IS_GC_INTEGER(node))
        return writeInteger(ARV_GC_INTEGER(node), value);
    if (ARV_IS_GC_STRING(node))
        return writeText(ARV_GC_STRING(node), value);
    return wrongType(QStringLiteral("it takes no value"));
}

NodeResult CameraNodes::writeInteger(ArvGcInteger* node, const NodeValue& value) const
{
    if (!asNumber(value))
        return wrongType(QStringLiteral("it takes a whole number"));
    const auto number = asInteger(value);
    const NodeLimits limits = this->limits(ARV_GC_NODE(node));
    if (!number || isOffTheSteps(*number, limits))
        return connected() ? outside(limits) : disconnected();
    ArvFailure failure;
    arv_gc_integer_set_value(node, *number, failure.receive());
    const NodeResult result = resultOf(failure);
    return result.status == ParameterStatus::OutOfRange ? outside(limits) : result;
}

NodeResult CameraNodes::writeFloat(ArvGcFloat* node, const NodeValue& value) const
{
    const auto number = asNumber(value);
    if (!number || !std::isfinite(*number))
        return wrongType(QStringLiteral("it takes a number"));
    const NodeLimits limits = this->limits(ARV_GC_NODE(node));
    if (!connected())
        return disconnected();
    ArvFailure failure;
    arv_gc_float_set_value(node, snappedToLimits(*number, limits), failure.receive());
    const NodeResult result = resultOf(failure);
    return result.status == ParameterStatus::OutOfRange ? outside(limits) : result;
}

NodeResult CameraNodes::writeBoolean(ArvGcBoolean* node, const NodeValue& value) const
{
    const auto on = asBoolean(value);
    if (!on)
        return noSwitch();
    ArvFailure failure;
    arv_gc_boolean_set_value(node, *on, failure.receive());
    return resultOf(failure);
}

NodeResult CameraNodes::writeEnumeration(ArvGcEnumeration* node, const NodeValue& value) const
{
    ArvFailure failure;
    const QString* name = std::get_if<QString>(&value);
    const auto number = asInteger(value);
    if (name && !name->contains(QChar::Null))
        arv_gc_enumeration_set_string_value(node, name->toUtf8().constData(), failure.receive());
    else if (!name && number)
        arv_gc_enumeration_set_int_value(node, *number, failure.receive());
    else
        return wrongType(QStringLiteral("it takes an entry"));
    NodeResult result = resultOf(failure);
    if (result.status == ParameterStatus::OutOfRange)
        result.reason = QStringLiteral("its entries are %1")
                            .arg(entries(ARV_GC_NODE(node)).join(QStringLiteral(", ")));
    return result;
}

NodeResult CameraNodes::writeText(ArvGcString* node, const NodeValue& value) const
{
    const QString text = valueText(value);
    if (text.contains(QChar::Null))
        return wrongType(QStringLiteral("it takes a text without zeros"));
    ArvFailure failure;
    arv_gc_string_set_value(node, text.toUtf8().constData(), failure.receive());
    return resultOf(failure);
}

NodeResult CameraNodes::execute(ArvGcCommand* node) const
{
    ArvFailure failure;
    arv_gc_command_execute(node, failure.receive());
    return resultOf(failure);
}

} // namespace vistrel
