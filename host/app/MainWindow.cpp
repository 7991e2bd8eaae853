// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Parts of the main window.
#include "app/MainWindow.h"

#include "app/Notification.h"

#include <QtWidgets/QMdiArea>
#include <QtWidgets/QMenu>
#include <QtWidgets/QMenuBar>

namespace vistrel {

namespace {

constexpr QSize initialSize(1200, 800);

} // namespace

MainWindow::MainWindow()
    : m_area(new QMdiArea(this))
    , m_scriptsMenu(menuBar()->addMenu(tr("&Scripts")))
    , m_notification(new Notification(*this))
{
    // When a view is closed, the one that was active before it follows.
    m_area->setActivationOrder(QMdiArea::ActivationHistoryOrder);
    setCentralWidget(m_area);
    resize(initialSize);
}

QMenu* MainWindow::menu(int which) const { return which == ScriptsMenu ? m_scriptsMenu : nullptr; }

void MainWindow::notify(const QString& text) { m_notification->announce(text); }

} // namespace vistrel
