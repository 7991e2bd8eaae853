// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Takes a signal handler away and puts it back.
#include "app/InterruptHandover.h"

#include "app/SignalAction.h"

namespace vistrel {

InterruptHandover::Run::Run(InterruptHandover& handover)
    : m_handover(handover)
{
    if (m_handover.m_handler)
        sigaction(SIGINT, &*m_handover.m_handler, nullptr);
}

InterruptHandover::Run::~Run()
{
    // A script may have chosen the default action or to ignore the signal: that is left alone.
    m_handover.m_handler.reset();
    struct sigaction current = {};
    sigaction(SIGINT, nullptr, &current);
    if (!isFunction(current))
        return;
    m_handover.m_handler = current;
    struct sigaction idle = {};
    idle.sa_handler = m_handover.m_betweenRuns;
    sigaction(SIGINT, &idle, nullptr);
}

} // namespace vistrel
