#!/usr/bin/env python3
"""Checks that sources include only their own room and rooms below it.

The order is the one of docs/architecture.md. A line of rooms may include itself and the lines above
it. Exits with 1 and a list of the includes that point upwards.
"""
import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent

SDK = [
    ["math", "files"],
    ["time", "keys", "undo", "scene"],
    ["settings", "plugin", "style", "widgets"],
    ["action", "menu", "pane", "parameters"],
    ["script", "app"],
]
APP = [
    ["io"],
    ["widgets", "import"],
    ["document"],
    ["recovery", "scenetree", "viewport", "console", "shortcuts"],
    ["create", "pose"],
    ["markers"],
    ["preferences"],
    ["gizmo", "posetools"],
    ["shell"],
]
TIMELINE = [["time"], ["keys"], ["rows"], ["dopesheet", "keygraph", "widgets"], ["pane"]]
INCLUDE = re.compile(r'^#include\s+[<"]([^>"]+)[>"]', re.MULTILINE)


def levels(lines):
    return {room: level for level, line in enumerate(lines) for room in line}


def sources(folder):
    return sorted(path for path in folder.rglob("*") if path.suffix in (".h", ".cpp"))


def check(name, folder, lines, target_room, own_room=None):
    """target_room: the room of an include, or None when it belongs to no room of this wing."""
    order = levels(lines)
    wrong = []
    for path in sources(folder):
        room = own_room(path) if own_room else path.relative_to(folder).parts[0]
        if room not in order:
            if len(path.relative_to(folder).parts) > 1:
                wrong.append(f"{path.relative_to(ROOT)}: {name} has no room {room} in its order")
            continue
        for include in INCLUDE.findall(path.read_text()):
            target = target_room(include)
            if target in order and order[target] > order[room]:
                wrong.append(f"{path.relative_to(ROOT)}: {room} includes {include} of {target}")
    return wrong


def main():
    sdk = ROOT / "sdk" / "src"
    # A public header belongs to the room of its source; one without a source to all.
    home = {path.stem: path.relative_to(sdk).parts[0] for path in sources(sdk)}

    def sdk_room(include):
        first, _, rest = include.partition("/")
        return home.get(pathlib.PurePath(rest).stem) if first == "vxcore" else first

    timeline = ROOT / "pluginsource" / "VxTimeline" / "vxtimeline"

    def timeline_room(include):
        parts = include.split("/")
        return parts[1] if parts[0] == "vxtimeline" and len(parts) > 2 else None

    wrong = check("sdk/src", sdk, SDK, sdk_room)
    wrong += check("sdk/include", ROOT / "sdk" / "include" / "vxcore", SDK, sdk_room,
                   lambda path: home.get(path.stem))
    wrong += check("app", ROOT / "app", APP, lambda include: include.split("/")[0])
    wrong += check("vxtimeline", timeline, TIMELINE, timeline_room)
    for folder, forbidden in (("sdk", ("io/", "shell/", "vxtimeline")), ("app", ("vxtimeline",)),
                              ("pluginsource", ("io/", "shell/", "document/"))):
        for path in sources(ROOT / folder):
            for include in INCLUDE.findall(path.read_text()):
                if include.startswith(forbidden):
                    wrong.append(f"{path.relative_to(ROOT)}: includes {include} of another wing")
    print("\n".join(wrong) if wrong else "Includes point one way.")
    return 1 if wrong else 0


sys.exit(main())
