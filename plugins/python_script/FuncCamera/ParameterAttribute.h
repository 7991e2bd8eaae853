// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// What an attribute name such as `get_gain_db_maximum` stands for. Free of Python.
#pragma once

#include <QtCore/QString>

/// A way to access a camera parameter, spelt as the name of an attribute: a prefix that says what
/// to do, the parameter, and an ending where a limit is meant.
struct ParameterAttribute {
    enum class Access { None, Get, Set, Enable, Disable };

    /// None: an ordinary attribute; the rest is empty then.
    Access access = Access::None;
    QString parameter; ///< "gain_db"; may be empty
    QString key;       ///< the parameter as it is read or set: "gain_db:max" for its maximum

    /// Takes an attribute's name apart. Case-sensitive.
    static ParameterAttribute parse(const QString& name);
};
