#!/usr/bin/env python3
"""Turn the results of vantry-bench into tables of ratios, beside what they should be.

usage: report.py NAME=RESULT.json...
  NAME    the size of the library (S, M, L or X); RESULT.json what --benchmark_out wrote for it

Every figure is a median over the repetitions of one run, which is held against the goal; the
one in brackets comes from the fastest repetitions, those that were disturbed least.  Only ratios
inside a run mean anything: the machine's own pace changes from one minute to the next.
"""
import json
import statistics
import sys


MICROSECONDS = {"ns": 1e-3, "us": 1, "ms": 1e3}


class Run:
    """The results for one library."""

    def __init__(self, path):
        with open(path, encoding="utf-8") as file:
            result = json.load(file)
        self.date = result["context"]["date"][:10]
        self.pick = statistics.median
        self.repetitions = {}
        for entry in result["benchmarks"]:
            if entry["run_type"] == "iteration":
                name = "/".join(entry["name"].split("/")[:2])
                self.repetitions.setdefault(name, []).append(entry)

    def of(self, name, what=None):
        """The time in microseconds, or a counter.

        Saves wait for the disk, so they are told by the clock; all else by the processor time
        of the one thread, which does not count what other programs took meanwhile.
        """
        what = what or ("real_time" if name.startswith("save/") else "cpu_time")
        scale = MICROSECONDS if what.endswith("_time") else {}
        entries = self.repetitions[name]
        return self.pick(entry[what] * scale.get(entry["time_unit"], 1) for entry in entries)

    def ratio(self, a, b):
        return self.of(a) / self.of(b)


def at_least(bound, sizes="SMLX"):
    return lambda size: (bound, ">=") if size in sizes else None


def at_most(bound, sizes="SMLX"):
    return lambda size: (bound, "<=") if size in sizes else None


def no_goal(_size):
    return None


def first(*goals):
    return lambda size: next((goal(size) for goal in goals if goal(size)), None)


# What is measured, how it is told, and the goal for each size.
ROWS = [
    ("Decode, faster than rapidjson's DOM to the same records", "x", at_least(1.5),
     lambda run: run.ratio("decode/rapidjson", "decode/ours")),
    ("Decode, faster than QJsonDocument to records", "x", at_least(4),
     lambda run: run.ratio("decode/qt", "decode/ours")),
    ("Decode, times simdjson's DOM parse alone", "x", at_most(2.3),
     lambda run: run.ratio("decode/ours", "decode/simdjson-dom-alone")),
    ("Encode, faster than rapidjson's SAX writer", "x", at_least(1.3),
     lambda run: run.ratio("encode/rapidjson", "encode/ours")),
    ("Encode, faster than QJsonDocument from records", "x", at_least(10),
     lambda run: run.ratio("encode/qt", "encode/ours")),
    ("Encode, times memcpy (both into a used buffer)", "x", at_most(20),
     lambda run: run.ratio("encode/ours-used-buffer", "encode/copy-used-buffer")),
    ("Encode, times memcpy (both into fresh memory)", "x", at_most(20),
     lambda run: run.ratio("encode/ours", "encode/copy")),
    ("Keystroke, median", "us", at_most(100, "L"), lambda run: run.of("keystroke/ours", "median_us")),
    ("Keystroke, 99th percentile", "us", at_most(1000, "L"), lambda run: run.of("keystroke/ours", "p99_us")),
    ("Keystroke, cheaper than one deep copy", "x", at_least(1000, "L"),
     lambda run: run.of("keystroke/deep-copy") / run.of("keystroke/ours", "median_us")),
    ("Clean flush, beyond one stat", "us", at_most(20),
     lambda run: run.of("flush/clean") - run.of("flush/one-status")),
    ("Clean flush, bytes written", "", at_most(0), lambda run: run.of("flush/clean", "bytes_written")),
    ("Save, times write + fsync + rename of the same bytes", "x",
     first(at_most(2.5, "S"), at_most(3.2, "MLX")), lambda run: run.ratio("save/ours", "save/plain")),
    ("Save, decodings of the unchanged old file", "", at_most(0), lambda run: run.of("save/ours", "decodings")),
    ("Save, previous generation by link", "", at_least(1), lambda run: run.of("save/ours", "links")),
    ("Save, bytes written beyond the file", "", at_most(65536),
     lambda run: run.of("save/ours", "bytes_beyond_file")),
    ("Structural undo without its save", "us", at_most(500, "L"), lambda run: run.of("undo/ours")),
    ("Structural undo, faster than by values", "x", at_least(1000), lambda run: run.ratio("undo/by-values", "undo/ours")),
    ("Twenty undo entries of small changes, bytes", "", at_most(5_000_000, "L"),
     lambda run: run.of("undo/history-memory", "bytes")),
    ("Merge of an equal library, times a deep comparison", "x", at_most(2),
     lambda run: run.ratio("merge/equal", "compare/unshared")),
    ("Merge, each retained take beyond that", "us", at_most(20),
     lambda run: (run.of("merge/diverged") - run.of("merge/equal")) / run.of("merge/diverged", "copies")),
    ("Backup with 90 MB of images, written, times Base64 by Qt alone", "x", no_goal,
     lambda run: run.ratio("backup/encode-images", "backup/base64-by-qt")),
    ("Backup with 90 MB of images, read and checked, times writing it", "x", no_goal,
     lambda run: run.ratio("backup/decode-images", "backup/encode-images")),
    ("Report, pages a second", "", at_least(300), lambda run: run.of("document/report", "pages_per_second")),
    ("Report, bytes of memory beyond the document", "", at_most(60_000_000),
     lambda run: run.of("document/report", "memory_beyond_document")),
    ("Counts of a month's 42 days", "us", at_most(8000), lambda run: run.of("schedule/month")),
    ("SHA-256, speed beside OpenSSL's own", "x", at_least(0.8), lambda run: run.ratio("hash/openssl", "hash/ours")),
    ("SHA-256, faster than Qt's", "x", at_least(1), lambda run: run.ratio("hash/qt", "hash/ours")),
]

