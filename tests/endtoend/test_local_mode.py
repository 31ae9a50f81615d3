"""Local mode: documents of a folder that mirrors a site, and what the commands do otherwise there."""
from case import Case
from servers import page

WEB = "http://www.example.test/"
W = "WizardForm"


class LocalMode(Case):
    def setUp(self):
        super().setUp()
        self.mirror = self.scratch.root / "mirror"
        self.mirror.mkdir()
        self.folder = str(self.mirror).replace("/", "\\") + "\\"

    def page(self, name, data):
        (self.mirror / name).write_bytes(data)

    def start(self):
        p = self.program()
        p.click("CheckForm.MenuFileLocalMode")
        return p

    def begin(self, p, name, web=WEB):
        request = p.send("click", "CheckForm.ComOpen")
        p.event("modal", form=W)
        p.do("set", W + ".Text1", value=self.folder + name)
        p.do("set", W + ".Text3", value=web)
        return request

    def open(self, p, name, message=None):
        request = self.begin(p, name)
        p.click(W + ".ComOpenNext")
        if message:
            self.assertEqual(p.event("message")["text"], message)
            p.do("answer", value="OK")
        p.reply(request)

    def told(self, p, command):
        """Clicks a command and answers its message."""
        request = p.send("click", command)
        text = p.event("message")["text"]
        p.do("answer", value="OK")
        p.reply(request)
        return text

    def test_a_document_is_read_again(self):
        self.page("a.htm", page("b.htm"))
        p = self.start()
        self.open(p, "a.htm")
        self.assertEqual(p.documents(), [(WEB + "a.htm", 1)])
        self.assertEqual(self.scratch.links(), [("link", WEB + "b.htm", "X", "", self.folder + "b.htm")])
        self.page("a.htm", page("b.htm", "c.htm"))
        p.click("CheckForm.MenuViewReload")
        self.assertEqual(len(p.rows()), 2)
        self.assertEqual(p.documents(), [(WEB + "a.htm", 1)])

    def test_the_source_viewer_gets_the_file(self):
        log = self.scratch.root / "shown"
        viewer = self.scratch.root / "viewer"
        viewer.write_text("#!/bin/sh\nprintf '%%s' \"$1\" > '%s.new'; mv '%s.new' '%s'\n" % (log, log, log))
        viewer.chmod(0o755)
        lines = ["0", "1", "1"] + [""] * 6 + [str(viewer).replace("/", "\\"), "0", "0", "-1", "-1"]
        self.scratch.write("quorvant.cfg", "".join(l + "\r\n" for l in lines).encode())
        self.page("a.htm", page("b.htm"))
        p = self.program()
        self.open(p, "a.htm")
        p.click("CheckForm.MenuViewSource")
        p.until(log.exists)
        self.assertEqual(log.read_text(), str(self.mirror / "a.htm"))

    def test_a_link_is_opened_by_its_file(self):
        self.page("a.htm", page("b.htm", "http://other.test/x.htm", "ftp://other.test/y"))
        self.page("b.htm", page("a.htm"))
        p = self.start()
        self.open(p, "a.htm")
        request = p.send("click", "CheckForm.MenuLinkOpen")
        p.event("modal", form=W)
        self.assertEqual(p.state(W + ".Text1")["text"], self.folder + "b.htm")
        p.click(W + ".ComCloseCancel")
        p.reply(request)
        for row, usable in ((0, True), (1, False), (2, False)):
            p.do("select", "CheckForm.List1", row=row)
            entries = p.do("menu", "CheckForm.MenuLink")["entries"]
            self.assertEqual([e["enabled"] for e in entries if e.get("name") == "MenuLinkOpen"], [usable])

    def test_a_page_without_links_and_one_to_be_ignored(self):
        self.page("a.htm", page("b.htm"))
        self.page("empty.htm", b"nothing here\r\n")
        self.page("a.pl", page("b.htm"))
        p = self.start()
        self.open(p, "a.htm")
        self.open(p, "empty.htm", "No URLs Were Found.")
        self.assertTrue(all(p.state("CheckForm." + name)["enabled"] for name in ("List1", "ComOpen", "ComStart", "Command1")))
        self.assertEqual(p.state("CheckForm.StatusBar1")["text"], "Done.")
        self.open(p, "a.pl", "File contains a path fragment that you have requested Quorvantis to ignore. See 'Open Settings' in the "
                             "'Open Document' Dialog.")
        self.assertEqual(p.state("CheckForm")["pointer"], "default")

    def test_refusals_of_the_wizard(self):
        self.page("a.htm", page("b.htm"))
        p = self.start()
        for name, web, message in (("none.htm", WEB, "Not a valid file name: " + self.folder + "none.htm"),
                                   ("a.htm", WEB + "a.htm", "Please include only the Web site path in the URL: " + WEB +
                                    "a.htm. Remove the document name."),
                                   ("a.htm", "ftp://x/", "Not a valid Web URL: ftp://x/")):
            with self.subTest(message):
                request = self.begin(p, name, web)
                self.assertEqual(self.told(p, W + ".ComApply"), message)
                p.click(W + ".ComCloseCancel")
                p.reply(request)
        request = self.begin(p, "a.htm", WEB + "deep")
        p.click(W + ".ComApply")
        self.assertEqual(p.state(W + ".Text3")["text"], WEB + "deep/")
        self.assertEqual(p.state(W + ".Text1")["text"], self.folder + "a.htm")
        p.click(W + ".ComCloseCancel")
        p.reply(request)

    def test_a_document_is_browsed_for(self):
        self.page("a.htm", page("b.htm"))
        p = self.start()
        request = self.begin(p, "")
        browsing = p.send("click", W + ".ComBrowse")
        dialog = p.event("dialog")
        self.assertEqual((dialog["kind"], dialog["title"], dialog["name"], dialog["folder"]),
                         ("open", "Locate Document...", "*.htm", self.folder))
        p.do("answer", value=str(self.mirror / "a.htm"))
        p.reply(browsing)
        self.assertEqual(p.state(W + ".Text1")["text"].replace("\\", "/"), str(self.mirror / "a.htm"))
        p.click(W + ".ComCloseCancel")
        p.reply(request)

    def test_a_typed_path_is_offered_as_a_site(self):
        self.page("a.htm", page("b.htm"))
        p = self.start()
        self.open(p, "a.htm")
        for typed in (self.folder + "y.htm", str(self.mirror / "z.htm")):
            p.do("set", "CheckForm.TextFileName", value=typed)
            request = p.send("key", "CheckForm.txtFileName", key="Enter")
            p.event("modal", form=W)
            self.assertEqual((p.caption(W), p.state(W + ".Text1")["text"]), ("Local Web Site Database", typed))
            p.click(W + ".ComCloseCancel")
            p.reply(request)
