// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// What the module's functions that talk to the user do with the host.
#include "FuncApp/UserActions.h"

#include "FuncGraph/UserInterface.h"
#include "HostServices.h"
#include "PyErrors.h"

#include <IxAppDelegate.h>
#include <IxScriptEnvironment.h>

#include <QtCore/QPointer>
#include <QtCore/QScopeGuard>
#include <QtWidgets/QInputDialog>
#include <QtWidgets/QMenu>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QPushButton>

#include <algorithm>

using host_services::application;

namespace user_actions {

namespace {

/// The host's number of the menu that receives script entries.
constexpr int scriptMenu = 3;

using Buttons = std::array<const QAbstractButton*, 3>;

/// Parent of all dialogs; may be null.
QWidget* dialogParent()
{
    // Qt ends the process when a widget is made in a program that has none.
    if (!user_interface::hasWidgets())
        throw python::HostUnavailable("the host has no user interface");
    return application().mainWindow();
}

/// A button, or null for one that is not given.
QAbstractButton* addButton(QMessageBox& box, const QString& text)
{
    return text.isEmpty() ? nullptr : box.addButton(text, QMessageBox::ActionRole);
}

/// The first text only shows when there is a second one: a box with one choice says OK.
Buttons addButtons(QMessageBox& box, const std::array<QString, 3>& texts)
{
    QAbstractButton* const first = texts[1].isEmpty()
                                       ? box.addButton(QMessageBox::Ok)
                                       : box.addButton(texts[0], QMessageBox::ActionRole);
    return {first, addButton(box, texts[1]), addButton(box, texts[2])};
}

/// Position of a button, from 1. No button at all stands at the first place that is free: scripts
/// know 2 as the answer when a box with one button is closed without it.
int numberOf(const QAbstractButton* clicked, const Buttons& buttons)
{
    const auto* const found = std::find(buttons.begin(), buttons.end(), clicked);
    return found != buttons.end() ? static_cast<int>(found - buttons.begin()) + 1 : 0;
}

QMenu* submenuOf(QMenu& menu, const QString& title)
{
    for (QMenu* submenu : menu.findChildren<QMenu*>()) {
        if (submenu->title() == title)
            return submenu;
    }
    return menu.addMenu(title);
}

} // namespace

int messageBox(const QString& title, const QString& text, const std::array<QString, 3>& buttons)
{
    // The parent may go while the box is open, and takes the box along.
    QPointer<QMessageBox> box = new QMessageBox(dialogParent());
    const auto deletion = qScopeGuard([&box] { delete box; });
    box->setWindowTitle(title);
    box->setText(text);
    const Buttons added = addButtons(*box, buttons);
    box->exec();
    return numberOf(box != nullptr ? box->clickedButton() : nullptr, added);
}

QString askForString(const QString& title, const QString& label)
{
    return QInputDialog::getText(dialogParent(), title, label);
}

Outcome<bool> addMenuItem(const QString& title, const QString& script, const QString& submenu,
                          const QString& extra)
{
    QMenu* const menu = application().menu(scriptMenu);
    if (menu == nullptr)
        return silentRefusal;
    QMenu* const target = submenu.isEmpty() ? menu : submenuOf(*menu, submenu);
    host_services::environment().addMenuItem(target, title, script, extra);
    return true;
}

} // namespace user_actions
