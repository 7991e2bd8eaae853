# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""Dialogs, menu entries and notifications of scripts that nobody sees."""

import unittest

from program import ProgramTest

ASKS = """
import vistrel
part = vistrel.ask_user_for_string("Part", "Number:")
button = vistrel.message_box("Part", "Is " + part + " in place?", "Yes", "No")
print(repr(part), button)
"""


class Dialogs(ProgramTest):
    def assert_logged(self, result, *lines):
        self.assertEqual(result.stderr.splitlines(), list(lines))

    def test_answers_go_to_dialogs_in_their_order(self):
        result = self.run_text(ASKS, "--answer", "größe 4711", "--answer", "No")
        self.assertEqual((result.returncode, result.stdout), (0, "'größe 4711' 2\n"))
        self.assert_logged(
            result, 'Dialog "Part", "Number:": answered "größe 4711"',
            'Dialog "Part", "Is größe 4711 in place?": answered "No"')

    def test_dialogs_without_an_answer_are_dismissed(self):
        result = self.run_text(ASKS)
        self.assertEqual((result.returncode, result.stdout), (0, "'' 3\n"))
        self.assert_logged(
            result, 'Dialog "Part", "Number:": dismissed, no answer is left',
            'Dialog "Part", "Is in place?": dismissed, no answer is left')

    def test_an_answer_that_is_no_button_names_the_buttons(self):
        result = self.run_text(ASKS, "--answer", "1", "--answer", "Maybe")
        self.assertEqual(result.stdout, "'1' 3\n")
        self.assertTrue(result.stderr.endswith('"Maybe" is no button that can be pressed; there '
                                               'are "Yes", "No"\n'), result.stderr)

    def test_a_message_is_closed_by_its_only_button(self):
        result = self.run_text("import vistrel\nprint(vistrel.message_box('T', 'done'))")
        self.assertEqual((result.returncode, result.stdout), (0, "1\n"))

    def test_answers_may_look_like_options_and_be_empty(self):
        result = self.run_text(ASKS, "--answer=--help", "--answer", "")
        self.assertEqual(result.stdout, "'--help' 3\n")

    def test_answers_are_kept_for_later_scripts(self):
        first = self.script("import vistrel", "first.py")
        second = self.script(ASKS, "second.py")
        result = self.call("--answer", "7", "--answer", "Yes", first, second)
        self.assertEqual(result.stdout, "'7' 1\n")

    def test_answers_that_nobody_asked_for_are_told(self):
        result = self.run_text("pass", "--answer", "Yes", "--answer", "No")
        self.assertEqual(result.returncode, 0)
        self.assert_logged(result, 'No dialog asked for the answers "Yes", "No"')

    def test_dialogs_at_the_interpreters_end_hold_nothing_up(self):
        result = self.run_text("import atexit, vistrel\n"
                               "atexit.register(vistrel.message_box, 'T', 'bye')")
        self.assertEqual(result.returncode, 0)
        self.assertIn('"bye": dismissed', result.stderr)


class Menus(ProgramTest):
    ADDS = "import vistrel\nvistrel.add_menu_item('&Measure', 'measure.py', 'Tools')\n"

    def setUp(self):
        super().setUp()
        self.adding = self.script(self.ADDS, "add.py")

    def test_chosen_entries_run_after_the_scripts(self):
        self.script("print('measured')", "measure.py")
        last = self.script("print('last')", "last.py")
        for entry in ("Measure", "Tools/Measure"):
            with self.subTest(entry):
                self.assert_succeeds(self.call("--choose", entry, self.adding, last),
                                     "last\nmeasured\n")

    def test_entries_may_add_entries(self):
        self.script(self.ADDS.replace("&Measure", "More").replace("measure.py", "more.py"),
                    "measure.py")
        self.script("print('more')", "more.py")
        self.assert_succeeds(
            self.call("--choose", "Measure", "--choose", "More", self.adding), "more\n")

    def test_failures_of_chosen_scripts_count(self):
        self.script("1/0", "measure.py")
        result = self.call("--choose", "Measure", self.adding)
        self.assertEqual(result.returncode, 1)
        self.assertIn("ZeroDivisionError", result.stderr)

    def test_a_chosen_script_that_is_gone_is_a_failure(self):
        result = self.call("--choose", "Measure", self.adding)
        self.assertEqual(result.returncode, 1)
        self.assertIn("measure.py was not run: ", result.stderr)

    def test_an_entry_that_is_not_there_is_a_failure(self):
        result = self.call("--choose", "Nothing", self.adding)
        self.assertEqual((result.returncode, result.stdout), (1, ""))
        self.assertEqual(result.stderr, "vistrel-run: the script menu has no entry Nothing\n")

    def test_a_shortcut_that_is_none_is_told(self):
        result = self.run_text("import vistrel\nvistrel.add_menu_item('M', 'm.py', '', 'no key')")
        self.assertEqual(result.stderr,
                         '"no key" is no keyboard shortcut: the entry M has none\n')


class Messages(ProgramTest):
    def test_notifications_are_log_lines(self):
        result = self.run_text("import vistrel\nvistrel.show_notification('größe ok')")
        self.assertEqual((result.returncode, result.stderr), (0, "größe ok\n"))

    def test_error_log_lines_are_quoted_and_no_failure(self):
        result = self.run_text("import vistrel\nvistrel.print_to_error_log('a \"b\"')")
        self.assertEqual((result.returncode, result.stderr), (0, '"a \\"b\\""\n'))


if __name__ == "__main__":
    unittest.main()
