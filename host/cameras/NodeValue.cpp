// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Conversions of node values.
#include "cameras/NodeValue.h"

#include <QtCore/QLocale>

#include <cmath>
#include <limits>

namespace vistrel {

namespace {

std::optional<double> numberOfText(const QString& text)
{
    bool isNumber = false;
    const double number = text.toDouble(&isNumber);
    return isNumber ? std::optional(number) : std::nullopt;
}

/// In full, unless that takes too many digits; always so that it reads back as the same number.
QString numberText(double number)
{
    const double size = std::fabs(number);
    const bool isHandy = size == 0.0 || (size >= 1e-5 && size < 1e12);
    QLocale locale = QLocale::c();
    locale.setNumberOptions(QLocale::OmitGroupSeparator);
    return locale.toString(number, isHandy ? 'f' : 'g', QLocale::FloatingPointShortest);
}

NodeValue switchOrText(const CxValue& value)
{
    const QString text = value.toString();
    return asBoolean(text) ? NodeValue(value.toBool()) : NodeValue(text);
}

CxValue hostInteger(qint64 number)
{
    using Limits = std::numeric_limits<qint32>;
    if (number < Limits::min() || number > Limits::max())
        return CxValue::fromString(QString::number(number));
    return CxValue::fromInt(static_cast<qint32>(number));
}

} // namespace

NodeValue nodeValue(const CxValue& value)
{
    switch (value.type()) {
    case CxValue::Int:
        return qint64{value.toInt()};
    case CxValue::Float:
        return static_cast<double>(value.toFloat());
    case CxValue::Bool:
        return switchOrText(value);
    case CxValue::String:
        return value.toString();
    default:
        return {};
    }
}

bool isNoNumber(const CxValue& value)
{
    return (value.type() == CxValue::Int && value.toInt() == CxValue::noInteger)
           || (value.type() == CxValue::Float && std::isnan(value.toFloat()));
}

CxValue hostValue(const NodeValue& value)
{
    if (const bool* on = std::get_if<bool>(&value))
        return CxValue::fromBool(*on);
    if (const qint64* integer = std::get_if<qint64>(&value))
        return hostInteger(*integer);
    if (const double* number = std::get_if<double>(&value))
        return CxValue::fromFloat(static_cast<float>(*number));
    if (const QString* text = std::get_if<QString>(&value))
        return CxValue::fromString(*text);
    return {};
}

QString valueText(const NodeValue& value)
{
    if (const double* number = std::get_if<double>(&value))
        return numberText(*number);
    if (const qint64* integer = std::get_if<qint64>(&value))
        return QString::number(*integer);
    return hostValue(value).toString();
}

std::optional<double> asNumber(const NodeValue& value)
{
    if (const bool* on = std::get_if<bool>(&value))
        return *on ? 1.0 : 0.0;
    if (const qint64* integer = std::get_if<qint64>(&value))
        return static_cast<double>(*integer);
    if (const double* number = std::get_if<double>(&value))
        return *number;
    if (const QString* text = std::get_if<QString>(&value))
        return numberOfText(*text);
    return std::nullopt;
}

std::optional<qint64> asInteger(const NodeValue& value)
{
    if (const qint64* integer = std::get_if<qint64>(&value))
        return *integer;
    if (const QString* text = std::get_if<QString>(&value)) {
        bool isInteger = false; // by itself: a double holds 53 bits
        const qlonglong number = text->toLongLong(&isInteger);
        if (isInteger)
            return number;
    }
    constexpr double limit = 9.0e18;
    const auto number = asNumber(value);
    if (!number || !(std::fabs(*number) < limit) || *number != std::floor(*number))
        return std::nullopt;
    return static_cast<qint64>(*number);
}

std::optional<bool> asBoolean(const NodeValue& value)
{
    if (const QString* text = std::get_if<QString>(&value)) {
        const QString lower = text->trimmed().toLower();
        if (lower == u"true" || lower == u"false")
            return lower == u"true";
    }
    const auto number = asNumber(value);
    if (!number || std::isnan(*number))
        return std::nullopt;
    return *number != 0.0;
}

} // namespace vistrel
