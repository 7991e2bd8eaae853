// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Set-up of the editor component, files, and what it does with whole lines.
#include "viewer/scripts/ScriptEditor.h"

#include "app/ScriptFile.h"
#include "core/FileReplacement.h"
#include "viewer/scripts/ApiCompletion.h"
#include "viewer/scripts/PythonColours.h"
#include "viewer/scripts/SelectedScript.h"

#include <Qsci/qscilexerpython.h>

#include <QtCore/QEvent>
#include <QtCore/QFileInfo>
#include <QtGui/QAction>
#include <QtGui/QFontDatabase>
#include <QtGui/QKeyEvent>

#include <algorithm>
#include <optional>

namespace vistrel {

namespace {

constexpr int numberMargin = 0;
constexpr int errorMargin = 1;
constexpr int errorMarker = 1;
constexpr int errorMarginWidth = 14;
constexpr int indentColumns = 4;
constexpr int lettersBeforeCompletion = 2;
constexpr int longLine = 100;

const QString commentMark = QStringLiteral("# ");

} // namespace

ScriptEditor::ScriptEditor(const ApiCatalog& catalog, QWidget* parent)
    : QsciScintilla(parent)
{
    setUtf8(true);
    setEolMode(EolUnix);
    setLexer(new QsciLexerPython(this));
    setUpMargins();
    setUpCompletion(catalog);
    setUpIndentation();
    setBraceMatching(SloppyBraceMatch);
    setCaretLineVisible(true);
    setEdgeMode(EdgeLine);
    setEdgeColumn(longLine);
    applyColours();
}

void ScriptEditor::setUpMargins()
{
    setMarginType(numberMargin, NumberMargin);
    setMarginType(errorMargin, SymbolMargin);
    setMarginWidth(errorMargin, errorMarginWidth);
    setMarginMarkerMask(errorMargin, 1 << errorMarker);
    markerDefine(RightTriangle, errorMarker);
    const auto fitNumbers = [this] {
        setMarginWidth(numberMargin, QString::number(std::max(lines(), 100)) + u'0');
    };
    connect(this, &QsciScintilla::linesChanged, this, fitNumbers);
    fitNumbers();
}

void ScriptEditor::setUpCompletion(const ApiCatalog& catalog)
{
    lexer()->setAPIs(new ApiCompletion(catalog, lexer()));
    setAutoCompletionSource(AcsAll);
    setAutoCompletionThreshold(lettersBeforeCompletion);
    setAutoCompletionCaseSensitivity(false);
    setCallTipsStyle(CallTipsNoContext);
    setCallTipsVisible(0);
}

void ScriptEditor::setUpIndentation()
{
    setIndentationsUseTabs(false);
    setIndentationWidth(indentColumns);
    setTabWidth(indentColumns);
    setTabIndents(true);
    setAutoIndent(true);
    setBackspaceUnindents(true);
    setIndentationGuides(true);
}

void ScriptEditor::applyColours()
{
    applyPythonColours(*this, *qobject_cast<QsciLexerPython*>(lexer()), palette());
    setMarkerBackgroundColor(QColor(Qt::red), errorMarker);
    setMarkerForegroundColor(QColor(Qt::red), errorMarker);
}

bool ScriptEditor::event(QEvent* event)
{
    // The component has many keys of its own, such as Ctrl+T; the window's commands go first.
    const bool isOverride = event->type() == QEvent::ShortcutOverride;
    if (isOverride && isCommandOfWindow(*static_cast<QKeyEvent*>(event))) {
        event->ignore();
        return true;
    }
    return QsciScintilla::event(event);
}

bool ScriptEditor::isCommandOfWindow(const QKeyEvent& keys) const
{
    const QKeySequence pressed(keys.keyCombination());
    const auto actions = window()->findChildren<QAction*>();
    return std::any_of(actions.begin(), actions.end(), [&pressed](const QAction* action) {
        return action->shortcutContext() == Qt::WindowShortcut && action->isEnabled()
               && action->shortcuts().contains(pressed);
    });
}

void ScriptEditor::changeEvent(QEvent* event)
{
    QsciScintilla::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && lexer())
        applyColours();
}

