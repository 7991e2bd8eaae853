// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Answers file dialogs as a person would.
#pragma once

#include <QtCore/QObject>
#include <QtCore/QStringList>
#include <QtCore/QTimer>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>

namespace vistrel {

/// Fills these names into the file dialogs to come, one after the other, and clicks Save or Open;
/// an empty name gives the dialog up.
class FileDialogFiller : public QObject {
public:
    explicit FileDialogFiller(QStringList names)
        : m_names(std::move(names))
    {
        connect(&m_timer, &QTimer::timeout, this, &FileDialogFiller::fill);
        m_timer.start(10);
    }

private:
    void fill()
    {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        if (!dialog || m_names.isEmpty())
            return;
        const QString name = m_names.takeFirst();
        const bool isSaving = dialog->acceptMode() == QFileDialog::AcceptSave;
        const auto wanted = isSaving ? QDialogButtonBox::Save : QDialogButtonBox::Open;
        // Not typed: the list of completions would come in between.
        dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(name);
        auto* buttons = dialog->findChild<QDialogButtonBox*>();
        QTest::mouseClick(buttons->button(name.isEmpty() ? QDialogButtonBox::Cancel : wanted),
                          Qt::LeftButton);
    }

    QStringList m_names;
    QTimer m_timer;
};

} // namespace vistrel
