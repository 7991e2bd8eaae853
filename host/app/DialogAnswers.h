// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Answers for modal dialogs where nobody sees them.
#pragma once

#include <QtCore/QDeadlineTimer>
#include <QtCore/QObject>
#include <QtCore/QStringList>

#include <chrono>

class QWidget;

namespace vistrel {

/// While it lives, no modal window of the program waits for a person: as soon as one is shown it
/// gets the next answer, and is dismissed when there is none left or when the answer does not fit.
/// It knows no particular dialog. GUI thread, one at a time.
///
/// An answer is the text of the button to press: exactly, then without regard to case; mnemonics do
/// not count. A button that is disabled is waited for some seconds. Dialogs that ask for a line or
/// for a file take the answer as what is typed, and so does every dialog with an input line that
/// has no such button. A dialog that is still open after an answer gets the next one.
///
/// Each dialog leaves a line in the log: what it said, and what became of it.
class DialogAnswers : public QObject {
    Q_OBJECT

public:
    explicit DialogAnswers(QStringList answers);
    /// Logs the answers that no dialog asked for.
    ~DialogAnswers() override;

    const QStringList& left() const { return m_answers; }

    bool eventFilter(QObject* object, QEvent* event) override;

private:
    void attendIn(std::chrono::milliseconds delay, QWidget& window, const QDeadlineTimer& patience);
    void attend(QWidget& window, const QDeadlineTimer& patience);
    void give(const QString& answer, QWidget& window);

    QStringList m_answers;
};

} // namespace vistrel
