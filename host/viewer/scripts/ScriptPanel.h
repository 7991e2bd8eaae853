// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Everything for writing and running scripts: editor, output, errors.
#pragma once

#include "viewer/scripts/RunWatch.h"
#include "viewer/scripts/TracebackLines.h"

#include <QtCore/QPointer>
#include <QtWidgets/QWidget>

class QSplitter;
class QTabWidget;

namespace vistrel {

class EditorTabs;
class ErrorPane;
class FindBar;
class OutputPane;
class ScriptEditor;
class ScriptEnvironment;
class ScriptRuns;

class ScriptPanel : public QWidget {
    Q_OBJECT

public:
    /// Runs and environment must outlive the panel. The runs' output goes to it.
    ScriptPanel(ScriptRuns& runs, ScriptEnvironment& environment,
                const QString& companion = StopCompanion::programFile());
    ~ScriptPanel() override;

    EditorTabs& tabs() { return *m_tabs; }
    FindBar& findBar() { return *m_findBar; }
    RunWatch& watch() { return m_watch; }

    /// Runs the current script as it stands in the editor, saved or not.
    void runCurrent();
    /// Runs the selected lines of the current script.
    void runSelection();

    QString outputText() const;
    QString errorText() const;

    /// How the panel's height is shared, to be kept and restored.
    QByteArray saveLayout() const;
    void restoreLayout(const QByteArray& layout);

private:
    void layOut();
    void run(const QString& text);
    void takeOutput(const QString& text);
    void beginRun(const QString& name);
    void endRun(const QString& name, const QString& errors);
    void showPlace(const SourcePlace& place);
    ScriptEditor* editorOfRun();

    ScriptRuns& m_runs;
    ScriptEnvironment& m_environment;
    RunWatch m_watch;
    EditorTabs* m_tabs;
    FindBar* m_findBar;
    OutputPane* m_output;
    ErrorPane* m_errors;
    QTabWidget* m_panes;
    QSplitter* m_splitter;
    QPointer<ScriptEditor> m_runEditor; // whose text runs or ran last; null for a menu's script
    QString m_runFile;                  // the file that ran last; empty for a text without one
};

} // namespace vistrel
