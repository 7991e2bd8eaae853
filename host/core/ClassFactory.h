// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// What stands behind the static operations of the class registry.
#pragma once

#include <QtCore/QString>

class QObject;

namespace vistrel {

/// CxRTTI's static operations are passed on to the installed factory: a program or a test that
/// installs a class registry of its own installs one of these with it.
class ClassFactory {
public:
    /// A class's name for people; the class name itself when it has none.
    virtual QString customName(const QString& className) = 0;
    /// A new instance, owned by the caller; null for an unknown class.
    virtual QObject* create(const QString& className) = 0;

protected:
    ~ClassFactory() = default;
};

} // namespace vistrel
