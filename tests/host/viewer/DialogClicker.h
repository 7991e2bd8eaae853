// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Answers message boxes as a person would.
#pragma once

#include <QtCore/QObject>
#include <QtCore/QStringList>
#include <QtCore/QTimer>
#include <QtTest/QTest>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QApplication>
#include <QtWidgets/QMessageBox>

namespace vistrel {

/// Clicks the buttons of that text in the message boxes to come, one after the other, and keeps
/// what the boxes said.
class DialogClicker : public QObject {
public:
    explicit DialogClicker(QStringList buttons)
        : m_buttons(std::move(buttons))
    {
        connect(&m_timer, &QTimer::timeout, this, &DialogClicker::click);
        m_timer.start(10);
    }

    const QStringList& texts() const { return m_texts; }

private:
    void click()
    {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (!box || m_buttons.isEmpty())
            return;
        const QString wanted = m_buttons.takeFirst();
        m_texts.append(box->text());
        for (QAbstractButton* button : box->buttons())
            if (button->text().remove(u'&') == wanted)
                QTest::mouseClick(button, Qt::LeftButton);
    }

    QStringList m_buttons;
    QStringList m_texts;
    QTimer m_timer;
};

} // namespace vistrel
