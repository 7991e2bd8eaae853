// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The built-in module `vistrel`.
#include "FuncApp/AppModule.h"

#include "CallGuard.h"
#include "CxPythonScriptPlugin.h"
#include "FuncApp/AppViews.h"
#include "FuncCamera/CameraType.h"
#include "FuncGraph/GraphType.h"
#include "FuncImage/ImageType.h"
#include "PyErrors.h"

#include <cstdio>

using python::guarded;
using python::PyRef;

PyMethodDef px_app_funcs[] = {
    {"get_number_devices", guarded<fx_pycams_GetCount>, METH_NOARGS, nullptr},
    {"open_file", guarded<fx_pyapp_OpenFile>, METH_VARARGS, nullptr},
    {"save_to_file", guarded<fx_pyapp_SaveToFile>, METH_VARARGS, nullptr},
    {"duplicate_view", guarded<fx_pyapp_DuplicateView>, METH_VARARGS, nullptr},
    {"get_active_view_id", guarded<fx_pyapp_GetActiveViewId>, METH_NOARGS, nullptr},
    {"activate_view", guarded<fx_pyapp_ActivateView>, METH_VARARGS, nullptr},
    {"close_view", guarded<fx_pyapp_CloseView>, METH_VARARGS, nullptr},
    {"tile_views", guarded<fx_pyapp_TileViews>, METH_NOARGS, nullptr},
    {"switch_full_screen", guarded<fx_pyapp_SwitchFullScreen>, METH_VARARGS, nullptr},
    {"wait_for_next_frame", guarded<fx_pyapp_WaitForNextFrame>, METH_VARARGS, nullptr},
    {"wait", guarded<fx_pyapp_Wait>, METH_VARARGS, nullptr},
    {"get_view_image", guarded<fx_pyapp_GetViewImage>, METH_VARARGS, nullptr},
    {"set_view_image", guarded<fx_pyapp_SetViewImage>, METH_VARARGS, nullptr},
    {"new_view_with_image", guarded<fx_pyapp_NewViewWithImage>, METH_VARARGS, nullptr},
    {nullptr, nullptr, 0, nullptr},
};

namespace {

PyModuleDef px_app_module{PyModuleDef_HEAD_INIT,
                          "vistrel",
                          nullptr,
                          -1,
                          px_app_funcs,
                          nullptr,
                          nullptr,
                          nullptr,
                          nullptr};

PyObject* moduleInit(PyObject*)
{
    CxPythonScriptPlugin::addHelpToPythonFunctions("vistrel", px_app_funcs, nullptr, nullptr);
    fx_pycams_TypeReady();
    fx_pygraphs_TypeReady();
    fx_pyimages_TypeReady();
    PyRef module = PyRef::take(PyModule_Create2(&px_app_module, PYTHON_ABI_VERSION));
    if (!module)
        return nullptr;
    // A type that cannot be added has said so itself; the module goes without it.
    fx_pycams_TypeAdd(module.get());
    fx_pygraphs_TypeAdd(module.get());
    fx_pyimages_TypeAdd(module.get());
    return module.release();
}

PyObject* py_app_moduleInit() { return python::guardedSlot<moduleInit>(nullptr); }

} // namespace

void fx_pyapp_register()
{
    // Too early for Python's streams, and no error state exists yet.
    if (PyImport_AppendInittab("vistrel", py_app_moduleInit) == -1)
        std::fputs("Error: could not extend in-built modules table\n", stderr);
}

void fx_pyapp_RunPythonString(const char* text)
{
    const PyRef code = PyRef::take(Py_CompileString(text, "<string>", Py_file_input));
    PyObject* mainModule = code ? PyImport_AddModule("__main__") : nullptr;
    if (mainModule != nullptr) {
        PyObject* names = PyModule_GetDict(mainModule);
        const PyRef result = PyRef::take(PyEval_EvalCode(code.get(), names, names));
        // A Ctrl-C during the very last instruction still belongs to this script.
        if (result)
            PyErr_CheckSignals();
    }
    python::printPendingError();
}
