// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Changes to a view's processing chain, free of Python.
#pragma once

#include "Refusal.h"

#include <QtCore/QString>

class QDomElement;

/// For the GUI thread. Throws python::HostUnavailable when the host is not there.
namespace chain_actions {

/// Puts a new processing element in front of the active view's own.
/// @param name  the display name of the element's class, in any case.
/// @param conf  the element's settings.
/// Refused when there is no such element or no active view; silently when the view has no chain. A
/// chain that runs is stopped meanwhile.
Outcome<bool> insertElement(const QString& name, const QDomElement& conf);

} // namespace chain_actions
