#!/usr/bin/env python3
"""All C and C++ files stand as clang-format 14 writes them. --fix rewrites those that do not."""
import argparse
import shutil
import subprocess
import sys

import tree

SKIPPED = 77


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--fix", action="store_true")
    args = parser.parse_args()
    program = shutil.which("clang-format-14")
    if not program:
        print("clang-format-14 is not installed")
        return SKIPPED
    names = [str(tree.ROOT / n) for n in tree.sources("src", "include", "tests", "apps", "bench",
                                                      "fuzz", "examples")]
    mode = ["-i"] if args.fix else ["--dry-run", "-Werror"]
    run = subprocess.run([program, *mode, *names], capture_output=True, text=True, check=False)
    heads = [line for line in run.stderr.splitlines() if "error:" in line]
    wrong = sorted({line.split(":")[0] for line in heads})
    print("\n".join(wrong) if wrong else f"{len(names)} files checked")
    return 1 if wrong or run.returncode else 0


if __name__ == "__main__":
    sys.exit(main())
