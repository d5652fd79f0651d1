#!/usr/bin/env python3
"""Sows small faults into the program, one at a time, and tells which of them the tests of the same floor notice.

usage: mutate.py [--count N] [--seed K] [--floor NAME]... [--kind NAME]... [--limit SECONDS] [--at FILE:LINE]

A fault is one of the kinds below at a random place of a floor. It is sown in a copy of the tree (build-mutate/), the
tests of that floor are built and run there, and the place is restored. Faults that do not compile do not count. What
has been tried is kept in build-mutate/faults-SEED.jsonl; the same call goes on from there, and begins anew where the
sources have changed. `--at` tries every fault of the lines FILE:LINE, for a look at one place.

tools/mutate_equivalent.txt lists faults that change nothing anybody could notice, found by reading, each with its
reason. They are told apart in the end.
"""
import argparse
import hashlib
import json
import os
import pathlib
import random
import re
import shutil
import signal
import subprocess
import sys
import time

ROOT = pathlib.Path(__file__).resolve().parent.parent
COPY = ROOT / "build-mutate" / "tree"
BUILD = ROOT / "build-mutate" / "build"
TABLE = re.compile(r"(_table|_terms|_data)\.h$")
DEEPEST_DIGIT = 8  # a change after the eighth digit of a constant is below what results show



def tested_floors(kind):
    """The floors with tests of a kind ("floor": one program, "window": one for each file), as the build knows them."""
    text = (ROOT / "tests" / "CMakeLists.txt").read_text(encoding="utf-8")
    return re.search(rf"foreach\(floor ([^)]*)\)\n\s*vorlix_{kind}_tests\(", text)[1].split()


ENGINE_FLOORS = tested_floors("floor")
WINDOW_FLOORS = tested_floors("window")

IDENTIFIER = r"[A-Za-z_]\w*"
SIMPLE = r"[A-Za-z_][\w.>-]*(?:\[\w+\])?"


def masked(text):
    """The text with comments, strings and preprocessor lines blanked, so that patterns see code alone."""
    pattern = re.compile(r"//[^\n]*|/\*.*?\*/|\"(?:\\.|[^\"\\\n])*\"|'(?:\\.|[^'\\\n])+'|^[ \t]*#[^\n]*", re.S | re.M)
    return pattern.sub(lambda m: re.sub(r"[^\n]", " ", m[0]), text)


def closing(code, at):
    """Index after the bracket that closes the one at `at`, or -1."""
    depth = 0
    for i in range(at, len(code)):
        if code[i] in "([{":
            depth += 1
        elif code[i] in ")]}":
            depth -= 1
            if depth == 0:
                return i + 1
    return -1


def arguments(code, at):
    """Spans of the arguments of a call whose bracket opens at `at`."""
    end = closing(code, at)
    if end < 0:
        return []
    spans, depth, start = [], 0, at + 1
    for i in range(at + 1, end):
        if code[i] in "([{":
            depth += 1
        elif i == end - 1 or (code[i] == "," and depth == 0):
            spans.append((start, i))
            start = i + 1
        elif code[i] in ")]}":
            depth -= 1
    return spans


def neighbours():
    """Fields of records to the one that stands next to them with the same type."""
    found = {}
    field = re.compile(r"^\s+(double|int|bool|Vec3)\s+(\w+)(\[\w+\])?\s*(?:=[^;]*|\{\})?;", re.M)
    for header in sorted(ROOT.glob("*/*.h")):
        rows = field.findall(masked(header.read_text(encoding="utf-8")))
        for (type1, name1, size1), (type2, name2, size2) in zip(rows, rows[1:]):
            if (type1, size1) == (type2, size2):
                found[name1] = name2
    return found


def replaced(pattern, exchange):
    """A finder of one regular expression: `exchange` maps a match to what comes in its place."""
    compiled = re.compile(pattern)

    def find(code):
        for m in compiled.finditer(code):
            new = exchange(m)
            if new is not None and new != m[0]:
                yield m.start(), m.end(), new

    return find


