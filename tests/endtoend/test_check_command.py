"""quorvantis-check: what it prints, how it ends, and what its options do."""
import base64
import os
import pty
import signal
import subprocess
import unittest

from case import Case
from program import is_desktop
from servers import page, reply


@unittest.skipIf(is_desktop(), "the command is tested beside the program without windows")
class Command(Case):
    def interrupted(self, server, request, *arguments):
        """Starts a run and interrupts it when the server has got a request; gives the exit status and what was printed."""
        process = subprocess.Popen(self.command_line(*arguments), stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)
        while request not in server.asked() and process.poll() is None:
            pass
        process.send_signal(signal.SIGINT)
        out, _ = process.communicate(timeout=20)
        return process.returncode, out

    def test_questionable_links_and_the_closing_line(self):
        site = self.nginx({"page.html": page("good.html", "missing.html", "gone"), "good.html": b"fine"})
        done = self.command(site.url("page.html"))
        self.assertEqual(done.stdout.splitlines(), [site.url("page.html"), "  404    %s  link" % site.url("missing.html"),
                                                    "  410    %s  link" % site.url("gone"),
                                                    "2 of 3 links checked were questionable."])
        self.assertEqual((done.returncode, done.stderr), (1, ""))

    def test_all_good(self):
        site = self.nginx({"page.html": page("good.html"), "good.html": b"fine"})
        done = self.command("--list-all", site.url("page.html"))
        self.assertEqual(done.returncode, 0)
        self.assertIn("  OK     %s  link\n" % site.url("good.html"), done.stdout)
        self.assertTrue(done.stdout.endswith("None of 1 links checked were questionable.\n"))

    def test_exit_statuses(self):
        server = self.server()
        self.assertEqual(self.command(server.url("none.htm")).returncode, 2)
        self.assertEqual(self.command("ftp://127.0.0.1/").returncode, 2)
        self.assertEqual(self.command().returncode, 64)
        self.assertEqual(self.command("--no-such-option", server.url()).returncode, 64)
        self.assertEqual(self.command("--help").returncode, 0)

    def test_an_interrupt_stops_and_prints_what_is_known(self):
        server = self.server({"/d.htm": reply(200, "OK", page("gone.htm", "hang.htm")), "/hang.htm": "silent"})
        status, out = self.interrupted(server, (b"HEAD", b"/hang.htm"), server.url("d.htm"))
        self.assertEqual(status, 3)
        self.assertIn("  404    " + server.url("gone.htm"), out)
        self.assertTrue(out.endswith("1 of 1 links checked were questionable.\n"), out)

    def test_a_kept_session(self):
        server = self.server({"/d.htm": reply(200, "OK", page("a.htm")), "/a.htm": reply()})
        self.assertEqual(self.command("--home", str(self.scratch.home), server.url("d.htm")).returncode, 0)
        self.assertEqual(self.scratch.statuses(), ["OK"])
        self.assertEqual(self.program().documents(), [(server.url("d.htm"), 1)])

    def test_an_interrupt_while_the_page_is_fetched(self):
        server = self.server({"/d.htm": "silent"})
        self.assertEqual(self.interrupted(server, (b"GET", b"/d.htm"), server.url("d.htm")), (3, ""))

    def test_an_interrupt_while_a_site_is_walked_checks_nothing(self):
        server = self.server({"/": reply(200, "OK", page("a.html", "b.html")), "/a.html": "silent"})
        status, out = self.interrupted(server, (b"GET", b"/a.html"), "--site", server.url())
        self.assertEqual(status, 3)
        self.assertNotIn(b"HEAD", [method for method, _ in server.asked()])

    def test_documents_and_links_are_left_out(self):
        server = self.server({"/": reply(200, "OK", page("a.html", "old/b.html", "c.html", "d.txt")), "/a.html": reply(),
                              "/old/b.html": reply(), "/c.html": reply(200, "OK", b"draft, not public"), "/d.txt": reply()})
        done = self.command("--site", "--ignore-open", "old/ secret/", "--ignore-links", "c.htm", "--list-all", server.url())
        asked = server.asked()
        self.assertNotIn((b"GET", b"/old/b.html"), asked)
        self.assertIn((b"HEAD", b"/old/b.html"), asked)
        self.assertNotIn((b"HEAD", b"/c.html"), asked)
        self.assertNotIn("c.html  link", done.stdout)
        self.assertEqual(done.returncode, 0, done.stdout)

    def test_documents_that_hold_a_text_are_left_out(self):
        server = self.server({"/": reply(200, "OK", page("a.html")), "/a.html": reply(200, "OK", b"draft " + page("b.html"))})
        done = self.command("--site", "--ignore-text", "draft", server.url())
        self.assertEqual(done.returncode, 0, done.stdout)
        self.assertNotIn((b"HEAD", b"/b.html"), server.asked())

    def test_extensions_of_documents(self):
        server = self.server({"/": reply(200, "OK", page("a.html", "b.page")), "/a.html": reply(), "/b.page": reply()})
        self.command("--site", "--types", ".page", server.url())
        self.assertIn((b"GET", b"/b.page"), server.asked())
        self.assertNotIn((b"GET", b"/a.html"), server.asked())

    def test_what_is_listed_and_followed(self):
        server = self.server({"/d.htm": reply(200, "OK", b'<img src="i.gif"><a href="javascript:x()">s</a><a href="r.htm">r</a>'),
                              "/r.htm": reply(302, "Found", b"", "Location: /t.htm"), "/t.htm": reply(), "/i.gif": reply()})
        plain = self.command("--list-all", server.url("d.htm")).stdout
        self.assertNotIn("i.gif", plain)
        self.assertNotIn("javascript", plain)
        self.assertIn("  OK *   " + server.url("r.htm"), plain)
        more = self.command("--list-all", "--images", "--javascript", "--no-redirects", server.url("d.htm")).stdout
        self.assertIn("  OK     " + server.url("i.gif"), more)
        self.assertIn("  NA/SC  javascript:x()", more)
        self.assertIn("  302    " + server.url("r.htm"), more)

    def test_ftp_links_are_left_out(self):
        server = self.server({"/d.htm": reply(200, "OK", page("ftp://127.0.0.1:1/x"))})
        self.assertIn("  UKNWN  ftp://127.0.0.1:1/x", self.command(server.url("d.htm")).stdout)
        self.assertNotIn("ftp:", self.command("--no-ftp", server.url("d.htm")).stdout)

    def test_a_server_that_takes_too_long(self):
        server = self.server({"/d.htm": reply(200, "OK", page("slow.htm")), "/slow.htm": "silent"})
        done = self.command("--timeout", "1", server.url("d.htm"))
        self.assertIn("  TMOUT  " + server.url("slow.htm"), done.stdout)
        self.assertEqual(self.command("--timeout", "0", server.url("d.htm")).returncode, 64)

    def test_the_name_that_it_gives_itself(self):
        server = self.server({"/d.htm": reply()})
        self.command("--user-agent", "Our checker/2", server.url("d.htm"))
        self.assertIn(b"\r\nUser-Agent: Our checker/2\r\n", server.raw()[0])

    def test_a_proxy_is_asked_instead_of_the_host(self):
        proxy = self.server({"http://127.0.0.1:9/d.htm": reply(200, "OK", page("a.htm")), "http://127.0.0.1:9/a.htm": reply()})
        done = self.command("--proxy", "127.0.0.1:%d" % proxy.port, "http://127.0.0.1:9/d.htm")
        self.assertEqual(done.returncode, 0, done.stdout + done.stderr)
        self.assertEqual([target for _, target in proxy.asked()], [b"http://127.0.0.1:9/d.htm", b"http://127.0.0.1:9/a.htm"])

    def test_the_name_and_password_go_to_the_pages_own_host_alone(self):
        other = self.server({"/x.htm": reply()})
        server = self.server({"/d.htm": reply(200, "OK", page("a.htm", other.url("x.htm").replace("127.0.0.1", "localhost"))),
                              "/a.htm": reply()})
        self.command("--user", "me:a:b", server.url("d.htm"))
        told = b"Authorization: Basic " + base64.b64encode(b"me:a:b")
        self.assertEqual([told in raw for raw in server.raw()], [True, True])
        self.assertEqual([b"Authorization" in raw for raw in other.raw()], [False])
        self.command("--user", "me", server.url("d.htm"))
        self.assertIn(b"Authorization: Basic " + base64.b64encode(b"me:"), server.raw()[-1])

    def test_the_home_page_of_a_mirror(self):
        for name in ("index.html", "index.htm"):
            mirror = self.scratch.root / name.replace(".", "-")
            mirror.mkdir()
            (mirror / name).write_bytes(page("x.html"))
            done = self.command("--local", str(mirror), "http://www.example.com/")
            self.assertEqual(done.returncode, 1, done.stderr)
            self.assertIn("  NTFND  http://www.example.com/x.html", done.stdout)
        empty = self.scratch.root / "empty"
        empty.mkdir()
        done = self.command("--local", str(empty), "http://www.example.com/")
        self.assertEqual((done.returncode, done.stdout), (2, ""))
        self.assertIn("index.html", done.stderr)

    def test_a_terminal_sees_how_far_it_is(self):
        server = self.server({"/d.htm": reply(200, "OK", page("a.htm", "b.htm")), "/a.htm": reply(), "/b.htm": reply()})
        ours, theirs = pty.openpty()
        done = subprocess.run(self.command_line(server.url("d.htm")), stdout=subprocess.PIPE, stderr=theirs, timeout=60)
        os.close(theirs)
        shown = b""
        try:
            while True:
                shown += os.read(ours, 65536)
        except OSError:  # the other end is closed
            os.close(ours)
        self.assertEqual(done.returncode, 0)
        self.assertIn(b"\r\x1b[KOpening " + server.url("d.htm").encode(), shown)
        self.assertIn(b"\r\x1b[K2 of 2  ", shown)
        self.assertTrue(shown.endswith(b"\r\x1b[K"), shown)  # nothing stays on the line
