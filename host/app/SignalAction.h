// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// What the system does with a signal.
#pragma once

#include <csignal>

namespace vistrel {

/// Whether the handler takes the signal's origin besides its number.
inline bool hasInfo(const struct sigaction& action) { return (action.sa_flags & SA_SIGINFO) != 0; }

/// Whether a function is called, instead of the default action or nothing.
inline bool isFunction(const struct sigaction& action)
{
    return hasInfo(action) || (action.sa_handler != SIG_DFL && action.sa_handler != SIG_IGN);
}

} // namespace vistrel
