# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""The generator of help texts: what it makes of a good stub, what it refuses."""

import ctypes
import inspect
import os
import subprocess
import sys
import tempfile
import types
import unittest
from pathlib import Path

GENERATOR = Path(os.environ["VISTREL_HELP_GENERATOR"])
sys.path.insert(0, str(GENERATOR.parent))
import generate_help  # noqa: E402

GOOD = '''\
"""A small module."""
from typing import Final

def close(view_id: int = -1, title: str = "a \\\\ b", /) -> None:
    """Close a view.

    Args:
        view_id: id: any.
            Or none.
        title: in "quotes", ü.
    """

class Image:
    """A picture."""

    def get_width(self) -> int:
        """Get the width.

        Returns:
            pixels.
        """

    width: Final[int]
    """Pixels."""
'''

FUNCTION = '''\
def close(view_id: int, /) -> int:
    """Close a view.

    Args:
        view_id: which.

    Returns:
        what.
    """
'''


class MethodDef(ctypes.Structure):
    """PyMethodDef of Python's C interface."""

    _fields_ = [
        ("name", ctypes.c_char_p),
        ("function", ctypes.c_void_p),
        ("flags", ctypes.c_int),
        ("doc", ctypes.c_char_p),
    ]


class GoodStub(unittest.TestCase):
    def setUp(self):
        self.help = generate_help.read_stub(GOOD)

    def built_in(self, entry):
        """A real built-in function with the entry's text; it is not to be called."""
        record = MethodDef(entry.name.encode(), 1, 1, entry.text.encode())
        self.addCleanup(lambda: record)  # the function points to it
        new = ctypes.pythonapi.PyCFunction_NewEx
        new.restype = ctypes.py_object
        new.argtypes = [ctypes.POINTER(MethodDef), ctypes.py_object, ctypes.py_object]
        return new(ctypes.byref(record), types.ModuleType("vistrel"), "vistrel")

    def test_functions_and_methods_go_under_the_names_of_the_host(self):
        self.assertEqual([entry[:2] for entry in self.help.functions], [("vistrel", "close")])
        self.assertEqual([entry[:2] for entry in self.help.methods], [("imgObj", "get_width")])

    def test_python_reads_the_signature(self):
        function = self.built_in(self.help.functions[0])
        self.assertEqual(
            str(inspect.signature(function)), "(view_id=-1, title='a \\\\ b', /)"
        )

    def test_python_shows_the_text_without_the_signature(self):
        doc = self.built_in(self.help.functions[0]).__doc__
        self.assertTrue(doc.startswith("Close a view.\n\nArgs:\n"), doc)

    def test_types_stand_in_the_lists_of_arguments_and_results(self):
        function, method = self.help.functions[0].text, self.help.methods[0].text
        self.assertIn(
            '    view_id (int): id: any.\n        Or none.\n    title (str): in "quotes", ü.',
            function,
        )
        self.assertIn("Returns:\n    int: pixels.", method)

    def test_a_method_without_parameters_has_only_self(self):
        self.assertTrue(self.help.methods[0].text.startswith("get_width($self, /)\n--\n\n"))

    def test_the_table_escapes_what_the_compiler_would_misread(self):
        table = generate_help.make_table(self.help)
        self.assertIn('"    title (str): in \\"quotes\\", ü."', table)
        self.assertIn('title=\\"a \\\\\\\\ b\\", /)\\n"', table)


