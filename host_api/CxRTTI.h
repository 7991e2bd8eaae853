// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The registry of the host's classes: find them by interface, make instances by name.
#pragma once

#include <QtCore/QList>
#include <QtCore/QString>

class QObject;

/// The class registry. Any thread; instances are made on the GUI thread.
class CxRTTI {
public:
    /// The registry; never null while the host is up.
    static CxRTTI* instance();

    /// Names of the classes that implement an interface.
    /// @param instantiable  only classes of which instances can be made.
    virtual QList<QString> classesForInterface(const QString& interfaceName, bool instantiable) = 0;

    /// A class's name for people; the class name itself when it has none, or when the host is not
    /// up.
    static QString customNameForClass(const QString& className);
    /// A new instance, owned by the caller; null for an unknown class, or when the host is not up.
    static QObject* createInstanceOfClass(const QString& className);

protected:
    ~CxRTTI() = default;

private:
    /// What customNameForClass() and createInstanceOfClass() mean for the concrete registry.
    virtual QString customName(const QString& className) = 0;
    virtual QObject* createInstance(const QString& className) = 0;
};