def last_digit(m):
    digits = [i for i, c in enumerate(m[1]) if c.isdigit()]
    while digits and m[1][digits[0]] == "0":
        digits.pop(0)
    if not digits:
        return None
    i = digits[min(len(digits), DEEPEST_DIGIT) - 1]
    digit = "8" if m[1][i] == "9" else str(int(m[1][i]) + 1)
    return m[1][:i] + digit + m[1][i + 1:] + m[2]


def without_clamp(code):
    for m in re.finditer(r"std::(clamp|min|max)(?:<\w+>)?\(", code):
        spans = arguments(code, m.end() - 1)
        if len(spans) >= 2:
            first = code[spans[0][0]:spans[0][1]]
            yield m.start(), spans[-1][1] + 1, f"({first})"


def swapped_arguments(code):
    for m in re.finditer(rf"\b{IDENTIFIER}\(", code):
        if m[0] in ("if(", "for(", "while(", "switch(", "return("):
            continue
        spans = arguments(code, m.end() - 1)
        for (a0, a1), (b0, b1) in zip(spans, spans[1:]):
            first, second = code[a0:a1], code[b0:b1]
            if re.fullmatch(rf"\s*{SIMPLE}\s*", first) and re.fullmatch(rf"\s*{SIMPLE}\s*", second) \
                    and first.strip() != second.strip():
                yield a0, b1, second.strip() if a0 == a1 else first.replace(first.strip(), second.strip()) + "," \
                    + second.replace(second.strip(), first.strip())


def skipped_call(code):
    for m in re.finditer(rf"^([ \t]+)(?:{IDENTIFIER}(?:::|\.|->))*{IDENTIFIER}\(", code, re.M):
        end = closing(code, m.end() - 1)
        if end > 0 and code[end:end + 1] == ";" and not m[0].strip().startswith(("return", "if(")):
            yield m.start() + len(m[1]), end, "(void)0"


UNITS = {"radPerDeg": "radPerHour", "radPerHour": "radPerDeg", "degPerRad": "radPerDeg", "86400.0": "3600.0",
         "3600.0": "60.0", "1000.0": "1.0", "24.0": "12.0", "60.0": "3600.0", "15.0": "1.0"}
AXES = {"[0]": "[1]", "[1]": "[2]", "[2]": "[0]", ".x()": ".y()", ".y()": ".x()", "std::sin": "std::cos",
        "std::cos": "std::sin", "xrot": "yrot", "yrot": "zrot", "zrot": "xrot", ".width()": ".height()",
        ".height()": ".width()"}
LOOSER = {"<": "<=", ">": ">=", "<=": "<", ">=": ">"}


def kinds():
    beside = neighbours()
    return {
        "sign": replaced(r"(?<=[\w)\]]) ([+-])(=?) (?=[\w(.:-])", lambda m: f" {'-' if m[1] == '+' else '+'}{m[2]} "),
        "digit": replaced(r"(?<![\w.])(\d+\.\d*|\d*\.\d+)((?:[eE][+-]?\d+)?)(?![\w.])", last_digit),
        "limit": replaced(r"(?<=[\w)\]]) (<=|>=|<|>) (?=[\w(.:-])", lambda m: f" {LOOSER[m[1]]} "),
        "axes": replaced(r"\[[012]\]|\.[xy]\(\)|\.width\(\)|\.height\(\)|std::(?:sin|cos)\b|\b[xyz]rot\b",
                         lambda m: AXES[m[0]]),
        "off by one": replaced(r"(?<![\w.\"])(\d{1,3})(?![\w.\"])", lambda m: str(int(m[1]) + 1)),
        "clamp": without_clamp,
        "unit": replaced(r"\b(?:radPerDeg|radPerHour|degPerRad)\b|(?<![\w.])(?:86400|3600|1000|24|60|15)\.0(?!\w)",
                         lambda m: UNITS[m[0]]),
        "call": skipped_call,
        "field": replaced(rf"(?<=\.|>)({IDENTIFIER})\b(?!\()", lambda m: beside.get(m[1])),
        "arguments": swapped_arguments,
    }