QString ScriptEditor::title() const
{
    return m_filePath.isEmpty() ? tr("New script") : QFileInfo(m_filePath).fileName();
}

bool ScriptEditor::load(const QString& path, QString& error)
{
    // Not what it can make of any bytes: the next save would spoil the others.
    QString reason;
    const std::optional<QString> script = readScriptFile(path, reason);
    if (!script) {
        error = tr("%1 cannot be read: %2").arg(path, reason);
        return false;
    }
    setText(*script);
    convertEols(EolUnix);
    m_filePath = QFileInfo(path).absoluteFilePath();
    setModified(false);
    return true;
}

bool ScriptEditor::save(const QString& path, QString& error)
{
    QString reason;
    if (!replaceFile(path, text().toUtf8(), reason)) {
        error = tr("%1 cannot be written: %2").arg(path, reason);
        return false;
    }
    m_filePath = QFileInfo(path).absoluteFilePath();
    setModified(false);
    return true;
}

ScriptEditor::LineRange ScriptEditor::chosenLines() const
{
    int firstLine = 0;
    int firstColumn = 0;
    int lastLine = 0;
    int lastColumn = 0;
    if (!hasSelectedText()) {
        getCursorPosition(&firstLine, &firstColumn);
        return {firstLine, firstLine};
    }
    getSelection(&firstLine, &firstColumn, &lastLine, &lastColumn);
    // A selection that ends before the first character of a line does not mean that line.
    const bool endsAtLineStart = lastColumn == 0 && lastLine > firstLine;
    return {firstLine, endsAtLineStart ? lastLine - 1 : lastLine};
}

QString ScriptEditor::selectedLines() const
{
    const LineRange chosen = chosenLines();
    return selectedScript(text(), chosen.first, chosen.last);
}

void ScriptEditor::toggleComment()
{
    const LineRange chosen = chosenLines();
    const bool remove = areComments(chosen);
    beginUndoAction();
    for (int line = chosen.first; line <= chosen.last; ++line) {
        if (remove)
            uncommentLine(line);
        else
            commentLine(line);
    }
    endUndoAction();
}

bool ScriptEditor::areComments(LineRange chosen) const
{
    for (int line = chosen.first; line <= chosen.last; ++line) {
        const QString content = text(line).trimmed();
        if (!content.isEmpty() && !content.startsWith(u'#'))
            return false;
    }
    return true;
}

void ScriptEditor::commentLine(int line)
{
    if (!text(line).trimmed().isEmpty())
        insertAt(commentMark, line, 0);
}

void ScriptEditor::uncommentLine(int line)
{
    const QString content = text(line);
    const int mark = static_cast<int>(content.indexOf(u'#'));
    if (mark < 0)
        return;
    const bool hasBlank = content.mid(mark).startsWith(commentMark);
    setSelection(line, mark, line, mark + (hasBlank ? 2 : 1));
    removeSelectedText();
}

void ScriptEditor::goToLine(int line)
{
    setCursorPosition(line - 1, 0);
    ensureLineVisible(line - 1);
    setFocus();
}

void ScriptEditor::showError(int line)
{
    clearErrors();
    markerAdd(line - 1, errorMarker);
    goToLine(line);
}

void ScriptEditor::clearErrors() { markerDeleteAll(errorMarker); }

bool ScriptEditor::findNext(const QString& sought, bool forward)
{
    if (sought.isEmpty())
        return false;
    int line = -1;
    int column = -1;
    // Backwards a search would find the very text that is selected now.
    if (!forward && hasSelectedText()) {
        int lastLine = 0;
        int lastColumn = 0;
        getSelection(&line, &column, &lastLine, &lastColumn);
    }
    return findFirst(sought, false, false, false, true, forward, line, column);
}

} // namespace vistrel
