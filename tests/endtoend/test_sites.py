"""Whole sites: walked, checked, stopped, killed and gone on with."""
import os
import random
import signal
import subprocess
import unittest
from pathlib import Path

from case import Case
from program import is_desktop
from servers import page, reply

MANY = 2000
SOME = 60


def site_of(count):
    """Pages that lead to one another: each to two that come later, to the first one, and to a missing one."""
    files = {}
    for number in range(count):
        later = ["p%04d.html" % n for n in (2 * number + 1, 2 * number + 2) if n < count]
        files["p%04d.html" % number] = page("p0000.html", *later, "gone%d.html" % (number % 7))
    files["index.html"] = files["p0000.html"]
    return files


@unittest.skipIf(is_desktop(), "the command is tested beside the program without windows")
class Sites(Case):
    def folder(self, files):
        folder = self.scratch.root / "mirror"
        for name, data in files.items():
            path = folder / name
            path.parent.mkdir(parents=True, exist_ok=True)
            path.write_bytes(data)
        return str(folder)

    def outcome(self, home):
        """The documents of a session, and the address and the status of each of their links."""
        lines = (home / "session.zdt").read_bytes().decode().split("\r\n")[:-1]
        documents = {}
        for address, number in zip(lines[::2], lines[1::2]):
            links = (home / ("cache/xlf%05d.lks" % int(number))).read_bytes().decode().split("\r\n")[:-1]
            documents[address] = sorted(zip(links[1::5], links[3::5]))
        return documents

    def test_a_large_site_is_fetched_once_and_each_good_address_asked_once(self):
        server = self.nginx(site_of(MANY))
        home = self.scratch.root / "kept"
        done = subprocess.run(self.command_line("--site", "--home", str(home), server.url("p0000.html")), capture_output=True, text=True,
                              timeout=300)
        self.assertEqual(done.returncode, 1, done.stderr)
        gets = [path for method, path in server.asked() if method == "GET" and "gone" not in path]
        heads = [path for method, path in server.asked() if method == "HEAD" and "gone" not in path]
        self.assertEqual(sorted(gets), sorted("/p%04d.html" % n for n in range(MANY)))
        self.assertEqual(sorted(heads), sorted("/p%04d.html" % n for n in range(MANY)))
        self.assertEqual(len(self.outcome(home)), MANY)
        self.assertTrue(done.stdout.splitlines()[-1].startswith("%d of " % MANY), done.stdout[-200:])

    def test_the_same_site_from_a_folder_in_three_ways(self):
        files = site_of(300)
        files.update({"sub/x.html": page("../p0000.html"), "alone.html": page("p0001.html")})
        folder = self.folder(files)
        for walk, expected in (("linked", 300), ("folder", 302), ("tree", 303)):
            with self.subTest(walk):
                home = self.scratch.root / walk
                done = subprocess.run(self.command_line("--site", "--local", folder, "--walk", walk, "--home", str(home),
                                                "http://127.0.0.1:9/p0000.html"), capture_output=True, text=True, timeout=120)
                self.assertEqual(done.returncode, 1, done.stderr)
                documents = self.outcome(home)
                self.assertEqual(len(documents), expected)
                for links in documents.values():
                    for address, status in links:
                        self.assertEqual(status, "NTFND" if "gone" in address else "OK", address)

    def stopped_and_gone_on_with(self, seed, stop, *where):
        """Stops again and again at random moments, goes on, and gives what is there at the end."""
        chance = random.Random(seed)
        home = self.scratch.root / ("home%d" % seed)
        stops = 0
        for attempt in range(12):
            process = subprocess.Popen(self.command_line("--site", "--resume", "--home", str(home), *where), stdout=subprocess.DEVNULL,
                                       stderr=subprocess.DEVNULL)
            try:
                process.wait(0.03 + chance.random() * 0.25)
                if process.returncode in (0, 1):
                    break
            except subprocess.TimeoutExpired:
                process.send_signal(stop)
                process.wait(60)
                stops += 1
        done = subprocess.run(self.command_line("--site", "--resume", "--home", str(home), *where), capture_output=True, text=True,
                              timeout=120)
        self.assertIn(done.returncode, (0, 1), done.stderr)
        self.assertFalse((home / "cache" / "resumes.zdt").exists())
        return self.outcome(home), stops

    def whole(self, *where):
        home = self.scratch.root / "whole"
        subprocess.run(self.command_line("--site", "--home", str(home), *where), capture_output=True, timeout=120)
        return self.outcome(home)

    def slow_site(self):
        server = self.server({"/" + name: [0.004, reply(200, "OK", data)] for name, data in site_of(SOME).items()})
        return server.url("p0000.html")

    def test_stopped_by_an_interrupt_as_often_as_one_likes(self):
        address = self.slow_site()
        documents, stops = self.stopped_and_gone_on_with(1, signal.SIGINT, address)
        self.assertGreater(stops, 0)
        self.assertEqual(documents, self.whole(address))

    def test_killed_as_often_as_one_likes(self):
        address = self.slow_site()
        documents, stops = self.stopped_and_gone_on_with(2, signal.SIGKILL, address)
        self.assertGreater(stops, 0)
        self.assertEqual(documents, self.whole(address))

    def test_a_mirror_stopped_by_an_interrupt(self):
        where = ["--local", self.folder(site_of(1500)), "http://127.0.0.1:9/p0000.html"]
        documents, stops = self.stopped_and_gone_on_with(3, signal.SIGINT, *where)
        self.assertGreater(stops, 0)
        self.assertEqual(documents, self.whole(*where))

    def test_going_on_needs_the_folder_of_a_session(self):
        done = subprocess.run(self.command_line("--site", "--resume", "http://127.0.0.1:9/"), capture_output=True, text=True, timeout=60)
        self.assertEqual(done.returncode, 64)
        self.assertIn("--home", done.stderr)

    def test_odd_folders(self):
        folder = Path(self.folder({"index.html": page("a.html", "../../outside.html", "n%E9.html"), "a.html": page("index.html"),
                                   "deep/b.html": page("../a.html")}))
        (folder / "deep" / "circle").symlink_to(folder)
        (folder / os.fsdecode(b"n\xe9.html")).write_bytes(page("a.html"))
        locked = folder / "locked"
        locked.mkdir()
        (locked / "c.html").write_bytes(page("a.html"))
        locked.chmod(0)
        self.addCleanup(lambda: locked.chmod(0o755))
        done = subprocess.run(self.command_line("--site", "--local", str(folder), "--walk", "tree", "http://127.0.0.1:9/"),
                              capture_output=True, timeout=60)
        self.assertIn(done.returncode, (0, 1), done.stderr)
        self.assertIn(b"outside.html", done.stdout)
        if os.geteuid() != 0:
            self.assertIn(b"Error Reading The Disk Drive", done.stderr)


