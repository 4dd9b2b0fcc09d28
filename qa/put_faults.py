#!/usr/bin/env python3
"""Puts faults into source files, one at a time, and counts those that no test sees.

Works in a copy of the tree (build/faults), never in the tree itself. For each fault it builds the
test programs of the folder that mirrors the file's own, runs them, and says "caught" or "SURVIVED".
The same seed on the same files chooses the same faults. A fault that survives is a question to be
looked at by a human: some change nothing that anybody could see.
"""

import argparse
import json
import os
import random
import re
import shutil
import subprocess
import sys
import time
from pathlib import Path

TREE = Path(__file__).resolve().parent.parent


def swap(pattern, replacement):
    """A kind of fault: every match of a pattern in a line of code may be replaced."""
    compiled = re.compile(pattern)

    def faults(line):
        for match in compiled.finditer(line):
            yield line[:match.start()] + match.expand(replacement) + line[match.end():]

    return faults


def next_number(line):
    for match in re.finditer(r"(?<![\w.'\"])(\d{1,4})(?![\w.'\"])", line):
        yield line[:match.start()] + str(int(match.group()) + 1) + line[match.end():]


def without_statement(line):
    # A call whose result nobody uses; declarations and what the compiler would miss stay.
    if re.fullmatch(r"\s+(?!return|throw|co_|case|using|delete)[\w.:>\-]+(\(.*\))+;", line):
        yield re.match(r"\s+", line).group() + ";"
    if re.fullmatch(r"\s+[\w.\->\[\]]+ [+|&-]?= .*;", line):
        yield re.match(r"\s+", line).group() + ";"


KINDS = {
    "negated": swap(r"\b((?:else )?if|while) \((?!const |auto |std::exchange)(.+)\)( \{)?$",
                    r"\1 (!(\2))\3"),
    "limit": lambda line: [f for kind in (swap(r" < (?!<)", " <= "), swap(r" <= ", " < "),
                                          swap(r" > (?!>)", " >= "), swap(r" >= ", " > "))
                           for f in kind(line)],
    "equal": lambda line: [f for kind in (swap(r" == ", " != "), swap(r" != ", " == "))
                           for f in kind(line)],
    "logic": lambda line: [f for kind in (swap(r" && ", " || "), swap(r" \|\| ", " && "),
                                          swap(r"(?<=[ (])!(?=\w)", ""))
                           for f in kind(line)],
    "sum": lambda line: [f for kind in (swap(r" \+ ", " - "), swap(r" - ", " + "))
                         for f in kind(line)],
    "constant": next_number,
    "truth": lambda line: [f for kind in (swap(r"\btrue\b", "false"), swap(r"\bfalse\b", "true"))
                           for f in kind(line)],
    "dropped": without_statement,
}


def is_code(line):
    text = line.strip()
    return bool(text) and not text.startswith(("//", "#", "static_assert", "template", "\"", "R\""))


def faults_in(name):
    """All faults of a file: (file, number of the line, kind, new line)."""
    found = []
    lines = (TREE / name).read_text().split("\n")
    for number, line in enumerate(lines):
        if not is_code(line):
            continue
        code = line.split(" // ")[0]
        blanked = re.sub(r'"(\\.|[^"\\])*"', lambda m: "\0" * len(m.group()), code)
        for kind, faults in KINDS.items():
            if kind == "dropped" and not re.search(r"[;{})]$", lines[number - 1].rstrip()):
                continue
            for changed in faults(blanked):
                # Put the literals back where they stood.
                literals = iter(re.findall(r'"(?:\\.|[^"\\])*"', code))
                changed = re.sub("\0+", lambda m: next(literals), changed)
                if changed != line:
                    found.append((name, number, kind, changed))
    return found


