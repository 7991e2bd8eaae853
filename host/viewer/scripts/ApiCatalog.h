// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// What an editor offers and explains while a script is typed.
#pragma once

#include <QtCore/QList>
#include <QtCore/QString>
#include <QtCore/QStringList>

namespace vistrel {

/// All names of the scripts' module with their signatures, taken from the help texts. Pure data.
class ApiCatalog {
public:
    ApiCatalog();

    /// Names that may stand at the end of a dotted expression.
    /// @param words  the expression's words; the last one is what has been typed of the name, and
    ///               may be empty. Types of variables are not known: behind an unknown word the
    ///               members of all types are offered.
    QStringList completions(const QStringList& words) const;
    /// Signature and first sentence of every function and method of that name.
    QStringList callTips(const QString& name) const;

private:
    struct Entry {
        QString name;
        QString signature;
        QString summary;
        bool isCallable;
    };

    void addMember(const QString& type, const Entry& entry);
    QStringList membersOf(const QString& type, const QString& start) const;

    QList<Entry> m_functions;
    QStringList m_types;
    QList<std::pair<QString, Entry>> m_members; // type and member
};

} // namespace vistrel
