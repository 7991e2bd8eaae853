// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Look, place and end of a passing message.
#include "app/Notification.h"

#include <QtCore/QEvent>
#include <QtCore/QPropertyAnimation>
#include <QtWidgets/QGraphicsOpacityEffect>

#include <algorithm>

namespace vistrel {

namespace {

constexpr int inset = 12; // pixels around the text, and between the message and the window's edge
constexpr int widest = 400;

} // namespace

Notification::Notification(QWidget& window, std::chrono::milliseconds stay,
                           std::chrono::milliseconds fade)
    : QLabel(&window)
{
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
    setMargin(inset);
    setFrameStyle(QFrame::StyledPanel | QFrame::Plain);
    setBackgroundRole(QPalette::ToolTipBase);
    setForegroundRole(QPalette::ToolTipText);
    setAutoFillBackground(true);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    hide();

    auto* opacity = new QGraphicsOpacityEffect(this);
    setGraphicsEffect(opacity);
    auto* fading = new QPropertyAnimation(opacity, "opacity");
    fading->setDuration(static_cast<int>(fade.count()));
    fading->setStartValue(1.0);
    fading->setEndValue(0.0);
    m_passing.addPause(static_cast<int>(stay.count()));
    m_passing.addAnimation(fading);
    connect(&m_passing, &QAbstractAnimation::finished, this, &QWidget::hide);
    connect(&m_passing, &QAbstractAnimation::stateChanged, opacity,
            [opacity] { opacity->setOpacity(1.0); });
    window.installEventFilter(this);
}

void Notification::announce(const QString& text)
{
    setText(text);
    place();
    raise();
    show();
    m_passing.stop();
    m_passing.start();
}

bool Notification::eventFilter(QObject* object, QEvent* event)
{
    if (object == parentWidget() && event->type() == QEvent::Resize)
        place();
    return QLabel::eventFilter(object, event);
}

void Notification::place()
{
    const QRect area = parentWidget()->rect().adjusted(inset, inset, -inset, -inset);
    const int wide = std::min({sizeHint().width(), widest, area.width()});
    QRect target(0, 0, wide, std::min(heightForWidth(wide), area.height()));
    target.moveBottomRight(area.bottomRight());
    setGeometry(target);
}

} // namespace vistrel
