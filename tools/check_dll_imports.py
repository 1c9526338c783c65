#!/usr/bin/env python3
"""Holds the import table of a DLL or EXE against the libraries that every Windows system has.

usage: check_dll_imports.py FILE [--objdump PROGRAM]
"""
import argparse
import re
import subprocess
import sys

SYSTEM = {"kernel32", "msvcrt", "ole32", "shell32", "comdlg32", "user32", "version", "advapi32",
          "shlwapi", "ucrtbase"}


def imports_of(text):
    return re.findall(r"^\s*DLL Name: (\S+)\s*$", text, re.M)


def main():
    parser = argparse.ArgumentParser(description=__doc__,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("file")
    parser.add_argument("--objdump", default="objdump")
    args = parser.parse_args()
    text = subprocess.run([args.objdump, "-p", args.file], capture_output=True, text=True,
                          check=True).stdout
    imports = imports_of(text)
    foreign = [name for name in imports if name.lower().removesuffix(".dll") not in SYSTEM]
    print("imports " + " ".join(imports))
    if not imports:
        sys.exit("no import table found")
    if foreign:
        sys.exit("not a system library: " + " ".join(foreign))


if __name__ == "__main__":
    main()