class Walks(Case):
    def test_a_site_of_endless_names_is_stopped_by_the_user(self):
        server = self.server()
        names = iter(range(10**9))
        server.answers = type("Endless", (dict,), {"get": lambda self, key, default=None: (
            reply(200, "OK", page("n%d.html" % next(names), "n%d.html" % next(names))) if not isinstance(key, tuple) else default)})()
        p = self.program()
        run = p.send("click", "CheckForm.Command1")
        p.event("modal", form="WizardForm")
        p.do("set", "WizardForm.Text1", value=server.url())
        p.click("WizardForm.ComOpenNext")
        p.until(lambda: len(p.documents()) > 30)
        p.click("CheckForm.Command1")
        p.reply(run)
        p.event("shown", form="ReportForm")
        self.assertTrue((self.scratch.home / "cache" / "resumes.zdt").exists())
        self.assertEqual(p.caption("CheckForm.Command1"), "Check &Web Site")

    def test_the_log_says_what_failed_and_a_second_walk_begins_anew(self):
        server = self.server({"/": reply(200, "OK", page("a.html", "gone.html")), "/a.html": reply(200, "OK", page("/"))})
        p = self.program()
        for documents in (2, 2):
            run = p.send("click", "CheckForm.ToolOpenDoc")
            p.reply(run)
            run = p.send("click", "CheckForm.Command1")
            p.event("modal", form="WizardForm")
            p.do("set", "WizardForm.Text1", value=server.url())
            p.click("WizardForm.ComOpenNext")
            p.reply(run)
            self.assertEqual(len(p.documents()), documents)
            self.assertEqual(p.state("ReportForm.Text1")["text"].split("\r\n\r\n"), [
                "Opening Web Site... " + server.url(), "404 Not Found - " + server.url("gone.html"), "Site Download Complete.", ""])
            p.do("set", "ReportForm.Text1", value="typed")
            self.assertNotIn("typed", p.state("ReportForm.Text1")["text"])
            p.click("ReportForm.ComCopy")
            self.assertEqual(p.do("clipboard")["text"], p.state("ReportForm.Text1")["text"])
            p.click("ReportForm.Command1")

    def test_a_change_of_mode_in_the_middle_clears_the_session_and_nothing_breaks(self):
        """The buttons of the modes stay usable in a run, in a recheck and in a walk."""
        for command in ("ComStart", "MenuLinkRecheck", "Command1"):
            with self.subTest(command):
                server = self.server({"/": reply(200, "OK", page("a.html")), "*": "silent"})
                self.scratch.document(server.url("doc.html"), [server.url("a.html"), server.url("b.html")])
                p = self.program()
                p.do("select", "CheckForm.List1", row=0)
                p.do("select", "CheckForm.List1", row=0)
                run = p.send("click", "CheckForm." + command)
                if command == "Command1":
                    p.event("modal", form="WizardForm")
                    p.do("set", "WizardForm.Text1", value=server.url())
                    p.click("WizardForm.ComOpenNext")
                p.until(lambda: any(target == b"/a.html" for _, target in server.asked()))
                p.click("CheckForm.ToolLocalMode")
                p.reply(run)
                self.assertEqual(p.documents(), [])
                self.assertEqual(p.rows(), [])
                self.assertTrue(p.state("CheckForm.Command1")["usable"])
                self.assertEqual(p.state("CheckForm")["pointer"], "default")
                self.assertEqual(p.exit(None), 0)
                (self.scratch.home / "quorvant.cfg").unlink()  # the mode that it keeps
