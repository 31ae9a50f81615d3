"""Reports: written from the menu, at the end of a check and from the command line, then listed and shown."""
import json
import os
import re
import unittest
from pathlib import Path

from case import Case
from program import Refused, is_desktop
from servers import page, reply

BASE = "http://127.0.0.1:9/"
STAMP = re.compile(r"[A-Z][a-z]+ \d\d, \d{4} - \d\d:\d\d:\d\d")
REPORTS = ("AutoReportsAfterCheck", "MakeTextReport", "MakeAsciiReport", "MakeHtmlReport", "QuestionableOnly")
PLACES = dict(zip(REPORTS, (7285, 6838, 6840, 6842, 7099)))
HELPER = """#!/bin/sh
{ for a in "$@"; do printf '%%s\\0' "$a"; done; printf '\\n'; } >> '%s'
"""


class Reports(Case):
    def helper(self, name):
        """A program that keeps the arguments of its starts; gives its path text and a function that reads them."""
        log = self.scratch.root / (name + ".log")
        tool = self.scratch.root / "my tools" / name
        tool.parent.mkdir(exist_ok=True)
        tool.write_text(HELPER % log)
        tool.chmod(0o755)
        return str(tool).replace("/", "\\"), lambda: [
            call.split("\0")[:-1] for call in log.read_text().split("\n")[:-1]] if log.exists() else []

    def settings(self, browser="", viewer=""):
        lines = ["0", "0", "1", browser, "", "", "", "", "", viewer, "0", "0", "-1", "-1"]
        self.scratch.write("quorvant.cfg", "".join(l + "\r\n" for l in lines).encode())

    def site_wants(self, **fields):
        first = self.program()
        first.kill()
        self.scratch.patch("preferen.zdt", {PLACES[name]: value for name, value in fields.items()})

    def names(self):
        return sorted(os.listdir(self.scratch.home / "Reports"))

    def documents(self):
        self.scratch.document(BASE + "a/one.htm", [("Good", "https://h.test/"), ("Bad", BASE + "bad")], 1)
        self.scratch.document(BASE + "a/two.htm", [("Other", "https://h.test/2")], 2)

    def begin_reports(self, p, **boxes):
        request = p.send("click", "CheckForm.MenuReportsSave")
        p.event("modal", form="frmform")
        for box, value in boxes.items():
            p.do("set", "frmform." + box, value=value)
        return request

    def make(self, p, **boxes):
        request = self.begin_reports(p, **boxes)
        p.click("frmform.cmdOK")
        p.event("modal", form="ReportSelectForm")
        return request

    def test_what_is_pressed_behind_the_okay_meets_the_writing(self):
        self.scratch.document("http://127.0.0.1:9/d.htm", ["https://127.0.0.1/%d" % n for n in range(2000)], 1)
        p = self.program()
        self.begin_reports(p, CheckText=1, CheckWhich=0)
        lines = [dict(id=p.last_id + n, do="click", at=at) for n, at in ((1, "frmform.cmdOK"), (2, "CheckForm.ComStart"))]
        p.last_id += 2
        p.send_raw(b"".join(json.dumps(line).encode() + b"\n" for line in lines))
        with self.assertRaisesRegex(Refused, "not usable|blocked by"):
            p.reply(p.last_id)
        p.event("modal", form="ReportSelectForm")
        report = next((self.scratch.home / "Reports").glob("*_text.txt")).read_bytes()
        self.assertNotIn(b"NA/SE", report)

    def test_the_menu_writes_and_shows(self):
        viewer, calls = self.helper("viewer")
        browser, opened = self.helper("browser")
        self.settings(browser, viewer)
        self.documents()
        p = self.program()
        p.check()
        request = self.make(p, CheckText=1, CheckAscii=1, CheckHTML=1, CheckWhich=0)
        self.assertEqual(self.names(), ["127_0_0_1_9_a_all_ascii.txt", "127_0_0_1_9_a_all_html.htm", "127_0_0_1_9_a_all_text.txt"])
        text = self.scratch.read("Reports/127_0_0_1_9_a_all_text.txt").decode()
        self.assertRegex(text, r"^\r\n\r\n\r\n Zephon Quorvantis Validation Report\r\n Report Generated: " + STAMP.pattern + r"\r\n")
        self.assertIn("Document: " + BASE + "a/one.htm\r\n", text)
        self.assertIn("  NA/SE 1. Good                          [https://h.test/]\r\n", text)
        self.assertIn(" Total Links All Documents: 3\r\n", text)
        p.click("ReportSelectForm.ComShow")
        p.until(lambda: calls() == [[str(self.scratch.home / "Reports/127_0_0_1_9_a_all_text.txt")]])
        p.click("ReportSelectForm.ComReports(2)")
        p.click("ReportSelectForm.ComShow")
        p.until(lambda: opened() == [["file://" + str(self.scratch.home / "Reports/127_0_0_1_9_a_all_html.htm")]])
        p.click("ReportSelectForm.ComClose")
        p.reply(request)
        self.assertEqual(p.caption("CheckForm.LabelInd"), "1 of 3 links checked were questionable.")
        self.assertTrue(p.state("CheckForm.List1")["enabled"])

    def test_the_second_dialog_remembers_the_first(self):
        self.documents()
        p = self.program()
        request = self.make(p, CheckText=0, CheckHTML=1, CheckOneOnly=1)
        p.click("ReportSelectForm.ComClose")
        p.reply(request)
        self.assertEqual(self.names(), ["127_0_0_1_9_a_one_htm_html.htm"])
        p.exit("Yes")
        p = self.program()
        request = self.begin_reports(p)
        values = [p.state("frmform." + box)["value"] for box in ("CheckText", "CheckAscii", "CheckHTML", "CheckOneOnly", "CheckAllInOne")]
        self.assertEqual(values, [0, 0, 1, 1, 0])
        self.assertFalse(p.state("frmform.CheckAllInOne")["enabled"])
        self.assertEqual(p.state("frmform")["focus"], "txtFileName")
        p.do("key", "frmform.txtFileName", key="Escape")
        p.reply(request)
        self.assertEqual(self.names(), ["127_0_0_1_9_a_one_htm_html.htm"])

    def test_a_new_program_writes_questionable_links_as_text(self):
        self.documents()
        p = self.program()
        p.reply(self.make_and_close(p))
        self.assertEqual(self.names(), ["127_0_0_1_9_a_all_text.txt"])
        self.assertEqual(self.scratch.lines("reprtcfg.zdt")[:6], ["-1", " 0", " 0", " 0", " 0", "-1"])

    def make_and_close(self, p):
        request = self.make(p)
        p.click("ReportSelectForm.ComClose")
        return request

    def test_a_folder_that_cannot_be_written_is_passed_over(self):
        if os.geteuid() == 0:
            folder = "/proc/"
        else:
            folder = str(self.scratch.root / "locked") + "/"
            os.mkdir(folder, 0o555)
        self.documents()
        p = self.program()
        request = self.begin_reports(p)
        p.do("set", "frmform.txtFileName", value=folder)
        p.click("frmform.cmdOK")
        p.event("modal", form="ReportSelectForm")
        self.assertEqual(p.rows("ReportSelectForm.List1"), ["127_0_0_1_9_a_all_text.txt"])
        self.assertEqual(p.state("CheckForm.StatusBar1")["text"], "Done.")
        p.click("ReportSelectForm.ComClose")
        p.reply(request)

    def test_a_check_writes_what_its_entry_asks_for(self):
        self.site_wants(AutoReportsAfterCheck=-1, MakeTextReport=0, MakeAsciiReport=-1, MakeHtmlReport=0, QuestionableOnly=-1)
        self.documents()
        p = self.program()
        p.check()
        self.assertEqual(self.names(), ["127_0_0_1_9_a_all_ascii.txt"])
        self.assertEqual(len(self.scratch.lines("Reports/127_0_0_1_9_a_all_ascii.txt")), 2)
        self.assertEqual(p.caption("CheckForm.LabelInd"), "1 of 3 links checked were questionable.")
        self.assertEqual(self.scratch.statuses(1), ["NA/SE", "RFUSD"])
        self.assertEqual(self.scratch.statuses(2), ["NA/SE"])

    def test_a_stopped_check_writes_none(self):
        server = self.server({"*": "silent"})
        self.site_wants(AutoReportsAfterCheck=-1)
        self.scratch.document(server.url("d.htm"), [server.url("a"), server.url("b")])
        p = self.program()
        run = p.send("click", "CheckForm.ComStart")
        p.until(lambda: server.asked())
        p.click("CheckForm.ComStop")
        p.reply(run)
        self.assertEqual(self.names(), [])

    def test_the_clipboard_report(self):
        self.documents()
        p = self.program()
        p.check()
        p.click("CheckForm.ToolCopyReports")
        text = p.do("clipboard")["text"]
        self.assertEqual(p.caption("CheckForm.LabelInd"), "Done.")
        self.assertIn("Document: " + BASE + "a/one.htm\r\n", text)
        self.assertIn("  RFUSD 2. Bad", text)
        self.assertNotIn("two.htm", text)

    def test_a_report_of_many_links_leaves_the_program_alive(self):
        links = [("Link number %d" % n, BASE + "page%d.html" % n) for n in range(60000)]
        self.scratch.document(BASE + "big.htm", links)
        p = self.program()
        request = self.begin_reports(p, CheckWhich=0)
        click = p.send("click", "frmform.cmdOK")
        p.do("ping")
        p.event("modal", form="ReportSelectForm")
        p.reply(click)
        self.assertEqual(self.scratch.lines("Reports/127_0_0_1_9_all_text.txt").count(""), 9)
        p.click("ReportSelectForm.ComClose")
        p.reply(request)

    def test_the_manager_in_a_folder_of_many_files(self):
        for n in range(300):
            self.scratch.write("Reports/Report_%03d_%s" % (n, ("text.txt", "ascii.txt", "html.htm")[n % 3]), b"x")
        self.scratch.write("Reports/%s_text.txt" % ("long" * 50), b"x")
        p = self.program()
        request = p.send("click", "CheckForm.MenuReportsManage")
        p.event("modal", form="ReportManagerForm")
        rows = p.rows("ReportManagerForm.List1")
        self.assertEqual(len(rows), 301)
        self.assertEqual(rows[1], "report_003_text.txt")
        p.do("select", "ReportManagerForm.List1", row=1)
        p.do("select", "ReportManagerForm.List1", row=0)
        delete = p.send("click", "ReportManagerForm.Command1")
        p.event("message")
        p.do("answer", value="Yes")
        p.reply(delete)
        self.assertNotIn("Report_003_text.txt", self.names())
        self.assertEqual(len(self.names()), 300)
        p.click("ReportManagerForm.ComClose")
        p.reply(request)


