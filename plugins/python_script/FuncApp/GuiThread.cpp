// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The main-thread rule of the module's functions.
#include "FuncApp/GuiThread.h"

#include "HostServices.h"
#include "PyErrors.h"

#include <IxScriptEnvironment.h>

namespace gui_thread {

bool isAllowed(const char* message)
{
    if (host_services::environment().isGuiThread())
        return true;
    python::raise(Refusal{message});
    return false;
}

} // namespace gui_thread
