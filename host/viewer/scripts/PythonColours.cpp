// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// One table of colours for each style of Python text.
#include "viewer/scripts/PythonColours.h"

#include <Qsci/qscilexerpython.h>
#include <Qsci/qsciscintilla.h>

#include <QtGui/QFontDatabase>
#include <QtGui/QPalette>

#include <array>

namespace vistrel {

namespace {

struct StyleColours {
    int style;
    QRgb light;
    QRgb dark;
};

constexpr QRgb comment[] = {0xff5c6b73, 0xff8a99a1};
constexpr QRgb string[] = {0xff1b7f3b, 0xff8fce9b};
constexpr QRgb keyword[] = {0xff7a1fa2, 0xffc99bf0};
constexpr QRgb number[] = {0xff0b5fa5, 0xff7cbcf2};
constexpr QRgb definition[] = {0xffa35400, 0xfff0b36b};

constexpr std::array styles = {
    StyleColours{QsciLexerPython::Comment, comment[0], comment[1]},
    StyleColours{QsciLexerPython::CommentBlock, comment[0], comment[1]},
    StyleColours{QsciLexerPython::SingleQuotedString, string[0], string[1]},
    StyleColours{QsciLexerPython::DoubleQuotedString, string[0], string[1]},
    StyleColours{QsciLexerPython::TripleSingleQuotedString, string[0], string[1]},
    StyleColours{QsciLexerPython::TripleDoubleQuotedString, string[0], string[1]},
    StyleColours{QsciLexerPython::SingleQuotedFString, string[0], string[1]},
    StyleColours{QsciLexerPython::DoubleQuotedFString, string[0], string[1]},
    StyleColours{QsciLexerPython::TripleSingleQuotedFString, string[0], string[1]},
    StyleColours{QsciLexerPython::TripleDoubleQuotedFString, string[0], string[1]},
    StyleColours{QsciLexerPython::UnclosedString, string[0], string[1]},
    StyleColours{QsciLexerPython::Keyword, keyword[0], keyword[1]},
    StyleColours{QsciLexerPython::Number, number[0], number[1]},
    StyleColours{QsciLexerPython::ClassName, definition[0], definition[1]},
    StyleColours{QsciLexerPython::FunctionMethodName, definition[0], definition[1]},
    StyleColours{QsciLexerPython::Decorator, definition[0], definition[1]},
};

constexpr int darkestLight = 128; // a base darker than this is a dark theme
constexpr int lineTint = 12;      // of 255: how much the cursor's line stands out

bool isDark(const QPalette& palette)
{
    return palette.color(QPalette::Base).lightness() < darkestLight;
}

QColor mixed(const QColor& base, const QColor& other, int share)
{
    const auto mix = [share](int a, int b) { return a + (b - a) * share / 255; };
    return QColor(mix(base.red(), other.red()), mix(base.green(), other.green()),
                  mix(base.blue(), other.blue()));
}

void colourText(QsciLexerPython& lexer, const QPalette& palette)
{
    const QColor base = palette.color(QPalette::Base);
    lexer.setDefaultFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    lexer.setDefaultPaper(base);
    lexer.setPaper(base);
    lexer.setColor(palette.color(QPalette::Text));
    lexer.setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    for (const StyleColours& colours : styles)
        lexer.setColor(QColor(isDark(palette) ? colours.dark : colours.light), colours.style);
}

void colourFrame(QsciScintilla& editor, const QPalette& palette)
{
    const QColor base = palette.color(QPalette::Base);
    const QColor text = palette.color(QPalette::Text);
    editor.setCaretForegroundColor(text);
    editor.setCaretLineBackgroundColor(mixed(base, text, lineTint));
    editor.setMarginsBackgroundColor(palette.color(QPalette::Window));
    editor.setMarginsForegroundColor(palette.color(QPalette::PlaceholderText));
    editor.setEdgeColor(mixed(base, text, 2 * lineTint));
    editor.setSelectionBackgroundColor(palette.color(QPalette::Highlight));
    editor.setSelectionForegroundColor(palette.color(QPalette::HighlightedText));
    editor.setMatchedBraceBackgroundColor(mixed(base, text, 4 * lineTint));
    editor.setMatchedBraceForegroundColor(text);
}

} // namespace

void applyPythonColours(QsciScintilla& editor, QsciLexerPython& lexer, const QPalette& palette)
{
    colourText(lexer, palette);
    colourFrame(editor, palette);
}

} // namespace vistrel
