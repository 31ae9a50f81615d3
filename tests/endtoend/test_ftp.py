"""FTP links against a real server."""
import shutil
import unittest

from case import Case
from servers import Vsftpd, page, reply


@unittest.skipUnless(shutil.which("vsftpd") or shutil.which("/usr/sbin/vsftpd"), "there is no vsftpd")
class Ftp(Case):
    def ftp(self):
        server = Vsftpd({"a.txt": b"text", "empty.txt": b"", "pub/b.bin": b"x" * 3000, "with blank/c d.txt": b"c"})
        (server.root / "site" / "bare").mkdir()
        self.addCleanup(server.stop)
        return server

    def checked(self, *links):
        self.scratch.document("http://127.0.0.1:9/doc.html", links)
        p = self.program()
        p.check()
        return self.scratch.statuses(), p

    def test_files_and_folders(self):
        ftp = self.ftp()
        paths = ["a.txt", "empty.txt", "pub/b.bin", "pub/", "pub", "bare/", "", "with%20blank/c%20d.txt", "with%20blank/"]
        statuses, _ = self.checked(*[ftp.url(path) for path in paths])
        self.assertEqual(statuses, ["OK"] * len(paths))

    def test_what_isnt_there(self):
        ftp = self.ftp()
        statuses, _ = self.checked(ftp.url("none.txt"), ftp.url("none/"), ftp.url("pub/none.bin"), ftp.url("a.txt/"))
        self.assertEqual(statuses, ["UKNWN"] * 4)

    def test_a_wrong_log_in(self):
        ftp = self.ftp()
        statuses, _ = self.checked(ftp.url("a.txt").replace("//", "//nobody:wrong@"), ftp.url("a.txt"))
        self.assertEqual(statuses, ["UKNWN", "OK"])

    def test_a_guest_says_who_he_is(self):
        ftp = self.ftp()
        self.checked(ftp.url("a.txt"))
        self.assertIn('"PASS <password>"', ftp.log().replace("PASS linkcheck@quorvantis.net", "PASS <password>"))
        self.assertIn("USER anonymous", ftp.log())

    def test_nothing_is_read(self):
        ftp = self.ftp()
        with open(ftp.root / "site" / "large.bin", "wb") as large:
            large.truncate(64 << 20)  # more than the buffers between the two can hold
        self.checked(ftp.url("large.bin"))
        self.assertNotIn("OK DOWNLOAD", ftp.log())

    def test_a_silent_server_is_skipped_and_the_next_link_is_asked(self):
        ftp = self.ftp()
        silent = self.server({"*": "silent"})
        self.scratch.document("http://127.0.0.1:9/doc.html", ["ftp://127.0.0.1:%d/x" % silent.port, ftp.url("a.txt")])
        p = self.program()
        run = p.send("click", "CheckForm.ComStart")
        p.until(lambda: p.rows()[0].startswith("-->"))
        p.click("CheckForm.ComSkip")
        self.assertFalse(p.replied(run))  # a session isn't broken off: it ends by its own time-out
        self.assertEqual(p.state("CheckForm.Timer1")["enabled"], True)

    def test_a_recheck_uses_the_log_on_of_the_settings(self):
        ftp = self.ftp()
        statuses, p = self.checked(ftp.url("a.txt"), ftp.url("none.txt"))
        self.assertEqual(statuses, ["OK", "UKNWN"])
        (ftp.root / "site" / "none.txt").write_bytes(b"now")
        p.do("select", "CheckForm.List1", row=1)
        p.click("CheckForm.MenuLinkRecheck")
        self.assertEqual(self.scratch.statuses(), ["OK", "UKNWN"])  # the settings in force have no name for a log-on
        self.assertEqual(p.caption("CheckForm.LabelInd"), "Document 1 of 1")

    def test_a_change_of_mode_ends_a_session_that_hangs(self):
        """The run and the recheck that wait for it end with the documents that they are about."""
        silent = self.server({"*": "silent"})
        web = self.server({"/d.htm": reply(200, "OK", page("x.htm")), "/x.htm": reply()})
        for command in ("ComStart", "MenuLinkRecheck"):
            with self.subTest(command):
                self.scratch.document("http://127.0.0.1:9/doc.html", ["ftp://127.0.0.1:%d/x" % silent.port])
                p = self.program()
                run = p.send("click", "CheckForm." + command)
                p.until(lambda: p.state("CheckForm.Timer1")["enabled"])
                p.click("CheckForm.ToolLocalMode")
                p.reply(run)
                p.click("CheckForm.ToolInterMode")
                p.open(web.url("d.htm"))
                self.assertEqual([row[:6].strip() for row in p.rows()], [""])
                self.assertEqual(self.scratch.statuses(p.documents()[0][1]), [""])
                self.assertEqual(p.check(), "None of 1 links checked were questionable.")
                p.exit("No")
