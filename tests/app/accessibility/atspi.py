#!/usr/bin/env python3
"""Uses the program as a screen reader does, over AT-SPI: finds the row "Left Thigh", reads how many
keys it has, selects them and moves them by a frame.

    xvfb-run -a dbus-run-session -- tests/app/accessibility/atspi.py VXSTUDIO SAMPLE

Prints what it read. Exits with 1 and a message when something is missing.
"""
import os
import subprocess
import sys
import tempfile
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402
import pyatspi  # noqa: E402

NOT_YET = 3  # exit code
RIGHT, RETURN = 0xFF53, 0xFF0D  # key symbols
ROW = pyatspi.ROLE_TABLE_CELL  # as the toolkit reports an item of a tree
WAIT = 30  # seconds for the program to start, and for each change


def fail(message):
    sys.exit(f"atspi.py: {message}")


def until(what, get):
    """The first value that is neither None nor False."""
    end = time.monotonic() + WAIT
    last = "no error"
    while time.monotonic() < end:
        try:
            value = get()
            if value is not None and value is not False:
                return value
        except GLib.Error as error:  # objects disappear while they are read
            last = error
        time.sleep(0.05)
    fail(f"not found: {what} ({last})")


def children(node):
    return [child for child in (node.getChildAtIndex(i) for i in range(node.childCount)) if child]


def find(node, role, name=None, depth=30):
    """Breadth first, as rows below others are many."""
    level = [node]
    for _ in range(depth):
        below = []
        for each in level:
            if each.getRole() == role and name in (None, each.name):
                return each
            below += children(each)
        level = below
    return None


def act(node, name):
    actions = node.queryAction()
    names = [actions.getName(i) for i in range(actions.nActions)]
    if name not in names:
        fail(f"{node.name} has no action {name}: {names}")
    actions.doAction(names.index(name))


def open_rows(row):
    """Opens a row and those below it until the row of the thigh is found."""
    if row.name == "Left Thigh":
        return row
    if not row.getState().contains(pyatspi.STATE_EXPANDABLE):
        return None
    if not row.getState().contains(pyatspi.STATE_EXPANDED):
        act(row, "Toggle")
    for child in children(row):
        found = open_rows(child) if child.getRole() == ROW else None
        if found:
            return found
    return None


def key_names(keys):
    return [key.name for key in children(keys)]


def selected(keys):
    return sum(key.getState().contains(pyatspi.STATE_SELECTED) for key in children(keys))


def frame_of(name):
    return int(name.split()[-1])


def press(code):
    pyatspi.Registry.generateKeyboardEvent(code, None, pyatspi.KEY_SYM)


def find_window():
    """The program and its window; None while it has none, or is not read correctly yet."""
    desktop = pyatspi.Registry.getDesktop(0)
    desktop.clear_cache()
    for each in desktop:
        # The name was read before the program had one.
        each.clear_cache()
        if each.name == "VxStudio":
            each.set_cache_mask(Atspi.Cache.NONE)
            frame = find(each, pyatspi.ROLE_FRAME, None, 2)
            return (each, frame) if frame else None
    return None


def try_program(app, frame):
    frame.queryComponent().grabFocus()
    sheet = until("the dope sheet",
                  lambda: find(app, pyatspi.ROLE_TREE, "Dope Sheet"))
    row = until("the row Left Thigh", lambda: next(
        filter(None, (open_rows(each) for each in children(sheet)
                      if each.getRole() == ROW)), None))
    print("row:", row.name, "-", row.description)
    keys = row.getChildAtIndex(0)
    count = keys.childCount
    before = key_names(keys)
    print("keys:", count, "from", before[0], "to", before[-1])
    if count < 2 or f"{count} keys" not in row.description:
        fail("the number of keys is missing in the description")
    act(row, "Select Keys")
    until("selected keys", lambda: selected(keys) == count)
    print("selected:", selected(keys))
    act(row, "SetFocus")
    bar = find(app, pyatspi.ROLE_MENU_BAR)
    move = until("Drag in Time", lambda: find(bar, pyatspi.ROLE_MENU_ITEM, "Drag in Time"))
    act(move, "Press")
    gesture = until("the gesture", lambda: find(sheet.parent, pyatspi.ROLE_PANEL, "Move", 2))
    press(RIGHT)
    until("a step of the gesture", lambda: "+1 frames" in gesture.description)
    print("gesture:", gesture.description)
    press(RETURN)
    wanted = [frame_of(name) + 1 for name in before]
    until("moved keys", lambda: [frame_of(name) for name in key_names(keys)] == wanted)
    print("moved:", key_names(keys)[0], "to", key_names(keys)[-1])


def read_program():
    """The part of a process of its own. A process whose first look is too early never sees the
    program: it ends with NOT_YET."""
    end = time.monotonic() + 3
    found = None
    while not found and time.monotonic() < end:
        try:
            found = find_window()
        except GLib.Error:  # the program is about to register
            pass
        time.sleep(0.05)
    if not found:
        sys.exit(NOT_YET)
    try_program(*found)


def main():
    if sys.argv[1:] == ["--read"]:
        read_program()
        return
    if len(sys.argv) != 3:
        fail(__doc__)
    program, sample = sys.argv[1:]
    environment = dict(os.environ, QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1", QT_QPA_PLATFORM="xcb")
    with tempfile.TemporaryDirectory() as folder:
        process = subprocess.Popen(
            [program, "--settings", f"{folder}/settings.json", sample], env=environment)
        try:
            code = NOT_YET
            for _ in range(10):
                if code == NOT_YET:
                    code = subprocess.run([sys.executable, __file__, "--read"]).returncode
            if code != 0:
                sys.exit(code)
            if process.poll() is not None:
                fail(f"the program ended with {process.returncode}")
        finally:
            process.kill()
            process.wait()


if __name__ == "__main__":
    main()
