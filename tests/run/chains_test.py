# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""Processing elements that scripts put in front of views, seen by the pictures that come out."""

import unittest

from program import ProgramTest

# A view of 0, 10 ... 70, and what it shows.
HEAD = """
import vistrel

def show(values, bpc=8):
    image = vistrel.Image()
    image.alloc(len(values), 1, 1, bpc)
    for x, value in enumerate(values):
        image.set_pixel_value(value, x, 0)
    vistrel.new_view_with_image(image)
    return image

def shown():
    image = vistrel.get_view_image()
    return [image.get_pixel_value(x, 0) for x in range(image.width)]

def refusal(*arguments):
    try:
        vistrel.add_chain_object(*arguments)
    except Exception as error:
        return "%s: %s" % (type(error).__name__, error)

steps = list(range(0, 80, 10))
image = show(steps)
"""
BLACK_UP_TO_30 = "[0, 0, 0, 0, 255, 255, 255, 255]"


class Chains(ProgramTest):
    def assert_shown(self, script, *lines, log=()):
        """Runs a script on the view and compares what it prints and what is logged."""
        result = self.run_text(HEAD + script)
        self.assertEqual((result.returncode, result.stdout.splitlines(), result.stderr.splitlines()),
                         (0, list(lines), list(log)))

    def test_names_of_elements_go_by_any_case(self):
        for name in ("Gaussian Blur", "gaussian blur", "GAUSSIAN bLUR"):
            with self.subTest(name):
                self.assert_shown(f"show([0, 0, 90, 0, 0])\n"
                                  f"vistrel.add_chain_object({name!r}, {{'radius': 1}})\n"
                                  "print([value > 0 for value in shown()])",
                                  "[False, True, True, True, False]")

    def test_an_element_without_settings_has_its_defaults(self):
        self.assert_shown("vistrel.add_chain_object('flip')\nprint(shown() == steps[::-1])", "True")

    def test_settings_may_be_whole_numbers_real_ones_and_texts(self):
        for level in ("30", "30.5", "'30'", "True + 29", "type('Level', (int,), {})(30)"):
            with self.subTest(level):
                self.assert_shown(f"vistrel.add_chain_object('Threshold', {{'level': {level}}})\n"
                                  "print(shown())", BLACK_UP_TO_30)

    def test_settings_may_be_true_and_false(self):
        for inverted in (False, True):
            with self.subTest(inverted):
                self.assert_shown(
                    f"conf = {{'level': 30, 'invert': {inverted}}}\n"
                    "vistrel.add_chain_object('Threshold', conf)\n"
                    "print(shown()[0], shown()[-1])", "255 0" if inverted else "0 255")

    def test_settings_may_be_words(self):
        self.assert_shown("vistrel.add_chain_object('Flip', {'direction': 'Vertical'})\n"
                          "print(shown() == steps)", "True")

    def test_settings_of_other_types_are_left_out(self):
        self.assert_shown("conf = {'level': 30, 'invert': [1], 'automatic': None}\n"
                          "vistrel.add_chain_object('Threshold', conf)\nprint(shown())",
                          BLACK_UP_TO_30)

    def test_a_wrong_value_is_logged_and_stays_at_its_default(self):
        self.assert_shown("conf = {'direction': 'diagonal'}\n"
                          "vistrel.add_chain_object('Flip', conf)\nprint(shown() == steps[::-1])",
                          "True", log=['Flip: direction="diagonal" is not horizontal, vertical, '
                                       'both: it stays at horizontal'])

    def test_an_unknown_setting_is_logged_and_the_others_hold(self):
        self.assert_shown("conf = {'value': 9, 'level': 30}\n"
                          "vistrel.add_chain_object('Threshold', conf)\nprint(shown())",
                          BLACK_UP_TO_30, log=['Threshold: there is no setting "value", only '
                                               'level, automatic, invert'])

    def test_a_number_beyond_32_bits_is_cut_as_the_log_shows(self):
        self.assert_shown("vistrel.add_chain_object('Rotate', {'angle': 2**32 + 7})\n",
                          log=['Rotate: angle="7" is not 90, 180, 270: it stays at 90'])

    def test_a_key_that_is_no_text_is_an_error_and_the_other_settings_hold(self):
        self.assert_shown("print(refusal('Threshold', {1: 2, 'level': 30})[:12])\n"
                          "print(shown())", "SystemError:", BLACK_UP_TO_30)

    def test_refusals_leave_the_picture_as_it_was(self):
        self.assert_shown("print(refusal('no such element'))\n"
                          "print(refusal('Flip', [1, 2]))\n"
                          "print(shown() == steps)",
                          "Exception: Cannot find chain object class",
                          "Exception: Config parameter is not of the dictionary type", "True")

    def test_need_a_view(self):
        self.assert_shown("vistrel.close_view()\nprint(refusal('Flip'))\n",
                          "Exception: No active view")

    def test_of_other_views_are_left_alone(self):
        self.assert_shown("first = vistrel.get_active_view_id()\n"
                          "show(steps)\n"
                          "vistrel.add_chain_object('Flip')\n"
                          "print(shown() == steps[::-1])\n"
                          "vistrel.activate_view(first)\n"
                          "print(shown() == steps)", "True", "True")

    def test_elements_work_in_the_order_in_which_they_came(self):
        blur = "vistrel.add_chain_object('Gaussian Blur')\n"
        threshold = "vistrel.add_chain_object('Threshold', {'level': 30})\n"
        black_and_white = "print(set(shown()) <= {0, 255})"
        self.assert_shown(blur + threshold + black_and_white, "True")
        self.assert_shown(threshold + blur + black_and_white, "False")

    def test_a_picture_that_is_set_later_is_processed_and_the_scripts_own_is_not(self):
        self.assert_shown("vistrel.add_chain_object('Threshold', {'level': 30})\n"
                          "vistrel.set_view_image(image)\n"
                          "print(shown())\n"
                          "print([image.get_pixel_value(x, 0) for x in range(8)] == steps)",
                          BLACK_UP_TO_30, "True")

    def test_a_picture_of_a_file_is_processed(self):
        result = self.run_text("import vistrel\n"
                               "vistrel.add_chain_object('Threshold', {'level': 6})\n"
                               "print(vistrel.get_view_image().get_pixel_value(0, 0))",
                               '--open', self.picture(grey=7))
        self.assert_succeeds(result, "255\n")

    def test_pictures_keep_their_depth(self):
        for bpc in (8, 12, 16):
            with self.subTest(bpc):
                self.assert_shown(
                    f"white = 2 ** {bpc} - 1\n"
                    f"show([0] * 10 + [white] * 10, {bpc})\n"
                    "vistrel.add_chain_object('Gaussian Blur', {'sigma': 1.5})\n"
                    "print(vistrel.get_view_image().bpc)\n"
                    "print(shown()[0], shown()[-1] == white)\n"
                    "print(abs(shown()[9] + shown()[10] - white) <= 1)\n"
                    "print(any(value % 256 for value in shown()[5:15]))",
                    str(bpc), "0 True", "True", "True")


if __name__ == "__main__":
    unittest.main()
