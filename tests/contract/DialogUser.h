// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// A user who answers modal dialogs, one after the other.
#pragma once

#include <QtCore/QList>
#include <QtCore/QTimer>
#include <QtWidgets/QApplication>
#include <QtWidgets/QDialog>

#include <functional>

/// Answers each dialog that opens while this lives by the next of its deeds; when none is left, or
/// from the start without any, by rejecting it.
class DialogUser {
public:
    using Deed = std::function<void(QDialog&)>;

    explicit DialogUser(QList<Deed> deeds = {})
        : m_deeds(std::move(deeds))
    {
        // Timers only fire in an event loop: that of an open dialog.
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { answer(); });
        m_timer.start(0);
    }

    int dialogsSeen = 0;

private:
    void answer()
    {
        auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (dialog == nullptr)
            return;
        ++dialogsSeen;
        if (m_deeds.isEmpty())
            dialog->reject();
        else
            m_deeds.takeFirst()(*dialog);
    }

    QList<Deed> m_deeds;
    QTimer m_timer;
};
