"""What only a mouse or a keyboard can do, at real windows."""
import os
import subprocess
import sys
import unittest
from pathlib import Path

from case import Case
from displays import display
from hands import Hands
from program import Refused, is_desktop
from servers import page, reply

INTERNET = "Zephon Quorvantis - Internet Mode"
LINKS = ["http://127.0.0.1:9/%s.html" % name for name in "abcdefgh"]


@unittest.skipUnless(is_desktop(), "there are no windows")
class DesktopCase(Case):
    def start(self, documents=1, links=None, **more):
        for number in range(1, documents + 1):
            self.scratch.document("http://127.0.0.1:9/doc%d.html" % number, LINKS if links is None else links, number)
        p = self.program(environment={"QUORVANTIS_AUTOMATION_PLACES": "1"}, **more)
        self.hands = Hands(p)
        self.hands.front(INTERNET)
        p.until(lambda: p.state("CheckForm.Command1")["place"][0] > 0)
        return p

    def answered(self, p):
        """Whether no message box is open any more. The button asked for is one that none has."""
        try:
            p.do("answer", value="(none)")
        except Refused as refusal:
            return str(refusal) == "nothing to answer"

    def focus(self, p, form="CheckForm"):
        return p.state(form)["focus"]


class Keyboard(DesktopCase):
    def test_an_address_is_typed_where_its_access_key_leads(self):
        p = self.start()
        self.hands.key("alt+a")
        p.until(lambda: self.focus(p) == "TextFileName")
        self.hands.key("ctrl+a")
        self.hands.type("http://127.0.0.1/typed.html")
        p.until(lambda: p.state("CheckForm.TextFileName")["text"] == "http://127.0.0.1/typed.html")

    def test_access_keys_press_buttons_and_escape_leaves(self):
        p = self.start()
        self.hands.key("alt+w")
        p.event("modal", form="WizardForm")
        self.assertEqual(p.caption("WizardForm"), "Internet Web Site Database")
        self.hands.front("Internet Web Site Database")
        self.hands.key("Escape")
        p.event("closed", form="WizardForm")
        self.hands.front(INTERNET)
        self.hands.key("alt+shift+d")
        p.event("modal", form="WizardForm")
        self.assertEqual(p.caption("WizardForm"), "Internet Document Database")

    def test_a_menus_access_key_opens_it_also_when_a_button_has_the_same(self):
        p = self.start()
        self.hands.key("alt+h")
        self.hands.key("a")
        p.event("modal", form="InitialForm")
        self.hands.front("About Zephon Quorvantis")
        self.hands.key("Return")
        p.event("closed", form="InitialForm")

    def test_a_menus_opening_rule_runs_when_the_keyboard_opens_it(self):
        p = self.start()
        p.do("select", "CheckForm.List1", row=2)
        self.hands.key("alt+l", "Escape", "Escape")
        p.until(lambda: p.state("CheckForm.MenuLinkOpen")["enabled"])

    def test_tab_goes_through_the_controls_in_their_order(self):
        p = self.start()
        p.do("focus", "CheckForm.txtFileName")
        order = ["txtFileName"]
        for _ in range(8):
            before = order[-1]
            self.hands.key("Tab")
            order.append(p.until(lambda: self.focus(p) != before and self.focus(p)))
        self.assertEqual(order, ["txtFileName", "TextFileName", "Command1", "ComOpen", "ComStart", "SpinLeft", "SpinRight",
                                 "ComHide", "Command2"])
        self.hands.key("shift+Tab")
        p.until(lambda: self.focus(p) == "ComHide")

    def test_the_space_key_toggles_the_current_row_and_arrows_move_it(self):
        p = self.start()
        p.do("focus", "CheckForm.List1")
        self.hands.key("Down", "Down", "space", "Down", "space")
        p.until(lambda: [row for row, item in enumerate(p.state("CheckForm.List1")["items"]) if not item["selected"]] == [2, 3])
        self.assertEqual(p.state("CheckForm.List1")["index"], 3)
        p.until(lambda: [link[2].strip() for link in self.scratch.links()] == ["X", "X", "", "", "X", "X", "X", "X"])

    def test_the_context_key_opens_the_links_menu(self):
        p = self.start()
        p.do("focus", "CheckForm.List1")
        p.do("select", "CheckForm.List1", row=1)
        self.hands.key("Menu", "o")
        p.until(lambda: p.state("CheckForm.TextFileName")["text"] == LINKS[1])

    def test_enter_in_the_documents_opens_the_site_wizard(self):
        p = self.start()
        p.do("focus", "CheckForm.txtFileName")
        self.hands.key("Return")
        p.event("modal", form="WizardForm")
        self.assertEqual(p.state("WizardForm.Text1")["text"], "http://127.0.0.1:9/doc1.html")

    def test_enter_presses_the_default_button_wherever_the_focus_is(self):
        p = self.start()
        p.send("click", "CheckForm.MenuHelpEmail")
        p.event("modal", form="ConfigForm")
        self.hands.front("Zephon Quorvantis Configuration Wizard")
        self.hands.key("Return")
        p.until(lambda: self.focus(p, "ConfigForm") == "TextMailServer")
        self.hands.type("mail.example.com")
        self.hands.key("Tab")
        self.hands.type("me@example.com")
        self.hands.key("Tab")
        self.hands.type("Me")
        p.until(lambda: p.state("ConfigForm.ComNext")["enabled"])
        self.hands.key("Return")
        p.until(lambda: self.focus(p, "ConfigForm") == "CheckAuth")
        self.hands.key("space")
        p.until(lambda: p.state("ConfigForm.CheckAuth")["value"] == 1)
        self.assertFalse(p.state("ConfigForm.ComNext")["enabled"])

    def test_tabs_change_by_the_keyboard_and_a_refused_page_stays(self):
        p = self.start()
        p.send("click", "CheckForm.ComOpen")
        p.event("modal", form="WizardForm")
        self.hands.front("Internet Document Database")
        p.do("set", "WizardForm.Text1", value="https://127.0.0.1/no.html")
        self.hands.key("ctrl+Next")
        p.event("message", text="Not a valid Web URL: https://127.0.0.1/no.html")
        self.assertEqual(p.state("WizardForm.TabStrip1")["value"], 1)
        self.hands.front("Zephon Quorvantis")
        self.hands.key("Return")
        p.until(lambda: self.answered(p))
        p.do("set", "WizardForm.Text1", value="http://127.0.0.1/yes.html")
        self.hands.front("Internet Document Database")
        self.hands.key("ctrl+Next")
        p.until(lambda: p.state("WizardForm.TabStrip1")["value"] == 2)
        self.hands.key("ctrl+Prior")
        p.until(lambda: p.state("WizardForm.TabStrip1")["value"] == 1)
        self.assertEqual(self.focus(p, "WizardForm"), "Text1")


