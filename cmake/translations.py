#!/usr/bin/env python3
"""Keeps the translation files in step with the texts in the sources.

    translations.py update   writes new texts into all translation files and drops those no longer there
    translations.py check    exits with 1 and a list of the files that an update would change

Each component has a folder "translations" with a file per language. The English file has the plural
forms alone. The program lupdate is taken from PATH, or from the variable LUPDATE.
"""
import difflib
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile

ROOT = pathlib.Path(__file__).resolve().parent.parent

# The component's folder, and the folders of its sources.
COMPONENTS = [
    ("sdk", ["sdk/include", "sdk/src"]),
    ("app", ["app"]),
    ("pluginsource/VxTimeline", ["pluginsource/VxTimeline"]),
    ("pluginsource/VxKeyTools", ["pluginsource/VxKeyTools"]),
]


def translation_files(component, root=ROOT):
    return sorted((root / component / "translations").glob("*.ts"))


def update(files, folders):
    """Writes the texts of the folders' sources into the files, without places, which would change
    with every line that is added above."""
    for file in files:
        plurals = ["-pluralonly"] if file.stem.endswith("_en") else []
        run = subprocess.run(
            [os.environ.get("LUPDATE", "lupdate"), "-silent", "-locations", "none", "-no-obsolete",
             "-source-language", "en", *plurals, *folders, "-ts", str(file)],
            cwd=ROOT, capture_output=True, text=True)
        if run.returncode != 0:
            sys.exit(f"lupdate failed:\n{run.stderr}")


def outdated(component, folders):
    """The committed files that differ from an updated copy, each with its first differences."""
    found = []
    with tempfile.TemporaryDirectory() as name:
        for file in translation_files(component):
            copy = pathlib.Path(name) / file.name
            shutil.copy(file, copy)
            update([copy], folders)
            old, new = file.read_text().splitlines(), copy.read_text().splitlines()
            changes = [line for line in difflib.unified_diff(old, new, lineterm="", n=0)
                       if "<source>" in line]
            if old != new:
                found.append("\n".join([f"{file.relative_to(ROOT)} is not up to date:"]
                                       + changes[:10]))
            if file.stem.endswith("_en") and "unfinished" in "\n".join(new):
                found.append(f"{file.relative_to(ROOT)}: fill in the plural forms")
    return found


def main():
    if sys.argv[1:] == ["update"]:
        for component, folders in COMPONENTS:
            update(translation_files(component), folders)
        return 0
    if sys.argv[1:] != ["check"]:
        sys.exit(__doc__)
    found = [text for component, folders in COMPONENTS for text in outdated(component, folders)]
    if found:
        print("\n".join(found))
        print("Run `cmake --build --preset dev --target update_translations`, fill in the plural "
              "forms in the *_en.ts files, and commit the files.")
        return 1
    print("The translation files have all texts of the sources.")
    return 0


sys.exit(main())
