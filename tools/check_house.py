#!/usr/bin/env python3
"""Holds the tree against those house rules that a program can see.

- Text and real numbers meet in the number module of src/core alone: no strtod, scanf, printf of
  reals, streams or locales elsewhere in src.
- Results are the same on all systems: no long double and no fma in src.
- Wide text is char16_t: no wchar_t outside src/platform.
- Texts of the tree explain themselves: no marks of unfinished work, no reference to papers that are
  not in the tree.
- Files stay below 900 lines.
"""
import re
import sys

import tree

NUMBER_MODULE = re.compile(r"src/core/(number_\w+|real_format|formatter\w*)\.(cpp|h)$")
MOST_LINES = 900

BANNED_IN_SOURCE = [
    (re.compile(r"\b(strto(d|f|ld)|wcsto(d|f|ld)|ato(f|i|l|ll)|v?f?w?s?n?scanf(_s)?)\s*\("),
     "reads numbers by the C runtime"),
    (re.compile(r"\bstd::(stod|stof|stold|stoi|stol|stoll|stoul|stoull|to_string|to_wstring)\b"),
     "reads or prints numbers by the locale"),
    (re.compile(r"#\s*include\s*<(iostream|sstream|fstream|ostream|istream|iomanip|strstream|locale|"
                r"clocale|regex)>"), "stream or locale header"),
    (re.compile(r"\b(setlocale|localeconv|std::locale)\b"), "locale"),
    (re.compile(r"printf\s*\([^;]*?\"[^\"]*%[-+ #0-9.*]*[aAeEfFgG]"), "prints reals by the C runtime"),
]
BANNED_EVERYWHERE_IN_SOURCE = [
    (re.compile(r"\blong\s+double\b"), "long double"),
    (re.compile(r"\b(std::)?fma[fl]?\s*\("), "fma"),
]
WIDE = re.compile(r"\bwchar_t\b")
# Written so that the patterns do not match this file.
MARKS = re.compile(r"\b(TO[D]O|FIX[M]E|X{2}X|HA[C]K|not implemented[ ]yet|st[u]b(bed|s)?)\b")
PAPERS = re.compile(r"\bspec(ification)?\.m[d]\b|\bthe spec(ification)?(?![\w])|\bpart [1-9]\.[0-9]{1,2}\b"
                    r"|\bsettled p[o]int", re.I)
TEXT_SUFFIXES = {".c", ".cpp", ".h", ".py", ".sh", ".cmake", ".txt", ".json", ".md", ".in", ".tsv",
                 ".task", ".map", ""}


def line_of(text, position):
    return text.count("\n", 0, position) + 1


def search(name, text, rules):
    return [f"{name}:{line_of(text, match.start())}: {what}: {match.group(0)[:60]!r}"
            for pattern, what in rules for match in pattern.finditer(text)]


def faults_of_source(name, text):
    """Broken rules in a file of src; name is its path below the root, with slashes."""
    code = tree.without_comments(text)
    faults = search(name, code, BANNED_EVERYWHERE_IN_SOURCE)
    if not NUMBER_MODULE.match(name):
        faults += search(name, code, BANNED_IN_SOURCE)
    if not name.startswith("src/platform/"):
        faults += search(name, code, [(WIDE, "wide text is char16_t")])
    return faults


def faults_of_text(name, text):
    faults = search(name, text, [(PAPERS, "reference to a text outside the tree"),
                                 (MARKS, "mark of unfinished work")])
    if name.endswith((".cpp", ".h", ".c", ".py", ".sh")) and text.count("\n") > MOST_LINES:
        faults.append(f"{name}: {text.count(chr(10))} lines")
    return faults


def main():
    faults = []
    names = [n for n in tree.files() if n.suffix in TEXT_SUFFIXES and "seeds" not in n.parts]
    for name in names:
        text, path = tree.read(name), name.as_posix()
        faults += faults_of_text(path, text)
        if name.suffix in tree.SOURCES and name.parts[0] == "src":
            faults += faults_of_source(path, text)
    print("\n".join(faults) if faults else f"{len(names)} files keep to the house rules")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
