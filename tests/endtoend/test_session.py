"""A session from end to end: opened through the wizard, checked, stopped, kept, restored, and after a crash."""
from case import Case
from servers import page, reply


class Session(Case):
    def test_open_check_keep_and_restore(self):
        site = self.nginx({"page.html": page("good.html", "missing.html", "moved", "gone", "broken", "locked",
                                             "https://127.0.0.1/x"), "good.html": b"fine"})
        p = self.program()
        p.open(site.url("page.html"))
        self.assertEqual(p.documents(), [(site.url("page.html"), 1)])
        self.assertEqual(p.caption("CheckForm.LabelInd"), "Document 1 of 1")
        self.assertEqual(p.check(), "4 of 7 links checked were questionable.")
        rows = p.rows()
        self.assertEqual([row[:6] for row in rows], ["OK    ", "404   ", "OK *  ", "410   ", "503   ", "403   ", "NA/SE "])
        self.assertEqual(p.exit("Yes"), 0)
        self.assertEqual(self.scratch.lines("session.zdt"), [site.url("page.html"), " 1 "])
        self.assertEqual(self.scratch.lines("cache/goodlink.zdt"), [site.url("good.html"), site.url("good.html")])
        site.stop()
        p = self.program()
        self.assertEqual(p.documents(), [(site.url("page.html"), 1)])
        self.assertEqual(p.rows(), rows)
        self.assertEqual(p.caption("CheckForm.LabelInd"), "")

    def test_no_leaves_nothing(self):
        server = self.server({"/a.htm": reply(200, "OK", page("b.htm"))})
        p = self.program()
        p.open(server.url("a.htm"))
        p.exit("No")
        self.assertEqual(list((self.scratch.home / "cache").iterdir()), [])
        self.assertFalse((self.scratch.home / "session.zdt").exists())
        self.assertEqual(self.program().documents(), [])

    def test_cancel_keeps_the_program_as_it_was(self):
        server = self.server({"/a.htm": reply(200, "OK", page("b.htm"))})
        p = self.program()
        p.open(server.url("a.htm"))
        before = {f.name: f.read_bytes() for f in self.scratch.home.rglob("*") if f.is_file()}
        request = p.send("close", "CheckForm")
        message = p.event("message")
        self.assertEqual(message["text"], "Do you want to save these documents and link lists for the next session?")
        self.assertEqual(message["buttons"], ["Yes", "No", "Cancel"])
        p.do("answer", value="Cancel")
        p.reply(request)
        self.assertEqual({f.name: f.read_bytes() for f in self.scratch.home.rglob("*") if f.is_file()}, before)
        self.assertEqual(p.documents(), [(server.url("a.htm"), 1)])
        self.assertEqual(p.state("CheckForm")["pointer"], "default")

    def test_stop_keeps_what_was_judged_and_the_next_run_goes_on(self):
        server = self.server({"/a": reply(), "/b": reply(), "/hang": "silent"})
        self.scratch.document(server.url("doc.htm"), [server.url("a"), server.url("hang"), server.url("b")])
        p = self.program()
        run = p.send("click", "CheckForm.ComStart")
        p.until(lambda: (b"HEAD", b"/hang") in server.asked())
        p.click("CheckForm.ComStop")
        p.reply(run)
        self.assertEqual(self.scratch.statuses(), ["OK", "STOP", ""])
        self.assertEqual([item["selected"] for item in p.state("CheckForm.List1")["items"]], [False, True, True])
        self.assertEqual(p.caption("CheckForm.LabelInd"), "None of 1 links checked were questionable.")
        server.answers["/hang"] = reply()
        self.assertEqual(p.check(), "None of 2 links checked were questionable.")
        self.assertEqual(self.scratch.statuses(), ["OK", "OK", "OK"])

    def test_skip_goes_on_with_the_next_link(self):
        server = self.server({"/b": reply(), "/hang": "silent"})
        self.scratch.document(server.url("doc.htm"), [server.url("hang"), server.url("b")])
        p = self.program()
        run = p.send("click", "CheckForm.ComStart")
        p.until(lambda: server.asked())
        p.click("CheckForm.ComSkip")
        p.reply(run)
        self.assertEqual(self.scratch.statuses(), ["SKIPD", "OK"])
        self.assertEqual([link[2] for link in self.scratch.links()], ["", ""])
        self.assertEqual([item["selected"] for item in p.state("CheckForm.List1")["items"]], [True, False])

    def test_cancelled_document(self):
        server = self.server({"/a.htm": "silent"})
        p = self.program()
        opening = p.begin_open(server.url("a.htm"))
        p.until(lambda: server.asked())
        self.assertEqual(p.caption("CheckForm.ComOpen"), "&Cancel Document")
        self.assertEqual(p.caption("CheckForm.LabelInd"), "Retrieving Document...")
        p.click("CheckForm.ComOpen")
        p.reply(opening)
        self.assertEqual(p.state("CheckForm.StatusBar1")["text"], "Cancelled")
        self.assertEqual(p.caption("CheckForm.ComOpen"), "Check &Document")
        self.assertEqual((p.documents(), p.caption("CheckForm.LabelInd")), ([], "Document 0 of 0"))

    def test_killed_in_the_middle_of_a_check(self):
        server = self.server({"*": reply(), "/hang": "silent"})
        links = [server.url("n%d" % n) for n in range(25)] + [server.url("hang")]
        server.answers["/doc.htm"] = reply(200, "OK", page(*links))
        p = self.program()
        p.open(server.url("doc.htm"))
        p.send("click", "CheckForm.ComStart")
        p.until(lambda: (b"HEAD", b"/hang") in server.asked())
        p.kill()
        for file in (self.scratch.home / "cache").iterdir():
            self.assertTrue(file.name == "ccounter.txt" or file.read_bytes().endswith(b"\r\n") or file.stat().st_size == 0, file)
        self.assertEqual(self.scratch.statuses(), ["OK"] * 22 + [""] * 4)
        p = self.program()
        self.assertEqual(p.documents(), [(server.url("doc.htm"), 1)])
        self.assertEqual([row[:6] for row in p.rows()], ["OK    "] * 22 + ["      "] * 4)
        server.answers["/hang"] = reply()
        self.assertEqual(p.check(), "None of 4 links checked were questionable.")
        self.assertEqual([item["selected"] for item in p.state("CheckForm.List1")["items"]], [False] * 26)

    def test_closed_in_the_middle_of_a_check(self):
        server = self.server({"*": reply(), "/hang": "silent"})
        self.scratch.document(server.url("doc.htm"), [server.url("n%d" % n) for n in range(5)] + [server.url("hang")])
        p = self.program()
        p.send("click", "CheckForm.ComStart")
        p.until(lambda: (b"HEAD", b"/hang") in server.asked())
        p.send("close", "CheckForm")
        p.event("message")
        p.do("answer", value="Yes")
        p.event("exit")
        p.process.wait(10)
        self.assertEqual(self.scratch.statuses(), ["OK"] * 5 + [""])
        self.assertEqual([link[2] for link in self.scratch.links()], [""] * 5 + ["X"])

    def test_reopening_reuses_the_number(self):
        server = self.server({"/a.htm": reply(200, "OK", page("x.htm")), "/b.htm": reply(200, "OK", page("y.htm"))})
        p = self.program()
        p.open(server.url("a.htm"))
        p.open(server.url("b.htm"))
        server.answers["/a.htm"] = reply(200, "OK", page("z.htm", "zz.htm"))
        p.open(server.url("a.htm"))
        self.assertEqual(p.documents(), [(server.url("a.htm"), 1), (server.url("b.htm"), 2)])
        self.assertEqual([link[1] for link in self.scratch.links(1)], [server.url("z.htm"), server.url("zz.htm")])
        self.assertEqual(self.scratch.read("cache/ccounter.txt"), b"00002")

    def test_a_first_start_asks_for_mail_and_shows_a_tip(self):
        self.scratch.remove()
        self.scratch = type(self.scratch)(first_start=True, tips=True)
        p = self.program(ready=False)
        p.event("modal", form="ConfigForm")
        p.click("ConfigForm.ComCancel")
        p.event("modal", form="TipForm")
        self.assertTrue(p.caption("TipForm.lblTipText").startswith("That the tipofday.txt file was not found? "))
        p.click("TipForm.cmdOK")
        p.event("ready")
        self.assertEqual(self.scratch.read("corvelleone.zdt"), b"Corvelle\r\n")
        self.assertEqual(len(self.scratch.read("preferen.zdt")), 7514)
