// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Notices modal windows and works them.
#include "app/DialogAnswers.h"

#include "app/DialogParts.h"
#include "core/Log.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QEvent>
#include <QtCore/QPointer>
#include <QtCore/QTimer>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QLineEdit>

namespace vistrel {

namespace {

using namespace std::chrono_literals;

/// How long a button may take until it can be pressed: that of a camera's first picture, mostly.
constexpr auto longestPatience = 10s;
constexpr auto lookAgainAfter = 20ms;

bool isModalWindow(const QWidget& widget) { return widget.isWindow() && widget.isModal(); }

QString quoted(const QStringList& texts)
{
    return u'"' + texts.join(QLatin1String("\", \"")) + u'"';
}

QString misfit(const QString& answer, const QWidget& window)
{
    const QStringList buttons = buttonTexts(window);
    if (buttons.isEmpty())
        return DialogAnswers::tr("dismissed, it has no button for \"%1\"").arg(answer);
    return DialogAnswers::tr("dismissed, \"%1\" is no button that can be pressed; there are %2")
        .arg(answer, quoted(buttons));
}

QAbstractButton* buttonFor(const QString& answer, const QWidget& window)
{
    return asksForLine(window) ? nullptr : buttonCalled(answer, window);
}

} // namespace

DialogAnswers::DialogAnswers(QStringList answers)
    : m_answers(std::move(answers))
{
    QCoreApplication::instance()->installEventFilter(this);
}

DialogAnswers::~DialogAnswers()
{
    if (!m_answers.isEmpty())
        logError(tr("No dialog asked for the answers %1").arg(quoted(m_answers)));
}

bool DialogAnswers::eventFilter(QObject* object, QEvent* event)
{
    if (event->type() != QEvent::Show || event->spontaneous())
        return false;
    auto* widget = qobject_cast<QWidget*>(object);
    if (widget && isModalWindow(*widget)) // not now: whoever shows it is about to wait for it
        attendIn(0ms, *widget, QDeadlineTimer(longestPatience));
    return false;
}

void DialogAnswers::attendIn(std::chrono::milliseconds delay, QWidget& window,
                             const QDeadlineTimer& patience)
{
    auto* timer = new QTimer(&window); // goes with the window
    timer->setSingleShot(true);
    connect(timer, &QTimer::timeout, this, [this, timer, &window, patience] {
        timer->deleteLater();
        if (window.isVisible())
            attend(window, patience);
    });
    timer->start(delay);
}

void DialogAnswers::attend(QWidget& window, const QDeadlineTimer& patience)
{
    if (m_answers.isEmpty()) {
        logError(dialogSummary(window) + tr(": dismissed, no answer is left"));
        dismiss(window);
        return;
    }
    const QAbstractButton* button = buttonFor(m_answers.constFirst(), window);
    if (button && !button->isEnabled() && !patience.hasExpired()) {
        attendIn(lookAgainAfter, window, patience);
        return;
    }
    const QPointer<QWidget> guard(&window);
    give(m_answers.takeFirst(), window);
    if (guard && guard->isVisible())
        attendIn(0ms, window, QDeadlineTimer(longestPatience));
}

void DialogAnswers::give(const QString& answer, QWidget& window)
{
    const QString summary = dialogSummary(window);
    QAbstractButton* button = buttonFor(answer, window);
    QLineEdit* line = button ? nullptr : inputLine(window);
    if (line || (button && button->isEnabled()))
        logInfo(summary + tr(": answered \"%1\"").arg(answer));
    if (line) {
        line->setText(answer);
        confirm(window);
    } else if (button && button->isEnabled()) {
        button->click();
    } else {
        logError(summary + u':' + u' ' + misfit(answer, window));
        dismiss(window);
    }
}

} // namespace vistrel
