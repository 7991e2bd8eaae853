// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The main window: the area that holds the views, and the menus.
#pragma once

#include <QtWidgets/QMainWindow>

class QMdiArea;

namespace vistrel {

class Notification;

/// Made hidden; the program that has a screen shows it.
class MainWindow : public QMainWindow {
    Q_OBJECT

public:
    /// Numbers of the menus as plugins name them.
    enum MenuNumber : int { ScriptsMenu = 3 };

    MainWindow();

    QMdiArea* area() const { return m_area; }
    /// The menu of that number; null when there is none.
    QMenu* menu(int which) const;
    /// Shows a passing message.
    void notify(const QString& text);

private:
    QMdiArea* m_area;
    QMenu* m_scriptsMenu;
    Notification* m_notification;
};

} // namespace vistrel
