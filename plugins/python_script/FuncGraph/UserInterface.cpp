// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// What the process has of Qt's user interface.
#include "FuncGraph/UserInterface.h"

#include <QtCore/QThread>
#include <QtWidgets/QApplication>

namespace user_interface {

bool hasWidgets() { return qobject_cast<QApplication*>(QCoreApplication::instance()) != nullptr; }

bool hasClipboard()
{
    return qobject_cast<QGuiApplication*>(QCoreApplication::instance()) != nullptr;
}

bool isGuiThread() { return QThread::currentThread() == QCoreApplication::instance()->thread(); }

} // namespace user_interface
