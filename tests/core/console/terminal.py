"""A program in a pseudo terminal, and the screen that its user sees.

The screen knows as much of ECMA-48 as the module and Wine's console send: moving, clearing, colours,
the title, and the question for the place of the cursor, which it answers.
"""
import codecs
import fcntl
import os
import pty
import re
import select
import signal
import struct
import termios
import time

ROWS, COLUMNS = 24, 80
SEQUENCE = re.compile(r"\x1b(?:\[([?>=]?)([0-9;]*)([@-~])|\]([^\x07\x1b]*)(?:\x07|\x1b\\)|([78=>cM]))")
UNFINISHED = re.compile(r"\x1b(?:\[[?>=]?[0-9;]*|\][^\x07\x1b]*\x1b?)?$")


class Screen:
    def __init__(self):
        self.cells = [self.blank_row() for _ in range(ROWS)]
        self.x = self.y = 0
        self.saved = (0, 0)
        self.color = None
        self.title = ""
        self.sequences = 0
        self.pending = ""
        self.replies = ""

    @staticmethod
    def blank_row():
        return [(" ", None)] * COLUMNS

    def feed(self, text):
        text = self.pending + text
        self.pending = ""
        position = 0
        while position < len(text):
            if text[position] != "\x1b":
                self.put(text[position])
                position += 1
                continue
            match = SEQUENCE.match(text, position)
            if not match:
                if UNFINISHED.match(text, position):
                    self.pending = text[position:]
                    return
                raise ValueError(f"unknown sequence {text[position:position + 20]!r}")
            self.obey(match)
            position = match.end()

    def put(self, char):
        if char == "\r":
            self.x = 0
        elif char == "\n":
            self.down()
        elif char == "\b":
            self.x = max(self.x - 1, 0)
        elif char == "\t":
            self.x = min(self.x // 8 * 8 + 8, COLUMNS - 1)
        elif char >= " ":
            if self.x == COLUMNS:
                self.x = 0
                self.down()
            self.cells[self.y][self.x] = (char, self.color)
            self.x += 1

    def down(self):
        if self.y + 1 < ROWS:
            self.y += 1
        else:
            self.cells = self.cells[1:] + [self.blank_row()]

    def obey(self, match):
        self.sequences += 1
        private, parameters, final, command, single = match.groups()
        if command is not None:
            if command[:2] in ("0;", "2;"):
                self.title = command[2:]
        elif single == "7":
            self.saved = (self.x, self.y)
        elif single == "8":
            self.x, self.y = self.saved
        elif final and not private:
            numbers = [int(n) if n else 0 for n in parameters.split(";")]
            self.control(final, numbers)

    def control(self, final, numbers):
        first = numbers[0]
        column = min(self.x, COLUMNS - 1)
        if final == "m":
            self.paint(numbers)
        elif final in "Hf":
            second = numbers[1] if len(numbers) > 1 else 1
            self.y = min(max(first, 1), ROWS) - 1
            self.x = min(max(second, 1), COLUMNS) - 1
        elif final in "ABCDG":
            step = max(first, 1)
            self.y = min(max(self.y + {"A": -step, "B": step}.get(final, 0), 0), ROWS - 1)
            self.x = min(max(column + {"C": step, "D": -step}.get(final, 0), 0), COLUMNS - 1)
            if final == "G":
                self.x = step - 1
        elif final == "K":
            self.clear_row(self.y, {0: column, 1: 0, 2: 0}[first],
                           {0: COLUMNS, 1: column + 1, 2: COLUMNS}[first])
        elif final == "J":
            if first == 0:
                self.clear_row(self.y, column, COLUMNS)
            for row in range(self.y + 1 if first == 0 else 0, ROWS):
                self.clear_row(row, 0, COLUMNS)
        elif final == "n" and first == 6:
            self.replies += f"\x1b[{self.y + 1};{column + 1}R"

    def clear_row(self, row, first, end):
        self.cells[row][first:end] = [(" ", None)] * (end - first)

    def paint(self, numbers):
        for number in numbers:
            if number in (0, 39):
                self.color = None
            elif 30 <= number <= 37 or 90 <= number <= 97:
                self.color = number

    def rows(self):
        return ["".join(char for char, _ in row).rstrip() for row in self.cells]

    def text(self):
        return "\n".join(self.rows())

    def colors_of(self, word):
        """The colours of the characters of a word, wherever it stands last."""
        found = None
        for row in self.cells:
            at = "".join(char for char, _ in row).rfind(word)
            if at >= 0:
                found = {color for char, color in row[at:at + len(word)] if char != " "}
        return found


class Terminal:
    """Runs a program; type() is its keyboard, screen its screen."""

    def __init__(self, command, output=None):
        self.screen = Screen()
        self.decoder = codecs.getincrementaldecoder("utf-8")("replace")
        self.child, self.master = pty.fork()
        if self.child == 0:
            try:
                if output is not None:
                    os.dup2(output, 1)
                os.environ["TERM"] = "xterm"
                fcntl.ioctl(0, termios.TIOCSWINSZ, struct.pack("HHHH", ROWS, COLUMNS, 0, 0))
                os.execvp(command[0], command)
            finally:
                os._exit(127)

    def type(self, text):
        os.write(self.master, text.encode())

    def more(self, seconds):
        """Takes what appears within the time; False when nothing did or the program has ended."""
        if not select.select([self.master], [], [], seconds)[0]:
            return False
        try:
            data = os.read(self.master, 65536)
        except OSError:
            return False
        self.screen.feed(self.decoder.decode(data))
        if self.screen.replies:
            self.type(self.screen.replies)
            self.screen.replies = ""
        return bool(data)

    def until(self, word, seconds=60):
        """Waits for a text on the screen, and then for the screen to come to rest."""
        end = time.monotonic() + seconds
        while word not in self.screen.text():
            if not self.more(max(end - time.monotonic(), 0)):
                raise AssertionError(f"{word!r} never came:\n{self.screen.text()}")
        while self.more(0.2):
            pass

    def close(self, seconds=60):
        """Waits for the end of the program and gives its exit code."""
        end = time.monotonic() + seconds
        while time.monotonic() < end and self.more(max(end - time.monotonic(), 0)):
            pass
        while time.monotonic() < end:
            done, status = os.waitpid(self.child, os.WNOHANG)
            if done:
                os.close(self.master)
                return os.waitstatus_to_exitcode(status)
            time.sleep(0.02)
        os.kill(self.child, signal.SIGKILL)
        os.waitpid(self.child, 0)
        raise AssertionError(f"still running:\n{self.screen.text()}")