class Copy:
    """The copy of the tree that the faults are put into."""

    def __init__(self, folder, preset):
        self.folder = folder
        self.preset = preset
        self.build_folder = folder / "build" / preset

    def refresh(self):
        """Makes the copy what the tree is, leaving alone what is the same so that little is built."""
        names = subprocess.run(
            ["git", "ls-files", "-z", "--cached", "--others", "--exclude-standard"],
            cwd=TREE, check=True, capture_output=True).stdout.decode().split("\0")
        wanted = {name for name in names if name and (TREE / name).is_file()}
        for name in wanted:
            source, target = TREE / name, self.folder / name
            if not target.exists() or target.read_bytes() != source.read_bytes():
                target.parent.mkdir(parents=True, exist_ok=True)
                shutil.copy(source, target)
        for path in self.folder.rglob("*"):
            name = path.relative_to(self.folder)
            if path.is_file() and name.parts[0] != "build" and str(name) not in wanted:
                path.unlink()

    def run(self, *command, limit=None):
        """The exit status, or None when it takes longer than the limit in seconds."""
        process = subprocess.Popen(command, cwd=self.folder, stdout=subprocess.DEVNULL,
                                   stderr=subprocess.DEVNULL, start_new_session=True)
        try:
            return process.wait(limit)
        except subprocess.TimeoutExpired:
            return None
        finally:
            # Whatever the tests have started goes with them.
            try:
                os.killpg(process.pid, 9)
            except ProcessLookupError:
                pass
            process.wait()

    def configure(self):
        return self.run("cmake", "--preset", self.preset) == 0

    def build(self, targets):
        return self.run("cmake", "--build", str(self.build_folder), "--target", *targets) == 0

    def tests(self):
        """The programs of GoogleTest by name, with the folder of each below tests/."""
        listing = json.loads(subprocess.run(
            ["ctest", "--test-dir", str(self.build_folder), "--show-only=json-v1"],
            check=True, capture_output=True).stdout)
        nodes = listing["backtraceGraph"]
        tests = {}
        for test in listing["tests"]:
            at = test["backtrace"]
            while "parent" in nodes["nodes"][at] and "command" in nodes["nodes"][at] and \
                    "CMakeLists.txt" not in nodes["files"][nodes["nodes"][at]["file"]]:
                at = nodes["nodes"][at]["parent"]
            folder = Path(nodes["files"][nodes["nodes"][at]["file"]])
            folder = folder.parent if not folder.is_absolute() \
                else folder.parent.relative_to(self.folder)
            if folder.parts[:1] == ("tests",) and test["name"].endswith("_test"):
                tests[test["name"]] = str(Path(*folder.parts[1:]))
        return tests

    def passes(self, tests, limit):
        pattern = "^(" + "|".join(map(re.escape, tests)) + ")$"
        return self.run("ctest", "--test-dir", str(self.build_folder), "-R", pattern,
                        "--stop-on-failure", "--timeout", str(limit), limit=limit * 2) == 0


def tests_for(name, tests):
    """The tests in the folder that mirrors the file's own, else those around it."""
    folder = Path(name).parent
    while True:
        chosen = [test for test, where in tests.items()
                  if Path(where) == folder or folder in Path(where).parents]
        if chosen or folder == folder.parent:
            return sorted(chosen)
        folder = folder.parent


def main():
    parser = argparse.ArgumentParser(description=__doc__,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("files", nargs="+", help="source files, relative to the top of the tree")
    parser.add_argument("--count", type=int, default=30, help="number of faults (30)")
    parser.add_argument("--seed", type=int, default=1, help="chooses the faults (1)")
    parser.add_argument("--minutes", type=float, default=20, help="stops after that time (20)")
    parser.add_argument("--limit", type=int, default=120,
                        help="seconds after which a test counts as failed (120)")
    parser.add_argument("--tests", metavar="REGEX", help="the tests to run, instead of the folder's")
    parser.add_argument("--preset", default="dev", help="the preset to build by (dev)")
    parser.add_argument("--copy", type=Path, default=TREE / "build" / "faults",
                        help="where the copy of the tree is kept (build/faults)")
    parser.add_argument("--most-survivors", type=int, metavar="N",
                        help="fails when more survive than that")
    parser.add_argument("--list", action="store_true", help="only lists the faults")
    options = parser.parse_args()

    candidates = [fault for name in sorted(set(options.files)) for fault in faults_in(name)]
    chosen = random.Random(options.seed).sample(candidates, min(options.count, len(candidates)))
    chosen.sort()
    if options.list:
        for name, number, kind, changed in chosen:
            print(f"{name}:{number + 1}: {kind}: {changed.strip()}")
        return 0

    end = time.monotonic() + options.minutes * 60
    copy = Copy(options.copy.resolve(), options.preset)
    copy.refresh()
    if not copy.configure():
        sys.exit("The copy of the tree cannot be configured")
    all_tests = copy.tests()
    if options.tests:
        picked = sorted(test for test in all_tests if re.search(options.tests, test))
        tests = {name: picked for name in options.files}
    else:
        tests = {name: tests_for(name, all_tests) for name in options.files}
    for used in {tuple(tests[fault[0]]) for fault in chosen}:
        if not used:
            sys.exit("There are no tests for some of the files; --tests names them")
        if not copy.build(used) or not copy.passes(used, options.limit):
            sys.exit("Without a fault these do not build and pass: " + " ".join(used))

    counts = {"caught": 0, "SURVIVED": 0, "no build": 0}
    done = 0
    for name, number, kind, changed in chosen:
        if time.monotonic() > end:
            break
        target = copy.folder / name
        original = target.read_text()
        lines = original.split("\n")
        before, lines[number] = lines[number], changed
        target.write_text("\n".join(lines))
        try:
            if not copy.build(tests[name]):
                outcome = "no build"
            else:
                outcome = "SURVIVED" if copy.passes(tests[name], options.limit) else "caught"
        finally:
            target.write_text(original)
        counts[outcome] += 1
        done += 1
        print(f"{outcome:8} {name}:{number + 1}: {kind}: {before.strip()}  =>  {changed.strip()}",
              flush=True)
    print(f"{done} of {len(chosen)} faults ({len(candidates)} possible, seed {options.seed}): " +
          ", ".join(f"{count} {outcome}" for outcome, count in counts.items()))
    if options.most_survivors is not None and counts["SURVIVED"] > options.most_survivors:
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main())
