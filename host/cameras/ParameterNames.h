// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The host's own names of camera parameters, what stands for them in a camera, and the values of
// those that are enumerations.
#pragma once

#include <CxValue.h>

#include <QtCore/QList>
#include <QtCore/QString>
#include <QtCore/QStringList>

namespace vistrel {

/// A parameter under the host's name. Any thread.
struct ParameterName {
    QString name; ///< lower case
    CxValue::Type type;
    QString unit;      ///< empty for numbers without one
    QStringList nodes; ///< GenICam names, the best first; a camera has one of them or none

    /// Whether a node of that name counts steps of the camera's own, not the host's unit.
    static bool isRaw(const QString& node) { return node.endsWith(u"Raw"); }
};

/// One value of an enumeration parameter.
struct ParameterEnumValue {
    QString parameter; ///< the parameter that takes it
    QString name;      ///< upper case, with the parameter's name in front; a constant for scripts
    int value = 0;     ///< unique within the parameter
    /// What stands for it in the camera's node, the best first: names of entries or states of a
    /// switch.
    QStringList entries;
};

/// All parameters that the host knows. Any thread.
const QList<ParameterName>& knownParameters();
/// Their names. Any thread.
const QStringList& parameterNames();
/// Whether the host knows a parameter of that name; case counts. Any thread.
bool isKnownParameterName(const QString& name);
/// The values of all enumeration parameters. Any thread.
const QList<ParameterEnumValue>& parameterEnumValues();

} // namespace vistrel
