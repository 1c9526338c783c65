#!/usr/bin/env python3
"""Everything that is made from exports/exports.tsv, the one list of exported names.

  exports.py version-script OUT        linker script that shows the listed names and hides the rest
  exports.py def OUT                   the same for the DLL
  exports.py declarations OUT          C and C++ text that declares every listed prototype anew
                                       behind its header: a header that differs does not compile
  exports.py names OUT                 C array of the names, for the look-up program
  exports.py umbrella [--write]        include/nuv64/nuv64.h names every public header
  exports.py tested                    every name stands in a file under tests/
  exports.py library LIB [--tool T]    LIB exports the listed names, no more and no fewer

A line of the list: name, public header, kind (function or data), prototype, tab separated.
"""
import argparse
import pathlib
import re
import subprocess
import sys
from typing import NamedTuple

ROOT = pathlib.Path(__file__).resolve().parent.parent


class Export(NamedTuple):
    name: str
    header: str
    kind: str
    prototype: str


def read_list(path):
    exports = []
    for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
        if not line.strip() or line.startswith("#"):
            continue
        cells = line.split("\t")
        if len(cells) < 4 or cells[2] not in ("function", "data"):
            sys.exit(f"{path}:{number}: expected name, header, function or data, prototype")
        if not re.search(rf"\b{re.escape(cells[0])}\b", cells[3]):
            sys.exit(f"{path}:{number}: the prototype does not name {cells[0]}")
        exports.append(Export(*cells[:4]))
    names = [e.name for e in exports]
    doubles = sorted({n for n in names if names.count(n) > 1})
    if doubles:
        sys.exit(f"{path}: listed twice: {' '.join(doubles)}")
    return exports


def write_if_changed(path, text):
    path = pathlib.Path(path)
    if not path.exists() or path.read_text(encoding="utf-8") != text:
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text, encoding="utf-8")


def version_script(exports):
    shown = "".join(f"    {e.name};\n" for e in exports)
    return "{\n" + (f"  global:\n{shown}" if shown else "") + "  local:\n    *;\n};\n"


def module_definition(exports):
    rows = "".join(f"    {e.name}{' DATA' if e.kind == 'data' else ''}\n" for e in exports)
    return f"LIBRARY Nuv64.dll\nEXPORTS\n{rows}"


def declarations(exports):
    headers = sorted({e.header for e in exports})
    lines = [f'#include "nuv64/{h}"' for h in headers] + ["", "NUV64_BEGIN_DECLS"]
    for e in exports:
        prototype = e.prototype.strip().rstrip(";")
        if e.kind == "function":
            prototype = re.sub(r"\(\s*\)$", "(void)", prototype) + " NUV64_NOEXCEPT"
        elif not prototype.startswith("extern "):
            prototype = "extern " + prototype
        lines.append(prototype + ";")
    return "\n".join(lines + ["extern int nuv64DeclarationsAgree;", "NUV64_END_DECLS", ""])


def name_array(exports):
    rows = "".join(f'    "{e.name}",\n' for e in exports)
    return f"static const char* const exportedNames[] = {{\n{rows}    0,\n}};\n"


def umbrella():
    folder = ROOT / "include" / "nuv64"
    headers = sorted(p.relative_to(folder.parent).as_posix() for p in folder.glob("*/*.h"))
    includes = "".join(f'#include "{h}"\n' for h in headers)
    return ("/* All public headers. Written by tools/exports.py umbrella --write. */\n"
            f"#ifndef NUV64_NUV64_H\n#define NUV64_NUV64_H\n\n{includes}\n#endif\n")


def check_umbrella(write):
    path = ROOT / "include" / "nuv64" / "nuv64.h"
    if write:
        write_if_changed(path, umbrella())
    elif not path.exists() or path.read_text(encoding="utf-8") != umbrella():
        sys.exit(f"{path} is stale: run tools/exports.py umbrella --write")


def words_under(folder):
    words = set()
    for path in folder.rglob("*"):
        if path.suffix in (".cpp", ".h", ".c"):
            words.update(re.findall(r"\w+", path.read_text(encoding="utf-8", errors="replace")))
    return words


def check_tested(exports, folder):
    words = words_under(folder)
    untested = [e.name for e in exports if e.name not in words]
    share = 100.0 * (len(exports) - len(untested)) / len(exports) if exports else 100.0
    print(f"{len(exports) - len(untested)} of {len(exports)} exports named in a test ({share:.1f} %)")
    if untested:
        sys.exit("without a test: " + " ".join(untested))


def names_of_dll(text):
    """The names in the export table that objdump -p prints."""
    table = text.split("[Ordinal/Name Pointer] Table", 1)
    rows = table[1].split("\n\n", 1)[0] if len(table) == 2 else ""
    return set(re.findall(r"^\s*\[\s*\d+\]\s+(?:\+base\[\s*\d+\]\s+[0-9a-f]+\s+)?(\S+)\s*$", rows, re.M))


def names_of_elf(text):
    """The names in the output of nm -D --defined-only."""
    return {line.split()[-1].split("@")[0] for line in text.splitlines() if line.strip()}


def exported_by(library, tool):
    if str(library).lower().endswith(".dll"):
        command, parse = [tool or "objdump", "-p", library], names_of_dll
    else:
        command, parse = [tool or "nm", "-D", "--defined-only", library], names_of_elf
    return parse(subprocess.run(command, capture_output=True, text=True, check=True).stdout)


def check_library(exports, library, tool):
    listed = {e.name for e in exports}
    found = exported_by(library, tool)
    missing, surplus = sorted(listed - found), sorted(found - listed)
    print(f"{len(found)} names exported, {len(listed)} listed")
    if missing:
        print("listed but not exported: " + " ".join(missing))
    if surplus:
        print("exported but not listed: " + " ".join(surplus))
    if missing or surplus:
        sys.exit(1)


def main():
    parser = argparse.ArgumentParser(description=__doc__,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--list", type=pathlib.Path, default=ROOT / "exports" / "exports.tsv")
    commands = parser.add_subparsers(dest="command", required=True)
    makers = {"version-script": version_script, "def": module_definition,
              "declarations": declarations, "names": name_array}
    for name in makers:
        commands.add_parser(name).add_argument("out")
    commands.add_parser("umbrella").add_argument("--write", action="store_true")
    commands.add_parser("tested").add_argument("--tests", type=pathlib.Path, default=ROOT / "tests")
    library = commands.add_parser("library")
    library.add_argument("library")
    library.add_argument("--tool", help="nm, or objdump for a DLL")
    args = parser.parse_args()

    if args.command == "umbrella":
        return check_umbrella(args.write)
    exports = read_list(args.list)
    if args.command in makers:
        write_if_changed(args.out, makers[args.command](exports))
    elif args.command == "tested":
        check_tested(exports, args.tests)
    else:
        check_library(exports, args.library, args.tool)


if __name__ == "__main__":
    main()
