#!/usr/bin/env python3
"""Runs clang-tidy with the checks of .clang-tidy, a room at a time as one unit.

    tools/tidy.py           the public headers and the rooms of ROOMS, as CI does
    tools/tidy.py ROOM...   the sources of these folders
    tools/tidy.py --all     every room

Reads the compile commands of build/dev. Exits with 1 if there are findings.
"""
import concurrent.futures
import json
import os
import pathlib
import re
import subprocess
import sys
import tempfile

ROOT = pathlib.Path(__file__).resolve().parent.parent
ROOMS = ["sdk/src/keys", "sdk/src/math", "sdk/src/time", "sdk/src/undo"]
HEADERS = "sdk/include/vxcore"
PRODUCT = ["sdk/src", "app", "pluginsource"]
# The target whose settings the sources of a folder are compiled with; the first match counts.
TARGETS = {"sdk": "vxcore_objects", "app/io": "vxio", "app/import": "vxstudio-import",
           "app": "vxstudio_code", "pluginsource/VxTimeline": "vxtimeline_objects",
           "pluginsource/VxKeyTools": "vxkeytools_objects"}
# The compiler's precompiled header is of no use to another compiler.
UNUSED = re.compile(r"-Winvalid-pch|-include \S*cmake_pch\.hxx|-MD|-M[TF] \S+|-o \S+|-c \S+|\S*ccache")


def settings():
    """The compile command of each target, without its files."""
    found = {}
    for entry in json.loads((ROOT / "build/dev/compile_commands.json").read_text()):
        target = re.search(r"CMakeFiles/([^/]+)\.dir/", entry["command"])
        if target and target.group(1) not in found:
            found[target.group(1)] = entry["directory"], UNUSED.sub("", entry["command"])
    return found


def rooms_of(product):
    return sorted({path.parent.relative_to(ROOT).as_posix()
                   for folder in product for path in (ROOT / folder).rglob("*.cpp")})


def main(arguments):
    rooms = rooms_of(PRODUCT) if arguments == ["--all"] else arguments or ROOMS
    if not arguments or arguments == ["--all"]:
        rooms = [HEADERS] + rooms
    commands = settings()
    entries = []
    with tempfile.TemporaryDirectory() as temporary:
        folder = pathlib.Path(temporary)
        for number, room in enumerate(rooms):
            sources = sorted((ROOT / room).glob("*.h" if room == HEADERS else "*.cpp"))
            unit = folder / f"unit{number}.cpp"
            unit.write_text("".join(f'#include "{source}"\n' for source in sources))
            target = next(target for start, target in TARGETS.items() if room.startswith(start))
            directory, command = commands[target]
            entries.append({"directory": directory, "file": str(unit),
                            "command": f"{command} -Wno-unknown-warning-option -c {unit}"})
        (folder / "compile_commands.json").write_text(json.dumps(entries))

        def check(entry):
            return subprocess.run(
                ["clang-tidy-14", "-p", str(folder), "--quiet",
                 f"--config-file={ROOT / '.clang-tidy'}", entry["file"]],
                stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True, check=False)

        with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
            results = list(pool.map(check, entries))
    for result in results:
        print(result.stdout or (result.stderr if result.returncode else ""), end="")
    failed = [room for room, result in zip(rooms, results) if result.returncode]
    print(f"{len(rooms)} rooms checked;", "findings in " + ", ".join(failed) if failed else "clean.")
    return bool(failed)


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
