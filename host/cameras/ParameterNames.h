// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The host's own names of camera parameters and of the values of those that are enumerations.
#pragma once

#include <QtCore/QList>
#include <QtCore/QString>
#include <QtCore/QStringList>

namespace vistrel {

/// One value of an enumeration parameter.
struct ParameterEnumValue {
    QString parameter; ///< the parameter that takes it
    QString name;      ///< upper case, with the parameter's name in front; a constant for scripts
    int value = 0;     ///< unique within the parameter
};

/// All names, lower case. Any thread.
const QStringList& parameterNames();
/// Whether the host knows a parameter of that name; case counts. Any thread.
bool isKnownParameterName(const QString& name);
/// The values of all enumeration parameters. Any thread.
const QList<ParameterEnumValue>& parameterEnumValues();

} // namespace vistrel