def sources(floor):
    for path in sorted((ROOT / floor).glob("*.cpp")) + sorted((ROOT / floor).glob("*.h")):
        if not TABLE.search(path.name):
            yield path


def places(floor, finders):
    """All faults that could be sown into a floor, by kind."""
    found = {kind: [] for kind in finders}
    for path in sources(floor):
        text = path.read_text(encoding="utf-8")
        code = masked(text)
        for kind, find in finders.items():
            for start, end, new in find(code):
                if text[start:end] != code[start:end]:
                    continue  # a comment or a text stands inside
                found[kind].append({"file": str(path.relative_to(ROOT)), "line": text.count("\n", 0, start) + 1,
                                    "kind": kind, "start": start, "end": end, "old": text[start:end], "new": new})
    return found


class Faults:
    """A repeatable sequence of faults: floors by their size, kinds and places at random."""

    def __init__(self, floors, finders, seed):
        self.random = random.Random(seed)
        self.found = {floor: places(floor, finders) for floor in floors}
        self.floors = floors
        self.weights = [sum(len(path.read_text(encoding="utf-8").splitlines()) for path in sources(f)) for f in floors]

    def __iter__(self):
        seen = set()
        while True:
            floor = self.random.choices(self.floors, self.weights)[0]
            kind = self.random.choice([k for k, rows in self.found[floor].items() if rows])
            fault = dict(self.random.choice(self.found[floor][kind]), floor=floor)
            key = (fault["file"], fault["start"], fault["new"])
            if key not in seen:
                seen.add(key)
                yield fault


def run(command, limit, **options):
    """Exit status of a command, None where it took longer than the limit; its whole process group ends with it."""
    with subprocess.Popen(command, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, start_new_session=True,
                          **options) as process:
        try:
            return process.wait(limit)
        except subprocess.TimeoutExpired:
            os.killpg(process.pid, signal.SIGKILL)
            process.wait()
            return None


def targets(floor):
    if floor in ENGINE_FLOORS:
        return [f"test_{floor}"]
    return [f"{floor}_{path.stem}" for path in sorted((ROOT / "tests" / floor).glob("*_test.cpp"))]


def copy_tree(options):
    """Brings the copy up to date; what has not changed keeps its time, so that little is compiled."""
    names = subprocess.run(["git", "ls-files", "-co", "--exclude-standard"], cwd=ROOT, check=True, capture_output=True,
                           text=True).stdout.split("\n")
    wanted = {name for name in names if name and (ROOT / name).is_file()}
    for path in COPY.rglob("*"):
        if path.is_file() and str(path.relative_to(COPY)) not in wanted:
            path.unlink()
    for name in wanted:
        source, target = ROOT / name, COPY / name
        if not target.exists() or target.read_bytes() != source.read_bytes():
            target.parent.mkdir(parents=True, exist_ok=True)
            shutil.copy(source, target)
    subprocess.run(["cmake", "-S", COPY, "-B", BUILD, "-G", "Ninja", "-DCMAKE_BUILD_TYPE=Release", *options],
                   check=True, stdout=subprocess.DEVNULL)


def build(floor):
    return run(["cmake", "--build", BUILD, "--target", *targets(floor)], 1800) == 0


def tests_pass(floor, limit):
    """By ctest, whose environment is that of the suite; it ends at the first failure."""
    return run(["ctest", "--stop-on-failure", "--timeout", str(limit), "-j2", "-R", f"^{floor}(: .*)?$"], limit + 30,
               cwd=BUILD) == 0


def sow(fault, limit):
    """One fault: "killed", "survived", or "no build"."""
    path = COPY / fault["file"]
    text = path.read_text(encoding="utf-8")
    path.write_text(text[:fault["start"]] + fault["new"] + text[fault["end"]:], encoding="utf-8")
    try:
        if not build(fault["floor"]):
            return "no build"
        return "survived" if tests_pass(fault["floor"], limit) else "killed"
    finally:
        path.write_text(text, encoding="utf-8")


