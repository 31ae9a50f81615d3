"""The commands of the menus over real sessions, helper programs and bookmark files."""
import os
from pathlib import Path

from case import Case
from servers import page, reply

BASE = "http://127.0.0.1:9/"
MASS = ["MenuEditSelectAll", "MenuEditSelectNone", "MenuEditContain", "MenuEditDontContain", "MenuEditReset"]
HELPER = """#!/bin/sh
{ for a in "$@"; do printf '%%s\\0' "$a"; done; printf '\\n'; } >> '%s'
%s
"""


def entry(url, title, subtitle=" 0"):
    return [url, title, "kept", " 1", " 2.5", "-3", subtitle, "", "", ""]


def bar(*groups):
    """The bytes of a bar's file; each group is a title and its entries."""
    lines = []
    for number in range(1, 13):
        title, entries = groups[number - 1] if number <= len(groups) else ("Empty", [])
        lines += ["[Group %d]" % number, title, " %d" % len(entries)]
        for one in entries:
            lines += one
    return "".join(line + "\r\n" for line in lines).encode()


class Commands(Case):
    def helper(self, name, after=""):
        """A program that keeps its arguments; its folder and a function that gives them, start by start."""
        folder = self.scratch.root / "my 'own' tools"
        folder.mkdir(exist_ok=True)
        log = self.scratch.root / (name.replace("'", "") + ".log")
        (folder / name).write_text(HELPER % (log, after))
        (folder / name).chmod(0o755)
        return str(folder / name), lambda: [
            start.split("\0")[:-1] for start in log.read_text().split("\n")[:-1]] if log.exists() else []

    def settings(self, browser="", editor="", viewer="", mode=0):
        lines = ["0", str(mode), "1"] + [p.replace("/", "\\") for p in (browser, editor, "", "", "", "", viewer)] + ["0", "0", "-1", "-1"]
        self.scratch.write("quorvant.cfg", "".join(l + "\r\n" for l in lines).encode())

    def ask(self, p, command, text):
        request = p.send("click", "CheckForm." + command)
        p.event("modal", form="SearchForm")
        p.do("set", "SearchForm.TextFind", value=text)
        p.click("SearchForm.ComFind")
        return request

    def test_mass_commands_over_many_documents(self):
        documents, links = 200, 50
        for number in range(1, documents + 1):
            self.scratch.document(BASE + "d%d.htm" % number, [
                ("t", BASE + ("red" if (number + n) % 7 == 0 else "x") + "%d-%d" % (number, n)) for n in range(links)], number)
        self.scratch.write("cache/goodlink.zdt", (BASE + "good\r\n").encode())

        def marked():
            return [sum(link[2] == "X" for link in self.scratch.links(number)) for number in range(1, documents + 1)]
        p = self.program()
        p.click("CheckForm.MenuEditSelectNone")
        self.assertEqual(marked(), [0] * documents)
        p.reply(self.ask(p, "MenuEditContain", "/RED"))
        red = [sum((number + n) % 7 == 0 for n in range(links)) for number in range(1, documents + 1)]
        self.assertEqual(marked(), red)
        request = self.ask(p, "MenuEditDontContain", "/red")
        self.assertTrue(p.reply(request))
        self.assertEqual(marked(), [links] * documents)
        request = p.send("click", "CheckForm.MenuEditReset")
        held = p.send("get", "CheckForm.List1")
        p.reply(request)
        p.reply(held)
        self.assertEqual(marked(), [links] * documents)
        self.assertEqual(len(p.rows()), links)
        self.assertTrue(p.state("CheckForm.List1")["enabled"])
        p.exit("Yes")
        self.assertEqual(self.scratch.read("cache/goodlink.zdt"), b"")

    def test_helpers_get_their_target_as_one_argument(self):
        browser, opened = self.helper("a browser")
        editor, edited = self.helper("an editor", "exit 3")
        viewer, viewed = self.helper("viewer's")
        self.settings(browser, editor, viewer, mode=1)
        name = "a \"quoted\" $(touch x) 'page'; rm.htm"
        path = "\\site\\" + name
        target = 'http://127.0.0.1:9/?a="1" -x --y $(touch x);z'
        self.scratch.document(BASE + "d.htm", [("t", target)])
        header = self.scratch.read("cache/xlf00001.qvn").decode().split("\r\n")
        header[4] = path
        self.scratch.write("cache/xlf00001.qvn", "\r\n".join(header).encode())
        p = self.program()
        for at in ("MenuLinkBrowser", "MenuViewEditor", "MenuViewSource"):
            p.click("CheckForm." + at)
        p.until(lambda: opened() and edited() and viewed())
        self.assertEqual(opened(), [[target]])
        self.assertEqual(edited(), [["/site/" + name]])
        self.assertEqual(viewed(), [["/site/" + name]])
        self.assertFalse((self.scratch.root / "x").exists())

    def test_helpers_that_are_missing_or_no_programs(self):
        broken = self.scratch.root / "broken"
        broken.write_text("#!/no/such/interpreter\n")
        broken.chmod(0o755)
        self.settings(str(self.scratch.root / "none"), str(broken), str(broken))
        self.scratch.document(BASE + "d.htm", [BASE + "x"])
        p = self.program()
        for at in ("MenuLinkBrowser", "MenuViewBrowser"):
            p.click("CheckForm." + at)
        self.assertEqual([m for m in p.seen if m["event"] == "message"], [])
        p.do("ping")

    def test_two_starts_show_successive_tips(self):
        tips = self.scratch.root / "config" / "quorvantis" / "quorvantis.ini"
        tips.write_text("[Options]\nShow Tips at Startup=1\nCurrent Tip=1\n")
        self.scratch.write("tipofday.txt", b"One\r\nTwo\r\nThree\r\n")
        seen = []
        for _ in range(3):
            p = self.program(ready=False)
            p.event("modal", form="TipForm")
            seen.append(p.caption("TipForm.lblTipText"))
            p.click("TipForm.cmdOK")
            p.event("ready")
            p.exit(None)
        self.assertEqual(seen, ["Two", "Three", "One"])

    def test_every_help_button_opens_its_page(self):
        opener, opened = self.helper("xdg-open")
        environment = {"PATH": str(Path(opener).parent) + os.pathsep + os.environ["PATH"]}
        self.scratch.document(BASE + "d.htm", [BASE + "x"])
        self.scratch.write("emailcfg.zdt", b"s\r\na\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n")
        self.scratch.write("Reports/a_text.txt", b"x")
        p = self.program(environment=environment)
        wanted = ["topic10"]
        p.click("CheckForm.MenuHelpLocal")
        for command, form, close, topic in (("MenuFileOpen", "WizardForm", "ComCloseCancel", "topic50"),
                                            ("MenuEditSettings", "DefaultForm", "ComCloseCancel", "topic60"),
                                            ("MenuReportsSave", "frmform", "cmdCancel", "topic80"),
                                            ("MenuReportsManage", "ReportManagerForm", "ComClose", "topic190")):
            request = p.send("click", "CheckForm." + command)
            p.event("modal", form=form)
            p.click(form + ".ComHelp")
            wanted.append(topic)
            if form == "ReportManagerForm":
                mail = p.send("click", form + ".ComEmail")
                p.event("modal", form="EmailForm")
                p.click("EmailForm.ComHelp")
                wanted.append("topic200")
                p.click("EmailForm.ComCancel")
                p.reply(mail)
            p.click(form + "." + close)
            p.reply(request)
        p.until(lambda: len(opened()) == len(wanted))
        pages = [Path(arguments[0]) for arguments in opened()]
        self.assertEqual(sorted(path.stem for path in pages), sorted(wanted))
        for path in pages:
            self.assertIn("<h1>", path.read_text())

    def test_every_command_of_the_menus_does_something(self):
        opener, opened = self.helper("xdg-open")
        environment = {"PATH": str(Path(opener).parent) + os.pathsep + os.environ["PATH"]}
        server = self.server({"*": reply(body=page("x"))})
        self.scratch.document(server.url("d1.htm"), [server.url("x.htm")], 1)
        self.scratch.document(server.url("d2.htm"), [server.url("y.htm")], 2)
        p = self.program(environment=environment)

        def commands(entries):
            for entry_ in entries:
                if entry_.get("entries"):
                    yield from commands(entry_["entries"])
                elif "name" in entry_ and entry_["enabled"] and entry_["visible"]:
                    yield entry_["name"]
        tried = 0
        for menu in ("MenuEdit", "MenuView", "MenuLink", "MenuReports", "MenuSearch", "MenuHelp", "MenuFile"):
            for name in list(commands(p.do("menu", "CheckForm." + menu)["entries"])):
                if name == "MenuFileExit":
                    continue
                self.assertTrue(p.rows() or menu == "MenuFile", "before " + name)  # a change of mode clears the session
                if p.rows():
                    p.do("select", "CheckForm.List1", row=0)
                request = p.send("click", "CheckForm." + name)
                self.settle(p, request)
                tried += 1
        self.assertGreater(tried, 45)
        self.assertGreater(len(opened()), 8)

    def settle(self, p, request):
        """Closes whatever a command has opened, until it has ended."""
        def step():
            forms = [f["name"] for f in p.do("forms")["forms"] if f["name"] != "CheckForm"]
            for form in forms:
                try:
                    p.do("close", form)
                except Exception:
                    pass
            for answer in (None, "No", "OK"):
                try:
                    p.do("answer", value=answer)
                    break
                except Exception:
                    pass
            return p.replied(request) and not [f for f in p.do("forms")["forms"] if f["name"] != "CheckForm"]
        p.until(step)
        p.reply(request)

    # bookmarks
    def enter(self, p, folder):
        request = p.send("click", "CheckForm.MenuFileZephonMode")
        p.event("dialog")
        p.do("answer", value=str(folder) + "/")
        p.reply(request)

    def test_three_hundred_bars(self):
        folder = self.scratch.root / "companion"
        folder.mkdir()
        files = {}
        for number in range(1, 301):
            if number % 50 == 0:
                continue
            (folder / ("bookb%d.zdt" % number)).write_bytes(b"Bar %d\r\nmore\r\n" % number)
            files[number] = bar(("News", [entry('"%s%d-%d"' % (BASE, number, n), "T%d" % n) for n in range(5)] +
                                 [entry('"as it is"', "Heading", "-1")]))
            (folder / ("bookm%d.zdt" % number)).write_bytes(files[number])
        p = self.program()
        self.enter(p, folder)
        self.assertEqual(len(p.documents()), 294)
        self.assertEqual(p.caption("CheckForm.LabelInd"), " 1470 Bookmarks Imported.")
        p.do("select", "CheckForm.txtFileName", row=100)
        number = p.documents()[100][1]
        p.do("select", "CheckForm.List1", row=2)
        p.click("CheckForm.MenuLinkDelete")
        p.click("CheckForm.MenuZephonSave")
        for other, data in files.items():
            now = (folder / ("bookm%d.zdt" % other)).read_bytes()
            if other != number:
                self.assertEqual(now, data, other)
        self.assertEqual((folder / ("bookm%d.zdt" % number)).read_bytes(), bar(
            ("News", [entry('"%s%d-%d"' % (BASE, number, n), "T%d" % n) for n in (0, 2, 3, 4)] + [entry('"as it is"', "Heading", "-1")])))
        self.assertEqual(len(p.rows()), 12 + 5)

    def test_a_check_of_bookmarks(self):
        server = self.server({"/good": reply()})
        folder = self.scratch.root / "companion"
        folder.mkdir()
        (folder / "bookb1.zdt").write_bytes(b"Bar\r\n")
        (folder / "bookm1.zdt").write_bytes(bar(("News", [entry('"%s"' % server.url("good"), "G"), entry("x", "H", "1"),
                                                        entry('"%s"' % server.url("bad"), "B")])))
        p = self.program()
        self.enter(p, folder)
        self.assertEqual(p.check(), "1 of 2 links checked were questionable.")
        self.assertEqual([row[:6].strip() for row in p.rows()[:4]], ["", "OK", "", "404"])

    def test_a_bookmark_is_edited_and_written_or_not(self):
        folder = self.scratch.root / "companion"
        folder.mkdir()
        (folder / "bookb1.zdt").write_bytes(b"Bar\r\n")
        before = bar(("News", [entry('"%sa"' % BASE, "A"), entry("x", "Heading", "-1")]))
        (folder / "bookm1.zdt").write_bytes(before)
        p = self.program()
        for answer in ("No", "Yes"):
            self.enter(p, folder)
            for row, usable in ((0, False), (1, True)):   # a group's heading has nothing to edit
                p.do("select", "CheckForm.List1", row=row)
                p.do("key", "CheckForm.List1", key="Space")
                self.assertEqual(p.state("CheckForm.MenuLink")["enabled"], usable)
            for row in (0, 1):
                p.do("select", "CheckForm.List1", row=row)
                if row == 0:
                    p.do("key", "CheckForm.List1", key="Space")
            self.assertTrue(p.state("CheckForm.MenuLink")["enabled"])   # a press of the mouse on a bookmark brings it back
            editing = p.send("click", "CheckForm.MenuLinkView")
            p.event("modal", form="EditForm")
            self.assertEqual(p.state("EditForm.TextURL")["text"], BASE + "a")
            p.do("set", "EditForm.TextURL", value=BASE + "new")
            p.click("EditForm.ComOkay")
            p.reply(editing)
            leaving = p.send("click", "CheckForm.MenuFileNormalMode")
            self.assertEqual(p.event("message")["text"], "Update Zephon Bookmarks with your changes?")
            p.do("answer", value=answer)
            p.reply(leaving)
            self.assertEqual((folder / "bookm1.zdt").read_bytes(), before if answer == "No" else before.replace(b"9/a", b"9/new"))
        self.enter(p, folder)
        p.exit(None)
        self.assertEqual([f.name for f in (self.scratch.home / "cache").glob("*.lks")], [])

    def test_a_wrong_folder(self):
        p = self.program()
        folder = self.scratch.root / "wrong"
        folder.mkdir()
        request = p.send("click", "CheckForm.MenuFileZephonMode")
        p.event("dialog")
        p.do("answer", value=str(folder) + "/")
        p.event("message", text="Couldn't find any bookmark files in that directory.")
        p.do("answer", value="OK")
        p.reply(request)
        self.assertEqual(p.caption("CheckForm"), "Zephon Quorvantis - Internet Mode")
