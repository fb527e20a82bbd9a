#!/usr/bin/env python3
"""Plants one-line faults in a scratch copy of the tree and reports which ones the tests catch.

Each fault of scripts/mutants.txt is applied on its own to a copy of the tree (the working tree's
tracked and new files, or a commit's with --rev) under build-mutants/, built there with sanitizers
(through ccache when CMAKE_CXX_COMPILER_LAUNCHER is set) and tested; a fault is "killed" when some
test fails. The tests of the fault's own layer (src/<layer>/ -> korvel_<layer>_tests) run first,
alone; when they all pass, everything is built and the whole ctest suite runs (without the source
format and layering checks). Slow: one build and one test run per fault. Not part of CI.

usage: scripts/mutate.py [--rev COMMIT] [--faults FILE] [--work DIR] [--jobs N] [--only NAME ...]
"""
import argparse
import os
import shutil
import subprocess
import sys
import time

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
# Checks of the source text, not of behaviour: a fault must be caught by a test of what it breaks.
EXCLUDED_TESTS = "^(format|layering)$"


class Fault:
    def __init__(self, name):
        self.name, self.file, self.old, self.new = name, None, None, None


def read_faults(path):
    faults, fault = [], None
    with open(path, encoding="utf-8") as text:
        for number, line in enumerate(text, 1):
            line = line.rstrip("\n")
            if not line.strip() or line.startswith("#"):
                continue
            if line.startswith("== "):
                fault = Fault(line[3:].strip())
                faults.append(fault)
                continue
            key, sep, value = line.partition(": ")
            if fault is None or not sep or key not in ("file", "from", "to"):
                sys.exit(f"{path}:{number}: expected '== name', 'file: ', 'from: ' or 'to: '")
            setattr(fault, {"file": "file", "from": "old", "to": "new"}[key], value.strip())
    for f in faults:
        if None in (f.file, f.old, f.new):
            sys.exit(f"{path}: fault {f.name} needs file, from and to")
    return faults


def locate(tree, fault):
    """Index of the one line of the fault's file equal to its original line (blanks aside)."""
    path = os.path.join(tree, fault.file)
    if not os.path.isfile(path):
        sys.exit(f"fault {fault.name}: no file {fault.file}")
    with open(path, encoding="utf-8") as text:
        lines = text.readlines()
    hits = [i for i, line in enumerate(lines) if line.strip() == fault.old]
    if len(hits) != 1:
        sys.exit(f"fault {fault.name}: {len(hits)} lines of {fault.file} read '{fault.old}'"
                 " (need exactly one)")
    return path, lines, hits[0]


def copy_tree(work, rev):
    """The tree to test under work/tree. Only files whose content changed are written (with a new
    time stamp), so a rebuild after an earlier run, which may have stopped on a fault, recompiles
    exactly what differs from the objects built then."""
    stage, tree = os.path.join(work, "stage"), os.path.join(work, "tree")
    if os.path.isdir(stage):
        shutil.rmtree(stage)
    os.makedirs(stage)
    if rev:
        archive = subprocess.run(["git", "archive", rev], cwd=ROOT, check=True,
                                 capture_output=True).stdout
        subprocess.run(["tar", "-x", "-C", stage], input=archive, check=True)
    else:
        listed = subprocess.run(["git", "ls-files", "-co", "--exclude-standard", "-z"], cwd=ROOT,
                                check=True, capture_output=True).stdout.decode().split("\0")
        for name in filter(None, listed):
            if os.path.isfile(os.path.join(ROOT, name)):
                os.makedirs(os.path.dirname(os.path.join(stage, name)), exist_ok=True)
                shutil.copy2(os.path.join(ROOT, name), os.path.join(stage, name))
    wanted = set()
    for folder, _, files in os.walk(stage):
        for file in files:
            name = os.path.relpath(os.path.join(folder, file), stage)
            wanted.add(name)
            source, target = os.path.join(stage, name), os.path.join(tree, name)
            with open(source, "rb") as new:
                content = new.read()
            if os.path.isfile(target) and not os.path.islink(target):
                with open(target, "rb") as old:
                    if old.read() == content:
                        continue
            os.makedirs(os.path.dirname(target), exist_ok=True)
            if os.path.islink(source):
                shutil.copy2(source, target, follow_symlinks=False)
            else:
                shutil.copyfile(source, target)
                shutil.copymode(source, target)
    for folder, _, files in os.walk(tree):
        for file in files:
            if os.path.relpath(os.path.join(folder, file), tree) not in wanted:
                os.remove(os.path.join(folder, file))
    shutil.rmtree(stage)
    return tree


