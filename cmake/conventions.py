#!/usr/bin/env python3
"""Checks header guards, groups of includes and the marks of doc comments.

A guard is the header's file name in capitals. Includes are up to three groups, each sorted, with an
empty line in between: the source's own header, then "..." and then <...>. A comment above a
declaration in a header begins with ///. Exits with 1 and a list of what differs.
"""
import pathlib
import re
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
INCLUDES = re.compile(r"(?:^#include [^\n]*\n+)+", re.MULTILINE)
TYPE = re.compile(r"(template <[^>]*> )?(class|struct|enum|union)\b")


def grouped(block, stem):
    """The includes of a block in their groups; `stem` of the file's name finds its own header."""
    lines = block.split()[1::2]
    own = [line for line in lines if pathlib.PurePath(line[1:-1]).name == f"{stem}.h"]
    own = own or [line for line in lines if pathlib.PurePath(line[1:-1]).name == f"{stem}_p.h"]
    rest = sorted(line for line in lines if line not in own[:1])
    groups = [own[:1], [line for line in rest if line[0] == '"'],
              [line for line in rest if line[0] == "<"]]
    return "\n\n".join("\n".join(f"#include {line}" for line in group) for group in groups if group)


def plain_comments(lines):
    """The line numbers of comments with // directly above a declaration."""
    in_type = False
    for number, (line, below) in enumerate(zip(lines, lines[1:]), 1):
        if re.match(r"[\w}]", line) and not line.endswith(":"):
            in_type = bool(TYPE.match(line))
        indent = len(line) - len(line.lstrip())
        is_comment = re.match(r"//(?!/)", line.lstrip()) and re.match(r"[\w~\[]", below.lstrip())
        if is_comment and indent <= (4 if in_type else 0):
            yield number


def faults(name, text):
    path = pathlib.PurePath(name)
    if path.suffix == ".h":
        guard = re.search(r"^#ifndef (\w+)\n#define \1$", text, re.MULTILINE)
        if guard and guard[1] != re.sub(r"\W", "_", path.name).upper():
            yield f"the header guard is {guard[1]}"
        for number in plain_comments(text.split("\n")):
            yield f"line {number}: // above a declaration"
    block = INCLUDES.search(text)
    if block and block[0].rstrip() != grouped(block[0], path.stem if path.suffix == ".cpp" else None):
        yield "the includes are not grouped and sorted"


def main():
    names = subprocess.check_output(["git", "ls-files", "*.h", "*.cpp"], cwd=ROOT, text=True).split()
    wrong = [f"{name}: {fault}" for name in names for fault in faults(name, (ROOT / name).read_text())]
    print("\n".join(wrong) if wrong else "Guards, includes and comments are as agreed.")
    return 1 if wrong else 0


sys.exit(main())
