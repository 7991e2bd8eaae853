// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// A list in the settings, shown as a menu.
#include "viewer/window/RecentFiles.h"

#include <QtCore/QFileInfo>
#include <QtCore/QSettings>
#include <QtWidgets/QMenu>

#include <algorithm>

namespace vistrel {

namespace {

const char* const settingsKey = "recentFiles";

} // namespace

RecentFiles::RecentFiles()
    : m_files(QSettings().value(QLatin1String(settingsKey)).toStringList())
{
}

void RecentFiles::add(const QString& path)
{
    m_files.removeAll(path);
    m_files.prepend(path);
    m_files = m_files.first(std::min(m_files.size(), most));
    QSettings().setValue(QLatin1String(settingsKey), m_files);
}

void RecentFiles::fill(QMenu& menu)
{
    connect(&menu, &QMenu::aboutToShow, this, [this, &menu] {
        menu.clear();
        for (const QString& path : m_files) {
            if (!QFileInfo::exists(path))
                continue;
            QAction* action = menu.addAction(QFileInfo(path).fileName());
            action->setStatusTip(path);
            connect(action, &QAction::triggered, this, [this, path] { Q_EMIT chosen(path); });
        }
        if (menu.isEmpty())
            menu.addAction(tr("No files yet"))->setEnabled(false);
    });
}

} // namespace vistrel
