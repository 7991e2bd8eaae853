// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Fetches the help texts of functions and methods from the host into the tables, in place.
#include "CxPythonScriptPlugin.h"

#include <IxScriptEnvironment.h>

void CxPythonScriptPlugin::addHelpToPythonFunctions(const char* moduleName,
                                                    PyMethodDef* moduleFunctions,
                                                    const char* typeName, PyMethodDef* typeMethods)
{
    if (g_pScriptPlugin == nullptr)
        return;
    if (moduleName != nullptr && moduleFunctions != nullptr) {
        for (PyMethodDef* entry = moduleFunctions; entry->ml_name != nullptr; ++entry)
            entry->ml_doc = g_pScriptPlugin->functionHelp(moduleName, entry->ml_name);
    }
    if (typeName != nullptr && typeMethods != nullptr) {
        for (PyMethodDef* entry = typeMethods; entry->ml_name != nullptr; ++entry)
            entry->ml_doc = g_pScriptPlugin->methodHelp(typeName, entry->ml_name);
    }
}