def run(command, cwd, log, env=None):
    with open(log, "w", encoding="utf-8") as out:
        try:
            return subprocess.run(command, cwd=cwd, stdout=out, stderr=subprocess.STDOUT,
                                  env=dict(os.environ, **(env or {})), timeout=1800).returncode
        except subprocess.TimeoutExpired:
            out.write("\ntimed out\n")
            return 124


def first_gtest_failure(log):
    with open(log, encoding="utf-8", errors="replace") as text:
        for line in text:
            if line.startswith("[  FAILED  ] ") and "," not in line:
                return line[13:].split(" (")[0].strip()
    return "?"


def first_failure(log):
    with open(log, encoding="utf-8", errors="replace") as text:
        lines = text.read().splitlines()
    if "The following tests FAILED:" in lines:
        row = lines[lines.index("The following tests FAILED:") + 1]
        return row.split(" - ", 1)[-1].split(" (")[0].strip()
    return "?"


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--rev", default=None, help="test this commit instead of the work tree")
    parser.add_argument("--faults", default=os.path.join(ROOT, "scripts", "mutants.txt"))
    parser.add_argument("--work", default=os.path.join(ROOT, "build-mutants"))
    parser.add_argument("--jobs", type=int, default=2)
    parser.add_argument("--only", nargs="*", default=None)
    args = parser.parse_args()

    faults = read_faults(args.faults)
    if args.only:
        faults = [f for f in faults if f.name in args.only]
    os.makedirs(args.work, exist_ok=True)
    tree = copy_tree(args.work, args.rev)
    for fault in faults:  # every fault must apply before anything is built
        locate(tree, fault)
    build = os.path.join(args.work, "build")
    log = os.path.join(args.work, "log.txt")
    cmake = ["cmake", "-S", tree, "-B", build, "-DCMAKE_BUILD_TYPE=Debug", "-DKORVEL_SANITIZE=ON",
             "-DKORVEL_TESTS=ON"]
    make = ["cmake", "--build", build, f"-j{args.jobs}"]
    ctest = ["ctest", "--test-dir", build, f"-j{args.jobs}", "--stop-on-failure", "--timeout", "120",
             "-E", EXCLUDED_TESTS]
    if run(cmake, tree, log) or run(make, tree, log) or run(ctest, tree, log):
        sys.exit(f"the unchanged tree does not build or pass its tests: see {log}")

    rows = []
    for number, fault in enumerate(faults, 1):
        path, lines, index = locate(tree, fault)
        original = lines[index]
        indent = original[:len(original) - len(original.lstrip())]
        lines[index] = indent + fault.new + "\n"
        started = time.monotonic()
        with open(path, "w", encoding="utf-8") as text:
            text.writelines(lines)
        layer = fault.file.split("/")[1] if fault.file.startswith("src/") else ""
        program = os.path.join(build, "tests", f"korvel_{layer}_tests")
        try:
            if layer and os.path.exists(program) and not run(
                    make[:-1] + ["--target", f"korvel_{layer}_tests", make[-1]], tree, log) and run(
                        [program, "--gtest_brief=1", "--gtest_fail_fast"], os.path.join(build, "tests"), log,
                        {"ASAN_OPTIONS": "detect_leaks=0"}):
                result, by = "killed", first_gtest_failure(log)
            elif run(make, tree, log):
                result, by = "build error", ""
            elif run(ctest, tree, log):
                result, by = "killed", first_failure(log)
            else:
                result, by = "SURVIVED", ""
        finally:
            lines[index] = original
            with open(path, "w", encoding="utf-8") as text:
                text.writelines(lines)
        rows.append((number, fault.name, fault.file, result, by))
        print(f"{number:2} {fault.name:32} {result:11} {by} ({time.monotonic() - started:.0f} s)",
              file=sys.stderr, flush=True)

    print("| # | fault | file | result | first failing test |")
    print("|---|---|---|---|---|")
    for row in rows:
        print("| %d | %s | %s | %s | %s |" % row)
    killed = sum(1 for row in rows if row[3] == "killed")
    print(f"\n{killed} of {len(rows)} faults killed")
    return 0


if __name__ == "__main__":
    sys.exit(main())