class Mouse(DesktopCase):
    def test_a_click_toggles_a_row(self):
        p = self.start()
        self.hands.click("CheckForm.List1", row=3)
        p.until(lambda: p.state("CheckForm.List1")["index"] == 3)
        self.assertFalse(p.state("CheckForm.List1")["items"][3]["selected"])
        p.until(lambda: self.scratch.links()[3][2].strip() == "")
        self.hands.click("CheckForm.List1", row=3)
        p.until(lambda: p.state("CheckForm.List1")["items"][3]["selected"])
        p.until(lambda: self.scratch.links()[3][2] == "X")

    def test_a_right_click_opens_the_links_menu_on_the_row_under_the_pointer(self):
        server = self.server({"*": reply(200, body=page('<a href="x.html">x</a>'))})
        p = self.start(links=[server.url("%d.html" % n) for n in range(5)])
        self.hands.click("CheckForm.List1", row=2, button=3)
        p.until(lambda: p.state("CheckForm.List1")["index"] == 2)
        self.assertTrue(p.state("CheckForm.List1")["items"][2]["selected"])
        self.hands.key("o")
        p.event("modal", form="WizardForm")
        self.assertEqual(p.state("WizardForm.Text1")["text"], server.url("2.html"))
        self.hands.front("Internet Document Database")
        self.hands.key("Return")
        p.until(lambda: p.documents()[-1][0] == server.url("2.html"))

    def test_a_right_click_on_a_document_opens_the_documents_menu(self):
        p = self.start(documents=3)
        self.hands.click("CheckForm.txtFileName", row=1, button=3)
        p.until(lambda: p.state("CheckForm.txtFileName")["index"] == 1)
        self.hands.key("r", "r", "Return")  # two entries have this key; the second removes
        p.until(lambda: len(p.documents()) == 2 or self.hands.key("Return"))
        self.assertEqual([text for text, _ in p.documents()], ["http://127.0.0.1:9/doc1.html", "http://127.0.0.1:9/doc3.html"])

    def test_a_held_spin_button_goes_on_until_it_is_released(self):
        p = self.start(documents=40)
        self.hands.press("CheckForm.SpinRight")
        p.until(lambda: p.state("CheckForm.txtFileName")["index"] >= 4)
        self.hands.release()
        p.until(lambda: p.state("CheckForm.Timer2")["enabled"] is False)
        stopped = p.state("CheckForm.txtFileName")["index"]
        self.assertLess(stopped, 39)
        self.hands.click("CheckForm.SpinLeft")
        p.until(lambda: p.state("CheckForm.Timer2")["enabled"] is False and
                p.state("CheckForm.txtFileName")["index"] == stopped - 1)

    def test_the_tip_of_a_tool_button_comes_with_the_pointer(self):
        p = self.start()
        self.hands.move("CheckForm.ToolOpenDoc")
        p.until(lambda: p.state("CheckForm.ToolOpenDoc")["tip"] == "New (Clear Cache)")

    def test_stop_acts_while_a_server_says_nothing(self):
        server = self.server({"*": "silent"})
        p = self.start(links=[server.url("a.html"), server.url("b.html")])
        self.hands.click("CheckForm.ComStart")
        p.until(lambda: server.asked())
        self.hands.click("CheckForm.ComStop")
        p.until(lambda: p.caption("CheckForm.LabelInd") == "None of 0 links checked were questionable.")
        self.assertEqual(self.scratch.statuses(), ["STOP", ""])

    def test_the_wheel_over_a_drop_down_list_picks_nothing(self):
        p = self.start()
        for name in ("one", "two"):
            p.send("click", "CheckForm.ComOpen")
            p.event("modal", form="WizardForm")
            p.do("set", "WizardForm.Text1", value="http://127.0.0.1:9/%s.html" % name)
            p.do("click", "WizardForm.ComApply")
            p.do("click", "WizardForm.ComCloseCancel")
            p.event("closed", form="WizardForm")
        p.send("click", "CheckForm.ComOpen")
        p.event("modal", form="WizardForm")
        self.hands.front("Internet Document Database")
        p.do("select", "WizardForm.Text1", row=0)
        self.hands.click("WizardForm.Text1", button=5)
        self.hands.click("WizardForm.Text1", button=4)
        self.hands.key("End")
        self.hands.type("x")
        p.until(lambda: p.state("WizardForm.Text1")["text"].endswith("one.htmlx"))


