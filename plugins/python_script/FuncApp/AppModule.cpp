// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The built-in module `vistrel`.
#include "FuncApp/AppModule.h"

#include "CallGuard.h"
#include "CxPythonScriptPlugin.h"
#include "FuncApp/AppChains.h"
#include "FuncApp/AppScripts.h"
#include "FuncApp/AppUser.h"
#include "FuncApp/AppVariables.h"
#include "FuncApp/AppViews.h"
#include "FuncApp/ScriptDepth.h"
#include "FuncCamera/CameraType.h"
#include "FuncGraph/GraphType.h"
#include "FuncImage/ImageType.h"
#include "PyErrors.h"

#include <cstdio>
#include <cstring>

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
    {"add_chain_object", guarded<fx_pyapp_AddChainObject>, METH_VARARGS, nullptr},
    {"wait_for_next_frame", guarded<fx_pyapp_WaitForNextFrame>, METH_VARARGS, nullptr},
    {"wait", guarded<fx_pyapp_Wait>, METH_VARARGS, nullptr},
    {"get_view_image", guarded<fx_pyapp_GetViewImage>, METH_VARARGS, nullptr},
    {"set_view_image", guarded<fx_pyapp_SetViewImage>, METH_VARARGS, nullptr},
    {"new_view_with_image", guarded<fx_pyapp_NewViewWithImage>, METH_VARARGS, nullptr},
    {"record_video_to_file", guarded<fx_pyapp_RecordVideoToFile>, METH_VARARGS, nullptr},
    {"stop_video_recording", guarded<fx_pyapp_StopVideoRecording>, METH_VARARGS, nullptr},
    {"message_box", guarded<fx_pyapp_MessageBox>, METH_VARARGS, nullptr},
    {"show_notification", guarded<fx_pyapp_ShowNotification>, METH_VARARGS, nullptr},
    {"print_to_error_log", guarded<fx_pyapp_PrintToErrorLog>, METH_VARARGS, nullptr},
    {"ask_user_for_string", guarded<fx_pyapp_AskUserForString>, METH_VARARGS, nullptr},
    {"add_menu_item", guarded<fx_pyapp_AddMenuItem>, METH_VARARGS, nullptr},
    {"run_script", guarded<fx_pyapp_RunScript>, METH_VARARGS, nullptr},
    {"get_working_directory", guarded<fx_pyapp_GetWorkingDirectory>, METH_NOARGS, nullptr},
    {"play_sound", guarded<fx_pyapp_PlaySound>, METH_VARARGS, nullptr},
    {"set_global_variable_img", guarded<fx_pyapp_SetGlobalVariableImg>, METH_VARARGS, nullptr},
    {"get_global_variable_img", guarded<fx_pyapp_GetGlobalVariableImg>, METH_VARARGS, nullptr},
    {"set_global_variable_int", guarded<fx_pyapp_SetGlobalVariableInt>, METH_VARARGS, nullptr},
    {"get_global_variable_int", guarded<fx_pyapp_GetGlobalVariableInt>, METH_VARARGS, nullptr},
    {"set_global_variable_string", guarded<fx_pyapp_SetGlobalVariableString>, METH_VARARGS,
     nullptr},
    {"get_global_variable_string", guarded<fx_pyapp_GetGlobalVariableString>, METH_VARARGS,
     nullptr},
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
    if (!script_depth::prepare())
        return nullptr;
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

PyMethodDef* fx_pyapp_function(const char* name)
{
    PyMethodDef* function = px_app_funcs;
    while (std::strcmp(function->ml_name, name) != 0)
        ++function;
    return function;
}

void fx_pyapp_register()
{
    // Too early for Python's streams, and no error state exists yet.
    if (PyImport_AppendInittab("vistrel", py_app_moduleInit) == -1)
        std::fputs("Error: could not extend in-built modules table\n", stderr);
}
