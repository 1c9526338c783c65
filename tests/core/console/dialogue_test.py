#!/usr/bin/env python3
"""Holds dialogues on the console as a user does: dialogue_test.py [--windows] PROGRAM [ARGUMENT...]

PROGRAM runs the dialogue program, perhaps through Wine, in whose console the same must be seen.
"""
import os
import sys
import unittest

from terminal import Terminal

NORMAL, ERROR, PROMPT, TYPED = 97, 91, 93, 96
TITLE = TYPED


class DialogueTest(unittest.TestCase):
    command = []
    windows = False

    def start(self, name, output=None):
        return Terminal(self.command + [name], output)

    def colored(self, terminal, word, color):
        self.assertEqual(terminal.screen.colors_of(word), {color}, word)

    def test_numbers_are_asked_for_until_they_fit(self):
        user = self.start("numbers")
        user.until("Count:")
        user.type("zw\r")
        user.until("Illegal! Try again:")
        self.colored(user, "Count:", PROMPT)
        self.colored(user, "zw", TYPED)
        self.colored(user, "Illegal! Try again:", PROMPT)
        user.type("99\r")
        user.until("Too large! Try again:")
        user.type("0\r")
        user.until("Too small! Try again:")
        user.type("11\r")
        user.until("Wave length [m]:")
        self.assertIn("count=11 flags=NUM_ABOVELIMIT", user.screen.text())
        self.colored(user, "count=11", NORMAL)
        user.type("2.5\r")
        user.until("Values:")
        self.assertIn("length=2.500", user.screen.text())
        user.type("1 2 -3e2\r")
        self.assertEqual(user.close(), 0)
        self.assertIn("status=0 found=3 last=-300", user.screen.text())

    def test_typing_can_be_corrected(self):
        user = self.start("text")
        user.until("Text:")
        user.type("abx\x7fc\r")
        self.assertEqual(user.close(), 0)
        self.assertIn("[abc]", user.screen.text())

    def test_text_is_shown_in_both_widths(self):
        user = self.start("text")
        user.until("Text:")
        user.type("gr\u00fc\u00df\r")
        self.assertEqual(user.close(), 0)
        self.assertIn("[gr\u00fc\u00df]", user.screen.text())
        self.assertIn("wide \u00e4\u20ac narrow \u00e4\u20ac", user.screen.text())

    def test_the_end_of_the_input_ends_one_line(self):
        user = self.start("end")
        user.until("First:")
        user.type("\x1a\r" if self.windows else "\x04")
        user.until("Second:")
        self.assertIn("none=NaN", user.screen.text())
        user.type("1\r")
        self.assertEqual(user.close(), 0)
        self.assertIn("one=1.0", user.screen.text())

    def test_keys_need_no_line(self):
        user = self.start("keys")
        codes = [("a", 97), (" ", 32), ("\r", 13), ("\u00e4", 228)]
        for key, code in codes:
            user.until("Key?")
            user.type(key)
            user.until(f"code={code}")
        self.colored(user, "Key?", PROMPT)
        self.assertIn("Key? a code=97", user.screen.text())
        # A cursor key stands for no character.
        user.type("\x1b[A")
        user.type("b")
        user.until("code=98")
        self.assertEqual(user.screen.text().count("code="), len(codes) + 1)
        user.type("q")
        self.assertEqual(user.close(), 0)

    def test_a_menu_comes_back_until_another_key(self):
        user = self.start("menu")
        user.until("Your choice:")
        rows = [row for row in user.screen.rows() if row]
        dashes = " " + 59 * "-"
        self.assertEqual(rows[1:], [dashes, " l       Load a data file", " s       Select data",
                                    " other   terminate", dashes, " Your choice:"])
        self.assertIn("Main MENU:", rows[0])
        self.colored(user, "Main MENU:", TITLE)
        self.colored(user, " l ", PROMPT)
        self.colored(user, "Load a data file", NORMAL)
        self.colored(user, "other   terminate", PROMPT)
        user.type("l")
        user.until("Hit any key to continue")
        self.assertIn("loaded 5 1 context", user.screen.text())
        user.type(" ")
        user.until("Your choice:")
        self.assertNotIn("loaded", user.screen.text(), "the screen is cleared for the menu")
        user.type("s")
        user.until("Hit any key to continue")
        self.assertIn("Error 14: Missing input data", user.screen.text())
        self.colored(user, "Error 14: Missing input data", ERROR)
        user.type("\r")
        user.until("Your choice:")
        user.type("x")
        self.assertEqual(user.close(), 0)
        self.assertIn("Your choice: x other", user.screen.text())
        self.assertIn("left with 0", user.screen.text())

    def test_a_blank_leaves_the_menu(self):
        user = self.start("menu")
        user.until("Your choice:")
        user.type(" ")
        self.assertEqual(user.close(), 0)
        self.assertNotIn("other\n", user.screen.text() + "\n")
        self.assertIn("left with 0", user.screen.text())

    def test_the_screen_is_cleared_filled_and_coloured(self):
        user = self.start("screen")
        user.until("done?")
        rows = user.screen.rows()
        self.assertEqual(rows[0:5], 5 * [""])
        self.assertEqual(rows[5], 10 * " " + "set=0")
        self.assertEqual(rows[6], "get=0 15 5")
        self.assertEqual(rows[7], "first")
        self.assertEqual(rows[8], "colour0")
        # Light grey is the colour that Wine's console has by itself.
        grey = None if self.windows else 37
        for number, color in enumerate([97, 91, 92, 94, 93, 96, 95, grey]):
            if number not in (2, 3):  # the filled section lies there
                self.colored(user, f"colour{number}", color)
        self.assertEqual(rows[10], "co####2")
        self.assertEqual(rows[11], "co####3")
        self.assertEqual(rows[16:20], ["abc", "above", "done?", ""])
        if not self.windows:
            self.assertEqual(user.screen.title, "Dialogue title")
        user.type("k")
        self.assertEqual(user.close(), 0)

    def test_a_redirected_output_is_plain_text(self):
        if self.windows:
            self.skipTest("Wine has no console for a keyboard alone")
        reader, writer = os.pipe()
        user = self.start("numbers", writer)
        os.close(writer)
        user.type("7\r2.5\r1 2\r")
        self.assertEqual(user.close(), 0)
        with os.fdopen(reader, encoding="utf-8", newline="") as output:
            self.assertEqual(output.read(),
                             " Count: count=7 flags=\n Wave length [m]: length=2.500\n"
                             " Values: status=0 found=2 last=2\n")


if __name__ == "__main__":
    arguments = sys.argv[1:]
    DialogueTest.windows = "--windows" in arguments
    DialogueTest.command = [a for a in arguments if a != "--windows"]
    unittest.main(argv=sys.argv[:1], verbosity=1)
