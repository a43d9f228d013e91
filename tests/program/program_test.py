"""The program as a process: its switches, its environment, its signals.

Usage: program_test.py VANTRY SAMPLE-LIBRARY
"""

import json
import os
import pathlib
import re
import shutil
import signal
import subprocess
import sys
import tempfile
import time
import unittest

VANTRY = pathlib.Path(sys.argv[1]).resolve()
SAMPLE = pathlib.Path(sys.argv[2]).resolve()
ENDINGS = (signal.SIGTERM, signal.SIGINT, signal.SIGHUP)


class ProgramTest(unittest.TestCase):
    def setUp(self):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="vantry-program-"))
        self.addCleanup(shutil.rmtree, self.folder, ignore_errors=True)
        self.environment = {
            "HOME": str(self.folder / "home"),
            "XDG_RUNTIME_DIR": str(self.folder),
            "QT_QPA_PLATFORM": "offscreen",
            "VANTRY_DATA_DIR": str(self.folder / "data"),
        }
        self.folder.chmod(0o700)

    def start(self, *arguments, environment=None, program=VANTRY):
        process = subprocess.Popen(
            [str(program), *arguments],
            env=self.environment if environment is None else environment,
            stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)
        self.addCleanup(self.end, process)
        return process

    @staticmethod
    def end(process):
        if process.poll() is None:
            process.kill()
        process.communicate()

    def verify(self, *arguments, environment):
        process = self.start(*arguments, environment=environment)
        output, errors = process.communicate(timeout=60)
        return process.returncode, output.splitlines(), errors

    def wait_until_running(self, process):
        """A process that handles all the ending signals itself answers them as soon as its event loop runs."""
        status = pathlib.Path(f"/proc/{process.pid}/status")
        handled = sum(1 << (ending - 1) for ending in ENDINGS)
        deadline = time.monotonic() + 30
        while time.monotonic() < deadline:
            self.assertIsNone(process.poll(), "the program ended on its own")
            for line in status.read_text().splitlines():
                if line.startswith("SigCgt:") and int(line.split()[1], 16) & handled == handled:
                    return
            os.sched_yield()
        self.fail("the program did not come up")

    def test_verification_needs_neither_screen_nor_environment(self):
        folder = self.folder / "verification"
        status, lines, errors = self.verify("--verify", environment={"VANTRY_VERIFY_DIR": str(folder)})
        self.assertEqual(status, 0, errors)
        self.assertIn("PASS: bundled Inter Regular / Medium / SemiBold / Bold available", lines)
        for appearance in ("NSAppearanceNameAqua", "NSAppearanceNameDarkAqua"):
            self.assertTrue(any(re.fullmatch(f"PASS: {appearance} brand text / interaction / status contrast "
                                             r"minimum \d+\.\d\d:1", line) for line in lines), lines)
        self.assertIn("PASS: long fixed headings and sheets within presenting window", lines)
        self.assertIn("PASS: immediate first creation, repeated-input suppression, independent targets and retry",
                      lines)
        self.assertIn("PASS: 100 clean navigations avoid writes; previous snapshot, dirty save and file recovery "
                      "preserved", lines)
        self.assertIn(f"Verification artifacts: {folder}", lines)
        self.assertTrue(all(line.startswith(("PASS: ", "NOTE: ", "SKIPPED: ", "Verification artifacts: ")) for line in lines))
        closing = "PASS: persistence, independent records, bilingual PDF export, merge validation"
        skipped = any(line.startswith("SKIPPED: ") for line in lines)
        self.assertEqual(closing in lines, not skipped)

    def test_verification_uses_the_temporary_folder_and_no_library_of_the_user(self):
        environment = {"TMPDIR": str(self.folder), "HOME": str(self.folder / "home")}
        status, lines, errors = self.verify("--verify", environment=environment)
        self.assertEqual(status, 0, errors)
        self.assertTrue((self.folder / "Vantry-Verification").is_dir())
        self.assertFalse((self.folder / "home").exists())

    def test_verification_is_chosen_in_any_position(self):
        status, lines, errors = self.verify(
            "first", "--verify", "last", environment={"VANTRY_VERIFY_DIR": str(self.folder / "v")})
        self.assertEqual(status, 0, errors)
        self.assertTrue(lines[-1].startswith("Verification artifacts: "))

    def test_verification_leaves_its_fixture_where_asked(self):
        fixture = self.folder / "fixture"
        status, _, errors = self.verify("--verify", environment={
            "VANTRY_VERIFY_DIR": str(self.folder / "v"), "VANTRY_UI_FIXTURE_DIR": str(fixture)})
        self.assertEqual(status, 0, errors)
        library = json.loads((fixture / "library.json").read_text(encoding="utf-8"))
        self.assertEqual(library["projects"][0]["title"], "候车室 · 验证项目")

    def test_a_failing_verification_says_why(self):
        blocked = self.folder / "blocked"
        blocked.write_text("a file")
        status, _, errors = self.verify("--verify", environment={"VANTRY_VERIFY_DIR": str(blocked)})
        self.assertEqual(status, 1)
        self.assertTrue(any(line.startswith("Verification failed: ") for line in errors.splitlines()), errors)

    def test_an_argument_that_only_begins_like_the_switch_opens_the_window(self):
        process = self.start("--verifying")
        self.wait_until_running(process)
        process.send_signal(signal.SIGTERM)
        output, _ = process.communicate(timeout=30)
        self.assertEqual(process.returncode, 0)
        self.assertNotIn("PASS", output)

    def test_a_missing_resource_bundle_is_fatal(self):
        copy = self.folder / "vantry"
        shutil.copy2(VANTRY, copy)
        process = self.start(program=copy)
        _, errors = process.communicate(timeout=30)
        self.assertNotEqual(process.returncode, 0)
        self.assertIn("unable to find bundle named Vantry_Vantry", errors)

    def test_each_ending_signal_ends_the_window_and_touches_a_clean_library_not_at_all(self):
        data = self.folder / "data"
        data.mkdir()
        library = data / "library.json"
        shutil.copy(SAMPLE, library)
        before = (library.read_bytes(), library.stat().st_mtime_ns)
        for ending in ENDINGS:
            process = self.start()
            self.wait_until_running(process)
            process.send_signal(ending)
            process.communicate(timeout=30)
            self.assertEqual(process.returncode, 0, ending)
            self.assertEqual((library.read_bytes(), library.stat().st_mtime_ns), before)
            self.assertEqual([entry.name for entry in data.iterdir()], ["library.json"])

    def test_an_unreadable_library_survives_a_whole_run(self):
        data = self.folder / "data"
        data.mkdir()
        (data / "library.json").write_bytes(b"invalid JSON")
        process = self.start()
        self.wait_until_running(process)
        process.send_signal(signal.SIGTERM)
        process.communicate(timeout=30)
        self.assertEqual(process.returncode, 0)
        self.assertEqual((data / "library.json").read_bytes(), b"invalid JSON")
        self.assertEqual(len(list(data.iterdir())), 1)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)
