// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Values of a device's GenICam nodes, to and from the host's typed values.
#include "cameras/GenICamNodes.h"

#include "cameras/AravisHandles.h"

#include <cmath>
#include <limits>
#include <optional>

namespace vistrel {

namespace {

NodeResult wrongType(const QString& reason) { return {ParameterStatus::WrongType, reason}; }

ParameterStatus statusOf(const ArvFailure& failure)
{
    if (failure.is(ARV_GC_ERROR, ARV_GC_ERROR_OUT_OF_RANGE)
        || failure.is(ARV_GC_ERROR, ARV_GC_ERROR_ENUM_ENTRY_NOT_FOUND))
        return ParameterStatus::OutOfRange;
    if (failure.is(ARV_GC_ERROR, ARV_GC_ERROR_READ_ONLY)
        || failure.is(ARV_DEVICE_ERROR, ARV_DEVICE_ERROR_PROTOCOL_ERROR_ACCESS_DENIED)
        || failure.is(ARV_DEVICE_ERROR, ARV_DEVICE_ERROR_PROTOCOL_ERROR_WRITE_PROTECT))
        return ParameterStatus::NotAccessible;
    if (failure.is(ARV_DEVICE_ERROR, ARV_DEVICE_ERROR_NOT_CONNECTED)
        || failure.is(ARV_DEVICE_ERROR, ARV_DEVICE_ERROR_TIMEOUT))
        return ParameterStatus::Disconnected;
    return ParameterStatus::Refused;
}

NodeResult resultOf(const ArvFailure& failure)
{
    if (!failure)
        return {};
    return {statusOf(failure), failure.message()};
}

CxValue integerValue(gint64 number)
{
    using Limits = std::numeric_limits<qint32>;
    if (number < Limits::min() || number > Limits::max())
        return CxValue::fromString(QString::number(number));
    return CxValue::fromInt(static_cast<qint32>(number));
}

/// The number that a value stands for; nothing when it is a text that reads as none.
std::optional<double> asFloat(const CxValue& value)
{
    if (value.type() == CxValue::Int)
        return value.toInt();
    if (value.type() != CxValue::String)
        return value.toFloat();
    bool isNumber = false;
    const double number = value.toString().toDouble(&isNumber);
    return isNumber ? std::optional(number) : std::nullopt;
}

std::optional<gint64> asInteger(const CxValue& value)
{
    if (value.type() == CxValue::String) {
        bool isNumber = false;
        const qlonglong number = value.toString().toLongLong(&isNumber);
        if (isNumber)
            return number;
    }
    constexpr double limit = 9.0e18;
    const auto number = asFloat(value);
    if (!number || !(std::fabs(*number) < limit))
        return std::nullopt;
    return static_cast<gint64>(*number);
}

std::optional<bool> asBoolean(const CxValue& value)
{
    const QString text = value.toString().toLower();
    if (value.type() == CxValue::String && (text == u"true" || text == u"false"))
        return text == u"true";
    const auto number = asFloat(value);
    return number ? std::optional(*number != 0.0) : std::nullopt;
}

NodeResult writeInteger(ArvGcInteger* node, const CxValue& value)
{
    const auto number = asInteger(value);
    if (!number)
        return wrongType(QStringLiteral("it takes an integer"));
    ArvFailure failure;
    arv_gc_integer_set_value(node, *number, failure.receive());
    return resultOf(failure);
}

NodeResult writeFloat(ArvGcFloat* node, const CxValue& value)
{
    const auto number = asFloat(value);
    if (!number || !std::isfinite(*number))
        return wrongType(QStringLiteral("it takes a number"));
    ArvFailure failure;
    arv_gc_float_set_value(node, *number, failure.receive());
    return resultOf(failure);
}

NodeResult writeBoolean(ArvGcBoolean* node, const CxValue& value)
{
    const auto on = asBoolean(value);
    if (!on)
        return wrongType(QStringLiteral("it takes true or false"));
    ArvFailure failure;
    arv_gc_boolean_set_value(node, *on, failure.receive());
    return resultOf(failure);
}

QString entryNames(ArvGcEnumeration* node)
{
    guint count = 0;
    const char** entries = arv_gc_enumeration_dup_available_string_values(node, &count, nullptr);
    QStringList names;
    for (guint i = 0; i < count; ++i)
        names.append(QString::fromUtf8(entries[i]));
    g_free(entries);
    return names.join(QStringLiteral(", "));
}

NodeResult writeEnumeration(ArvGcEnumeration* node, const CxValue& value)
{
    ArvFailure failure;
    if (value.type() == CxValue::String)
        arv_gc_enumeration_set_string_value(node, value.toString().toUtf8().constData(),
                                            failure.receive());
    else
        arv_gc_enumeration_set_int_value(node, value.toInt(), failure.receive());
    NodeResult result = resultOf(failure);
    if (result.status == ParameterStatus::OutOfRange)
        result.reason += QStringLiteral("; its entries are %1").arg(entryNames(node));
    return result;
}

NodeResult writeText(ArvGcString* node, const CxValue& value)
{
    ArvFailure failure;
    arv_gc_string_set_value(node, value.toString().toUtf8().constData(), failure.receive());
    return resultOf(failure);
}

NodeResult execute(ArvGcCommand* node)
{
    ArvFailure failure;
    arv_gc_command_execute(node, failure.receive());
    return resultOf(failure);
}

// An enumeration is also an integer and a text to Aravis: it comes first.
NodeResult writeAny(ArvGcNode* node, const CxValue& value)
{
    if (ARV_IS_GC_COMMAND(node))
        return execute(ARV_GC_COMMAND(node));
    if (value.type() == CxValue::Empty)
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

CxValue readAny(ArvGcNode* node, GError** error)
{
    if (ARV_IS_GC_ENUMERATION(node))
        return CxValue::fromString(QString::fromUtf8(
            arv_gc_enumeration_get_string_value(ARV_GC_ENUMERATION(node), error)));
    if (ARV_IS_GC_BOOLEAN(node))
        return CxValue::fromBool(arv_gc_boolean_get_value(ARV_GC_BOOLEAN(node), error));
    if (ARV_IS_GC_FLOAT(node))
        return CxValue::fromFloat(
            static_cast<float>(arv_gc_float_get_value(ARV_GC_FLOAT(node), error)));
    if (ARV_IS_GC_INTEGER(node))
        return integerValue(arv_gc_integer_get_value(ARV_GC_INTEGER(node), error));
    if (ARV_IS_GC_STRING(node))
        return CxValue::fromString(
            QString::fromUtf8(arv_gc_string_get_value(ARV_GC_STRING(node), error)));
    return {};
}

ArvGcNode* nodeNamed(ArvDevice* device, const QString& name)
{
    ArvGcNode* node = arv_device_get_feature(device, name.toUtf8().constData());
    return node && ARV_IS_GC_FEATURE_NODE(node) ? node : nullptr;
}

NodeResult unknownNode()
{
    return {ParameterStatus::Unknown, QStringLiteral("the camera has no such parameter")};
}

NodeResult unavailable(ArvGcNode* node)
{
    ArvFailure failure;
    const bool available =
        arv_gc_feature_node_is_available(ARV_GC_FEATURE_NODE(node), failure.receive());
    if (available && !failure)
        return {};
    if (failure)
        return resultOf(failure);
    return {ParameterStatus::NotAccessible, QStringLiteral("it is not available now")};
}

} // namespace

NodeResult readNode(ArvDevice* device, const QString& name, CxValue& value)
{
    ArvGcNode* node = nodeNamed(device, name);
    if (!node)
        return unknownNode();
    if (NodeResult reason = unavailable(node); !reason.done())
        return reason;
    ArvFailure failure;
    const CxValue read = readAny(node, failure.receive());
    if (failure)
        return resultOf(failure);
    if (read.type() == CxValue::Empty)
        return wrongType(QStringLiteral("it has no value"));
    value = read;
    return {};
}

NodeResult writeNode(ArvDevice* device, const QString& name, const CxValue& value)
{
    ArvGcNode* node = nodeNamed(device, name);
    if (!node)
        return unknownNode();
    if (NodeResult reason = unavailable(node); !reason.done())
        return reason;
    return writeAny(node, value);
}

} // namespace vistrel
