"""The site wizard, the mail wizard and the tip."""
import struct

from case import Case
from servers import page, reply

NINE = "http://127.0.0.1:9/"        # nothing listens there, and nothing here asks it
W = "WizardForm"
SIZE = 7514


def text(record, offset, width):
    return record[offset:offset + width].decode().strip(" \0")


def number(record, offset):
    return struct.unpack_from("<h", record, offset)[0]


class Wizard(Case):
    def records(self):
        data = self.scratch.read("sitedata.zdt")
        return [data[i:i + SIZE] for i in range(0, len(data), SIZE)]

    def open_wizard(self, button="ComOpen", local=False):
        self.p = self.program()
        if local:
            self.p.click("CheckForm.MenuFileLocalMode")
        self.request = self.p.send("click", "CheckForm." + button)
        self.p.event("modal", form=W)

    def enter(self, **values):
        for name, value in values.items():
            self.p.do("set", "%s.%s" % (W, name), value=value)

    def refused(self, message, at="ComApply", **values):
        self.enter(**values)
        request = self.p.send("click", W + "." + at) if at else self.p.send("set", W + ".TabStrip1", value=2)
        event = self.p.event("message")
        self.assertEqual((event["text"], event["buttons"]), (message, ["OK"]))
        self.p.do("answer", value="OK")
        self.p.reply(request)

    def value(self, name):
        state = self.p.state(W + "." + name)
        return state["text"] if "text" in state else state["value"]

    def test_the_four_guises(self):
        for button, local, caption, tab, file_row, options in (
                ("ComOpen", False, "Internet Document Database", "Document URL", False, False),
                ("Command1", False, "Internet Web Site Database", "WebSite URL", True, False),
                ("ComOpen", True, "Local Document Database", "Document URL", False, False),
                ("Command1", True, "Local Web Site Database", "Web Site URL", True, True)):
            with self.subTest(caption):
                self.open_wizard(button, local)
                p = self.p
                self.assertEqual(p.caption(W), caption)
                self.assertEqual(p.state(W + ".TabStrip1")["tabs"], [tab, "Open Settings", "Authorization", "Reports"])
                self.assertEqual([p.state(W + "." + n)["visible"] for n in ("ImageLocal", "ImageInternet")], [local, not local])
                self.assertEqual(p.state(W + ".Text2")["usable"], file_row)
                self.assertEqual([p.state(W + ".Option%d" % n)["usable"] for n in (1, 2, 3)], [options] * 3)
                self.assertFalse(p.state(W + ".ComApply")["enabled"])
                self.assertEqual(p.state(W)["focus"], "Text1")
                p.click(W + ".ComCloseCancel")
                p.reply(self.request)
                self.assertEqual(p.documents(), [])
                p.close()

    def test_a_new_document_is_split_stored_and_listed(self):
        self.open_wizard()
        self.refused("Not a valid Web URL: https://127.0.0.1/a", Text1="https://127.0.0.1/a")
        self.assertEqual(self.p.state(W)["focus"], "Text1")
        self.refused("File not found: \\no\\such\\b.htm", Text1=NINE + "a/b.htm", Text3="/no/such")
        self.assertEqual((self.value("Text1"), self.value("Text3")), (NINE + "a/b.htm", "\\no\\such\\"))
        self.enter(Text1="  " + NINE + "a/b.htm ", Text3="")
        self.assertEqual(self.p.caption(W + ".ComApply"), "&Add")
        self.p.click(W + ".ComApply")
        self.assertEqual(self.p.state(W)["focus"], "ComOpenNext")   # and not the button that removes the entry
        record, = self.records()
        self.assertEqual((text(record, 0, 600), text(record, 600, 256), text(record, 856, 256)), (NINE + "a/", "b.htm", ""))
        self.assertEqual((number(record, 1112), number(record, 1114)), (0, 0))
        self.assertEqual(text(record, 3678, 20), "Quorvantis 5.0")
        self.assertEqual(self.value("Text1"), NINE + "a/b.htm")
        self.assertEqual(self.p.caption(W + ".ComApply"), "Apply Changes")
        self.assertFalse(self.p.state(W + ".ComApply")["enabled"])
        self.assertTrue(self.p.state(W + ".ComEdit")["enabled"])
        self.enter(Text1=NINE + "a/b.htm")
        self.p.do("set", W + ".TabStrip1", value=2)
        self.assertEqual(len(self.records()), 1)

    def test_a_site_takes_no_document_in_its_address(self):
        self.open_wizard("Command1")
        for ending in (".htm", ".shtml", ".ASP"):
            address = NINE + "x" + ending
            self.refused("Please include only the Web site path in the URL: " + address + ". Remove the document name.", None,
                         Text1=address)
            self.assertEqual(self.p.state(W + ".TabStrip1")["value"], 1)
        self.enter(Text1=NINE + "site")
        self.p.click(W + ".ComApply")
        self.assertEqual(text(self.records()[0], 0, 600), NINE + "site/")
        self.assertEqual(number(self.records()[0], 1114), -1)

    def test_a_local_site_needs_its_file(self):
        (self.scratch.root / "web").mkdir()
        (self.scratch.root / "web" / "index.htm").write_bytes(b"x")
        folder = str(self.scratch.root / "web")
        self.open_wizard("Command1", True)
        self.refused("Please enter a file name.", Text1=NINE)
        self.refused("Please enter a path to your Web site or document folder.", Text2="index.htm")
        self.refused("File not found: %s\\gone.htm" % folder.replace("/", "\\"), Text2="gone.htm", Text3=folder)
        self.enter(Text2="index.htm", Option3=True)
        self.p.click(W + ".ComApply")
        self.assertEqual(number(self.records()[0], 6764), 2)

    def test_the_open_settings_are_stored(self):
        self.open_wizard("Command1")
        self.enter(Text1=NINE, TabStrip1=2, Text5=" .one  ", Text7="/x/", Check1=0, Text8="4.6", ComboTextIgnore="secret")
        self.p.click(W + ".Command2")
        self.p.click(W + ".ComApply")
        record, = self.records()
        self.assertEqual(record[1124:1132], b" .one   ")
        self.assertEqual(text(record, 3528, 150), "/x/")
        self.assertEqual([number(record, o) for o in (1116, 1118, 3124)], [0, -1, 5])
        self.assertEqual(text(record, 3698 + 256, 256), "secret")
        for n in range(9):
            self.enter(ComboTextIgnore="t%d" % n)
            self.p.click(W + ".Command2")
        self.refused("Only 10 text strings are allowed per Web Site. Delete an existing string to add another.", "Command2",
                     ComboTextIgnore="one more")
        self.p.click(W + ".Command5")
        self.p.event("beep")
        self.enter(ComboTextIgnore="t3")
        self.p.click(W + ".Command5")
        self.assertEqual(len(self.p.state(W + ".ComboTextIgnore")["items"]), 9)
        for left in range(8, -1, -1):
            self.enter(ComboTextIgnore=self.p.state(W + ".ComboTextIgnore")["items"][0]["text"])
            self.p.click(W + ".Command5")
            self.assertEqual(len(self.p.state(W + ".ComboTextIgnore")["items"]), left)
        self.assertEqual(self.value("ComboTextIgnore"), "")

    def test_log_ins_need_both_their_fields(self):
        self.open_wizard()
        self.enter(Text1=NINE + "a.htm", TabStrip1=3, Check6=1, TextServer="gate")
        self.assertEqual(self.p.state(W + ".Check7")["enabled"], True)
        self.refused("Proxy Server Name and Port Number are required.")
        self.refused("Valid HTTP Authenticated User Name and Password are required.", TextPort="81", Check5=1, TextUserName="me")
        self.refused("Valid Proxy Authenticated User Name and Password are required.", TextPassword="word", Check7=1)
        self.enter(Check6=0)
        self.assertEqual((self.value("Check7"), self.p.state(W + ".TextServer")["enabled"]), (0, False))
        self.refused("Valid FTP User Name and Password are required.", Text9=" ")
        self.enter(Text9="anonymous", Text6="3")
        self.p.click(W + ".ComApply")
        record, = self.records()
        self.assertEqual([number(record, o) for o in (3126, 3394, 6766, 3526)], [0, -1, 0, 60])
        self.assertEqual(text(record, 3128, 256), "gate")
        self.assertEqual(self.value("Text6"), "60")

    def test_reports_and_addresses(self):
        self.scratch.write("emailcfg.zdt", b"mail.example\r\nme@example.com\r\n" + b"\r\n" * 9)
        self.open_wizard()
        self.enter(Text1=NINE + "a.htm", TabStrip1=4)
        self.assertFalse(self.p.state(W + ".Frame3")["visible"])
        self.enter(Check10=1, Check8=1)
        self.assertTrue(self.p.state(W + ".Frame3")["visible"] and self.p.state(W + ".Combo1")["visible"])
        self.refused("No addresses have been added yet.", "Command8")
        self.refused("Invalid email address.", "Command6", Combo1="a@b")
        for name in ("a", "b", "c"):
            self.enter(Combo1=name + "@x.dom")
            self.p.click(W + ".Command6")
        self.refused("You can only add 3 email addresses here.", "Command6", Combo1="d@x.dom")
        self.refused("Please select an email address to Delete.", "Command8")
        self.p.do("select", W + ".Combo1", row=1)
        self.p.click(W + ".Command8")
        self.p.click(W + ".ComApply")
        record, = self.records()
        self.assertEqual([text(record, o, 60) for o in (7105, 7165, 7225)], ["a@x.dom", "c@x.dom", ""])
        self.assertEqual([number(record, o) for o in (7285, 7101)], [-1, -1])

    def test_mail_needs_a_server(self):
        self.open_wizard()
        self.enter(Text1=NINE + "a.htm", TabStrip1=4, Check10=1)
        self.refused("Before you select this option, you must enter your Email information in Quorvantis Preferences and Settings "
                     "(Under the 'Edit' Menu).", "Check8")
        self.assertEqual(self.value("Check8"), 0)

    def test_an_entry_that_mails_is_shown_with_the_same_rule(self):
        self.scratch.write("emailcfg.zdt", b"mail.example\r\nme@example.com\r\n" + b"\r\n" * 9)
        self.open_wizard()
        self.enter(Text1=NINE + "b.htm", TabStrip1=4, Check10=1, Check8=1)
        self.p.click(W + ".ComApply")
        self.enter(TabStrip1=1)
        self.p.do("select", W + ".Text1", row=0)
        self.assertTrue(self.value("Check8") == 1 and self.p.state(W + ".Combo1")["visible"])
        self.p.close()
        self.scratch.write("emailcfg.zdt", b"")
        self.p = self.program()
        self.p.send("click", "CheckForm.ComOpen")
        self.p.event("modal", form=W)
        showing = self.p.send("select", W + ".Text1", row=0)
        self.p.event("message", text="Before you select this option, you must enter your Email information in Quorvantis "
                     "Preferences and Settings (Under the 'Edit' Menu).")
        self.p.do("answer", value="OK")
        self.p.reply(showing)
        self.assertEqual((self.value("Check8"), self.p.state(W + ".Combo1")["visible"]), (0, False))
        self.assertFalse(self.p.state(W + ".ComApply")["enabled"])

    def test_removing_asks_and_drops_the_enterprise_list(self):
        self.open_wizard()
        for name in ("a.htm", "b.htm"):
            self.enter(Text1=NINE + name)
            self.p.click(W + ".ComApply")
        self.scratch.write("batchlst.zdt", b"1\r\n1\r\n")
        for answer, left in (("No", 2), ("Yes", 1)):
            request = self.p.send("click", W + ".ComEdit")
            self.assertEqual(self.p.event("message")["text"],
                             "Are you sure you want to delete this item? This action cannot be undone.")
            self.p.do("answer", value=answer)
            self.p.reply(request)
            self.assertEqual(len(self.records()), left)
            self.assertEqual((self.scratch.home / "batchlst.zdt").exists(), answer == "No")
        self.assertEqual(self.value("Text1"), NINE + "a.htm")
        request = self.p.send("click", W + ".ComEdit")
        self.p.event("message")
        self.p.do("answer", value="Yes")
        self.p.reply(request)
        self.assertEqual([self.value(name) for name in ("Text1", "Text2", "Text3")], ["", "", ""])
        self.assertFalse(self.p.state(W + ".ComEdit")["enabled"] or self.p.state(W + ".ComApply")["enabled"])
        self.assertEqual(self.records(), [])

    def test_folders_are_browsed(self):
        (self.scratch.root / "web").mkdir()
        self.open_wizard()
        request = self.p.send("click", W + ".ComBrowse")
        dialog = self.p.event("dialog")
        self.assertEqual((dialog["kind"], dialog["title"], dialog["filter"], dialog["name"]),
                         ("open", "Locate Web Site/Document Folder...", "Folders (*.)|*.", "*."))
        self.p.do("answer", value=str(self.scratch.root / "web"))
        self.p.reply(request)
        self.assertEqual(self.value("Text3"), str(self.scratch.root / "web").replace("/", "\\") + "\\")
        request = self.p.send("click", W + ".ComBrowse")
        self.p.event("dialog")
        self.p.do("answer", value=None)
        self.p.reply(request)
        self.assertTrue(self.value("Text3").endswith("\\web\\"))
        self.enter(Text1=NINE + "a.htm", Text3="", TabStrip1=4, Check10=1)
        request = self.p.send("click", W + ".Command9")
        self.assertEqual(self.p.event("dialog")["title"], "Locate Folder for Reports...")
        self.p.do("answer", value=str(self.scratch.root / "web"))
        self.p.reply(request)
        self.assertTrue(self.value("TextReportPath").endswith("\\web\\"))
        self.enter(TextReportPath=str(self.scratch.root / "web"))
        self.p.click(W + ".ComApply")
        record, = self.records()
        self.assertEqual(text(record, 6844, 255), str(self.scratch.root / "web").replace("/", "\\"))  # as typed

    def test_the_last_used_entry_comes_first_next_time(self):
        server = self.server()
        self.open_wizard()
        self.enter(Text1=server.url("a.htm"))
        self.p.send("click", W + ".ComOpenNext")
        self.p.event("message")                     # the page isn't there
        self.p.do("answer", value="OK")
        self.p.reply(self.request)
        self.p.exit(None)
        self.assertEqual(self.scratch.lines("quorvant.cfg")[8], server.url("a.htm"))
        self.open_wizard()
        self.assertEqual(self.value("Text1"), server.url("a.htm"))


