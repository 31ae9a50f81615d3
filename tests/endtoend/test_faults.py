"""A disk that is full, can't be written, takes half, or goes away in the middle of a write; servers that break off at each byte.
The disk is the library of tests/faults, between the program and the system."""
import os
import shutil
import unittest
from pathlib import Path

from case import Case
from program import Program, Refused, Scratch, is_desktop
from servers import page, reply

LIBRARY = Path(os.environ["QUORVANTIS_PROGRAM"]).resolve().parent.parent / "tests" / "libfaults.so"
HTML, AUTO, SITE = 6842, 7285, 1114


@unittest.skipUnless(LIBRARY.exists(), "the disk that fails isn't built")
class Disk(Case):
    """An ordinary session: two documents from before, one more opened and checked, a report, the end."""

    def setUp(self):
        super().setUp()
        self.web = self.server({"/new.html": reply(200, "OK", page(*("/l%d" % n for n in range(12)))), "*": reply()})
        self.old = [self.web.url("old%d.html" % n) for n in (1, 2)]
        self.links = [self.web.url("o%d" % n) for n in range(15)]
        for number, address in enumerate(self.old, 1):
            self.scratch.document(address, self.links, number)
        (self.scratch.home / "Reports").mkdir()
        p = self.program()
        self.assertEqual(p.exit("Yes"), 0)
        self.scratch.patch("preferen.zdt", {HTML: -1, AUTO: -1})
        self.master = self.scratch.root / "master"
        shutil.copytree(self.scratch.home, self.master)

    def session(self, fault):
        """Goes through the session with a fault; whatever is asked is answered as the user would by Enter. Gives the program."""
        shutil.rmtree(self.scratch.home)
        shutil.copytree(self.master, self.scratch.home)
        environment = {"LD_PRELOAD": str(LIBRARY), "FAULT": fault, "FAULT_FOLDER": str(self.scratch.home)}
        if "asan" in os.environ.get("ASAN_OPTIONS", "") or LIBRARY.parent.parent.name == "debug":
            environment["ASAN_OPTIONS"] = os.environ.get("ASAN_OPTIONS", "") + ":verify_asan_link_order=0"
        p = Program(self.scratch, ready=False, environment=environment)
        self.seen = 0
        try:
            self.settle(p, lambda: any(e["event"] == "ready" for e in p.seen))
            for control, form, button in (("ComOpen", "WizardForm", "ComOpenNext"), ("ComStart", None, None),
                                          ("MenuReportsSave", "frmform", "cmdOK")):
                request = p.send("click", "CheckForm." + control)
                if form:
                    self.settle(p, lambda: any(e.get("form") == form and e["event"] == "modal" for e in p.seen) or p.replied(request))
                    if form == "WizardForm":
                        p.do("set", "WizardForm.Text1", value=self.web.url("new.html"))
                    p.send("click", form + "." + button)
                self.settle(p, lambda: p.replied(request))
                for open_form in p.do("forms")["forms"]:
                    if open_form["name"] != "CheckForm":
                        p.do("close", open_form["name"])
            p.send("click", "CheckForm.MenuFileExit")
            self.settle(p, lambda: p.ended)
        except (AssertionError, BrokenPipeError, Refused):
            if p.process.poll() is None and not p.ended:
                raise
        p.process.wait(30)
        p.close()
        return p

    def settle(self, p, test):
        """Waits until the test holds, answers the messages and closes the viewer that come meanwhile."""
        for _ in range(1500):
            if test() or p.ended:
                return
            for event in p.seen[self.seen:]:
                self.seen += 1
                if event["event"] == "message":
                    p.do("answer", value=event["default"])
                elif event["event"] == "modal" and event["form"] == "ReportSelectForm":
                    p.do("close", "ReportSelectForm")
            with p.changed:
                p.changed.wait(0.02)
        raise AssertionError("the program hangs; last events %r" % p.seen[-4:])

    def whole(self, what):
        """What is on the disk is whole, and the session of before is there when the program starts again."""
        home = self.scratch.home
        for name in ("preferen.zdt", "sitedata.zdt"):
            if (home / name).exists():
                self.assertEqual((home / name).stat().st_size % 7514, 0, (what, name))
        for path in list(home.glob("*.zdt")) + list(home.glob("*.cfg")) + list(home.glob("cache/*.lks")) + list(home.glob("cache/*.qvn")):
            data = path.read_bytes()
            if path.name not in ("preferen.zdt", "sitedata.zdt"):
                self.assertTrue(data == b"" or data.endswith(b"\r\n"), (what, path.name, data[-40:]))
        for path in home.glob("cache/*.lks"):
            self.assertEqual(path.read_bytes().count(b"\r\n") % 5, 0, (what, path.name))
        for path in home.glob("Reports/*.htm"):
            self.assertTrue(path.read_bytes().rstrip().endswith(b"</HTML>"), (what, path.name))
        p = Program(self.scratch)
        self.assertEqual([text for text, _ in p.documents()][:2], self.old, what)
        for number in (1, 2):
            self.assertEqual([link[1] for link in self.scratch.links(number)], self.links, what)
            self.assertTrue(set(self.scratch.statuses(number)) <= {"", "OK", "-->"}, (what, self.scratch.statuses(number)))
        self.assertEqual([e for e in p.seen if e["event"] == "message"], [], what)
        p.close()
        self.assertEqual(sorted(path.name for path in home.rglob(".quorvantis-*")), [], what)

    def operations(self):
        log = self.scratch.root / "operations"
        p = self.session("count:%s" % log)
        self.assertEqual(p.process.returncode, 0)
        self.whole("nothing")
        self.assertEqual(set(self.scratch.statuses(3)), {"OK"})
        self.assertTrue(list(self.scratch.home.glob("Reports/*.htm")))
        return log.stat().st_size

    def some(self, count):
        """Each operation without windows; with them, where each start takes longer, a part of them."""
        return range(1, count + 1, 9 if is_desktop() else 1)

    def test_killed_at_each_write(self):
        count = self.operations()
        self.assertGreater(count, 20)
        for number in self.some(count):
            p = self.session("kill:%d" % number)
            self.assertEqual(p.process.returncode, -9, number)
            self.whole("killed at %d" % number)

    def test_full_from_each_write_on(self):
        for number in self.some(self.operations()):
            p = self.session("full:%d" % number)
            self.assertEqual(p.process.returncode, 0, number)
            self.whole("full from %d on" % number)

    def test_short_writes_are_gone_on_with(self):
        p = self.session("short")
        self.assertEqual(p.process.returncode, 0)
        self.whole("short")
        self.assertEqual(set(self.scratch.statuses(3)), {"OK"})
        self.assertTrue(list(self.scratch.home.glob("Reports/*.htm")))

    def test_a_folder_that_cannot_be_written(self):
        before = {path: path.read_bytes() for path in self.master.rglob("*") if path.is_file()}
        p = self.session("readonly")
        self.assertEqual(p.process.returncode, 0)
        after = {self.master / path.relative_to(self.scratch.home): path.read_bytes()
                 for path in self.scratch.home.rglob("*") if path.is_file()}
        self.assertEqual(after, before)
        self.whole("read-only")


