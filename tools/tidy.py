#!/usr/bin/env python3
"""Runs clang-tidy with the checks of .clang-tidy, each library as one unit.

    tools/tidy.py           the public headers and all product sources, as CI does
    tools/tidy.py ROOM...   the sources of these folders, each as one unit

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
HEADERS = "sdk/include/vxcore"
# The target with whose settings the sources of a folder are compiled; the first match counts.
TARGETS = {"sdk": "vxcore_objects", "app/io": "vxio", "app/import": "vxstudio-import",
           "app": "vxstudio_code", "pluginsource/VxTimeline": "vxtimeline_objects",
           "pluginsource/VxKeyTools": "vxkeytools_objects"}
# Other compilers cannot use the precompiled header; the build reports the compiler's warnings.
UNUSED = re.compile(r"-Winvalid-pch|-include \S*cmake_pch\.hxx|-MD|-M[TF] \S+|-o \S+|-c \S+|\S*ccache")


def settings():
    """The compile command of each target, without its files."""
    found = {}
    for entry in json.loads((ROOT / "build/dev/compile_commands.json").read_text()):
        target = re.search(r"CMakeFiles/([^/]+)\.dir/", entry["command"])
        if target and target.group(1) not in found:
            found[target.group(1)] = entry["directory"], UNUSED.sub("", entry["command"])
    return found


def folder_of(path):
    """The key of TARGETS for a path relative to ROOT."""
    return next(folder for folder in TARGETS if f"{path}/".startswith(f"{folder}/"))


def units(rooms):
    """Names of units with their sources: a unit for each room, else the headers and the libraries."""
    if rooms:
        return {room: sorted((ROOT / room).glob("*.h" if room == HEADERS else "*.cpp"))
                for room in rooms}
    found = {HEADERS: sorted((ROOT / HEADERS).glob("*.h"))}
    for top in ["sdk/src", "app", "pluginsource"]:
        for source in sorted((ROOT / top).rglob("*.cpp")):
            found.setdefault(folder_of(source.relative_to(ROOT)), []).append(source)
    return found


def main(rooms):
    commands = settings()
    checked = units(rooms)
    entries = []
    with tempfile.TemporaryDirectory() as temporary:
        folder = pathlib.Path(temporary)
        for number, (name, sources) in enumerate(checked.items()):
            unit = folder / f"unit{number}.cpp"
            unit.write_text("".join(f'#include "{source}"\n' for source in sources))
            directory, command = commands[TARGETS[folder_of(name)]]
            entries.append({"directory": directory, "file": str(unit),
                            "command": f"{command} -w -c {unit}"})
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
    failed = [name for name, result in zip(checked, results) if result.returncode]
    print(f"{len(checked)} units checked;", "findings in " + ", ".join(failed) if failed else "clean.")
    return bool(failed)


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
