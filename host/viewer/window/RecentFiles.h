// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Files that were opened last.
#pragma once

#include <QtCore/QObject>
#include <QtCore/QStringList>

class QMenu;

namespace vistrel {

/// Kept in the user's settings. GUI thread.
class RecentFiles : public QObject {
    Q_OBJECT

public:
    static constexpr qsizetype most = 12;

    RecentFiles();

    /// The newest first.
    const QStringList& files() const { return m_files; }
    void add(const QString& path);
    /// Keeps a menu filled with the files that are still there.
    void fill(QMenu& menu);

Q_SIGNALS:
    /// A file was chosen in the menu.
    void chosen(const QString& path);

private:
    QStringList m_files;
};

} // namespace vistrel
