// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Names and signatures cut out of the help tables.
#include "viewer/scripts/ApiCatalog.h"

#include "help/HelpTable.h"

#include <array>
#include <string_view>

namespace vistrel {

namespace {

struct TypeName {
    std::string_view owner; // as the help tables name it
    const char* name;       // as scripts name it
};
constexpr std::array types = {TypeName{"cameraObj", "Camera"}, TypeName{"graphObj", "Graph"},
                              TypeName{"imgObj", "Image"}};

constexpr QLatin1String moduleName("vistrel");

QString scriptName(std::string_view owner)
{
    for (const TypeName& type : types)
        if (type.owner == owner)
            return QString::fromLatin1(type.name);
    return {};
}

/// The signature as people write it: without the bound object and the mark of positional-only
/// parameters, which help() needs and a reader does not.
QString readableSignature(QString line)
{
    for (const char* part : {"$module, ", "$self, ", "$module", "$self", ", /"})
        line.remove(QString::fromLatin1(part));
    return line.replace(QLatin1String("(/)"), QLatin1String("()"));
}

QString firstSentence(const QString& help)
{
    const qsizetype start = help.indexOf(QLatin1String("--\n\n"));
    return start < 0 ? QString() : help.mid(start + 4).section(u'\n', 0, 0);
}

QStringList startingWith(const QStringList& names, const QString& start)
{
    QStringList found;
    for (const QString& name : names)
        if (name.startsWith(start, Qt::CaseInsensitive))
            found.append(name);
    found.removeDuplicates();
    found.sort();
    return found;
}

} // namespace

ApiCatalog::ApiCatalog()
{
    const auto entryOf = [](const HelpEntry& help, bool isCallable) {
        const QString text = QString::fromUtf8(help.text);
        return Entry{QString::fromUtf8(help.name.data(), static_cast<qsizetype>(help.name.size())),
                     readableSignature(text.section(u'\n', 0, 0)), firstSentence(text), isCallable};
    };
    for (const HelpEntry& help : functionHelpTable())
        m_functions.append(entryOf(help, true));
    for (const HelpEntry& help : methodHelpTable())
        addMember(scriptName(help.owner), entryOf(help, true));
    for (const HelpEntry& help : attributeHelpTable())
        addMember(scriptName(help.owner), entryOf(help, false));
}

void ApiCatalog::addMember(const QString& type, const Entry& entry)
{
    if (!m_types.contains(type))
        m_types.append(type);
    m_members.append({type, entry});
}

QStringList ApiCatalog::completions(const QStringList& words) const
{
    const QString typed = words.isEmpty() ? QString() : words.last();
    if (words.size() < 2)
        return startingWith({QString(moduleName)}, typed);
    const QString& owner = words.at(words.size() - 2);
    if (words.size() == 2 && owner == moduleName) {
        QStringList names = m_types;
        for (const Entry& function : m_functions)
            names.append(function.name);
        return startingWith(names, typed);
    }
    return membersOf(m_types.contains(owner) ? owner : QString(), typed);
}

QStringList ApiCatalog::membersOf(const QString& type, const QString& start) const
{
    QStringList names;
    for (const auto& [owner, entry] : m_members)
        if (type.isEmpty() || owner == type)
            names.append(entry.name);
    return startingWith(names, start);
}

QStringList ApiCatalog::callTips(const QString& name) const
{
    QStringList tips;
    const auto add = [&](const QString& prefix, const Entry& entry) {
        if (entry.isCallable && entry.name == name)
            tips.append(prefix + u'.' + entry.signature + u'\n' + entry.summary);
    };
    for (const Entry& function : m_functions)
        add(QString(moduleName), function);
    for (const auto& [type, entry] : m_members)
        add(type, entry);
    return tips;
}

} // namespace vistrel
