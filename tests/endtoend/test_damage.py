"""Damaged files and hostile replies: the program starts, stays usable, and says nothing that it must not."""
from case import Case
from servers import page, reply

DAMAGES = {"empty": b"", "one byte": b"x", "line ends": b"\r\n\r\n", "zero bytes": bytes(20000), "all bytes": bytes(range(256)) * 40,
           "long line": b"z" * 400000, "huge numbers": b"-99999999999999999999\r\n" * 30, "cut utf-8": b"\xe2\x82\r\n\xf0\x9f" * 50}
FILES = ("quorvant.cfg", "preferen.zdt", "sitedata.zdt", "emailcfg.zdt", "session.zdt", "cache/goodlink.zdt", "cache/ccounter.txt",
         "cache/xlf00001.qvn", "cache/xlf00001.lks")


class Damage(Case):
    def assert_usable(self, p):
        request = p.send("click", "CheckForm.ComOpen")
        p.event("modal", form="WizardForm")
        p.click("WizardForm.ComCloseCancel")
        p.reply(request)
        p.state("CheckForm.List1")
        p.click("CheckForm.MenuFileNew")
        self.assertEqual(p.documents(), [])
        p.exit(None)
        self.assertEqual([e for e in p.seen if e["event"] == "message"], [])

    def test_damaged_files(self):
        for name in FILES:
            for what, data in DAMAGES.items():
                with self.subTest(name + ": " + what):
                    scratch, self.scratch = self.scratch, type(self.scratch)()
                    scratch.remove()
                    self.scratch.document("http://127.0.0.1:9/d.htm", ["http://127.0.0.1:9/x"])
                    self.scratch.write(name, data)
                    p = self.program()
                    self.assert_usable(p)
                    p.close()

    def test_a_folder_in_the_place_of_a_file(self):
        for name in ("quorvant.cfg", "preferen.zdt", "sitedata.zdt", "session.zdt"):
            with self.subTest(name):
                scratch, self.scratch = self.scratch, type(self.scratch)()
                scratch.remove()
                (self.scratch.home / name).mkdir()
                p = self.program()
                self.assert_usable(p)
                p.close()

    def test_a_hostile_page(self):
        body = (b"\0<a href=\"a\0b.htm\">x\0y</a>\r\n<a href=\"\xff\xfe.htm\">\xff\xc3</a>\n<a href=\"" + b"l" * 200000 + b"\">"
                + b"t" * 200000 + b"</a>\r" + b"<a <area <img src=" * 2000)
        server = self.server({"/d.htm": reply(200, "OK", body), "*": reply()})
        p = self.program()
        p.open(server.url("d.htm"))
        links = self.scratch.read("cache/xlf00001.lks").split(b"\r\n")
        self.assertEqual(links[0], b"x\0y")
        self.assertEqual(links[1], server.url("a\0b.htm").encode())
        self.assertEqual(links[5], b"\xff\xc3")
        self.assertEqual((len(links[10]), len(links[11])), (65536, 65536))
        self.assertEqual(len(links), 16)
        p.check()
        self.assertEqual([row[:6] for row in p.rows()], ["OK    "] * 3)
        self.assertEqual(server.asked()[1], (b"HEAD", b"/a%00b.htm"))

    def test_a_reply_that_never_ends_its_head(self):
        head = b"HTTP/1.1 200 OK\r\n" + b"".join(b"X-%d: %s\r\n" % (n, b"y" * 60) for n in range(40000))
        server = self.server({"/d.htm": head})
        p = self.program()
        request = p.begin_open(server.url("d.htm"))
        text = p.event("message")["text"]
        self.assertTrue(text.endswith(" - " + server.url("d.htm")), text)
        p.do("answer", value="OK")
        p.reply(request)
        self.assertEqual(p.documents(), [])

    def test_an_empty_page_says_so(self):
        server = self.server({"/d.htm": reply(200, "OK", b"no links")})
        p = self.program()
        request = p.begin_open(server.url("d.htm"))
        self.assertEqual(p.event("message")["text"], "No URLs Were Found.")
        p.do("answer", value="OK")
        p.reply(request)
        self.assertEqual(p.documents(), [(server.url("d.htm"), 1)])
        self.assertEqual(self.scratch.read("cache/xlf00001.lks"), b"")
