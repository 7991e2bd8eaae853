// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Life cycle of the plugin object.
#include "CxPythonScriptPlugin.h"

#include "Interpreter.h"
#include "Logging.h"
#include "PythonVersion.h"

IxScriptEnvironment* g_pScriptPlugin = nullptr;

CxPythonScriptPlugin::~CxPythonScriptPlugin()
{
    if (!m_initialised)
        return;
    try {
        interpreter::stop(this);
    } catch (...) {
        logCritical(failurePattern, QStringLiteral("Python crashed in Finalize"));
    }
    m_initialised = false;
}

bool CxPythonScriptPlugin::init()
{
    // The interpreter is left to the first run: the Python home comes with it.
    m_initialised = false;
    return true;
}

QString CxPythonScriptPlugin::languageVersion()
{
    return python::languageVersionOf(Py_GetVersion());
}
