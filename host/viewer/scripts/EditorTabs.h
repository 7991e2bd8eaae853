// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The open scripts.
#pragma once

#include "viewer/scripts/ApiCatalog.h"

#include <QtCore/QStringList>
#include <QtWidgets/QTabWidget>

namespace vistrel {

class ScriptEditor;

/// A tab for each open script; there is always at least one. Asks before changes are lost, and
/// tells the user in a message box what could not be read or written.
class EditorTabs : public QTabWidget {
    Q_OBJECT

public:
    explicit EditorTabs(QWidget* parent = nullptr);

    ScriptEditor* current() const;
    ScriptEditor* editorAt(int index) const;
    /// The editor of a file that is open; null when it is not.
    ScriptEditor* editorOf(const QString& path) const;

    ScriptEditor* newScript();
    /// Opens a file, or shows its tab when it is open already. False when it cannot be read.
    bool open(const QString& path);
    /// Saves the current script, asking for a name when it has none. False when it was not saved.
    bool save();
    bool saveAs();
    /// Closes a tab, after asking when changes would be lost. False when the user wants to keep it.
    bool close(int index);
    /// Asks for each script with changes what to do. False when the user wants to go on editing.
    bool mayCloseAll();

    /// The files of the tabs, in their order.
    QStringList openFiles() const;

Q_SIGNALS:
    /// A file has been opened or saved under that name.
    void fileUsed(const QString& path);

private:
    bool saveEditor(ScriptEditor& editor, const QString& path);
    bool saveAs(ScriptEditor& editor);
    bool mayClose(ScriptEditor& editor);
    void showTitle(const ScriptEditor& editor);
    bool isUntouched(const ScriptEditor& editor) const;

    ApiCatalog m_catalog;
};

} // namespace vistrel