TIMES = ["decode/ours", "decode/rapidjson", "decode/qt", "decode/simdjson-dom-alone", "encode/ours",
         "encode/ours-used-buffer", "encode/rapidjson", "encode/qt", "encode/qt-from-document", "encode/copy",
         "encode/copy-used-buffer", "save/ours", "save/plain", "validate/all", "validate/after-keystroke",
         "compare/unshared", "keystroke/deep-copy", "undo/ours", "undo/by-values", "merge/equal", "merge/diverged",
         "merge/identifiers-once", "backup/encode-images", "backup/decode-images", "backup/base64-by-qt"]


def number(value):
    if value == 0:
        return "0"
    return f"{value:,.0f}" if abs(value) >= 100 else f"{value:.1f}" if abs(value) >= 10 else f"{value:.2f}"


def goal_text(goal, unit, sizes):
    goals = {size: goal(size) for size in sizes}
    parts = {}
    for size, bound in goals.items():
        if bound:
            parts.setdefault(f"{bound[1]} {bound[0]:g} {unit}".strip(), []).append(size)
    if len(parts) == 1 and len(next(iter(parts.values()))) == len(sizes):
        return next(iter(parts))
    return ", ".join(f"{text} ({' '.join(names)})" for text, names in parts.items()) or "-"


def cell(run, size, unit, goal, measure):
    try:
        return measured_cell(run, size, unit, goal, measure)
    except KeyError:
        return "-", False  # not measured for this size


def measured_cell(run, size, unit, goal, measure):
    run.pick = min
    fastest = measure(run)
    run.pick = statistics.median
    value = measure(run)
    text = number(value) + (f" {unit}" if unit == "us" else "")
    if number(fastest) != number(value):
        text += f" ({number(fastest)})"
    bound = goal(size)
    if bound and not (value >= bound[0] if bound[1] == ">=" else value <= bound[0]):
        return f"**{text} missed**", True
    return text, False


def time_of(run, name):
    return number(run.of(name) / 1000) if name in run.repetitions else "-"


def main():
    if len(sys.argv) < 2 or any("=" not in argument for argument in sys.argv[1:]):
        sys.exit(__doc__)
    runs = {}
    for argument in sys.argv[1:]:
        name, path = argument.split("=", 1)
        runs[name] = Run(path)
    sizes = list(runs)

    missed = 0
    print("| Measured | Goal |", " | ".join(sizes), "|")
    print("|---|---|" + "---|" * len(sizes))
    for title, unit, goal, measure in ROWS:
        cells = [cell(runs[size], size, unit, goal, measure) for size in sizes]
        missed += sum(failed for _, failed in cells)
        print(f"| {title} | {goal_text(goal, unit, sizes)} |", " | ".join(text for text, _ in cells), "|")
    print("\n| Medians, ms |", " | ".join(sizes), "|")
    print("|---|" + "---|" * len(sizes))
    for name in TIMES:
        print(f"| {name} |", " | ".join(time_of(runs[size], name) for size in sizes), "|")
    print(f"\n{missed} goals missed.")


if __name__ == "__main__":
    main()
