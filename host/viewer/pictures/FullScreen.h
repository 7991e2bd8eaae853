// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The active view alone on the screen.
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QObject>
#include <QtCore/QPointer>

class QAction;
class QMdiSubWindow;

namespace vistrel {

class AppDelegate;
class MainWindow;

/// Hides everything around the views, and brings it back as it was. Escape leaves it, and so does
/// whoever takes the window off the full screen.
class FullScreen : public QObject {
    Q_OBJECT

public:
    /// Both must outlive the object.
    FullScreen(MainWindow& window, AppDelegate& delegate);

    bool isOn() const { return m_isOn; }
    /// Without a view there is nothing to show, and it stays off.
    void set(bool on);

    bool eventFilter(QObject* object, QEvent* event) override;

Q_SIGNALS:
    void changed(bool on);

private:
    void enter();
    void leave();

    MainWindow& m_window;
    AppDelegate& m_delegate;
    QAction* m_escape; // the window's
    bool m_isOn = false;
    QByteArray m_layout;                 // of the panels before
    QPointer<QMdiSubWindow> m_maximized; // by us
};

} // namespace vistrel
