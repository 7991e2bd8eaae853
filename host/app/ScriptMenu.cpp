// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Makes and finds entries.
#include "app/ScriptMenu.h"

#include "app/Mnemonics.h"
#include "core/Log.h"

#include <QtGui/QAction>
#include <QtGui/QKeySequence>
#include <QtWidgets/QMenu>

namespace vistrel {

namespace {

constexpr char entryMark[] = "vistrelScriptEntry";

bool isScriptEntry(const QAction& action) { return action.property(entryMark).toBool(); }

bool isShortcut(const QKeySequence& keys)
{
    for (int i = 0; i < keys.count(); ++i) {
        if (keys[i].key() == Qt::Key_unknown)
            return false;
    }
    return !keys.isEmpty();
}

const QObject& topmost(const QObject& object)
{
    return object.parent() ? topmost(*object.parent()) : object;
}

/// Takes keys away from other script entries; false when the application itself has them.
bool freeKeys(const QKeySequence& keys, const QMenu& menu)
{
    for (QAction* action : topmost(menu).findChildren<QAction*>()) {
        if (!action->shortcuts().contains(keys))
            continue;
        if (!isScriptEntry(*action))
            return false;
        action->setShortcut({});
    }
    return true;
}

void setKeys(QAction& entry, const QString& shortcut, const QMenu& menu)
{
    const auto keys = QKeySequence::fromString(shortcut);
    if (!isShortcut(keys))
        logError(QObject::tr("\"%1\" is no keyboard shortcut: the entry %2 has none")
                     .arg(shortcut, entry.text()));
    else if (!freeKeys(keys, menu))
        logError(QObject::tr("The application itself uses %1: the entry %2 has no shortcut")
                     .arg(shortcut, entry.text()));
    else
        entry.setShortcut(keys);
}

QString pathOf(const QMenu& root, const QAction& entry)
{
    QString path = withoutMnemonics(entry.text());
    const QObject* menu = entry.parent();
    for (; menu && menu != &root; menu = menu->parent()) {
        if (const auto* submenu = qobject_cast<const QMenu*>(menu))
            path.prepend(withoutMnemonics(submenu->title()) + u'/');
    }
    return path;
}

} // namespace

QAction* addScriptEntry(QMenu& menu, const QString& title, const QString& shortcut)
{
    QAction* entry = menu.addAction(title);
    entry->setProperty(entryMark, true);
    if (!shortcut.isEmpty())
        setKeys(*entry, shortcut, menu);
    return entry;
}

QAction* findScriptEntry(const QMenu& menu, const QString& name)
{
    QAction* newest = nullptr;
    for (QAction* action : menu.findChildren<QAction*>()) {
        const bool fits =
            isScriptEntry(*action)
            && (pathOf(menu, *action) == name || withoutMnemonics(action->text()) == name);
        newest = fits ? action : newest;
    }
    return newest;
}

} // namespace vistrel
