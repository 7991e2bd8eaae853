// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Lets a wait inside the host end as soon as the user interrupts the program.
#pragma once

#include <QtCore/QtGlobal>

#include <csignal>

namespace vistrel {

/// While it lives, SIGINT also makes a descriptor readable. The handler that was there before is
/// called as ever: it is the interpreter's, which raises KeyboardInterrupt when the wait returns.
/// Where SIGINT has its default action or is ignored, nothing is changed.
///
/// Watches may be nested, the innermost one gets the signal; they end in the reverse order of their
/// beginning, on one thread.
class InterruptWatch {
public:
    InterruptWatch();
    ~InterruptWatch();
    Q_DISABLE_COPY_MOVE(InterruptWatch)

    /// Readable after an interrupt; -1 when the system has no descriptor left.
    int descriptor() const { return m_descriptor; }

private:
    void install(const struct sigaction& current);
    void uninstall();

    const int m_descriptor;
    const int m_outerDescriptor;
    bool m_installed = false;
    struct sigaction m_replaced = {}; // what was there when this watch began
};

} // namespace vistrel
