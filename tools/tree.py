"""What the checks of the tree share: which files there are, and C++ text without its comments."""
import pathlib
import re
import subprocess

ROOT = pathlib.Path(__file__).resolve().parent.parent
SOURCES = (".c", ".cpp", ".h")


def files():
    """All files of the tree that git tracks or would track, as paths below ROOT."""
    listing = subprocess.run(
        ["git", "-C", str(ROOT), "ls-files", "-z", "--cached", "--others", "--exclude-standard"],
        capture_output=True, text=True, check=False)
    if listing.returncode == 0:
        names = [pathlib.Path(name) for name in listing.stdout.split("\0") if name]
    else:
        names = [p.relative_to(ROOT) for p in ROOT.rglob("*")
                 if p.is_file() and p.relative_to(ROOT).parts[0] not in (".git", "build", "out")]
    return sorted(name for name in names if (ROOT / name).is_file())


def sources(*folders):
    """The C and C++ files below the given folders of the tree."""
    return [name for name in files() if name.suffix in SOURCES and name.parts[0] in folders]


def read(name):
    return (ROOT / name).read_text(encoding="utf-8", errors="replace")


def without_comments(text, keep_strings=True):
    """The text with comments blanked, line numbers kept; string literals blanked on demand."""
    token = re.compile(r'R"([^ ()\\]{0,16})\((?:.|\n)*?\)\1"|"(?:\\.|[^"\\\n])*"|\'(?:\\.|[^\'\\\n])+\''
                       r"|//[^\n]*|/\*(?:.|\n)*?\*/")

    def blank(match):
        piece = match.group(0)
        if piece.startswith("/") or not keep_strings:
            return re.sub(r"[^\n]", " ", piece)
        return piece

    return token.sub(blank, text)
