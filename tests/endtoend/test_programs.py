"""The programs as a shell or a desktop starts them, without the automation protocol."""
import os
import shutil
import subprocess
import unittest
from pathlib import Path

from case import Case
from program import Program, is_desktop

PROGRAMS = Path(os.environ["QUORVANTIS_PROGRAM"]).resolve().parent


class Programs(Case):
    def run_alone(self, program, *arguments, **environment):
        settings = {name: value for name, value in os.environ.items() if name not in ("DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM")}
        settings.update(HOME=str(self.scratch.root), QUORVANTIS_HOME=str(self.scratch.home), LC_ALL="C", **environment)
        return subprocess.run([str(program), *arguments], capture_output=True, text=True, timeout=60, env=settings,
                              stdin=subprocess.DEVNULL)

    @unittest.skipUnless(is_desktop(), "of the windows")
    def test_windows_without_a_display_say_what_needs_none(self):
        done = self.run_alone(PROGRAMS / "quorvantis")
        self.assertEqual((done.returncode, done.stdout), (1, ""))
        self.assertEqual(done.stderr, "quorvantis: there is no display. quorvantis-headless and quorvantis-check need none.\n")

    @unittest.skipIf(is_desktop(), "of the program without windows")
    def test_the_program_without_windows_has_nothing_to_do_alone(self):
        self.scratch.document("http://127.0.0.1:9/d.htm", ["http://127.0.0.1:9/x"])
        before = self.scratch.links()
        done = self.run_alone(PROGRAMS / "quorvantis-headless", QUORVANTIS_NO_PAUSES="1")
        self.assertEqual((done.returncode, done.stdout, done.stderr), (0, "", ""))
        self.assertEqual(self.scratch.links(), before)
        self.assertEqual(self.scratch.lines("session.zdt"), ["http://127.0.0.1:9/d.htm", " 1 "])

    def test_a_first_start_that_nobody_watches_waits_for_nobody(self):
        shutil.rmtree(self.scratch.home)
        done = self.run_alone(PROGRAMS / "quorvantis-headless", QUORVANTIS_NO_PAUSES="1")
        self.assertEqual((done.returncode, done.stdout), (0, ""))

    def test_a_scheduled_start_without_its_programs_says_so(self):
        lonely = self.scratch.root / "autocheck"
        shutil.copy(PROGRAMS / "autocheck", lonely)
        done = self.run_alone(lonely)
        self.assertEqual((done.returncode, done.stdout), (1, ""))
        self.assertEqual(done.stderr, "autocheck: %s/quorvantis-headless can't be started.\n" % self.scratch.root)

    def test_the_first_window_is_there_for_a_moment(self):
        p = Program(self.scratch, environment={"QUORVANTIS_NO_PAUSES": ""})
        self.addCleanup(p.close)
        self.assertEqual([e["event"] for e in p.seen], ["shown", "closed", "shown", "ready"])
        self.assertEqual(p.caption("CheckForm"), "Zephon Quorvantis - Internet Mode")