class Window(DesktopCase):
    def test_every_control_of_every_window_is_there(self):
        p = self.start()
        for menu, form, button in (("MenuHelpEmail", "ConfigForm", "ComCancel"), ("MenuHelpAbout", "InitialForm", "Command1"),
                                   ("MenuHelpTip", "TipForm", "cmdOK"), ("MenuFileOpen", "WizardForm", "ComCloseCancel"),
                                   ("MenuFileOpenSite", "WizardForm", "ComCloseCancel"), ("MenuHelpStatus", "CodeForm", "ComClose")):
            p.send("click", "CheckForm." + menu)
            p.until(lambda: p.do("forms")["forms"][0]["name"] == form)
            p.do("click", form + "." + button)
        self.assertNotIn("has no widget", (self.scratch.root / "errors.txt").read_text())

    def test_resizing_keeps_everything_in_the_window(self):
        p = self.start()
        for width, height in ((1100, 700), (760, 520)):
            self.hands.resize(INTERNET, width, height)
            p.until(lambda: (p.state("CheckForm")["width"], p.state("CheckForm")["height"]) == (width, height))
            form = p.state("CheckForm")
            right, bottom = form["left"] + width, form["top"] + height
            p.until(lambda: p.state("CheckForm.List1")["place"][2] > width - 60)
            for name in ("List1", "ComOpen", "ComSkip", "SpinRight", "txtFileName", "StatusBar1", "ProgressBar1", "Command2"):
                at = p.state("CheckForm." + name)["place"]
                self.assertLessEqual(at[0] + at[2], right, (name, width))
                self.assertLessEqual(at[1] + at[3], bottom, (name, width))
                self.assertGreater(at[3], 8, name)

    def test_the_place_of_the_window_is_kept(self):
        p = self.start()
        self.hands.resize(INTERNET, 900, 650)
        self.hands.tool("windowmove", "--sync", self.hands.window(INTERNET), 33, 44)
        p.until(lambda: (p.state("CheckForm")["left"], p.state("CheckForm")["top"]) == (33, 44))
        p.exit("Yes")
        self.assertEqual(self.scratch.lines("quorvant.cfg")[14:], ["44", "33", "900", "650"])
        again = self.program()
        self.assertEqual([again.state("CheckForm")[name] for name in ("top", "left", "width", "height")], [44, 33, 900, 650])

    def test_the_close_box_asks_and_cancel_keeps_everything(self):
        p = self.start()
        before = {path.name: path.read_bytes() for path in self.scratch.home.rglob("*") if path.is_file()}
        self.hands.close_box(INTERNET)
        p.event("message", text="Do you want to save these documents and link lists for the next session?")
        self.hands.front("Zephon Quorvantis")
        self.hands.key("Escape")  # the question's Cancel
        p.until(lambda: self.answered(p))
        self.assertEqual({path.name: path.read_bytes() for path in self.scratch.home.rglob("*") if path.is_file()}, before)
        self.hands.click("CheckForm.List1", row=0)
        p.until(lambda: not p.state("CheckForm.List1")["items"][0]["selected"])
        self.hands.close_box(INTERNET)
        p.event("message")
        self.hands.front("Zephon Quorvantis")
        self.hands.key("alt+y")
        p.event("exit", code=0)
        self.assertEqual(p.process.wait(10), 0)
        self.assertTrue((self.scratch.home / "session.zdt").read_bytes())

    def test_the_close_box_of_a_message_answers_it(self):
        p = self.start()
        p.send("click", "CheckForm.ComHide")
        p.event("message", text="No questionable links were found.")
        self.hands.front("Zephon Quorvantis")
        self.hands.close_box("Zephon Quorvantis")
        p.until(lambda: self.answered(p) and p.state("CheckForm")["pointer"] == "default")
        self.hands.close_box(INTERNET)
        p.event("message")
        self.hands.front("Zephon Quorvantis")
        self.hands.close_box("Zephon Quorvantis")     # the question's Cancel
        p.until(lambda: self.answered(p))
        self.assertEqual(len(p.documents()), 1)

    def test_escape_leaves_a_question_of_yes_and_no_open(self):
        p = self.start()
        p.send("click", "CheckForm.ComOpen")
        p.event("modal", form="WizardForm")
        p.do("set", "WizardForm.Text1", value="http://127.0.0.1:9/a.html")
        p.do("click", "WizardForm.ComApply")
        self.assertTrue(self.scratch.read("sitedata.zdt"))
        p.send("click", "WizardForm.ComEdit")
        p.event("message", text="Are you sure you want to delete this item? This action cannot be undone.")
        self.hands.front("Zephon Quorvantis")
        self.hands.key("Escape", "Return")   # the Return is the question's Yes
        p.until(lambda: self.answered(p))
        self.assertFalse((self.scratch.home / "sitedata.zdt").exists() and self.scratch.read("sitedata.zdt"))

    def test_quick_keys_in_a_list_keep_marks_and_ticks_together(self):
        p = self.start()
        p.do("focus", "CheckForm.List1")
        for key in ("keydown", "space"), ("keydown", "Down"), ("keyup", "space"), ("keyup", "Down"), ("key", "space"):
            self.hands.tool(*key)
        p.until(lambda: [row for row, item in enumerate(p.state("CheckForm.List1")["items"]) if not item["selected"]] == [0, 1])
        p.until(lambda: [link[2].strip() for link in self.scratch.links()] == ["", ""] + ["X"] * 6)

    def test_a_modal_window_keeps_the_mouse_from_those_below(self):
        p = self.start()
        p.send("click", "CheckForm.MenuHelpEmail")
        p.event("modal", form="ConfigForm")
        self.hands.front("Zephon Quorvantis Configuration Wizard")
        self.hands.click("CheckForm.ToolLocalMode")
        p.do("ping")
        self.assertEqual(p.caption("CheckForm"), INTERNET)

    def test_reports_are_chosen_and_mailed_by_mouse_and_keys(self):
        for name in ("a", "b", "c"):
            self.scratch.write("Reports/%s_text.txt" % name, b"x")
        self.scratch.write("emailcfg.zdt", b"127.0.0.1:1\r\nme@h.test\r\nMe\r\n\r\n\r\n 0\r\n\r\n\r\nNo\r\n\r\n\r\n")
        self.scratch.write("addbook.zdt", b"".join(b"%s@h.test\r\n%s@h.test\r\n" % (n, n) + b"\r\n" * 7 for n in (b"x", b"y", b"z")))
        p = self.start()
        self.hands.key("alt+r", "Return")
        p.event("modal", form="ReportManagerForm")
        self.hands.front("Quorvantis Reports Manager")
        p.until(lambda: p.state("ReportManagerForm.List1")["place"][0] > 0)
        self.hands.click("ReportManagerForm.List1", row=2)
        self.hands.key("alt+e")
        p.event("modal", form="EmailForm")
        self.hands.front("Zephon Quorvantis Reports Emailer")
        p.until(lambda: p.state("EmailForm.ListCC")["place"][0] > 0)
        self.assertEqual(p.rows("EmailForm.List1"), ["a_text.txt", "c_text.txt"])
        p.until(lambda: self.focus(p, "EmailForm") == "Text(3)")
        self.hands.type("A subject")
        self.hands.key("Tab")
        self.hands.type("One")
        self.hands.key("Return")
        self.hands.type("Two")
        p.until(lambda: p.state("EmailForm.Text(4)")["text"] == "One\r\nTwo")
        self.hands.click("EmailForm.ListCC", row=1)
        p.until(lambda: p.state("EmailForm.ListCC")["items"][1]["selected"])
        self.hands.key("Delete")
        p.until(lambda: p.rows("EmailForm.ListCC") == ["x@h.test", "z@h.test"])
        self.hands.key("alt+s")
        p.event("message", text="Invalid Email Address for Recipient.")
        self.hands.front("Zephon Quorvantis")
        self.hands.key("Return")
        p.until(lambda: self.focus(p, "EmailForm") == "TextTo")
        self.hands.type("to@h.test")
        self.hands.key("alt+s")
        p.event("closed", form="EmailForm")  # nobody listens on that port
        self.assertEqual(self.scratch.lines("emailcfg.zdt")[3:5], ["A subject", "to@h.test"])
        self.hands.front("Quorvantis Reports Manager")
        self.hands.key("Escape")
        p.event("closed", form="ReportManagerForm")

    def test_the_address_comes_from_the_browsers_window(self):
        p = self.start()
        log = self.scratch.root / "keys"
        helper = str(Path(__file__).resolve().parent / "browser_window.py")
        browser = subprocess.Popen([sys.executable, helper, "A page - Chromium", "http://127.0.0.1:9/seen.html", str(log)],
                                   env=dict(os.environ, DISPLAY=display()), stdin=subprocess.PIPE)
        self.addCleanup(browser.wait)
        self.addCleanup(browser.stdin.close)
        self.hands.window("A page - Chromium")
        p.click("CheckForm.MenuEditPaste")
        self.assertEqual(p.state("CheckForm.TextFileName")["text"], "http://127.0.0.1:9/seen.html")
        p.until(lambda: log.read_text().split() == ["ctrl+l", "ctrl+Insert", "Escape"])  # the last is read after the answer
        self.hands.front(INTERNET)

    def test_a_long_list_is_gone_through_by_its_keys(self):
        p = self.start(links=["http://127.0.0.1:9/%s.html" % (str(n) * 60) for n in range(90)])
        p.do("focus", "CheckForm.List1")
        at = lambda: p.state("CheckForm.List1")["index"]  # noqa: E731
        self.hands.key("End")
        p.until(lambda: at() == 89)
        self.hands.key("Down", "Up")
        p.until(lambda: at() == 88)
        self.hands.key("Home", "Up", "Down")
        p.until(lambda: at() == 1)
        self.hands.key("Page_Down")
        page_down = p.until(lambda: at() > 2 and at())
        self.hands.key("Page_Down")
        p.until(lambda: at() == 2 * page_down - 1)
        self.hands.key("Page_Up")
        p.until(lambda: at() == page_down)
        before = p.state("CheckForm.List1")["rows"]
        self.hands.key("Right", "Right", "Left")
        p.until(lambda: at() == page_down)  # they move what is seen, not the row
        self.assertEqual(set(p.state("CheckForm.List1")["rows"]), set(before))

    def test_tabs_follow_the_arrow_keys_and_not_the_wheel(self):
        p = self.start()
        p.send("click", "CheckForm.ComOpen")
        p.event("modal", form="WizardForm")
        self.hands.front("Internet Document Database")
        p.do("set", "WizardForm.Text1", value="http://127.0.0.1:9/a.html")
        p.do("focus", "WizardForm.TabStrip1")
        tab = lambda: p.state("WizardForm.TabStrip1")["value"]  # noqa: E731
        self.hands.key("Right")
        p.until(lambda: tab() == 2)
        p.do("focus", "WizardForm.TabStrip1")
        self.hands.click("WizardForm.TabStrip1", button=5)
        self.hands.key("Left")
        p.until(lambda: tab() == 1)

    def test_the_clipboard_is_the_systems(self):
        p = self.start()
        p.do("clipboard", value="from the program")
        p.do("focus", "CheckForm.TextFileName")
        self.hands.key("ctrl+a", "ctrl+v")
        p.until(lambda: p.state("CheckForm.TextFileName")["text"] == "from the program")


if __name__ == "__main__":
    unittest.main()
