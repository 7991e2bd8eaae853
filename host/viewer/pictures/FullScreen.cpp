// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The window keeps its views; its frame goes.
#include "viewer/pictures/FullScreen.h"

#include "app/AppDelegate.h"
#include "app/MainWindow.h"

#include <QtCore/QEvent>
#include <QtGui/QAction>
#include <QtWidgets/QDockWidget>
#include <QtWidgets/QMdiArea>
#include <QtWidgets/QMdiSubWindow>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QStatusBar>
#include <QtWidgets/QToolBar>

namespace vistrel {

FullScreen::FullScreen(MainWindow& window, AppDelegate& delegate)
    : m_window(window)
    , m_delegate(delegate)
    , m_escape(new QAction(tr("Leave full screen"), &window))
{
    m_escape->setShortcut(Qt::Key_Escape);
    m_escape->setEnabled(false); // or it would take the key from everybody
    window.addAction(m_escape);
    window.installEventFilter(this);
    connect(m_escape, &QAction::triggered, this, [this] { set(false); });
    connect(&delegate, &AppDelegate::activeViewChanged, this, [this](int id) {
        if (id < 0)
            set(false);
    });
}

void FullScreen::set(bool on)
{
    if (on == m_isOn)
        return;
    if (on && m_delegate.activeViewId() < 0) {
        m_delegate.showNotification(tr("There is no view to show."));
        Q_EMIT changed(false);
        return;
    }
    m_isOn = on;
    m_escape->setEnabled(on);
    if (on)
        enter();
    else
        leave();
    Q_EMIT changed(on);
}

void FullScreen::enter()
{
    m_layout = m_window.saveState();
    for (QDockWidget* dock : m_window.findChildren<QDockWidget*>())
        dock->hide();
    for (QToolBar* bar : m_window.findChildren<QToolBar*>())
        bar->hide();
    // Not hidden: for want of a menu bar a view that fills the area would have a title bar.
    m_window.menuBar()->setMaximumHeight(0);
    m_window.statusBar()->hide();
    QMdiSubWindow* active = m_window.area()->activeSubWindow();
    m_maximized = active && !active->isMaximized() ? active : nullptr;
    if (m_maximized)
        m_maximized->showMaximized();
    m_delegate.setFullScreen(true);
}

void FullScreen::leave()
{
    m_delegate.setFullScreen(false);
    if (m_maximized)
        m_maximized->showNormal();
    m_window.menuBar()->setMaximumHeight(QWIDGETSIZE_MAX);
    m_window.statusBar()->show();
    m_window.restoreState(m_layout);
}

bool FullScreen::eventFilter(QObject* object, QEvent* event)
{
    if (event->type() == QEvent::WindowStateChange && !m_window.isFullScreen())
        set(false);
    return QObject::eventFilter(object, event);
}

} // namespace vistrel
