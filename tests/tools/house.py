"""Keeps the house in order: who may include whom, and how a file must look.

Usage: house.py ROOT

Prints one line for each thing that is wrong and ends with status 1 if there is any.
docs/house.md tells the same directions to people.
"""

import pathlib
import re
import sys

# Each room with the rooms right below it. A room may include itself and everything further down.
ROOMS = {
    "text": [],
    "edge": ["text"],
    "records": ["text"],
    "persistence": ["records"],
    "app": ["persistence", "edge"],
    "rules": ["app"],
    "documents": ["rules"],
    "access": ["documents"],
    "routes": ["records"],
    "design": ["routes", "edge"],
    "pages": ["access", "design"],
    "navigation": ["pages"],
    "verification": ["navigation"],
    "main": ["verification"],
}

# The design system knows what people write, and no record, though the routes below it name some.
NOT_IN_SIGHT = {"design": {"records"}}

# Where the rooms are; the longest fitting path counts. Two are a single header: what people write, and the edge
# at which it becomes Qt's text.
PLACES = {
    "VantryCore/records/Text.h": "text",
    "VantryCore/records/": "records",
    "VantryCore/persistence/": "persistence",
    "Vantry/app/": "app",
    "Vantry/app/QtText.h": "edge",
    "Vantry/schedule/rules/": "rules",
    "Vantry/schedule/pages/": "pages",
    "Vantry/documents/": "documents",
    "Vantry/documents/menu/": "pages",
    "Vantry/references/access/": "access",
    "Vantry/references/pages/": "pages",
    "Vantry/interface/routes/": "routes",
    "Vantry/interface/design/": "design",
    "Vantry/interface/pages/": "pages",
    "Vantry/interface/library/": "pages",
    "Vantry/interface/shots/": "pages",
    "Vantry/interface/editor/": "pages",
    "Vantry/interface/callsheets/": "pages",
    "Vantry/interface/settings/": "pages",
    "Vantry/interface/navigation/": "navigation",
    "Vantry/verification/": "verification",
    "Vantry/main.cpp": "main",
}

PRODUCT = ("VantryCore", "Vantry")
BESIDE = ("tests", "bench", "conformance", "fuzz", "gallery")  # may include everything; nothing includes them but themselves
LONGEST_HEADER = 160
LONGEST_SOURCE = 600

# The checks of Qt's own tests return in silence where no such test runs.
MUTE_CHECK = re.compile(r"\bQ(TRY_\w+|VERIFY2?|COMPARE|FAIL|SKIP)\b")
INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]', re.MULTILINE)
QT_HEADER = re.compile(r"^(Q[A-Z]|Qt|q[a-z]+\.h)")


def room_of(path):
    """The room of a file of the product, or None when its folder is in no list."""
    fitting = [place for place in PLACES if path == place or (place.endswith("/") and path.startswith(place))]
    return PLACES[max(fitting, key=len)] if fitting else None


def in_sight(room):
    """All rooms that `room` may include."""
    seen = set()
    waiting = [room]
    while waiting:
        current = waiting.pop()
        if current not in seen:
            seen.add(current)
            waiting += ROOMS[current]
    return seen - NOT_IN_SIGHT.get(room, set())


def circles(arrows):
    """One circle for each part of the graph that has one, as a list of names that ends where it began."""
    found = []
    done = set()

    def walk(name, road):
        if name in road:
            found.append(road[road.index(name):] + [name])
        elif name not in done:
            for target in sorted(arrows.get(name, ())):
                walk(target, road + [name])
            done.add(name)

    for name in sorted(arrows):
        walk(name, [])
    return found


class House:
    def __init__(self, root):
        self.root = pathlib.Path(root)
        self.wrong = []
        self.files = sorted(
            path.relative_to(self.root).as_posix()
            for top in PRODUCT + BESIDE
            for path in (self.root / top).rglob("*")
            if path.suffix in (".h", ".cpp"))

    def check(self):
        file_arrows = {}
        folder_arrows = {}
        for path in self.files:
            text = (self.root / path).read_text(encoding="utf-8")
            self.check_form(path, text)
            if not path.startswith(BESIDE) and room_of(path) is None:
                self.say(path, "stands in a folder that is no room; name it in tests/tools/house.py")
            for bracket, target in INCLUDE.findall(text):
                if bracket == "<":
                    self.check_system_include(path, target)
                elif not target.endswith(".moc"):
                    self.check_own_include(path, target)
                    file_arrows.setdefault(path, set()).add(target)
                    if room_of(path) == room_of(target) == "pages":
                        folder, other = (name.rpartition("/")[0] for name in (path, target))
                        if folder != other:
                            folder_arrows.setdefault(folder, set()).add(other)
        for circle in circles(file_arrows) + circles(folder_arrows):
            self.wrong.append("a circle: " + " -> ".join(circle))
        return self.wrong

    def say(self, path, what):
        self.wrong.append(f"{path}: {what}")

    def check_form(self, path, text):
        lines = text.count("\n")
        if path.endswith(".h"):
            if not text.startswith("#pragma once\n"):
                self.say(path, "does not begin with #pragma once")
            if path.startswith(PRODUCT) and lines > LONGEST_HEADER:
                self.say(path, f"has {lines} lines; a header has at most {LONGEST_HEADER}")
        else:
            if lines > LONGEST_SOURCE:
                self.say(path, f"has {lines} lines; a source has at most {LONGEST_SOURCE}")
            if not self.is_listed(path):
                self.say(path, "is built by no CMakeLists.txt")

        mute = MUTE_CHECK.search(text) if path.startswith("tests/") else None
        if mute:
            self.say(path, f"has {mute.group()}, which fails no test of GoogleTest; "
                           "write EXPECT_TRUE(QTest::qWaitFor(...))")

    def is_listed(self, path):
        for folder in pathlib.PurePosixPath(path).parents:
            lists = self.root / folder / "CMakeLists.txt"
            if lists.is_file():
                name = pathlib.PurePosixPath(path).relative_to(folder).as_posix()
                if re.search(rf"(?<![\w./-]){re.escape(name)}(?![\w./-])", lists.read_text(encoding="utf-8")):
                    return True
        return False

    def check_system_include(self, path, target):
        if target.startswith(tuple(top + "/" for top in PRODUCT + BESIDE)):
            self.say(path, f"includes <{target}>; our own headers stand in quotes")
        if path.startswith("VantryCore/") and QT_HEADER.match(target):
            self.say(path, f"includes <{target}>; the core knows nothing of Qt")

    def check_own_include(self, path, target):
        if not (self.root / target).is_file():
            self.say(path, f'includes "{target}", which is no path from the root of the repository')
            return
        if path.startswith(BESIDE):
            return
        here, there = room_of(path), room_of(target)
        if target.startswith(BESIDE):
            self.say(path, f'includes "{target}"; the product knows nothing of its tests')
        elif here and there and there not in in_sight(here):
            self.say(path, f'includes "{target}"; {here} may not include {there}')


if __name__ == "__main__":
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    house = House(sys.argv[1])
    problems = house.check()
    for problem in problems:
        print(problem)
    print(f"{len(house.files)} files, {len(problems)} wrong")
    sys.exit(1 if problems or not house.files else 0)
