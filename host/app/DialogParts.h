// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// What a dialog says and offers, and how it is worked without a mouse.
#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>

class QAbstractButton;
class QLineEdit;
class QWidget;

namespace vistrel {

/// A dialog's title and text in one line, for people.
QString dialogSummary(const QWidget& dialog);

/// The texts of the buttons that a person would see, without mnemonics.
QStringList buttonTexts(const QWidget& dialog);
/// The button of that text, enabled or not; null when there is none.
QAbstractButton* buttonCalled(const QString& text, const QWidget& dialog);

/// Whether a dialog is one that asks for a line of text, of which a file's name is one.
bool asksForLine(const QWidget& dialog);
/// Where that line is typed; in other dialogs an input line that is not part of something else.
/// Null when there is none.
QLineEdit* inputLine(const QWidget& dialog);
/// Does what the return key does.
void confirm(QWidget& dialog);

/// Closes a window as its user would; one that refuses is hidden, so that nothing waits for it.
void dismiss(QWidget& window);

} // namespace vistrel
