// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The way from the editor through a run to its output and its errors, and back to the line.
#include "viewer/scripts/ScriptPanel.h"

#include "app/ScriptEnvironment.h"
#include "app/ScriptRuns.h"
#include "viewer/scripts/EditorTabs.h"
#include "viewer/scripts/ErrorPane.h"
#include "viewer/scripts/FindBar.h"
#include "viewer/scripts/OutputPane.h"
#include "viewer/scripts/ScriptEditor.h"

#include <QtCore/QFileInfo>
#include <QtWidgets/QSplitter>
#include <QtWidgets/QTabWidget>
#include <QtWidgets/QVBoxLayout>

namespace vistrel {

namespace {

constexpr int editorShare = 3;
constexpr int panesShare = 1;

} // namespace

ScriptPanel::ScriptPanel(ScriptRuns& runs, ScriptEnvironment& environment, const QString& companion)
    : m_runs(runs)
    , m_environment(environment)
    , m_watch(runs, companion)
    , m_tabs(new EditorTabs(this))
    , m_findBar(new FindBar(*m_tabs, this))
    , m_output(new OutputPane(this))
    , m_errors(new ErrorPane(this))
    , m_panes(new QTabWidget(this))
    , m_splitter(new QSplitter(Qt::Vertical, this))
{
    layOut();
    m_runs.setOutput([this](const QString& text) { takeOutput(text); });
    connect(&m_runs, &ScriptRuns::started, this, &ScriptPanel::beginRun);
    connect(&m_watch, &RunWatch::ended, this,
            [this](RunWatch::Ending, const QString& name, const QString& errors) {
                endRun(name, errors);
            });
    connect(m_errors, &ErrorPane::placeChosen, this, &ScriptPanel::showPlace);
}

ScriptPanel::~ScriptPanel() { m_runs.setOutput(nullptr); }

void ScriptPanel::layOut()
{
    m_panes->addTab(m_output, tr("Output"));
    m_panes->addTab(m_errors, tr("Errors"));
    auto* upper = new QWidget(this);
    auto* upperLayout = new QVBoxLayout(upper);
    upperLayout->setContentsMargins(0, 0, 0, 0);
    upperLayout->addWidget(m_tabs);
    upperLayout->addWidget(m_findBar);
    m_splitter->addWidget(upper);
    m_splitter->addWidget(m_panes);
    m_splitter->setStretchFactor(0, editorShare);
    m_splitter->setStretchFactor(1, panesShare);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_splitter);
}

void ScriptPanel::runCurrent() { run(m_tabs->current()->text()); }

void ScriptPanel::runSelection() { run(m_tabs->current()->selectedLines()); }

void ScriptPanel::run(const QString& text)
{
    ScriptEditor* const editor = m_tabs->current();
    // Paths in a script start at its folder, wherever the viewer was started.
    if (!m_runs.isRunning()) {
        m_runEditor = editor;
        if (!editor->filePath().isEmpty())
            m_environment.setWorkingDirectory(QFileInfo(editor->filePath()).path());
    }
    m_runs.run(text, editor->filePath().isEmpty() ? editor->title() : editor->filePath());
}

void ScriptPanel::takeOutput(const QString& text)
{
    m_output->append(text);
    m_watch.giveWayToEvents();
}

void ScriptPanel::beginRun(const QString& name)
{
    m_runFile = QFileInfo(name).isAbsolute() ? name : QString();
    if (m_runEditor && !m_runFile.isEmpty() && m_runEditor->filePath() != m_runFile)
        m_runEditor = nullptr;
    for (int index = 0; index < m_tabs->count(); ++index)
        m_tabs->editorAt(index)->clearErrors();
    m_output->clear();
    m_errors->showErrors({});
    m_panes->setCurrentWidget(m_output);
}

void ScriptPanel::endRun(const QString& name, const QString& errors)
{
    Q_UNUSED(name)
    m_output->flush();
    if (errors.isEmpty())
        return;
    m_errors->showErrors(errors);
    m_panes->setCurrentWidget(m_errors);
    const std::optional<SourcePlace> place = errorPlaceOf(errors);
    if (place && m_runEditor)
        m_runEditor->showError(place->line);
}

ScriptEditor* ScriptPanel::editorOfRun()
{
    // A script that was chosen in a menu is opened when its errors are looked at.
    if (!m_runEditor && !m_runFile.isEmpty() && m_tabs->open(m_runFile))
        m_runEditor = m_tabs->current();
    return m_runEditor;
}

void ScriptPanel::showPlace(const SourcePlace& place)
{
    ScriptEditor* editor = nullptr;
    if (place.isScript())
        editor = editorOfRun();
    else if (QFileInfo(place.file).isFile() && m_tabs->open(place.file))
        editor = m_tabs->current();
    if (!editor)
        return;
    m_tabs->setCurrentWidget(editor);
    editor->showError(place.line);
}

QString ScriptPanel::outputText() const { return m_output->text(); }

QString ScriptPanel::errorText() const { return m_errors->toPlainText(); }

QByteArray ScriptPanel::saveLayout() const { return m_splitter->saveState(); }

void ScriptPanel::restoreLayout(const QByteArray& layout) { m_splitter->restoreState(layout); }

} // namespace vistrel
