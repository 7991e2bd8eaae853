// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The text of one script.
#pragma once

#include <Qsci/qsciscintilla.h>

namespace vistrel {

class ApiCatalog;

/// An editor for Python with line numbers, highlighting, completion and call tips. Lines are
/// counted from 1, as Python counts them.
class ScriptEditor : public QsciScintilla {
    Q_OBJECT

public:
    /// The catalog must outlive the editor.
    explicit ScriptEditor(const ApiCatalog& catalog, QWidget* parent = nullptr);

    /// The file that holds the script; empty when none does yet.
    const QString& filePath() const { return m_filePath; }
    /// The file's name, or a name for a script without one.
    QString title() const;
    /// Replaces the text by a file's. False with the reason in `error`; nothing is changed then.
    bool load(const QString& path, QString& error);
    /// Writes the text to a file, which is the script's from then on. The file is replaced as a
    /// whole or not at all. False with the reason in `error`.
    bool save(const QString& path, QString& error);

    /// The selected lines as a script whose lines keep their numbers; the cursor's line when
    /// nothing is selected.
    QString selectedLines() const;
    /// Makes the selected lines comments, or takes the marks away when all of them are comments.
    void toggleComment();
    /// Moves the cursor to a line and shows it.
    void goToLine(int line);
    /// Marks a line as the place of an error and goes there.
    void showError(int line);
    void clearErrors();
    /// Selects the next place where the text stands, from the cursor on and around the end.
    bool findNext(const QString& text, bool forward = true);

protected:
    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    struct LineRange {
        int first; // from 0
        int last;
    };

    void setUpMargins();
    void setUpCompletion(const ApiCatalog& catalog);
    void setUpIndentation();
    void applyColours();
    bool isCommandOfWindow(const QKeyEvent& keys) const;
    LineRange chosenLines() const;
    bool areComments(LineRange lines) const;
    void commentLine(int line);
    void uncommentLine(int line);

    QString m_filePath;
};

} // namespace vistrel