def equivalent():
    """File and source line (blanks folded) of each fault known to change nothing, with its reason."""
    known = {}
    path = ROOT / "tools" / "mutate_equivalent.txt"
    for row in path.read_text(encoding="utf-8").splitlines() if path.exists() else []:
        if row and not row.startswith("#"):
            name, line, new, reason = [part.strip() for part in row.split(" | ")]
            known[name, line, new] = reason
    return known


def reason_of(fault, known):
    line = (ROOT / fault["file"]).read_text(encoding="utf-8").splitlines()[fault["line"] - 1]
    return known.get((fault["file"], " ".join(line.split()), fault["new"].strip()))


def tell(results):
    known = equivalent()
    counted = [r for r in results if r["result"] != "no build"]
    survivors = [r for r in counted if r["result"] == "survived"]
    for r in sorted(survivors, key=lambda r: (r["file"], r["line"])):
        reason = reason_of(r, known)
        print(f"survived {r['file']}:{r['line']}  {r['kind']}: {r['old'].strip()} -> {r['new'].strip()}"
              + (f"  [equivalent: {reason}]" if reason else ""))
    for floor in ENGINE_FLOORS + WINDOW_FLOORS + [None]:
        rows = [r for r in counted if floor in (None, r["floor"])]
        if not rows:
            continue
        killed = sum(r["result"] == "killed" for r in rows)
        alike = sum(r["result"] == "survived" and reason_of(r, known) is not None for r in rows)
        print(f"{floor or 'all':9} {killed:4} killed of {len(rows):4}, {alike} equivalent: "
              f"{100.0 * killed / max(1, len(rows) - alike):5.1f} %")


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--count", type=int, default=50, help="faults that compile (50)")
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--floor", action="append", choices=ENGINE_FLOORS + WINDOW_FLOORS)
    parser.add_argument("--kind", action="append", choices=list(kinds()))
    parser.add_argument("--limit", type=int, default=0, help="seconds for the tests of a floor (10 times what they take)")
    parser.add_argument("--at", metavar="FILE:LINE", help="every fault of one line instead of random ones")
    parser.add_argument("--cmake", action="append", default=[], help="a word for cmake's configure step")
    args = parser.parse_args()

    COPY.mkdir(parents=True, exist_ok=True)
    copy_tree(args.cmake)
    finders = {kind: find for kind, find in kinds().items() if not args.kind or kind in args.kind}
    floors = [args.at.split("/")[0]] if args.at else args.floor or ENGINE_FLOORS + WINDOW_FLOORS
    if args.at:
        name, line = args.at.rsplit(":", 1)
        faults = [dict(f, floor=floors[0]) for rows in places(floors[0], finders).values() for f in rows
                  if f["file"] == name and f["line"] == int(line)]
    else:
        faults = Faults(floors, finders, args.seed)

    state = hashlib.sha256("".join(p.read_text(encoding="utf-8") for f in floors for p in sources(f)).encode()
                           + repr((floors, args.kind, args.at)).encode()).hexdigest()
    kept = ROOT / "build-mutate" / f"faults-{args.seed}-{state[:8]}.jsonl"
    done = {}
    if kept.exists():
        for row in kept.read_text(encoding="utf-8").splitlines():
            r = json.loads(row)
            done[r["file"], r["start"], r["new"]] = r

    limits, results = {}, []
    for fault in faults:
        if not args.at and sum(r["result"] != "no build" for r in results) >= args.count:
            break
        key = (fault["file"], fault["start"], fault["new"])
        if key not in done:
            floor = fault["floor"]
            if floor not in limits:
                started = time.monotonic() if build(floor) else None
                if started is None or not tests_pass(floor, 900):
                    sys.exit(f"the tests of {floor} do not pass as they are")
                limits[floor] = args.limit or 10 + int(10 * (time.monotonic() - started))
            done[key] = dict(fault, result=sow(fault, limits[floor]))
            with kept.open("a", encoding="utf-8") as out:
                out.write(json.dumps(done[key]) + "\n")
            r = done[key]
            print(f"{r['result']:8} {r['file']}:{r['line']}  {r['kind']}: {r['old'].strip()} -> {r['new'].strip()}",
                  flush=True)
        results.append(done[key])
    print()
    tell(results)


if __name__ == "__main__":
    main()