class Replies(Case):
    """A connection that is cut behind each byte of what is sent."""

    HEAD = b"HTTP/1.1 302 Found\r\nServer: s\r\nLocation: /there\r\nContent-Length: 5\r\n\r\n"

    def test_heads_that_break_off(self):
        server = self.server({"/there": reply()})
        for cut in range(len(self.HEAD) + 1):
            server.answers["/%d" % cut] = [self.HEAD[:cut]]
            server.answers[("GET", "/%d" % cut)] = [self.HEAD[:cut]]
        cut_off = server._answer
        server._answer = lambda connection, method, target: cut_off(connection, method, target) and target == "/there"
        self.scratch.document(server.url("doc.htm"), [server.url(str(cut)) for cut in range(len(self.HEAD) + 1)])
        p = self.program()
        p.check()
        statuses = self.scratch.statuses()
        self.assertEqual(statuses[-1], "OK *")
        self.assertNotIn("OK", statuses)
        for status in statuses:
            self.assertRegex(status, r"\A(OK \*|302|UKNWN|NTFND|TMOUT|RFUSD)\Z")

    def test_a_body_that_breaks_off(self):
        whole = reply(200, "OK", page("a.html", "b.html"))
        server = self.server()
        cut_off = server._answer
        server._answer = lambda connection, method, target: cut_off(connection, method, target) and False
        p = self.program()
        for cut in range(0, len(whole) + 1, 1 if not is_desktop() else 5):
            server.answers["*"] = [whole[:cut]]
            opening = p.begin_open(server.url("p%d.html" % cut))
            p.settle(opening)
            self.assertEqual(p.caption("CheckForm.ComOpen"), "Check &Document")
        for _, number in p.documents():
            for link in self.scratch.links(number):
                self.assertRegex(link[1], r"\A%s[ab]\.html\Z" % server.url())
