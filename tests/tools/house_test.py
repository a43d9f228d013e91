"""Proves that house.py sees what it looks for: each small tree here has one mistake, or none."""

import pathlib
import tempfile
import unittest

from house import House, PLACES, ROOMS, in_sight, room_of

# One header of each room, and the road that the directions must leave open.
HEADERS = {room: place if "." in place else place + "Thing.h" for place, room in PLACES.items()}
ORDER = ["records", "persistence", "app", "rules", "documents", "access", "pages", "navigation", "verification"]
SIDE_ORDER = ["records", "routes", "design", "pages"]


class HouseTest(unittest.TestCase):
    def problems(self, files):
        with tempfile.TemporaryDirectory() as folder:
            root = pathlib.Path(folder)
            sources = [path for path in files if path.endswith(".cpp")]
            (root / "CMakeLists.txt").write_text("\n".join(sources), encoding="utf-8")
            for path, text in files.items():
                (root / path).parent.mkdir(parents=True, exist_ok=True)
                (root / path).write_text(text, encoding="utf-8")
            return House(root).check()

    def arrow(self, path, target):
        """The problems of a tree in which `path` includes `target`."""
        begin = "#pragma once\n" if path.endswith(".h") else ""
        files = {target: "#pragma once\n"}
        files[path] = f'{begin}#include "{target}"\n'
        return self.problems(files)

    def test_a_check_that_fails_no_test_is_found(self):
        for line in ("QTRY_VERIFY(done());", "QTRY_COMPARE(a, b);", "QVERIFY2(done(), reason);", "QSKIP(reason);"):
            with self.subTest(line=line):
                self.assertIn("fails no test", self.problems({"tests/app/ThingTest.cpp": line})[0])
        self.assertEqual(self.problems({"tests/app/ThingTest.cpp": "EXPECT_TRUE(QTest::qWaitFor(done));"}), [])

    def test_every_arrow_down_is_open(self):
        for order in (ORDER, [room for room in SIDE_ORDER if room != "records"]):
            for at, lower in enumerate(order):
                for upper in order[at + 1:]:
                    with self.subTest(upper=upper, lower=lower):
                        self.assertEqual(self.arrow(HEADERS[upper].replace(".h", "Above.h"), HEADERS[lower]), [])

    def test_every_arrow_up_is_found(self):
        for order in (ORDER, SIDE_ORDER):
            for at, lower in enumerate(order):
                for upper in order[at + 1:]:
                    with self.subTest(upper=upper, lower=lower):
                        found = self.arrow(HEADERS[lower], HEADERS[upper])
                        self.assertEqual(len(found), 1)
                        self.assertIn(f"{lower} may not include {upper}", found[0])

    def test_the_two_roads_to_the_pages_do_not_meet_before(self):
        for first in ("routes", "design"):
            for second in ("persistence", "app", "rules", "documents", "access"):
                for here, there in ((first, second), (second, first)):
                    with self.subTest(here=here, there=there):
                        self.assertIn(f"{here} may not include {there}", self.arrow(HEADERS[here], HEADERS[there])[0])

    def test_the_design_system_knows_texts_and_no_record(self):
        design = "Vantry/interface/design/Label.h"
        self.assertEqual(self.arrow(design, "Vantry/app/QtText.h"), [])
        self.assertEqual(self.arrow(design, "VantryCore/records/Text.h"), [])
        self.assertIn("design may not include records", self.arrow(design, "VantryCore/records/Shot.h")[0])

    def test_the_edge_knows_texts_alone(self):
        edge = "Vantry/app/QtText.h"
        self.assertEqual(self.arrow(edge, "VantryCore/records/Text.h"), [])
        self.assertIn("edge may not include records", self.arrow(edge, "VantryCore/records/Shot.h")[0])
        self.assertIn("edge may not include app", self.arrow(edge, "Vantry/app/VantryStore.h")[0])

    def test_the_menu_of_the_documents_is_a_page(self):
        self.assertEqual(room_of("Vantry/documents/menu/ExportMenu.h"), "pages")
        self.assertEqual(room_of("Vantry/documents/PDFWriter.h"), "documents")

    def test_nothing_includes_the_start_of_the_program(self):
        for room in ROOMS:
            self.assertEqual("main" in in_sight(room), room == "main")

    def test_a_folder_that_is_no_room_is_found(self):
        for path in ("Vantry/interface/Page.h", "Vantry/other/Thing.h", "VantryCore/Thing.h"):
            self.assertIn("is no room", self.problems({path: "#pragma once\n"})[0])

    def test_the_core_includes_no_header_of_qt(self):
        for header in ("QString", "QtGlobal", "QtCore/QString", "qglobal.h"):
            text = f"#pragma once\n#include <{header}>\n"
            self.assertIn("nothing of Qt", self.problems({"VantryCore/records/Act.h": text})[0])
            self.assertEqual(self.problems({"Vantry/app/QtText.h": text}), [])

    def test_the_product_includes_no_test(self):
        self.assertIn("nothing of its tests", self.arrow("Vantry/app/VantryStore.h", "tests/support/Files.h")[0])
        self.assertEqual(self.arrow("tests/support/Files.h", "Vantry/app/VantryStore.h"), [])

    def test_own_headers_are_included_by_their_path_from_the_root(self):
        records = {"VantryCore/records/Text.h": "#pragma once\n"}
        for line, problem in (('#include "Text.h"', "no path from the root"),
                              ('#include "../records/Text.h"', "no path from the root"),
                              ("#include <VantryCore/records/Text.h>", "stand in quotes"),
                              ('  #  include "Text.h"', "no path from the root")):
            found = self.problems(records | {"VantryCore/records/Act.h": f"#pragma once\n{line}\n"})
            self.assertEqual(len(found), 1, line)
            self.assertIn(problem, found[0])

    def test_a_circle_of_files_is_found(self):
        found = self.problems({
            "VantryCore/records/Act.h": '#pragma once\n#include "VantryCore/records/Shot.h"\n',
            "VantryCore/records/Shot.h": '#pragma once\n#include "VantryCore/records/Act.h"\n'})
        self.assertEqual(len(found), 1)
        self.assertIn("a circle: VantryCore/records/Act.h -> VantryCore/records/Shot.h", found[0])

    def test_a_circle_of_page_folders_is_found_where_no_file_stands_in_one(self):
        found = self.problems({
            "Vantry/interface/library/A.h": '#pragma once\n#include "Vantry/interface/shots/B.h"\n',
            "Vantry/interface/library/C.h": "#pragma once\n",
            "Vantry/interface/shots/B.h": "#pragma once\n",
            "Vantry/interface/shots/D.h": '#pragma once\n#include "Vantry/interface/library/C.h"\n'})
        self.assertEqual(len(found), 1)
        self.assertIn("a circle: Vantry/interface/library -> Vantry/interface/shots", found[0])

    def test_a_header_begins_with_pragma_once(self):
        self.assertIn("#pragma once", self.problems({"VantryCore/records/Act.h": "struct Act;\n"})[0])

    def test_files_that_are_too_long_are_found(self):
        header = "#pragma once\n" + "\n" * 159
        self.assertEqual(self.problems({"VantryCore/records/Act.h": header}), [])
        self.assertIn("161 lines", self.problems({"VantryCore/records/Act.h": header + "\n"})[0])
        source = "\n" * 600
        self.assertEqual(self.problems({"tests/records/ActTest.cpp": source}), [])
        self.assertIn("601 lines", self.problems({"tests/records/ActTest.cpp": source + "\n"})[0])

    def test_a_source_that_nobody_builds_is_found(self):
        with tempfile.TemporaryDirectory() as folder:
            root = pathlib.Path(folder)
            (root / "tests").mkdir()
            (root / "tests/CMakeLists.txt").write_text("add_executable(tests MyActTest.cpp)\n", encoding="utf-8")
            (root / "tests/ActTest.cpp").write_text("", encoding="utf-8")
            self.assertIn("built by no", House(root).check()[0])


if __name__ == "__main__":
    unittest.main()
