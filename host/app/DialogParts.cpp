// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Looks into dialogs by the widgets that they are made of.
#include "app/DialogParts.h"

#include "app/Mnemonics.h"

#include <QtCore/QPointer>
#include <QtGui/QTextDocumentFragment>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QAbstractSpinBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QInputDialog>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMessageBox>

#include <algorithm>

namespace vistrel {

namespace {

QString inOneLine(const QString& text)
{
    const bool isRich = Qt::mightBeRichText(text);
    return (isRich ? QTextDocumentFragment::fromHtml(text).toPlainText() : text).simplified();
}

QString textOf(const QWidget& dialog)
{
    if (const auto* box = qobject_cast<const QMessageBox*>(&dialog))
        return inOneLine(box->text());
    if (const auto* input = qobject_cast<const QInputDialog*>(&dialog))
        return inOneLine(input->labelText());
    return {};
}

QList<QAbstractButton*> visibleButtons(const QWidget& dialog)
{
    QList<QAbstractButton*> buttons = dialog.findChildren<QAbstractButton*>();
    buttons.removeIf([](const QAbstractButton* button) {
        return !button->isVisible() || button->text().isEmpty();
    });
    return buttons;
}

template<typename Matches>
QAbstractButton* firstButton(const QList<QAbstractButton*>& buttons, Matches matches)
{
    const auto position = std::find_if(buttons.begin(), buttons.end(), matches);
    return position == buttons.end() ? nullptr : *position;
}

bool isPartOfAnotherField(const QLineEdit& line)
{
    const QWidget* parent = line.parentWidget();
    return qobject_cast<const QAbstractSpinBox*>(parent) || qobject_cast<const QComboBox*>(parent);
}

bool accepts(const QDialogButtonBox& box, QAbstractButton* button)
{
    const QDialogButtonBox::ButtonRole role = box.buttonRole(button);
    return button->isEnabled()
           && (role == QDialogButtonBox::AcceptRole || role == QDialogButtonBox::YesRole);
}

QAbstractButton* acceptingButton(const QWidget& dialog)
{
    for (const QDialogButtonBox* box : dialog.findChildren<QDialogButtonBox*>()) {
        for (QAbstractButton* button : box->buttons()) {
            if (accepts(*box, button))
                return button;
        }
    }
    return nullptr;
}

} // namespace

QString dialogSummary(const QWidget& dialog)
{
    const QString title = QStringLiteral("Dialog \"%1\"").arg(dialog.windowTitle());
    const QString text = textOf(dialog);
    return text.isEmpty() ? title : QStringLiteral("%1, \"%2\"").arg(title, text);
}

QStringList buttonTexts(const QWidget& dialog)
{
    QStringList texts;
    for (const QAbstractButton* button : visibleButtons(dialog))
        texts.append(withoutMnemonics(button->text()));
    return texts;
}

QAbstractButton* buttonCalled(const QString& text, const QWidget& dialog)
{
    const QList<QAbstractButton*> buttons = visibleButtons(dialog);
    // A script that calls a button "R&D" gets one that shows "RD": both may be meant.
    QAbstractButton* exact = firstButton(buttons, [&text](const QAbstractButton* button) {
        return button->text() == text || withoutMnemonics(button->text()) == text;
    });
    return exact ? exact : firstButton(buttons, [&text](const QAbstractButton* button) {
        return withoutMnemonics(button->text()).compare(text, Qt::CaseInsensitive) == 0;
    });
}

bool asksForLine(const QWidget& dialog)
{
    return qobject_cast<const QInputDialog*>(&dialog) || qobject_cast<const QFileDialog*>(&dialog);
}

QLineEdit* inputLine(const QWidget& dialog)
{
    const bool everyLine = asksForLine(dialog);
    for (QLineEdit* line : dialog.findChildren<QLineEdit*>()) {
        const bool takesText = line->isVisible() && line->isEnabled() && !line->isReadOnly();
        if (takesText && (everyLine || !isPartOfAnotherField(*line)))
            return line;
    }
    return nullptr;
}

void confirm(QWidget& dialog)
{
    if (QAbstractButton* button = acceptingButton(dialog))
        button->click();
    else if (auto* plain = qobject_cast<QDialog*>(&dialog))
        plain->accept();
}

void dismiss(QWidget& window)
{
    const QPointer<QWidget> guard(&window);
    window.close();
    auto* dialog = qobject_cast<QDialog*>(guard.data());
    if (dialog && dialog->isVisible()) // a box without a button to escape by
        dialog->done(QDialog::Rejected);
    if (guard && guard->isVisible())
        guard->hide();
}

} // namespace vistrel
