// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// A value of a GenICam node in full precision, and its way to and from the host's typed values.
#pragma once

#include <CxValue.h>

#include <QtCore/QString>

#include <optional>
#include <variant>

namespace vistrel {

/// No value, a switch, a whole number, a number, or a text (of enumerations: the entry's name).
using NodeValue = std::variant<std::monostate, bool, qint64, double, QString>;

/// A switch that was made of a text which reads as none is that text, which no switch takes.
NodeValue nodeValue(const CxValue& value);
/// Whether it is what a text that is no number becomes on its way to a parameter that is one.
bool isNoNumber(const CxValue& value);
/// An integer that does not fit into 32 bits is given as its decimal text.
CxValue hostValue(const NodeValue& value);
/// For people; numbers in the C locale.
QString valueText(const NodeValue& value);

/// The number that a value stands for; nothing when it is a text that reads as none, or no value.
std::optional<double> asNumber(const NodeValue& value);
/// The whole number that a value stands for; nothing when it has a fraction or is out of range.
std::optional<qint64> asInteger(const NodeValue& value);
/// Numbers are true unless they are 0; of texts those that read "true", "false" or as a number.
std::optional<bool> asBoolean(const NodeValue& value);

} // namespace vistrel