class Dialogs(Case):
    def test_the_mail_wizard_stores_its_values(self):
        self.scratch.write("emailcfg.zdt", "old.example\r\na@b.c\r\nName\r\nSubject\r\nto@x.y\r\n 1\r\nuser\r\nword\r\nYes\r\n\r\n\r\n".encode())
        p = self.program()
        p.send("click", "CheckForm.MenuHelpEmail")
        p.event("modal", form="ConfigForm")
        self.assertEqual([p.state("ConfigForm." + n)["enabled"] for n in ("ComBack", "ComNext", "ComFinish")], [False, True, False])
        self.assertEqual(p.state("ConfigForm")["focus"], "ComNext")
        p.click("ConfigForm.ComNext")
        self.assertEqual(p.state("ConfigForm.TextMailServer")["selected"], "old.example")
        p.do("set", "ConfigForm.TextMailServer", value=" mail.example ")
        p.click("ConfigForm.ComNext")
        self.assertEqual(p.state("ConfigForm")["focus"], "TextAuthName")
        p.click("ConfigForm.ComBack")
        self.assertEqual(p.state("ConfigForm.TextMailServer")["text"], " mail.example ")
        self.assertTrue(p.state("ConfigForm.ComBack")["enabled"])
        p.click("ConfigForm.ComNext")
        p.do("set", "ConfigForm.TextAuthPassword", value=" ")
        self.assertFalse(p.state("ConfigForm.ComNext")["enabled"])
        p.do("set", "ConfigForm.CheckAuth", value=0)
        self.assertTrue(p.state("ConfigForm.ComNext")["enabled"])
        p.click("ConfigForm.ComNext")
        self.assertEqual([p.state("ConfigForm." + n)["enabled"] for n in ("ComBack", "ComNext", "ComFinish")], [False, False, True])
        self.assertEqual(p.state("ConfigForm")["focus"], "ComFinish")
        p.do("key", "ConfigForm.ComFinish", key="Enter")
        p.event("closed", form="ConfigForm")
        self.assertEqual(self.scratch.lines("emailcfg.zdt"),
                         ["mail.example", "a@b.c", "Name", "Subject", "to@x.y", " 1", "user", "word", "No", "", ""])

    def test_tips_follow_one_another(self):
        self.scratch.remove()
        self.scratch = type(self.scratch)(tips=True)
        self.scratch.write("tipofday.txt", b"one\r\ntwo\r\nthree\r\n")
        p = self.program(ready=False)
        p.event("modal", form="TipForm")
        self.assertEqual(p.caption("TipForm.lblTipText"), "two")
        p.click("TipForm.cmdNextTip")
        p.click("TipForm.cmdNextTip")
        self.assertEqual(p.caption("TipForm.lblTipText"), "one")
        p.do("set", "TipForm.chkLoadTipsAtStartup", value=0)
        p.click("TipForm.cmdOK")
        p.event("ready")
        store = (self.scratch.root / "config" / "quorvantis" / "quorvantis.ini").read_text()
        self.assertEqual(store, "[Options]\nShow Tips at Startup=0\nCurrent Tip=1\n")
        p.send("click", "CheckForm.MenuHelpTip")
        p.event("modal", form="TipForm")
        self.assertEqual(p.state("TipForm.chkLoadTipsAtStartup")["value"], 1)

    def test_document_lists(self):
        server = self.server({"/a.htm": b"HTTP/1.1 200 OK\r\nContent-Length: 22\r\n\r\n<a href=\"x.htm\">x</a>\r\n"})
        p = self.program()
        p.open(server.url("a.htm"))
        request = p.send("click", "CheckForm.MenuFileSaveList")
        dialog = p.event("dialog")
        self.assertEqual((dialog["kind"], dialog["title"], dialog["name"]), ("save", "Save Document List...", "untitled.qvl"))
        p.do("answer", value=str(self.scratch.root / "mine.QVL"))
        p.reply(request)
        saved = (self.scratch.root / "mine.qvl").read_bytes()
        self.assertEqual(saved.split(b"\r\n")[0], b"0")
        self.assertEqual(saved.count(b"\r\n"), 9)
        request = p.send("click", "CheckForm.MenuFileSaveList")
        p.event("dialog")
        p.do("answer", value=str(self.scratch.root / "mine.qvl"))
        question = p.event("message")
        self.assertEqual((question["title"], question["buttons"], question["default"]), ("File Exists", ["OK", "Cancel"], "Cancel"))
        p.do("answer", value="Cancel")
        p.reply(request)
        request = p.send("click", "CheckForm.MenuFileLoadList")
        p.event("dialog")
        p.do("answer", value=str(self.scratch.root / "mine.txt"))
        self.assertEqual(p.event("message")["text"], "Invalid File Type.")
        p.do("answer", value="OK")
        p.reply(request)
        request = p.send("click", "CheckForm.MenuFileLoadList")
        p.event("dialog")
        p.do("answer", value=str(self.scratch.root / "mine.qvl"))
        p.reply(request)
        self.assertEqual(p.documents(), [(server.url("a.htm"), 1)])
        self.assertEqual(len(server.asked()), 2)

    def test_lists_of_the_other_mode_change_it(self):
        (self.scratch.root / "m").mkdir()
        (self.scratch.root / "m" / "a.htm").write_bytes(b"<a href=\"b.htm\">b</a>\r\n")
        p = self.program()
        p.click("CheckForm.MenuFileLocalMode")
        request = p.send("click", "CheckForm.ComOpen")
        p.event("modal", form=W)
        p.do("set", W + ".Text1", value=str(self.scratch.root / "m" / "a.htm"))
        p.do("set", W + ".Text3", value=NINE)
        p.click(W + ".ComApply")
        p.click(W + ".ComOpenNext")
        p.reply(request)
        self.list_file(p, "Save", "local.qvl")
        self.assertEqual((self.scratch.root / "local.qvl").read_bytes().split(b"\r\n")[0], b"1")
        p.click("CheckForm.MenuFileNormalMode")
        self.list_file(p, "Load", "local.qvl")
        self.assertEqual(p.caption("CheckForm"), "Zephon Quorvantis - Local Mode")
        self.assertEqual(p.documents(), [(NINE + "a.htm", 1)])
        (self.scratch.root / "web.qvl").write_bytes(b"0\r\n")
        self.list_file(p, "Load", "web.qvl")
        self.assertEqual(p.caption("CheckForm"), "Zephon Quorvantis - Internet Mode")
        self.assertEqual(p.documents(), [])

    def test_a_list_whose_last_document_fails_shows_its_first(self):
        server = self.server({"/a.htm": reply(200, "OK", page("x.htm", "y.htm")), "/b.htm": reply(200, "OK", page("z.htm"))})
        p = self.program()
        for name in ("a.htm", "b.htm"):
            p.open(server.url(name))
        self.list_file(p, "Save", "two.qvl")
        server.answers["/b.htm"] = reply(404, "Not Found")
        self.list_file(p, "Load", "two.qvl")
        self.assertEqual([address for address, _ in p.documents()], [server.url("a.htm")])
        self.assertEqual(p.state("CheckForm.TextFileName")["text"], server.url("a.htm"))
        self.assertEqual(len(p.rows()), 2)

    def list_file(self, p, command, name):
        request = p.send("click", "CheckForm.MenuFile%sList" % command)
        p.event("dialog")
        p.do("answer", value=str(self.scratch.root / name))
        p.settle(request)

    def test_spin_buttons_pass_over_documents_without_a_questionable_link(self):
        server = self.server({"/d%d.htm" % n: reply(200, "OK", page("good" if n % 2 == 0 else "gone%d" % n)) for n in range(5)} |
                             {"/good": reply()})
        p = self.program()
        for n in (1, 2, 3, 4):
            p.open(server.url("d%d.htm" % n))
        p.do("select", "CheckForm.txtFileName", row=0)
        p.check()
        p.click("CheckForm.ComHide")
        p.do("press", "CheckForm.SpinRight")
        p.do("release", "CheckForm.SpinRight")
        self.assertEqual(p.caption("CheckForm.LabelInd"), "Document 3 of 4")
        self.assertEqual([row[:6].strip() for row in p.rows()], ["404"])
        self.assertEqual(self.spin(p, "Right"), "No questionable links were found beyond this document.")
        self.assertEqual(p.caption("CheckForm.LabelInd"), "Document 3 of 4")
        p.do("press", "CheckForm.SpinLeft")
        p.do("release", "CheckForm.SpinLeft")
        self.assertEqual(p.caption("CheckForm.LabelInd"), "Document 1 of 4")
        p.do("select", "CheckForm.txtFileName", row=1)
        p.do("select", "CheckForm.txtFileName", row=2)
        p.click("CheckForm.MenuViewDelete")
        p.do("select", "CheckForm.txtFileName", row=0)
        p.click("CheckForm.MenuViewDelete")
        self.assertEqual(len(p.documents()), 2)
        p.do("select", "CheckForm.txtFileName", row=1)
        self.assertEqual(self.spin(p, "Left"), "No questionable links were found before this document.")

    def test_spin_buttons_stop_at_documents_that_were_not_asked(self):
        server = self.server({"/d.htm": reply(200, "OK", page("gone"))})
        self.scratch.document(server.url("d.htm"), [server.url("gone")], 1)
        self.scratch.document(server.url("e.htm"), ["https://127.0.0.1/x"], 2)
        self.scratch.document(server.url("f.htm"), [server.url("later")], 3)
        lines = self.scratch.read("cache/xlf00002.lks").replace(b"X\r\n\r\n", b"\r\nNA/SE\r\n")
        self.scratch.write("cache/xlf00002.lks", lines)
        self.scratch.write("cache/xlf00001.lks", self.scratch.read("cache/xlf00001.lks").replace(b"X\r\n\r\n", b"\r\n404\r\n"))
        p = self.program()
        p.click("CheckForm.ComHide")
        p.do("press", "CheckForm.SpinRight")
        p.do("release", "CheckForm.SpinRight")
        self.assertEqual(p.caption("CheckForm.LabelInd"), "Document 3 of 3")
        self.assertEqual(p.rows(), [])

    def spin(self, p, side):
        request = p.send("press", "CheckForm.Spin" + side)
        text = p.event("message")["text"]
        p.do("answer", value="OK")
        p.reply(request)
        p.until(lambda: not p.state("CheckForm.Timer2")["enabled"])  # the button is held, and yet it doesn't say it again
        self.assertEqual([e["text"] for e in p.seen if e["event"] == "message"].count(text), 1)
        p.do("release", "CheckForm.Spin" + side)
        return text

    def test_spin_buttons_go_through_the_documents(self):
        for n in (1, 2, 3):
            self.scratch.document("http://127.0.0.1:9/d%d.htm" % n, ["http://127.0.0.1:9/x"], n)
        p = self.program()
        p.do("press", "CheckForm.SpinRight")
        p.do("release", "CheckForm.SpinRight")
        self.assertEqual(p.caption("CheckForm.LabelInd"), "Document 2 of 3")
        p.do("press", "CheckForm.SpinRight")
        p.until(lambda: p.caption("CheckForm.LabelInd") == "Document 3 of 3")
        p.do("release", "CheckForm.SpinRight")
        p.do("press", "CheckForm.SpinLeft")
        p.until(lambda: p.caption("CheckForm.LabelInd") == "Document 1 of 3")
        p.do("release", "CheckForm.SpinLeft")
