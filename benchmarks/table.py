#!/usr/bin/env python3
"""Runs benchmark programs and prints case, time, floor, ratio, goal and verdict.

    table.py FOLDER GOALS OUT.json PROGRAM...

Exits with 1 when a program fails or a goal is missed.
"""
import json
import os
import pathlib
import subprocess
import sys
import tempfile

# These programs print a table of their own; their arguments are parts of case names.
OWN_TABLE = ("bench_dopesheetnodes", "bench_dopesheetscale", "bench_keytools")
NANOSECONDS = {"ns": 1.0, "us": 1e3, "ms": 1e6, "s": 1e9}


def read_goals(path):
    goals = {}
    for line in pathlib.Path(path).read_text().splitlines():
        if line.strip() and not line.startswith("#"):
            program, case, floor, goal = line.split()
            goals[program, case] = (floor, None if goal == "-" else float(goal))
    return goals


def parts(name):
    """Function and arguments of "moveHalf/3000/iterations:5"."""
    function, *arguments = name.split("/")
    return function, [a for a in arguments if not a.startswith(("iterations:", "repeats:"))]


def floor_time(floor, arguments, times):
    """The floor with the same arguments, else the only one that there is."""
    same = [t for name, t in times.items() if parts(name) == (floor, arguments)]
    any_ = [t for name, t in times.items() if parts(name)[0] == floor]
    return same[0] if same else any_[0] if len(any_) == 1 else None


def run(program, folder):
    with tempfile.NamedTemporaryFile(suffix=".json") as out:
        options = ["--benchmark_out_format=json", f"--benchmark_out={out.name}"]
        done = subprocess.run([os.path.join(folder, program)]
                              + ([] if program in OWN_TABLE else options),
                              stdout=subprocess.PIPE, text=True)
        text = pathlib.Path(out.name).read_text()
    if done.returncode != 0:
        sys.exit(f"{program} ended with {done.returncode}:\n{done.stdout}")
    if program in OWN_TABLE:
        print(done.stdout)
        return None, done.stdout
    return {b["name"]: b["cpu_time"] * NANOSECONDS[b["time_unit"]]
            for b in json.loads(text)["benchmarks"] if "cpu_time" in b}, None


def shown(nanoseconds):
    for unit in ("s", "ms", "us"):
        if nanoseconds >= NANOSECONDS[unit]:
            return f"{nanoseconds / NANOSECONDS[unit]:.3f} {unit}"
    return f"{nanoseconds:.1f} ns"


def row(program, name, time, times, goals):
    function, arguments = parts(name)
    floor_name, goal = goals.get((program, function), (None, None))
    floor = floor_time(floor_name, arguments, times) if floor_name else None
    ratio = time / floor if floor else None
    verdict = "" if goal is None or ratio is None else "ok" if ratio <= goal else "MISSED"
    return {"program": program, "case": name, "ns": time, "floor": floor_name, "floor_ns": floor,
            "ratio": ratio, "goal": goal, "verdict": verdict}


def main():
    folder, goal_file, out, *programs = sys.argv[1:]
    goals = read_goals(goal_file)
    rows = []
    tables = {}
    print(f"{'case':<52}{'ours':>12}{'floor':>12}{'ratio':>9}{'goal':>7}  verdict")
    for program in programs:
        times, table = run(program, folder)
        if table:
            tables[program] = table.splitlines()
            continue
        for name, time in times.items():
            entry = row(program, name, time, times, goals)
            rows.append(entry)
            floor, ratio, goal = entry["floor_ns"], entry["ratio"], entry["goal"]
            print(f"{program[6:] + ' ' + name:<52}{shown(time):>12}"
                  f"{shown(floor) if floor else '':>12}{f'{ratio:.2f}' if ratio else '':>9}"
                  f"{goal if goal else '':>7}  {entry['verdict']}", flush=True)
    pathlib.Path(out).write_text(json.dumps({"cases": rows, "tables": tables}, indent=1) + "\n")
    missed = [entry["case"] for entry in rows if entry["verdict"] == "MISSED"]
    missed += [line for lines in tables.values() for line in lines if line.endswith("  over")]
    return 1 if missed else 0


sys.exit(main())
