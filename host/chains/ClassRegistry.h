// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The class registry: the host's classes that plugins may find and make.
#pragma once

#include "chains/Chain.h"

#include <CxRTTI.h>

#include <type_traits>
#include <vector>

namespace vistrel {

/// Knows all processing elements from the start. A class's name is that of its meta-object, its
/// name for people the one in its Q_CLASSINFO. Any thread once it is made.
class ClassRegistry : public CxRTTI {
public:
    ClassRegistry();

    /// In the order in which they were registered.
    QList<QString> classesForInterface(const QString& interfaceName, bool instantiable) override;
    QString customName(const QString& className) override;
    QObject* createInstance(const QString& className) override;

    /// Registers a class of which instances are made by its default constructor.
    template<class Class>
    void add()
    {
        add<Class>([]() -> QObject* { return new Class; });
    }
    /// Registers a class that is found but not made by its name.
    template<class Class>
    void addKnown()
    {
        add<Class>(nullptr);
    }

private:
    using Maker = QObject* (*)();

    struct Entry {
        QString name;
        QString customName;
        QList<QString> interfaces;
        Maker make; ///< null when no instances can be made
    };

    template<class Class>
    void add(Maker make)
    {
        const QMetaObject& metaObject = Class::staticMetaObject;
        QList<QString> interfaces;
        if constexpr (std::is_base_of_v<CxChainable, Class>)
            interfaces.append(QStringLiteral("CxChainable"));
        m_entries.push_back({QString::fromLatin1(metaObject.className()), customNameOf(metaObject),
                             interfaces, make});
    }
    const Entry* find(const QString& className) const;

    std::vector<Entry> m_entries;
};

} // namespace vistrel
