// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Starts the embedded interpreter.
#include "Interpreter.h"

#include "FuncApp/AppModule.h"
#include "FuncApp/AppScripts.h"
#include "FuncImage/BorrowedImages.h"
#include "OutputCapture.h"
#include "PyErrors.h"
#include "PythonVersion.h"

#include <IxScriptEnvironment.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QFileInfo>

#include <dlfcn.h>

namespace interpreter {

namespace {

/// For whom the interpreter was started; null when that was not done here.
const void* g_owner = nullptr;

/// Where below a Python home its standard library may lie. The module `encodings` is the first that
/// the interpreter needs.
QStringList standardLibraryPlaces()
{
    const QString version = python::versionOfLibraryFolder();
    return {QStringLiteral("lib/python%1/encodings/__init__.py").arg(version),
            QStringLiteral("lib/python%1/encodings/__init__.pyc").arg(version),
            QStringLiteral("lib64/python%1/encodings/__init__.py").arg(version),
            QStringLiteral("lib/python%1.zip").arg(QString(version).remove(QLatin1Char('.')))};
}

bool holdsStandardLibrary(const QString& home)
{
    // A home may name two folders, for platform-independent and for binary modules.
    const QDir folder(home.section(QLatin1Char(':'), 0, 0));
    for (const QString& place : standardLibraryPlaces()) {
        const QFileInfo file(folder.filePath(place));
        if (file.isFile() && file.size() > 0)
            return true;
    }
    return false;
}

/// Makes the symbols of the Python library global. The host loads this plugin, and with it the
/// library, with local symbols; binary modules such as numpy find Python's functions in the global
/// scope only.
void makeLibraryGlobal()
{
    Dl_info info;
    if (dladdr(reinterpret_cast<void*>(&Py_Initialize), &info) != 0)
        dlopen(info.dli_fname, RTLD_NOW | RTLD_GLOBAL | RTLD_NOLOAD);
}

// Both calls are deprecated from 3.11 on, UTF-8 mode's switch from 3.12 on; what replaces them is
// not in the limited API.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"
void initialize(const QString& pythonHome)
{
    const std::wstring program = QCoreApplication::applicationFilePath().toStdWString();
    const std::wstring home = pythonHome.toStdWString();
    Py_SetProgramName(program.c_str());
    // An empty home means the default. Before 3.11 an empty text would be taken as a folder without
    // a library, and end the process.
    Py_SetPythonHome(home.empty() ? nullptr : home.c_str());
    // Paths and texts are UTF-8 in the host, whatever the locale says.
    Py_UTF8Mode = 1;
    PyImport_AppendInittab("emb", emb::PyInit_emb);
    fx_pyapp_register();
    Py_Initialize();
}
#pragma GCC diagnostic pop

void publishConstants(IxScriptEnvironment& env)
{
    PyObject* mainModule = PyImport_AddModule("__main__");
    if (mainModule == nullptr)
        return;
    for (const auto& constant : env.apiParamDefs()) {
        PyModule_AddStringConstant(mainModule, constant.name.toUtf8().constData(),
                                   constant.text.toUtf8().constData());
    }
    for (const auto& constant : env.apiParamEnumVals()) {
        PyModule_AddIntConstant(mainModule, constant.name.toUtf8().constData(), constant.value);
    }
}

} // namespace

QString reasonNotToStart(const QString& pythonHome)
{
    const QString home = pythonHome.isEmpty() ? qEnvironmentVariable("PYTHONHOME") : pythonHome;
    if (home.isEmpty() || holdsStandardLibrary(home))
        return {};
    return QStringLiteral("Python home \"%1\" holds no standard library (%2 is missing)")
        .arg(home, standardLibraryPlaces().constFirst());
}

void start(const QString& pythonHome, IxScriptEnvironment& env, const void* owner)
{
    makeLibraryGlobal();
    // A process has one interpreter. When it runs already it is used as it is: the calls that
    // prepare a start would end the process.
    if (!isRunning()) {
        initialize(pythonHome);
        g_owner = owner;
    }
    publishConstants(env);
    // The module stays imported for as long as the interpreter lives; so does this reference.
    PyImport_ImportModule("emb");
    python::printPendingError();
    fx_pyapp_RunPythonString("import vistrel");
}

void stop(const void* owner)
{
    if (g_owner != owner)
        return;
    g_owner = nullptr;
    Py_Finalize();
    borrowed_images::forgetAll();
}

bool isRunning() { return Py_IsInitialized() != 0; }

} // namespace interpreter
