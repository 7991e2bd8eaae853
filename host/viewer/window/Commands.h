// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The menus and their keys.
#pragma once

#include <QtCore/QObject>
#include <QtGui/QKeySequence>

#include <functional>

class QAction;
class QMenu;

namespace vistrel {

class ImageView;
class Viewer;

/// Makes the viewer's actions. Everything can be done with the keyboard.
class Commands : public QObject {
    Q_OBJECT

public:
    /// The viewer must outlive the commands; the actions belong to its window.
    explicit Commands(Viewer& viewer);

private:
    using Work = std::function<void()>;
    using ViewWork = std::function<void(ImageView&)>;

    QMenu& addMenu(const QString& title);
    QAction* add(QMenu& menu, const QString& text, const QKeySequence& keys, Work work);
    /// An action that somebody else has made.
    void take(QMenu& menu, QAction* action, const QKeySequence& keys);
    /// The work is done on the active view; without one the command does nothing.
    void addForView(QMenu& menu, const QString& text, const QKeySequence& keys, ViewWork work);
    void addFileMenu();
    void addViewMenu();
    void addZoomCommands(QMenu& menu);
    void addBrightnessCommands(QMenu& menu);
    void addArrangingCommands(QMenu& menu);
    void addFullScreen(QMenu& menu);
    void addCameraMenu();
    void addScriptCommands();
    void addExamples(QMenu& menu);
    void addHelpMenu();
    void addPanelSwitches(QMenu& menu);
    void followRuns();
    void showShortcuts();

    Viewer& m_viewer;
    QAction* m_run = nullptr;
    QAction* m_runSelection = nullptr;
    QAction* m_stop = nullptr;
};

} // namespace vistrel
