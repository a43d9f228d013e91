"""Makes the fuzzers' first inputs from the cases and the images of the tests, a folder for each fuzzer.

Usage: seeds.py VECTORS IMAGES FOLDER
"""

import hashlib
import json
import pathlib
import sys

LARGEST = 16384


def lines(*texts):
    """One text to a line; between the values of a JSON text a line end is as good as a blank."""
    return "\n".join(text.replace("\r", " ").replace("\n", " ") for text in texts)


def three_states(case):
    return lines(case["before"], case["after"], case["current"])


# The fuzzer and how its input is made, for each operation whose cases it learns from.
SEEDS = {
    "library.validate": ("library", lambda case: case["library"]),
    "codec.roundtrip": ("library", lambda case: case["text"] if case["type"] == "Library" else None),
    "backup.decode": ("backup", lambda case: case.get("text")),
    "merge.apply": ("merge", lambda case: lines(case["incoming"], case["local"])),
    "value.revert": ("revert", three_states),
    "delta.undo": ("undo", three_states),
    "reference.linkURL": ("link", lambda case: case["text"]),
    "callSheet.calendarStart": ("calendar", lambda case: json.dumps(case["sheet"], ensure_ascii=False)),
}


def keep(folder, fuzzer, content):
    if len(content) > LARGEST:
        return
    target = pathlib.Path(folder) / fuzzer
    target.mkdir(parents=True, exist_ok=True)
    (target / hashlib.sha256(content).hexdigest()[:16]).write_bytes(content)


def main(vectors, images, folder):
    for path in sorted(pathlib.Path(images).iterdir()):
        keep(folder, "image", path.read_bytes())
    for path in sorted(pathlib.Path(vectors).glob("*.jsonl")):
        for line in path.read_text(encoding="utf-8").splitlines():
            case = json.loads(line)
            if case["op"] not in SEEDS:
                continue
            fuzzer, make = SEEDS[case["op"]]
            text = make(case["in"])
            if text is None:
                continue
            keep(folder, fuzzer, text.encode("utf-8", "surrogatepass"))


if __name__ == "__main__":
    if len(sys.argv) != 4:
        sys.exit(__doc__)
    main(*sys.argv[1:])