class Refusals(unittest.TestCase):
    def assert_refused(self, stub, line, reason):
        with self.assertRaisesRegex(generate_help.StubError, reason) as caught:
            generate_help.read_stub(stub)
        self.assertEqual(caught.exception.line, line)

    def assert_refused_change(self, old, new, line, reason):
        self.assertIn(old, FUNCTION)
        self.assert_refused("\n" + FUNCTION.replace(old, new), line, reason)

    def test_the_stub_that_the_others_change_is_good(self):
        self.assertEqual(len(generate_help.read_stub(FUNCTION).functions), 1)

    def test_a_function_without_doc_text(self):
        self.assert_refused("\ndef close() -> None: ...\n", 2, "close: no doc text")

    def test_a_class_without_doc_text(self):
        self.assert_refused("class Image:\n    pass\n", 1, "Image: no doc text")

    def test_an_attribute_without_doc_text(self):
        stub = GOOD.replace('    """Pixels."""\n', "")
        self.assert_refused(stub, 23, "width: no doc text")

    def test_an_attribute_without_annotation(self):
        stub = GOOD.replace("width: Final[int]", "width = 1")
        self.assert_refused(stub, 23, "an attribute has no annotation")

    def test_a_parameter_without_annotation(self):
        self.assert_refused_change(
            "view_id: int", "view_id", 2, "the parameter view_id has no annotation"
        )

    def test_a_result_without_annotation(self):
        self.assert_refused_change(" -> int", "", 2, "the result has no annotation")

    def test_parameters_that_are_not_positional_only(self):
        for others in ("view_id: int", "*view_id: int", "*, view_id: int", "**view_id: int"):
            self.assert_refused_change("view_id: int, /", others, 2, "is not positional-only")

    def test_a_method_without_self(self):
        stub = GOOD.replace("get_width(self)", "get_width()")
        self.assert_refused(stub, 16, "the first parameter is not self")

    def test_a_default_that_is_no_literal(self):
        self.assert_refused_change("int, /", "int = NONE, /", 2, "a default is no literal")

    def test_a_list_of_arguments_that_differs_from_the_parameters(self):
        self.assert_refused_change(
            "view_id: which", "view: which", 3, r"Args lists \(view\) for \(view_id\)"
        )

    def test_a_result_that_is_not_told(self):
        self.assert_refused_change("Returns:\n        what.", "It.", 3, "Returns does not go with")

    def test_a_result_that_is_none(self):
        self.assert_refused_change("-> int", "-> None", 3, "Returns does not go with")

    def test_a_first_line_that_is_no_sentence(self):
        self.assert_refused_change("a view.", "a", 3, "the first line is no sentence")

    def test_a_quotation_over_the_end_of_a_line(self):
        self.assert_refused_change("what.", 'the "long\n    text".', 9, "runs over the end")

    def test_a_line_that_is_too_long(self):
        self.assert_refused_change("which.", "x" * 64, 6, "a line of 81 columns")

    def test_a_line_that_its_type_makes_too_long(self):
        self.assert_refused_change("which.", "x" * 62, 6, "a line of 81 columns")

    def test_a_text_that_is_too_long(self):
        paragraph = "a view.\n" + 70 * ("    " + 59 * "x" + "\n")
        self.assert_refused_change("a view.\n", paragraph, 3, "4[0-9]{3} characters")

    def test_a_function_defined_twice(self):
        self.assert_refused(FUNCTION + FUNCTION, 10, "close: defined twice")

    def test_a_class_that_the_host_has_no_name_for(self):
        self.assert_refused('class Film:\n    """A film."""\n', 1, "Film: the class has no host")

    def test_a_text_that_is_no_python(self):
        self.assert_refused("\ndef close(:\n", 2, "invalid syntax")


class Program(unittest.TestCase):
    def run_on(self, stub):
        """Exit status, error output, and the table or None."""
        with tempfile.TemporaryDirectory() as folder:
            source, table = Path(folder, "s.pyi"), Path(folder, "t.cpp")
            source.write_text(stub, encoding="utf-8")
            command = [sys.executable, str(GENERATOR), str(source), str(table)]
            done = subprocess.run(command, stderr=subprocess.PIPE, check=False)
            made = table.read_text(encoding="utf-8") if table.exists() else None
            return done.returncode, done.stderr.decode().replace(folder, ""), made

    def test_writes_the_table(self):
        table = generate_help.make_table(generate_help.read_stub(GOOD))
        self.assertEqual(self.run_on(GOOD), (0, "", table))

    def test_names_file_and_line_of_an_error_and_writes_nothing(self):
        message = "/s.pyi:1: error: close: no doc text\n"
        self.assertEqual(self.run_on("def close() -> None: ...\n"), (1, message, None))


if __name__ == "__main__":
    unittest.main()
