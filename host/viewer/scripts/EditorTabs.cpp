// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Files in tabs, and the questions that go with them.
#include "viewer/scripts/EditorTabs.h"

#include "viewer/scripts/ScriptEditor.h"

#include <QtCore/QFileInfo>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QMessageBox>

namespace vistrel {

namespace {

QString fileFilter() { return EditorTabs::tr("Python scripts (*.py);;All files (*)"); }

void tell(QWidget* parent, const QString& reason)
{
    QMessageBox::warning(parent, EditorTabs::tr("Scripts"), reason);
}

} // namespace

EditorTabs::EditorTabs(QWidget* parent)
    : QTabWidget(parent)
{
    setTabsClosable(true);
    setMovable(true);
    setDocumentMode(true);
    connect(this, &QTabWidget::tabCloseRequested, this, &EditorTabs::close);
    newScript();
}

ScriptEditor* EditorTabs::current() const { return editorAt(currentIndex()); }

ScriptEditor* EditorTabs::editorAt(int index) const
{
    return qobject_cast<ScriptEditor*>(widget(index));
}

ScriptEditor* EditorTabs::editorOf(const QString& path) const
{
    for (int index = 0; index < count(); ++index)
        if (!path.isEmpty() && editorAt(index)->filePath() == path)
            return editorAt(index);
    return nullptr;
}

ScriptEditor* EditorTabs::newScript()
{
    auto* editor = new ScriptEditor(m_catalog, this);
    setCurrentIndex(addTab(editor, QString()));
    connect(editor, &QsciScintilla::modificationChanged, this,
            [this, editor] { showTitle(*editor); });
    showTitle(*editor);
    return editor;
}

void EditorTabs::showTitle(const ScriptEditor& editor)
{
    const int index = indexOf(&editor);
    setTabText(index, (editor.isModified() ? QStringLiteral("*") : QString()) + editor.title());
    setTabToolTip(index, editor.filePath());
}

bool EditorTabs::isUntouched(const ScriptEditor& editor) const
{
    return editor.filePath().isEmpty() && !editor.isModified() && editor.length() == 0;
}

bool EditorTabs::open(const QString& path)
{
    const QString absolute = QFileInfo(path).absoluteFilePath();
    if (ScriptEditor* const open = editorOf(absolute)) {
        setCurrentWidget(open);
        return true;
    }
    ScriptEditor* const before = current();
    ScriptEditor* const editor = isUntouched(*before) ? before : newScript();
    QString error;
    if (!editor->load(absolute, error)) {
        if (editor != before)
            delete editor;
        tell(this, error);
        return false;
    }
    showTitle(*editor);
    Q_EMIT fileUsed(absolute);
    return true;
}

bool EditorTabs::save()
{
    ScriptEditor& editor = *current();
    return editor.filePath().isEmpty() ? saveAs(editor) : saveEditor(editor, editor.filePath());
}

bool EditorTabs::saveAs() { return saveAs(*current()); }

bool EditorTabs::saveAs(ScriptEditor& editor)
{
    QFileDialog dialog(this, tr("Save script"), QString(), fileFilter());
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(QStringLiteral("py"));
    dialog.selectFile(editor.filePath());
    return dialog.exec() == QDialog::Accepted
           && saveEditor(editor, dialog.selectedFiles().constFirst());
}

bool EditorTabs::saveEditor(ScriptEditor& editor, const QString& path)
{
    QString error;
    if (!editor.save(path, error)) {
        tell(this, error);
        return false;
    }
    showTitle(editor);
    Q_EMIT fileUsed(editor.filePath());
    return true;
}

bool EditorTabs::mayClose(ScriptEditor& editor)
{
    if (!editor.isModified())
        return true;
    setCurrentWidget(&editor);
    const auto answer = QMessageBox::question(
        this, tr("Unsaved changes"), tr("Save the changes of %1?").arg(editor.title()),
        QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, QMessageBox::Save);
    if (answer == QMessageBox::Save)
        return save();
    return answer == QMessageBox::Discard;
}

bool EditorTabs::close(int index)
{
    ScriptEditor* const editor = editorAt(index);
    if (!editor || !mayClose(*editor))
        return false;
    removeTab(index);
    editor->deleteLater();
    if (count() == 0)
        newScript();
    return true;
}

bool EditorTabs::mayCloseAll()
{
    for (int index = 0; index < count(); ++index)
        if (!mayClose(*editorAt(index)))
            return false;
    return true;
}

QStringList EditorTabs::openFiles() const
{
    QStringList files;
    for (int index = 0; index < count(); ++index)
        if (!editorAt(index)->filePath().isEmpty())
            files.append(editorAt(index)->filePath());
    return files;
}

} // namespace vistrel
