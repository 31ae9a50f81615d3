"""What a page, a server or a file says stays what it is: no header, no path, no command, no secret comes of it."""
import stat

from case import Case
from servers import page, reply

HTTP, USER, WORD = 3394, (3396, 30), (3426, 20)
FTP_WORD, PROXY_WORD = (3476, 50), (6798, 40)
SECRETS = {WORD: "s3cretHttp", FTP_WORD: "s3cretFtp", PROXY_WORD: "s3cretProxy"}
MAIL_SECRET = "s3cretMail"


class Requests(Case):
    KNOWN = {b"Host", b"User-Agent", b"Accept", b"Connection", b"Authorization", b"Content-Type", b"Referer", b"Cache-Control", b"Pragma"}

    def test_addresses_add_no_header(self):
        server = self.server({"*": reply()})
        evil = [b"/a%0d%0aX-Evil:%201", b"/b\rX-Evil: 2", b"/c\nX-Evil: 3\n\nGET /stolen HTTP/1.1", b"/d\tX-Evil:4", b"/e HTTP/1.1", b"/f\0X-Evil: 5",
                b"//127.0.0.1:%d\r\nX-Evil: 6/g" % server.port, b"?h\r\nX-Evil: 7", b"/\xff\xfe\x0bX-Evil: 8"]
        server.answers["/d.html"] = reply(200, "OK", b"".join(b'<a href="' + a + b'">x</a>\r\n' for a in evil))
        server.answers["/moved"] = b"HTTP/1.1 302 Found\r\nLocation: /z\x0bX-Evil: 9\x01\r\nContent-Length: 0\r\n\r\n"
        p = self.program()
        p.open(server.url("d.html"))
        p.check()
        self.scratch.document(server.url("e.html"), [server.url("moved")], 2)
        p.settle(p.begin_open(server.url("moved")))
        self.assertGreater(len(server.raw()), len(evil) / 2)
        for raw in server.raw():
            first, *lines = raw[:-4].split(b"\r\n")
            self.assertRegex(first, rb"\A(GET|HEAD) [\x21-\x7e\x80-\xff]+ HTTP/1\.[01]\Z")
            self.assertLessEqual({line.split(b":")[0] for line in lines}, self.KNOWN, raw)
            self.assertNotIn(b"/stolen", first.split()[1][:8])

    def test_a_user_agent_is_one_line(self):
        server = self.server({"*": reply(200, "OK", page())})
        self.program().close()
        self.scratch.patch("preferen.zdt", {(6514, 250): "agent\r\nX-Evil: 1"})
        p = self.program()
        p.settle(p.begin_open(server.url("d.html")))
        (raw,) = server.raw()
        self.assertIn(b"User-Agent: agent", raw)
        self.assertNotRegex(raw, rb"(?m)^X-Evil")

    def test_no_redirect_and_no_link_leads_to_a_local_file(self):
        secret = self.scratch.root / "secret.html"
        secret.write_bytes(page("http://127.0.0.1:9/leaked"))
        server = self.server()
        places = ["file://%s" % secret, "file://localhost%s" % secret, "FILE:%s" % secret, "ftp://127.0.0.1:9/x", "gopher://127.0.0.1:9/x",
                  "dict://127.0.0.1:9/x", "data:text/html,x", "javascript:alert(1)", "///%s" % secret]
        for number, place in enumerate(places):
            server.answers["/r%d" % number] = reply(302, "Found", b"", "Location: " + place)
        p = self.program()
        for number in range(len(places)):
            opening = p.begin_open(server.url("r%d" % number))
            p.settle(opening)
        self.assertEqual([row for row in p.rows() if "leaked" in row], [])
        for path in self.scratch.home.rglob("*"):
            self.assertNotIn(b"leaked", path.read_bytes() if path.is_file() else b"", path)
        p.click("CheckForm.MenuFileNew")
        server.answers["/d.html"] = reply(200, "OK", page(*places, *("r%d" % n for n in range(len(places)))))
        p.open(server.url("d.html"))
        p.check()
        number = p.documents()[0][1]
        for link in self.scratch.links(number):
            if link[1].lower().startswith("file:") or link[1].startswith(server.url("r")):
                self.assertNotIn(link[3], ("OK", "OK *"), link)

    def test_only_what_is_listed_is_asked(self):
        other = self.server({"*": reply()})
        address = other.url("%s").encode()
        body = (b'<link rel="stylesheet" href="' + address % b"style" + b'"><link rel=preload href="' + address % b"pre" + b'">'
                b'<script src="' + address % b"script" + b'"></script><style>@import "' + address % b"import" + b'";</style>'
                b'<object data="' + address % b"object" + b'"></object><video src="' + address % b"video" + b'"></video>'
                b'<!-- ' + address % b"comment" + b' --><base target="x"><a href="' + address % b"link" + b'">a link</a>\r\n')
        server = self.server({"/d.html": reply(200, "OK", body)})
        p = self.program()
        p.open(server.url("d.html"))
        self.assertEqual(server.asked(), [(b"GET", b"/d.html")])
        self.assertEqual(other.asked(), [])
        p.check()
        listed = {link[1] for link in self.scratch.links(p.documents()[0][1])}
        self.assertIn(other.url("link"), listed)
        self.assertLessEqual({other.url(target.decode()[1:]) for _, target in other.asked()}, listed)


