"""The automation protocol: verbs, refusals, states, events."""
import json
import os
import subprocess
import time

from case import Case
from program import Refused


class Protocol(Case):
    def refused(self, error, do, at=None, **fields):
        with self.assertRaises(Refused) as refusal:
            self.program_.do(do, at, **fields)
        self.assertEqual(str(refusal.exception), error)

    def setUp(self):
        super().setUp()
        self.program_ = self.program()

    def test_lines_that_are_no_requests_get_an_error(self):
        p = self.program_
        for number, line in enumerate([b"nonsense\n", b"[]\n", b"3\n", b"\n", b'{"id": "x", "do": "ping"}\n', b"\xff\xfe{}\n"]):
            p.send_raw(line)
            with p.changed:
                self.assertTrue(p.changed.wait_for(lambda: None in p.replies, 10), line)
                answer = p.replies.pop(None)
            self.assertEqual(answer["ok"], number == 4, line)
        self.refused("no such verb", "dance")
        self.refused('no "at"', "click")
        self.assertEqual(p.do("ping")["ok"], True)

    def test_several_lines_at_once_are_served_in_order(self):
        p = self.program_
        p.send_raw(b'{"id": 901, "do": "ping"}\n{"id": 902, "do": "forms"}\n{"id": 903, "do": "pi')
        p.send_raw(b'ng"}\n')
        self.assertEqual([p.reply(n)["ok"] for n in (901, 902, 903)], [True] * 3)

    def test_a_reader_that_is_slow_loses_nothing(self):
        """More is written than a pipe holds before the first byte is read."""
        self.program_.close()
        self.scratch.document("http://127.0.0.1:9/d.htm", ["http://127.0.0.1:9/%d" % n for n in range(400)])
        slow = subprocess.Popen([os.environ["QUORVANTIS_PROGRAM"]], stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                stderr=subprocess.DEVNULL, env=self.program_.environment)
        self.addCleanup(slow.stdout.close)
        self.addCleanup(slow.wait)
        count = 60
        slow.stdin.write(b"".join(b'{"id": %d, "do": "get", "at": "CheckForm.List1"}\n' % n for n in range(count)))
        slow.stdin.flush()
        time.sleep(1)  # it is stuck by now, or will be: both must end well
        replies = []
        while len(replies) < count:
            message = json.loads(slow.stdout.readline())
            if "id" in message:
                replies.append(message)
        slow.stdin.close()
        self.assertEqual([message["id"] for message in replies], list(range(count)))
        sizes = {len(message["state"]["items"]) for message in replies if message["ok"]}
        self.assertIn(400, sizes)

    def test_names_that_are_not_there(self):
        self.refused("no such form", "get", "NoForm")
        self.refused("no such form", "click", "WizardForm.ComOpenNext")
        self.refused("no such control", "get", "CheckForm.NoControl")
        self.refused("no such control", "get", "CheckForm.List1(0)")

    def test_states(self):
        p = self.program_
        form = p.state("CheckForm")
        self.assertEqual({k: form[k] for k in ("name", "kind", "modal", "state", "pointer", "focus", "usable", "enabled", "visible")},
                         dict(name="CheckForm", kind="Form", modal=False, state="normal", pointer="default", focus="Command1",
                              usable=True, enabled=True, visible=True))
        self.assertEqual(set(form) - {"name", "kind", "enabled", "visible", "usable", "tip"},
                         {"caption", "modal", "state", "left", "top", "width", "height", "pointer", "focus"})
        fields = {"Command1": {"caption"}, "LabelInd": {"caption"}, "Picture1": {"caption"}, "ToolSave": {"caption"},
                  "MenuFile": {"caption", "checked"}, "TextFileName": {"text", "selected"}, "List1": {"items", "index"},
                  "ProgressBar1": {"min", "max", "value"}, "StatusBar1": {"text"}, "Timer1": {"interval"}}
        for name, more in fields.items():
            with self.subTest(name):
                state = p.state("CheckForm." + name)
                self.assertEqual(set(state), {"name", "kind", "enabled", "visible", "usable", "tip"} | more)

    def test_disabled_controls_are_refused(self):
        self.refused("not usable", "click", "CheckForm.ComStart")
        self.refused("not usable", "press", "CheckForm.SpinLeft")
        self.refused("not usable", "click", "CheckForm.MenuViewReload")
        self.refused("no such row", "select", "CheckForm.List1", row=0)
        self.refused("not a list", "select", "CheckForm.ComOpen", row=0)
        self.refused("this control can't be set", "set", "CheckForm.List1", value=1)
        self.refused("no such key", "key", "CheckForm.List1", key="F1")

    def test_values_that_do_not_fit_are_refused(self):
        p = self.program_
        opening = p.send("click", "CheckForm.Command1")
        p.event("modal", form="WizardForm")
        p.do("set", "WizardForm.Text1", value="http://127.0.0.1:9/")
        p.do("set", "WizardForm.TabStrip1", value=2)
        for at, value, error in (("Text5", 3, "the value is no text"), ("Check1", 2, "the value is neither 0 nor 1"),
                                 ("Check1", "1", "the value is neither 0 nor 1"), ("TabStrip1", 0, "no such tab"),
                                 ("TabStrip1", 5, "no such tab"), ("TabStrip1", "2", "no such tab")):
            with self.subTest((at, value)):
                self.refused(error, "set", "WizardForm." + at, value=value)
        self.refused('no "value"', "set", "WizardForm.Text5")
        self.assertEqual(p.state("WizardForm.TabStrip1")["value"], 2)
        p.do("close", "WizardForm")
        p.reply(opening)

    def test_forms_are_told_in_their_order_and_activated(self):
        p = self.program_
        p.send("click", "CheckForm.MenuHelpEmail")
        p.event("modal", form="ConfigForm")
        self.refused("blocked by ConfigForm", "activate", "CheckForm")
        p.do("activate", "ConfigForm")
        self.assertEqual([(f["name"], f["modal"], f["visible"]) for f in p.do("forms")["forms"]],
                         [("ConfigForm", True, True), ("CheckForm", False, True)])
        p.do("focus", "ConfigForm.ComCancel")
        self.assertEqual(p.state("ConfigForm")["focus"], "ComCancel")

    def test_a_modal_form_blocks_the_others(self):
        p = self.program_
        request = p.send("click", "CheckForm.ComOpen")
        p.event("modal", form="WizardForm")
        self.refused("blocked by WizardForm", "click", "CheckForm.Command1")
        self.refused("blocked by WizardForm", "hover", "CheckForm.ToolSave")
        self.assertEqual(p.state("CheckForm.Command1")["usable"], True)
        self.assertFalse(p.replied(request))
        self.assertEqual([(f["name"], f["modal"]) for f in p.do("forms")["forms"]], [("WizardForm", True), ("CheckForm", False)])
        p.do("close", "WizardForm")
        p.event("closed", form="WizardForm")
        p.reply(request)
        self.assertEqual(p.state("CheckForm")["pointer"], "default")

    def test_a_message_box_waits_for_its_answer(self):
        p = self.program_
        request = p.send("click", "CheckForm.ComOpen")
        p.event("modal", form="WizardForm")
        opening = p.send("click", "WizardForm.ComOpenNext")
        message = p.event("message")
        self.assertEqual((message["text"], message["buttons"], message["default"]), ("Not a valid Web URL: ", ["OK"], "OK"))
        self.refused("blocked by MessageBox", "click", "WizardForm.ComCloseCancel")
        self.refused("no such button", "answer", value="Yes")
        p.do("answer", value="OK")
        p.reply(opening)
        self.refused("nothing to answer", "answer", value="OK")
        self.assertEqual(p.state("WizardForm")["focus"], "Text1")
        p.click("WizardForm.ComCloseCancel")
        p.reply(request)

    def test_a_text_is_entered_with_its_events(self):
        p = self.program_
        p.send("click", "CheckForm.Command2")
        p.event("modal", form="ConfigForm")
        p.click("ConfigForm.ComNext")
        for box in ("TextMailServer", "TextFromEmail", "TextFromName"):
            self.assertFalse(p.state("ConfigForm.ComNext")["enabled"])
            p.do("set", "ConfigForm." + box, value="w\u00e9b")
            self.assertEqual(p.state("ConfigForm")["focus"], box)
        self.assertTrue(p.state("ConfigForm.ComNext")["enabled"])
        self.assertEqual(p.state("ConfigForm.TextFromName")["text"], "w\u00e9b")
        p.do("set", "ConfigForm.TextFromName", value="  ")
        self.assertFalse(p.state("ConfigForm.ComNext")["enabled"])
        self.assertEqual([p.state("ConfigForm.Frame1(%d)" % n)["visible"] for n in range(4)], [False, True, False, False])
        p.do("key", "ConfigForm.TextFromName", key="Escape")
        p.event("closed", form="ConfigForm")

    def test_a_menu_tells_its_entries(self):
        entries = self.program_.do("menu", "CheckForm.MenuView")["entries"]
        self.assertEqual(entries[4], {"separator": True})
        self.assertEqual([e["name"] for e in entries[-1]["entries"]], ["MenuViewAlta", "MenuViewExcite", "MenuViewInfo"])
        self.assertEqual(entries[0], {"name": "MenuViewBrowser", "caption": "Open Document In &Browser", "enabled": False,
                                      "visible": True, "checked": False})

    def test_the_clipboard(self):
        p = self.program_
        self.assertEqual(p.do("clipboard", value="abc")["text"], "abc")
        self.assertEqual(p.do("clipboard")["text"], "abc")

    def test_hovering_shows_the_tip(self):
        p = self.program_
        self.assertEqual(p.state("CheckForm.ToolEnter")["tip"], "")
        p.do("hover", "CheckForm.ToolEnter")
        self.assertEqual(p.state("CheckForm.ToolEnter")["tip"], "Enterprise Link Check")

    def test_the_end_of_the_input_ends_the_program_and_writes_nothing(self):
        p = self.program_
        p.process.stdin.close()
        p.process.wait(10)
        self.assertFalse((self.scratch.home / "quorvant.cfg").exists())
        self.assertEqual([e for e in p.seen if e["event"] == "exit"], [])
