# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
# The plugin file as a binary: which symbols it needs, from whom.

import os
import re
import subprocess
import sysconfig
import unittest

PLUGIN = os.environ["VISTREL_PLUGIN"]
COMPILER = os.environ["VISTREL_COMPILER"]
INCLUDES = os.environ["VISTREL_PYTHON_INCLUDES"].split(":")


def output(*command: str) -> str:
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout


def undefined_symbols() -> set[str]:
    lines = output("nm", "--dynamic", "--undefined-only", PLUGIN).splitlines()
    return {line.split()[-1].split("@")[0] for line in lines}


def needed_libraries() -> list[str]:
    return re.findall(r"\(NEEDED\).*\[(.*)\]", output("readelf", "--dynamic", PLUGIN))


def limited_api_names() -> set[str]:
    """All names that Python's headers declare at the floor of 3.8."""
    options = ["-DPy_LIMITED_API=0x03080000", "-DPY_SSIZE_T_CLEAN", "-E", "-P", "-xc", "-"]
    text = subprocess.run(
        [COMPILER, *("-I" + folder for folder in INCLUDES), *options],
        input="#include <Python.h>\n", check=True, capture_output=True, text=True).stdout
    return set(re.findall(r"\b_?Py[A-Za-z0-9_]+", text))


class PluginBinary(unittest.TestCase):
    def test_uses_nothing_outside_the_limited_api_of_3_8(self) -> None:
        used = {name for name in undefined_symbols() if re.match(r"_?Py", name)}
        self.assertIn("Py_Initialize", used)
        self.assertEqual(used - limited_api_names(), set())

    def test_the_check_knows_what_is_outside(self) -> None:
        names = limited_api_names()
        self.assertIn("PyType_FromSpec", names)
        self.assertIn("_PyArg_ParseTuple_SizeT", names)
        for later in ("PyUnicode_AsUTF8AndSize", "PyObject_CallNoArgs", "PyType_GetName"):
            self.assertNotIn(later, names)

    def test_depends_on_python_qt_and_the_plot_library_but_on_no_host(self) -> None:
        ours = [name for name in needed_libraries() if "vistrel" in name]
        self.assertEqual(ours, [])
        known = re.compile(r"lib(python3[.0-9]*|Qt6(Core|Gui|Widgets|PrintSupport|Xml)|QCustomPlotQt6)"
                           r"\.so|lib(stdc\+\+|m|c|gcc_s|dl|pthread)\.so|lib(asan|ubsan|tsan)\.so|ld-linux")
        self.assertEqual([name for name in needed_libraries() if not known.match(name)], [])

    def test_runs_under_the_python_that_was_asked_for(self) -> None:
        # Another python3 may come first on PATH; this test runs with the one that CMake was told.
        self.assertIn(sysconfig.get_config_var("INSTSONAME"), needed_libraries())

    def test_exports_the_plugin_entry_and_what_no_table_holds(self) -> None:
        lines = output("nm", "--dynamic", "--defined-only", PLUGIN).splitlines()
        strong = {line.split()[-1] for line in lines if line.split()[-2] == "T"}
        entry = {"qt_plugin_instance", "qt_plugin_query_metadata_v2"}
        presets = {"fx_pycam_ActivateShadingPreset", "fx_pycam_CreateShadingPreset"}
        self.assertEqual(strong, entry | presets)


if __name__ == "__main__":
    unittest.main()
