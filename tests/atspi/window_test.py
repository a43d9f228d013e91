"""The window for those who hear it: names, descriptions and states, and everything done without a mouse or a key.

Usage: window_test.py VANTRY SAMPLE-LIBRARY
"""

import json
import os
import pathlib
import shutil
import sys
import tempfile
import unittest

import screen
from screen import TREE_ROW, Atspi, Program, actions, has, wait_for

VANTRY = pathlib.Path(sys.argv[1]).resolve()
SAMPLE = pathlib.Path(sys.argv[2]).resolve()
RESULTS = {"pending": "—", "good": "Good", "ng": "NG"}


class WindowTest(unittest.TestCase):
    def setUp(self):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="vantry-"))
        self.addCleanup(shutil.rmtree, self.folder, ignore_errors=True)

    def open(self, library=None):
        data = self.folder / "data"
        data.mkdir()
        if library is not None:
            shutil.copyfile(library, data / "library.json")
        self.program = Program(VANTRY, self.folder)
        self.addCleanup(self.program.end)
        return self.program

    def saved(self):
        """The library on disk, as soon as there is one."""
        file = self.folder / "data" / "library.json"
        return json.loads(file.read_text(encoding="utf-8")) if file.is_file() else {"projects": []}

    def row(self, name, detail, expandable=True):
        """A row of the sidebar, with what is heard of it."""
        row = self.program.get(name, TREE_ROW)
        self.assertEqual(row.get_description(), detail)
        self.assertEqual(has(row, Atspi.StateType.EXPANDABLE), expandable)
        return row

    def test_a_production_comes_about_through_the_tree_alone(self):
        program = self.open()
        title = "Tom & Jerry <b>x</b>"
        program.act("New project", "push button")
        create = program.get("Create", "push button")
        self.assertFalse(has(create, Atspi.StateType.SENSITIVE), "a production needs a name")
        program.write("Project name", f"  {title} ")
        program.write("Director", "Mei ")
        wait_for("Create to be usable", lambda: has(create, Atspi.StateType.SENSITIVE))
        screen.perform(create, "Press")
        wait_for("the sheet to close", lambda: program.find("Create", "push button") is None)
        project = wait_for("the production on disk", lambda: self.saved()["projects"])[0]
        self.assertEqual((project["title"], project["director"]), (title, "Mei "))

        crumb = program.get(title, "push button")
        self.assertFalse(has(crumb, Atspi.StateType.SENSITIVE), "the crumb of the place that is on screen")
        production = self.row(title, "Director: Mei ", expandable=False)
        wait_for("its row to be the selected one", lambda: has(production, Atspi.StateType.SELECTED))

        program.act("Add act", "push button")
        act = self.row("Act 1", "0 shots · 0 done / 0 remaining", expandable=False)
        self.assertTrue(has(production, Atspi.StateType.EXPANDED), "a new production is open")
        screen.perform(act, "Press")
        program.act("Add shot", "push button")
        wait_for("the shot in the act's row", lambda: act.get_description() == "1 shots · 0 done / 1 remaining")
        screen.perform(act, "Toggle")
        shot = wait_for("the shot's row", lambda: next(
            (node for node in program.walk() if node.get_role_name() == TREE_ROW
             and node.get_description() == "0 Take · 0★"), None))
        screen.perform(shot, "Toggle")
        program.act("New take", TREE_ROW)
        program.get("Take 01", "label")
        take = self.row("Take 1", "— · 0★", expandable=False)
        wait_for("its row to be the selected one", lambda: has(take, Atspi.StateType.SELECTED))
        wait_for("the take on disk", lambda: self.saved()["projects"][0]["acts"][0]["shots"][0]["takes"])

    def test_a_take_is_opened_from_the_sidebar(self):
        library = json.loads(SAMPLE.read_text(encoding="utf-8"))
        project = library["projects"][0]
        act = project["acts"][0]
        number, shot = next((at, shot) for at, shot in enumerate(act["shots"]) if shot["takes"])
        take = shot["takes"][0]
        program = self.open(SAMPLE)

        production = self.row(project["title"], "Director: " + project["director"])
        self.assertFalse(has(production, Atspi.StateType.EXPANDED), "the tree starts closed")
        self.assertEqual(actions(production), ["Press", "Toggle"])
        screen.perform(production, "Toggle")
        wait_for("the production to open", lambda: has(production, Atspi.StateType.EXPANDED))
        active = [shot for shot in act["shots"] if not shot["cancelled"]]
        done = [shot for shot in active if any(take["result"] == "good" for take in shot["takes"])]
        row = self.row(act["title"], f"{len(active)} shots · {len(done)} done / {len(active) - len(done)} remaining")
        screen.perform(row, "Toggle")
        stars = max(take["stars"] for take in shot["takes"])
        complete = " · ✓" if shot in done else ""
        row = self.row(f"{shot['code']} {shot['title']}", f"{len(shot['takes'])} Take · {stars}★{complete}")
        screen.perform(row, "Toggle")
        wait_for("the shot to open", lambda: has(row, Atspi.StateType.EXPANDED))
        self.row("New take", "", expandable=False)
        row = self.row(f"Take {take['number']}", f"{RESULTS[take['result']]} · {take['stars']}★", expandable=False)
        self.assertEqual(actions(row), ["Press"])
        self.assertFalse(has(row, Atspi.StateType.SELECTED))
        screen.perform(row, "Press")
        program.get(f"Take {take['number']:02}", "label")
        wait_for("its row to be the selected one", lambda: has(row, Atspi.StateType.SELECTED))
        crumb = program.get(f"{shot['code']} {shot['title']}", "push button")
        self.assertTrue(has(crumb, Atspi.StateType.SENSITIVE))

        screen.perform(production, "Toggle")
        wait_for("the production to close", lambda: not has(production, Atspi.StateType.EXPANDED))
        self.assertIsNone(program.find(f"Take {take['number']}", TREE_ROW))

    def test_a_shot_is_planned_and_a_take_logged(self):
        library = json.loads(SAMPLE.read_text(encoding="utf-8"))
        project = library["projects"][0]
        act = project["acts"][0]
        shot = next(shot for shot in act["shots"] if not shot["cancelled"])
        program = self.open(SAMPLE)
        program.act(project["title"], TREE_ROW)
        program.act(act["title"], "push button")
        place = program.get(f"{shot['code']} {shot['title']}", "panel")
        edit = wait_for("the button of its row", lambda: next(
            (node for node in program.walk(place) if node.get_name() == "Edit shot"), None))
        screen.perform(edit, "Press")
        program.write("Framing", "Close-up")
        program.write("Image & action", "He turns.\nHolds.")
        program.act("MOS", "radio button", "Toggle")
        program.act("New take · ⌘ Return", "push button")
        program.write("On-set notes · write freely", "第一条 Tom & <b>\n\nsecond")
        program.act("Good", "radio button", "Toggle")
        program.act("4 stars", "push button")
        self.assertEqual(program.get("4 stars", "push button").get_description(), "Selected")
        self.assertIsNone(program.find("Mixer media name", "text"), "without sound there is none")
        program.write("Camera media names", "A001C001\nB001C001")

        def on_disk():
            held = next(held for held in self.saved()["projects"][0]["acts"][0]["shots"] if held["id"] == shot["id"])
            takes = held["takes"]
            return held if takes[-1]["cameraFile"].endswith("B001C001") else None

        held = wait_for("all of it on disk", on_disk)
        self.assertEqual((held["framing"], held["description"], held["soundMode"]),
                         ("Close-up", "He turns.\nHolds.", "mos"))
        take = held["takes"][-1]
        self.assertEqual(len(held["takes"]), len(shot["takes"]) + 1)
        self.assertEqual((take["notes"], take["result"], take["stars"]), ("第一条 Tom & <b>\n\nsecond", "good", 4))

    def test_a_document_is_saved_without_holding_the_tool_up(self):
        library = json.loads(SAMPLE.read_text(encoding="utf-8"))
        program = self.open(SAMPLE)
        program.act(library["projects"][0]["title"], TREE_ROW)
        program.act("Export PDF", "push button")
        menu = program.get("Export PDF", "popup menu")
        entry = program.get("Storyboard PDF · for DP", "menu item")
        # The answer comes while the panel that it opens still stands there.
        screen.perform(entry, "Press")
        cancel = program.get("Cancel", "push button")
        self.assertFalse(has(menu, Atspi.StateType.SHOWING), "the menu is not in the way")
        screen.perform(cancel, "Press")
        wait_for("the panel to close", lambda: program.find("Cancel", "push button") is None)
        for name in ("Back", "Library", "Save"):
            self.assertEqual(program.get(name, "push button").get_description(), "", "a name is told once")

    def test_each_fixed_place_is_a_button_that_tells_where_one_is(self):
        program = self.open()
        before = program.get("Library", "push button")
        wait_for("the library to be marked", lambda: has(before, Atspi.StateType.SELECTED))
        for name, line in (("Search", "Find the record behind a shot code, filename or note."),
                           ("Calendar", "Choose a day. See every shot and call time."),
                           ("Settings", "Your workspace preferences and your local data.")):
            place = program.get(name, "push button")
            self.assertFalse(has(place, Atspi.StateType.SELECTED))
            screen.perform(place, "Press")
            program.get(line, "label")
            wait_for(f"{name} to be marked", lambda: has(place, Atspi.StateType.SELECTED))
            self.assertFalse(has(before, Atspi.StateType.SELECTED))
            before = place
        program.act("Back", "push button")
        wait_for("the way back", lambda: has(program.get("Calendar", "push button"), Atspi.StateType.SELECTED))


if __name__ == "__main__" and screen.inside_a_session():
    runtime = pathlib.Path(tempfile.mkdtemp(prefix="vantry-run-"))
    try:
        runtime.chmod(0o700)
        os.environ["XDG_RUNTIME_DIR"] = str(runtime)
        with screen.screen(runtime):
            outcome = unittest.main(argv=sys.argv[:1], verbosity=2, exit=False)
    finally:
        shutil.rmtree(runtime, ignore_errors=True)
    sys.exit(not outcome.result.wasSuccessful())