class Files(Case):
    def test_a_report_stays_in_its_folder(self):
        server = self.server({"*": reply(200, "OK", page("x"))})
        folder = self.scratch.root / "deep" / "down" / "reports"
        folder.mkdir(parents=True)
        before = {path for path in self.scratch.root.rglob("*") if path != folder and folder not in path.parents}
        for path in ("a/../../../up.html", "..%2f..%2fup.html", "..\\..\\up.html", "%2e%2e/%00x.html", "$(touch%20hit).html"):
            self.command("--report", "html", "--report", "text", "--folder", str(folder), server.url(path), cwd=str(self.scratch.root))
        self.assertEqual({path for path in self.scratch.root.rglob("*") if path != folder and folder not in path.parents}, before)
        names = [path.name for path in folder.iterdir()]
        self.assertGreaterEqual(len(names), 6)
        for name in names:
            self.assertRegex(name, r"\A[A-Za-z0-9_]+_(html\.htm|text\.txt)\Z")

    def test_passwords_stay_where_they_belong(self):
        server = self.server({"/d.html": reply(200, "OK", page("locked", "x")), "/locked": reply(401, "Unauthorized", b"", "WWW-Authenticate: Basic realm=r"),
                              "*": reply(404, "Not Found")})
        self.program().close()
        self.scratch.patch("preferen.zdt", {HTTP: -1, USER: "author", 6838: -1, 6840: -1, 6842: -1, 7285: -1, 7101: -1, (7105, 60): "you@h.test",
                                            **SECRETS})
        lines = ["127.0.0.1:9", "me@h.test", "Author", "", "", " 0", "mailer", MAIL_SECRET, "Yes", "", ""]
        self.scratch.write("emailcfg.zdt", "".join(l + "\r\n" for l in lines).encode())
        (self.scratch.home / "Reports").mkdir(exist_ok=True)
        p = self.program()
        p.open(server.url("d.html"))
        checking = p.send("click", "CheckForm.ComStart")
        p.settle(checking)
        request = p.send("click", "CheckForm.MenuHelpEmail")
        p.event("modal", form="ConfigForm")
        for button in ("ComNext", "ComNext", "ComNext", "ComFinish"):
            if p.state("ConfigForm." + button)["usable"]:
                p.click("ConfigForm." + button)
        p.reply(request)
        asked = [raw for raw in server.raw() if b"Authorization" in raw]
        self.assertTrue(asked)  # they were used
        for form in ("CheckForm", "ReportForm"):
            if form in [f["name"] for f in p.do("forms")["forms"]]:
                self.assertNotRegex(str(p.do("get", form)), "s3cret")
        self.assertNotRegex(str([event for event in p.seen]), "s3cret")
        p.exit("Yes")
        belongs = {"preferen.zdt", "sitedata.zdt", "emailcfg.zdt"}
        for path in self.scratch.root.rglob("*"):
            if not path.is_file():
                continue
            if b"s3cret" in path.read_bytes():
                self.assertIn(path.name, belongs, path)
                self.assertEqual(stat.S_IMODE(path.stat().st_mode), 0o600, path.name)
        self.assertIn(MAIL_SECRET.encode(), self.scratch.read("emailcfg.zdt"))
        self.assertIn(b"s3cretHttp", self.scratch.read("sitedata.zdt"))
        self.assertEqual((self.scratch.root / "errors.txt").read_bytes().count(b"s3cret"), 0)

    def test_files_with_passwords_that_others_could_read_are_closed_to_them(self):
        first = self.program()
        first.exit(None)
        self.scratch.write("emailcfg.zdt", b"h\r\n" * 11)
        self.scratch.write("sitedata.zdt", b"")
        names = ("preferen.zdt", "sitedata.zdt", "emailcfg.zdt")
        for name in names:
            (self.scratch.home / name).chmod(0o644)
        self.program()
        for name in names:
            self.assertEqual(stat.S_IMODE((self.scratch.home / name).stat().st_mode), 0o600, name)

    def test_a_page_of_a_report_has_the_texts_as_they_are(self):
        """The forms of the reports are told to the letter: nothing in them is escaped, so a reader must not trust them as pages."""
        server = self.server({"/d.html": reply(200, "OK", b'<a href="x">&lt;b>bold&lt;/b></a>\r\n'), "*": reply(404, "Not Found")})
        self.command("--report", "html", "--folder", str(self.scratch.root), server.url("d.html"))
        (report,) = self.scratch.root.glob("*.htm")
        self.assertIn(b"1. &lt;b>bold&lt;/b> ", report.read_bytes())
