// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Conversions between the types of a parameter value.
#include <CxValue.h>

#include <cmath>
#include <limits>

namespace {

qint32 clampedInt(double value)
{
    using Limits = std::numeric_limits<qint32>;
    if (std::isnan(value))
        return CxValue::noInteger;
    if (value >= Limits::max())
        return Limits::max();
    if (value <= Limits::min())
        return Limits::min();
    return static_cast<qint32>(value);
}

double numberOf(const QString& text)
{
    bool isNumber = false;
    const double number = text.toDouble(&isNumber);
    return isNumber ? number : std::numeric_limits<double>::quiet_NaN();
}

/// The shortest text that reads back as the same float.
QString shortestText(float value)
{
    constexpr int roundTripDigits = std::numeric_limits<float>::max_digits10;
    QString text;
    for (int digits = std::numeric_limits<float>::digits10; digits <= roundTripDigits; ++digits) {
        text = QString::number(static_cast<double>(value), 'g', digits);
        if (text.toFloat() == value)
            break;
    }
    return text;
}

} // namespace

CxValue CxValue::fromInt(qint32 value)
{
    CxValue result;
    result.m_type = Int;
    result.m_number.asInt = value;
    return result;
}

CxValue CxValue::fromFloat(float value)
{
    CxValue result;
    result.m_type = Float;
    result.m_number.asFloat = value;
    return result;
}

CxValue CxValue::fromBool(bool value)
{
    CxValue result;
    result.m_type = Bool;
    result.m_number.asBool = value;
    return result;
}

CxValue CxValue::fromString(const QString& value)
{
    CxValue result;
    result.m_type = String;
    result.m_text = value;
    return result;
}

CxValue CxValue::boolOfText(const QString& text)
{
    CxValue result = fromBool(fromString(text).toBool());
    result.m_text = text.isNull() ? QLatin1String("") : text; // null: it was made of no text
    return result;
}

CxValue CxValue::integerWithText(const QString& text)
{
    CxValue result;
    result.m_type = Int;
    result.m_text = text;
    return result;
}

qint32 CxValue::toInt() const
{
    switch (m_type) {
    case Int:
        return m_number.asInt;
    case Float:
        return clampedInt(static_cast<double>(m_number.asFloat));
    case Bool:
        return m_number.asBool ? 1 : 0;
    case String:
        return clampedInt(numberOf(m_text));
    default:
        return 0;
    }
}

float CxValue::toFloat() const
{
    switch (m_type) {
    case Int:
        return static_cast<float>(m_number.asInt);
    case Float:
        return m_number.asFloat;
    case Bool:
        return m_number.asBool ? 1.0F : 0.0F;
    case String:
        return static_cast<float>(numberOf(m_text));
    default:
        return 0.0F;
    }
}

bool CxValue::toBool() const
{
    switch (m_type) {
    case Int:
        return m_number.asInt != 0;
    case Float:
        return m_number.asFloat != 0.0F;
    case Bool:
        return m_number.asBool;
    case String:
        return m_text.trimmed().compare(QLatin1String("true"), Qt::CaseInsensitive) == 0
               || m_text.toDouble() != 0.0;
    default:
        return false;
    }
}

QString CxValue::toString() const
{
    switch (m_type) {
    case Int: // an integer may carry nothing but its text
        return m_text.isEmpty() ? QString::number(m_number.asInt) : m_text;
    case Float:
        return shortestText(m_number.asFloat);
    case Bool:
        if (!m_text.isNull())
            return m_text;
        return m_number.asBool ? QStringLiteral("true") : QStringLiteral("false");
    default:
        return m_text;
    }
}
