// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Notices modal windows and works them.
#include "app/DialogAnswers.h"

#include "app/DialogParts.h"
#include "core/Log.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QEvent>
#include <QtCore/QTimer>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QLineEdit>

#include <chrono>

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
    if (widget && isModalWindow(*widget))
        attendSoon(widget);
    return false;
}

void DialogAnswers::attendSoon(const QPointer<QWidget>& window)
{
    // Not now: whoever shows it is about to wait for it.
    const QDeadlineTimer patience(longestPatience);
    QTimer::singleShot(0, this, [this, window, patience] { attend(window, patience); });
}

void DialogAnswers::attend(const QPointer<QWidget>& window, const QDeadlineTimer& patience)
{
    if (!window || !window->isVisible())
        return;
    if (m_answers.isEmpty()) {
        logError(dialogSummary(*window) + tr(": dismissed, no answer is left"));
        dismiss(*window);
        return;
    }
    const QAbstractButton* button = buttonFor(m_answers.constFirst(), *window);
    if (button && !button->isEnabled() && !patience.hasExpired()) {
        QTimer::singleShot(lookAgainAfter, this,
                           [this, window, patience] { attend(window, patience); });
        return;
    }
    give(m_answers.takeFirst(), *window);
    if (window && window->isVisible())
        attendSoon(window);
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
