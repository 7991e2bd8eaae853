// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The editor's colours, light and dark.
#pragma once

class QPalette;
class QsciLexerPython;
class QsciScintilla;

namespace vistrel {

/// Gives an editor the colours that go with a palette, and a font of fixed width.
void applyPythonColours(QsciScintilla& editor, QsciLexerPython& lexer, const QPalette& palette);

} // namespace vistrel
