#!/usr/bin/env python3
"""Checks that sources include only their own room and rooms below it.

    includes.py              exits with 1 and a list of the includes that point upwards
    includes.py --self-test  exits with 1 unless such an include is found in a small example

The order is the one of docs/architecture.md. A room is a folder of sources. A line of rooms may
include itself and the lines above it.
"""
import pathlib
import re
import sys
import tempfile

ROOT = pathlib.Path(__file__).resolve().parent.parent

SDK = [
    ["math", "files"],
    ["time", "keys", "undo", "scene"],
    ["settings", "plugin", "style", "widgets"],
    ["action"],
    ["menu", "pane", "parameters"],
    ["script", "app"],
]
# The public headers without a source of the same name, by room.
SDK_HEADERS = {
    "math": ["vxcoreglobal", "vxtime", "vxtimerange"],
    "keys": ["vxcopiedkeys", "vxcurvefit", "vxkey", "vxkeyarrays", "vxkeyedit", "vxkeyfilter",
             "vxkeyspan", "vxowncontents"],
    "undo": ["vxundoitem"],
    "scene": ["vxnodelistiterator"],
}
APP = [
    ["io"],
    ["io/motion"],
    ["io/bvh", "io/csv", "io/fbx", "io/gltf", "io/worker"],
    ["io/formats"],
    ["widgets", "import"],
    ["document"],
    ["recovery", "scenetree", "viewport", "console", "shortcuts"],
    ["create", "pose"],
    ["markers"],
    ["preferences"],
    ["gizmo", "posetools"],
    ["shell"],
]
TIMELINE = [
    ["vxtimeline/time"],
    ["vxtimeline/keys"],
    ["vxtimeline/rows", "vxtimeline/keygraph/paint"],
    ["vxtimeline/dopesheet", "vxtimeline/keygraph", "vxtimeline/widgets"],
    ["vxtimeline/pane"],
    ["vxtimelineactions"],
    ["."],
]
INCLUDE = re.compile(r'^#include\s+[<"]([^>"]+)[>"]', re.MULTILINE)


def sources(folder):
    return sorted(path for path in folder.rglob("*") if path.suffix in (".h", ".cpp"))


def check(root, lines, headers=None, headers_by_room=None):
    """The wrong includes of a wing. Public headers belong to the room of their source."""
    order = {room: level for level, line in enumerate(lines) for room in line}
    room_of = {path: path.parent.relative_to(root).as_posix() for path in sources(root)}
    if headers:
        home = {path.stem: room for path, room in room_of.items()}
        home.update((name, room) for room, names in headers_by_room.items() for name in names)
        room_of.update((path, home.get(path.stem, "")) for path in sources(headers))
    wrong = []
    for path, room in room_of.items():
        if room not in order:
            wrong.append(f"{path}: the order has no room '{room}'")
            continue
        for include in INCLUDE.findall(path.read_text()):
            is_public = headers and include.startswith(headers.name + "/")
            target = room_of.get(headers.parent / include if is_public else root / include)
            if target in order and order[target] > order[room]:
                wrong.append(f"{path}: {room} includes {include} of {target}")
    return wrong


def self_test():
    with tempfile.TemporaryDirectory() as folder:
        root = pathlib.Path(folder)
        for name, include in (("src/low/a.cpp", "high/inner/b.h"), ("src/low/a.h", "vxcore/c.h"),
                              ("src/high/inner/b.h", "low/a.h"), ("src/high/c.cpp", "low/a.h"),
                              ("src/new/d.h", "low/a.h"), ("vxcore/c.h", "low/a.h"),
                              ("vxcore/e.h", "vxcore/c.h"), ("vxcore/f.h", "vxcore/e.h")):
            (root / name).parent.mkdir(parents=True, exist_ok=True)
            (root / name).write_text(f'#include "{include}"\n')
        wrong = check(root / "src", [["low"], ["high", "high/inner"]], root / "vxcore",
                      {"low": ["e"]})
        found = {str(pathlib.Path(text.split(":")[0]).relative_to(root)) for text in wrong}
    expected = {"src/low/a.cpp", "src/low/a.h", "src/new/d.h", "vxcore/e.h", "vxcore/f.h"}
    print("The check of includes finds those that point upwards." if found == expected
          else f"Expected {sorted(expected)}, found {sorted(found)}")
    return 0 if found == expected else 1


def main():
    wrong = check(ROOT / "sdk" / "src", SDK, ROOT / "sdk" / "include" / "vxcore", SDK_HEADERS)
    wrong += check(ROOT / "app", APP)
    wrong += check(ROOT / "pluginsource" / "VxTimeline", TIMELINE)
    for folder, forbidden in (("sdk", ("io/", "shell/", "vxtimeline")), ("app", ("vxtimeline",)),
                              ("pluginsource", ("io/", "shell/", "document/"))):
        for path in sources(ROOT / folder):
            for include in INCLUDE.findall(path.read_text()):
                if include.startswith(forbidden):
                    wrong.append(f"{path}: includes {include} of another wing")
    print("\n".join(wrong).replace(f"{ROOT}/", "") if wrong else "Includes point one way.")
    return 1 if wrong else 0


sys.exit(self_test() if sys.argv[1:] == ["--self-test"] else main())
