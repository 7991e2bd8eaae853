// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The desktop application: window, menus and panels around the host's services.
#pragma once

#include "app/HostApplication.h"
#include "app/ScriptEngine.h"
#include "app/ScriptRuns.h"
#include "viewer/scripts/ScriptPanel.h"
#include "viewer/window/RecentFiles.h"

#include <QtCore/QObject>

#include <memory>

class QDockWidget;
class QLabel;
class QMimeData;

namespace vistrel {

class BrightnessPanel;
class CameraPanel;
class Commands;
class ErrorLogPanel;
class FilmCommands;
class FullScreen;
class MainWindow;
class PictureStatus;

/// Everything that the program is. GUI thread.
class Viewer : public QObject {
    Q_OBJECT

public:
    Viewer();
    ~Viewer() override;

    /// Loads the script plugin; an empty name means the one beside the program. False with the
    /// reason in `error`. Called once, before anything else.
    bool loadPlugin(const QString& file, QString& error);
    /// Shows the window as it was left the last time.
    void show();

    /// Opens a script or a picture, by its ending. False, with a line in the log, when it cannot.
    bool openFile(const QString& path);
    /// Asks for files and opens them.
    void openWithDialog();
    void showAbout();

    MainWindow& window() { return m_window; }
    HostApplication& host() { return m_host; }
    ScriptPanel& scripts() { return m_scripts; }
    CameraPanel& cameras() { return *m_cameras; }
    FilmCommands& films() { return *m_films; }
    ErrorLogPanel& errorLog() { return *m_errorLog; }
    BrightnessPanel& brightness() { return *m_brightness; }
    FullScreen& fullScreen() { return *m_fullScreen; }
    RecentFiles& recentFiles() { return m_recentFiles; }
    QDockWidget& scriptDock() { return *m_scriptDock; }
    QDockWidget& errorLogDock() { return *m_errorLogDock; }
    QDockWidget& chainDock() { return *m_chainDock; }

    bool eventFilter(QObject* object, QEvent* event) override;

private:
    QDockWidget* addDock(const QString& title, QWidget* content, Qt::DockWidgetArea area);
    void shareOutRoom();
    void setUpStatusBar();
    void setUpDropping();
    bool mayClose();
    void saveSettings() const;
    void restoreSettings();
    void openDropped(const QMimeData& data);

    HostApplication m_host;
    MainWindow& m_window;
    ScriptEngine m_engine;
    ScriptRuns m_runs;
    ScriptPanel& m_scripts; // belongs to its dock
    CameraPanel* m_cameras;
    ErrorLogPanel* m_errorLog;
    BrightnessPanel* m_brightness;
    RecentFiles m_recentFiles;
    QDockWidget* m_scriptDock;
    QDockWidget* m_cameraDock;
    QDockWidget* m_errorLogDock;
    QDockWidget* m_chainDock;
    QDockWidget* m_brightnessDock;
    std::unique_ptr<FilmCommands> m_films;
    QLabel* m_runStatus;
    std::unique_ptr<PictureStatus> m_pictureStatus;
    std::unique_ptr<FullScreen> m_fullScreen;
    std::unique_ptr<Commands> m_commands;
};

} // namespace vistrel
