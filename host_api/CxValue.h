// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// A typed value of a camera parameter.
#pragma once

#include <QtCore/QString>

#include <limits>

/// Integer, float, bool or text; every other type code means that there is no value. The numeric
/// part holds one of the three by type, the text part belongs to texts, and to what was made of
/// one.
class CxValue {
public:
    /// The codes are part of the binary interface.
    enum Type : int { Empty = 0, Int = 1, Float = 2, Bool = 3, String = 4 };

    /// What toInt() makes of something that is no number: out of the range of every parameter, so
    /// that a mistyped text is refused and does not set a 0.
    static constexpr qint32 noInteger = std::numeric_limits<qint32>::min();

    /// No value; the numeric part is 0.
    CxValue() = default;

    static CxValue fromInt(qint32 value);
    static CxValue fromFloat(float value);
    static CxValue fromBool(bool value);
    static CxValue fromString(const QString& value);
    /// A value of bool type that keeps the text of which it was made, so that a mistyped one can be
    /// refused and does not switch anything off.
    static CxValue boolOfText(const QString& text);
    /// A value of integer type of which only the text part is filled.
    static CxValue integerWithText(const QString& text);

    int type() const { return m_type; }

    /// The value as an integer: floats are rounded towards 0 and held at the range's ends, texts
    /// are read as decimal numbers with a point. `noInteger` for a text that is no number and for
    /// a float that is not one; 0 when there is no value.
    qint32 toInt() const;
    /// The value as a float; texts are read as decimal numbers with a point. Not a number (NaN) for
    /// a text that is none; 0 when there is no value.
    float toFloat() const;
    /// Whether the value is not 0; for texts whether they read "true" or as a number other than 0.
    bool toBool() const;
    /// The value as text: numbers in the C locale, "true" and "false", or the text of which a bool
    /// was made.
    QString toString() const;

private:
    union Number {
        qint32 asInt = 0;
        float asFloat;
        bool asBool;
    };

    int m_type = Empty;
    Number m_number;
    QString m_text;
};
