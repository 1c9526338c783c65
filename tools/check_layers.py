#!/usr/bin/env python3
"""Holds the includes of the tree against its layers.

- A file of src/<layer> includes its own layer and lower ones only; a public header of
  include/nuv64/<layer> likewise, and public headers only.
- System headers are included in src/platform alone; elsewhere <...> names the standard library.
- A source file with a public header of its own includes that header first.
- Programs under apps/ include public headers only.
"""
import re
import sys

import tree

LAYERS = ["platform", "core", "numeric", "arrays", "fits", "data", "evaluation", "graphics", "spin",
          "host"]
# Long procedures report through the command block and are stopped through it, so the evaluation
# layer knows that record; it calls nothing of the host layer.
ALLOWED_UPWARDS = {("evaluation", "nuv64/host/command.h")}
C_HEADERS = {"stdbool.h", "stddef.h", "stdint.h", "uchar.h"}
INCLUDE = re.compile(r'^\s*#\s*include\s*(?:<([^>]+)>|"([^"]+)")', re.M)


def layer_of_include(path):
    parts = path.split("/")
    if parts[0] == "nuv64":
        parts = parts[1:]
    return parts[0] if parts[0] in LAYERS else None


def faults_of_source(name, text):
    """The broken rules in one file of src or include; name is a path below the root of the tree."""
    parts = name.parts
    public = parts[0] == "include"
    layer = parts[2] if public else parts[1]
    if layer not in LAYERS:
        return [] if name.as_posix() == "include/nuv64/nuv64.h" else [f"{name}: no layer '{layer}'"]
    faults = []
    for system, own in INCLUDE.findall(tree.without_comments(text)):
        if system:
            if system.endswith(".h") and layer != "platform" and not (public and system in C_HEADERS):
                faults.append(f"{name}: system header <{system}> outside src/platform")
            if public and system not in C_HEADERS:
                faults.append(f"{name}: <{system}> in a public header")
            continue
        target = layer_of_include(own)
        if public and not own.startswith("nuv64/"):
            faults.append(f'{name}: internal header "{own}" in a public header')
        elif target is None:
            faults.append(f'{name}: "{own}" lies in no layer')
        elif LAYERS.index(target) > LAYERS.index(layer) and (layer, own) not in ALLOWED_UPWARDS:
            faults.append(f'{name}: {layer} includes "{own}" of the higher layer {target}')
    return faults


def fault_of_first_include(name, text, public_headers):
    if name.suffix != ".cpp" or name.parts[0] != "src":
        return []
    own = "nuv64/" + "/".join(name.parts[1:])[: -len(".cpp")] + ".h"
    first = INCLUDE.search(text)
    if own in public_headers and (first is None or first.group(2) != own):
        return [f'{name}: the first include must be "{own}"']
    return []


def faults_of_program(name, text):
    return [f'{name}: a program includes "{own}"'
            for _, own in INCLUDE.findall(tree.without_comments(text))
            if layer_of_include(own) and not own.startswith("nuv64/")]


def main():
    faults = []
    names = tree.sources("src", "include")
    public_headers = {"/".join(n.parts[1:]) for n in names if n.parts[0] == "include"}
    for name in names:
        text = tree.read(name)
        faults += faults_of_source(name, text) + fault_of_first_include(name, text, public_headers)
    programs = tree.sources("apps")
    for name in programs:
        faults += faults_of_program(name, tree.read(name))
    print("\n".join(faults) if faults else f"{len(names) + len(programs)} files keep to the layers")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