@unittest.skipIf(is_desktop(), "the command is tested beside the program without windows")
class Command(Case):
    def run_it(self, *options):
        server = self.server({"/": reply(body=page("a.htm", "b.htm")), "/a.htm": reply(body=page())})
        folder = self.scratch.root / "out"
        folder.mkdir()
        return server, folder, self.command(server.url(), "--folder", str(folder), *options)

    def test_each_form(self):
        server, folder, done = self.run_it("--report", "text", "--report", "ascii", "--report", "html")
        base = "127_0_0_1_%d_all" % server.port
        self.assertEqual(done.returncode, 1, done.stderr)
        self.assertEqual(sorted(os.listdir(folder)), [base + end for end in ("_ascii.txt", "_html.htm", "_text.txt")])
        self.assertEqual((folder / (base + "_ascii.txt")).read_text().split("\n")[1:], [
            '"%s","1","OK","link","%sa.htm"' % (server.url(), server.url()),
            '"%s","2","404","link","%sb.htm"' % (server.url(), server.url()), ""])
        self.assertIn("Report: %s" % (folder / (base + "_text.txt")), done.stderr)

    def test_questionable_links_only(self):
        server, folder, done = self.run_it("--report", "ascii", "--questionable-only")
        self.assertEqual(len((folder / os.listdir(folder)[0]).read_text().splitlines()), 2)

    def test_wrong_use(self):
        for options in (["--folder", "/"], ["--questionable-only"], ["--report", "pdf"], ["--report"],
                        ["--report", "text", "--folder", str(self.scratch.root / "none")]):
            done = self.command(*options, "http://127.0.0.1:9/")
            self.assertEqual(done.returncode, 64, options)

    def test_a_report_that_cannot_be_written(self):
        folder = "/proc" if os.geteuid() == 0 else str(self.scratch.root / "locked")
        if folder != "/proc":
            os.mkdir(folder, 0o555)
        server = self.server({"/": reply(body=page())})
        done = self.command(server.url(), "--report", "text", "--folder", folder)
        self.assertEqual(done.returncode, 2)
        self.assertIn("couldn't be written", done.stderr)
