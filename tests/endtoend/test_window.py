"""The main window: modes, enabling rules, menus, selection."""
from case import Case
from servers import page, reply

BASE = "http://127.0.0.1:9/"
MENUS = ["MenuFile", "MenuEdit", "MenuView", "MenuSearch", "MenuLink", "MenuReports"]
HELD = MENUS + ["ComOpen", "SpinLeft", "SpinRight", "Command1", "ComStart", "List1", "txtFileName", "ComHide"]
DOCUMENT = ["ToolSave", "ToolCopyReports", "ToolDocBrowser", "ToolDocSource", "ToolDocReopen"]
LINK = ["ToolCopyURL", "ToolLinkQuest", "ToolLinkView", "ToolLinkCheck", "ToolLinkBrowser"]


class Window(Case):
    def enabled(self, p, names):
        return [n for n in names if p.state("CheckForm." + n)["enabled"]]

    def entries(self, p, menu):
        return {e["name"]: e for e in p.do("menu", "CheckForm." + menu)["entries"] if "name" in e}

    def two_documents(self):
        self.scratch.document(BASE + "one.htm", [BASE + "a.htm", BASE + "b.pdf"], 1)
        self.scratch.document(BASE + "two.htm", [BASE + "c.htm"], 2)
        return self.program()

    def test_controls_that_are_held_during_a_run(self):
        server = self.server({"*": "silent"})
        self.scratch.document(server.url("d.htm"), [server.url("a")])
        p = self.program()
        self.assertEqual(self.enabled(p, HELD), HELD)
        run = p.send("click", "CheckForm.ComStart")
        p.until(lambda: server.asked())
        self.assertEqual(self.enabled(p, HELD + DOCUMENT + LINK + ["ToolEnter", "ToolOpenDoc", "ToolDocDelete"]), [])
        self.assertEqual(self.enabled(p, ["MenuHelp", "ComStop", "ComSkip", "ToolLocalMode"]),
                         ["MenuHelp", "ComStop", "ComSkip", "ToolLocalMode"])
        self.assertEqual(p.state("CheckForm")["pointer"], "wait")
        p.click("CheckForm.ComStop")
        p.reply(run)
        self.assertEqual(self.enabled(p, HELD + ["ComStop", "ComSkip"]), HELD)
        self.assertEqual(p.state("CheckForm")["pointer"], "default")

    def test_tool_buttons_follow_the_selection(self):
        p = self.program()
        self.assertEqual(self.enabled(p, DOCUMENT + LINK + ["ToolDocDelete", "ToolDocEditor", "ToolOpenDoc"]), ["ToolOpenDoc"])
        p.close()
        p = self.two_documents()
        self.assertEqual(self.enabled(p, DOCUMENT + LINK + ["ToolDocDelete"]), DOCUMENT + LINK + ["ToolDocDelete"])
        p.click("CheckForm.ToolDocDelete")
        self.assertEqual(p.documents(), [(BASE + "two.htm", 2)])
        self.assertEqual(self.enabled(p, ["ToolDocDelete"]), [])
        self.assertFalse((self.scratch.home / "cache" / "xlf00001.lks").exists())

    def test_modes(self):
        p = self.two_documents()
        p.click("CheckForm.MenuFileNormalMode")
        self.assertEqual(len(p.documents()), 2)
        p.click("CheckForm.ToolLocalMode")
        self.assertEqual((p.documents(), p.rows(), p.state("CheckForm.TextFileName")["text"]), ([], [], ""))
        self.assertEqual([p.caption("CheckForm" + n) for n in ("", ".lblFileName", ".Command1", ".ComOpen", ".MenuLinkView")],
                         ["Zephon Quorvantis - Local Mode", "Local Documents:", "Check &Web Site", "Check &Document",
                          "&View Selected Link"])
        modes = self.entries(p, "MenuFile")
        self.assertEqual([modes[n]["checked"] for n in ("MenuFileNormalMode", "MenuFileLocalMode", "MenuFileZephonMode")],
                         [False, True, False])
        self.assertEqual(self.enabled(p, ["ToolInterMode", "ToolLocalMode", "ToolZephonMode"]), ["ToolInterMode", "ToolZephonMode"])
        p.exit(None)
        self.assertEqual(self.scratch.lines("quorvant.cfg")[1], "1")
        p = self.program()
        self.assertEqual(p.caption("CheckForm"), "Zephon Quorvantis - Local Mode")
        p.click("CheckForm.MenuFileNormalMode")
        self.assertEqual(p.caption("CheckForm.lblFileName"), "Web Documents:")

    def test_menus_follow_the_selection(self):
        p = self.two_documents()
        link = self.entries(p, "MenuLink")
        self.assertTrue(link["MenuLinkView"]["enabled"] and link["MenuLinkOpen"]["enabled"])
        self.assertFalse(link["MenuLinkDelete"]["visible"] or link["MenuLinkDelete"]["enabled"])
        p.do("select", "CheckForm.List1", row=1)
        self.assertFalse(self.entries(p, "MenuLink")["MenuLinkOpen"]["enabled"])
        self.assertTrue(self.entries(p, "MenuEdit")["MenuEditCopy"]["enabled"])
        self.assertTrue(self.entries(p, "MenuSearch")["MenuSearchURL"]["enabled"])
        self.assertEqual(p.do("rightclick", "CheckForm.List1", row=0)["menu"], "MenuLink")
        self.assertEqual(p.do("rightclick", "CheckForm.txtFileName", row=1)["menu"], "MenuView")
        self.assertEqual(p.caption("CheckForm.LabelInd"), "Document 2 of 2")
        p.click("CheckForm.MenuFileNew")
        for menu in ("MenuView", "MenuLink", "MenuSearch"):
            self.assertEqual([n for n, e in self.entries(p, menu).items() if e["enabled"]], [], menu)
        self.assertEqual(p.state("CheckForm")["focus"], "txtFileName")
        self.assertEqual(self.enabled(p, ["ComStart", "SpinLeft", "SpinRight"]), [])

    def test_marks_follow_mouse_and_space(self):
        p = self.two_documents()
        p.do("select", "CheckForm.List1", row=1)
        self.assertEqual([link[2] for link in self.scratch.links(1)], ["X", ""])
        p.do("key", "CheckForm.List1", key="Space")
        self.assertEqual([link[2] for link in self.scratch.links(1)], ["X", "X"])

    def test_enter_opens_the_wizard_for_the_typed_address(self):
        p = self.two_documents()
        p.do("set", "CheckForm.TextFileName", value=BASE + "typed/")
        request = p.send("key", "CheckForm.txtFileName", key="Enter")
        p.event("modal", form="WizardForm")
        self.assertEqual(p.caption("WizardForm"), "Internet Web Site Database")
        self.assertEqual(p.state("WizardForm.Text1")["text"], BASE + "typed/")
        p.click("WizardForm.ComCloseCancel")
        p.reply(request)
        self.assertEqual(p.state("CheckForm.txtFileName")["index"], 0)

    def test_the_about_window_has_a_button(self):
        p = self.program()
        request = p.send("click", "CheckForm.MenuHelpAbout")
        p.event("modal", form="InitialForm")
        self.assertTrue(p.state("InitialForm.Command1")["visible"])
        p.click("InitialForm.Command1")
        p.reply(request)

    def test_hiding_good_links(self):
        server = self.server({"/d.htm": reply(200, "OK", page("a", "b")), "/a": reply()})
        p = self.program()
        p.open(server.url("d.htm"))
        p.check()
        p.click("CheckForm.ComHide")
        self.assertEqual([row[:6] for row in p.rows()], ["404   "])
        self.assertEqual(p.caption("CheckForm.ComHide"), "S&how All")
        p.click("CheckForm.ComHide")
        self.assertEqual(len(p.rows()), 2)
