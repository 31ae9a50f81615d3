"""The Enterprise check: lists of entries worked off at once, unattended, and by a real cron."""
import contextlib
import email
import email.policy
import fcntl
import os
import re
import shutil
import subprocess
import tempfile
import time
import unittest
from pathlib import Path

from case import Case
from displays import display
from hands import Hands
from program import Program, Refused, Scratch, is_desktop
from servers import FaultyMail, MailDaemon, closed_port, page, python_with, reply

LOCAL, SITE = 1112, 1114
TEXT, ASCII, HTML, ONLY, MAIL, AUTO = 6838, 6840, 6842, 7099, 7101, 7285
RULE = "=" * 51
PROGRAMS = Path(os.environ["QUORVANTIS_PROGRAM"]).parent
_defaults = []


def defaults():
    """The record of a program that was never set up: what all entries of these tests are made from."""
    if not _defaults:
        scratch = Scratch()
        Program(scratch).close()
        _defaults.append(scratch.read("preferen.zdt"))
        scratch.remove()
    return _defaults[0]


def dos(path):
    """A path as the program writes it."""
    return str(path).replace("/", "\\")


class EnterpriseCase(Case):
    def entry(self, address, file="", local=None, site=False, **values):
        """Adds an entry to the database and to the list. local: the folder of the mirror."""
        self.scratch.write("one.zdt", defaults())
        fields = {(0, 600): address, (600, 256): file, LOCAL: 0 if local is None else 1, SITE: -1 if site else 0, HTML: 0,
                  (6844, 255): dos(self.scratch.home) + "\\Reports\\", (7105, 60): "you@h.test"}
        if local is not None:
            fields[(856, 256)] = dos(local) + "\\"
        fields.update(values.get("fields", {}))
        self.scratch.patch("one.zdt", fields)
        self.append("sitedata.zdt", self.scratch.read("one.zdt"))
        self.numbers = getattr(self, "numbers", []) + [len(self.scratch.read("sitedata.zdt")) // len(defaults())]
        self.list(*self.numbers)

    def append(self, name, data):
        path = self.scratch.home / name
        self.scratch.write(name, (path.read_bytes() if path.exists() else b"") + data)

    def list(self, *numbers):
        self.scratch.write("batchlst.zdt", "".join("%s\r\n" % n for n in [len(numbers), *numbers]).encode())

    def settings(self, text=True, mail=False, leave=False, html=True, folder=None, automatic=False):
        lines = ["-1" if flag else " 0" for flag in (text, mail, leave, html)]
        lines.append(dos(folder if folder is not None else self.scratch.home / "Logs") + "\\")
        for name, rest in [("newencfg.zdt", 5)] + ([("nwautogo.zdt", 6)] if automatic else []):
            self.scratch.write(name, "".join(l + "\r\n" for l in lines + [""] * rest).encode())
        (self.scratch.home / "Logs").mkdir(exist_ok=True)
        (self.scratch.home / "Reports").mkdir(exist_ok=True)

    def mail_settings(self, server):
        lines = [server, "me@h.test", "Web Author", "", "", " 0", "", "", "No", "", ""]
        self.scratch.write("emailcfg.zdt", "".join(l + "\r\n" for l in lines).encode())

    def daemon(self):
        if not python_with("aiosmtpd"):
            self.skipTest("there is no aiosmtpd")
        server = MailDaemon()
        self.addCleanup(server.stop)
        return server

    def begin(self, p):
        """Starts the run from the menu; gives the request, which ends with the run."""
        request = p.send("click", "CheckForm.MenuFileEnterprise")
        p.event("modal", form="BatchForm")
        p.click("BatchForm.Command2")
        return request

    def logs(self, *endings):
        """The texts of the logs that are there, which have one stamp."""
        files = {path.name: path for path in (self.scratch.home / "Logs").iterdir()}
        names = sorted(files)
        self.assertEqual([re.sub(r"\d\d-\d\d-\d\d_\d\d\.\d\d\.\d\d[AP]M", "STAMP", name) for name in names],
                         sorted("Enterprise_Check_STAMP_Log." + ending for ending in endings))
        self.assertEqual(len({name.rsplit("_Log", 1)[0] for name in names}), 1 if names else 0)
        return {name.rsplit(".", 1)[1]: files[name].read_bytes().decode() for name in names}

    def events(self, text):
        """The lines of a text log behind its head."""
        parts = text.split("\r\n\r\n")
        self.assertRegex(parts[0], r"\A\r\nZephon Enterprise Check Log: [A-Z][a-z]+ \d\d, \d{4} - \d\d:\d\d:\d\d\Z")
        self.assertEqual(parts[1], RULE)
        self.assertEqual(parts[-1], "")
        return parts[2:-1]

    def reports(self):
        return sorted(path.name for path in (self.scratch.home / "Reports").iterdir())


class FourEntries(EnterpriseCase):
    """One entry of each kind, reports and mails for two of them: what a whole run leaves."""

    def four(self):
        self.web = self.nginx({"good.html": page("/leaf.html", "/gone"), "leaf.html": b"<p>no links</p>\r\n",
                               "site/index.html": page("next.html", "/gone"), "site/next.html": page("/leaf.html")})
        mirror = self.scratch.root / "mirror"
        mirror.mkdir()
        (mirror / "index.htm").write_bytes(page("inner.htm", "missing.htm"))
        (mirror / "inner.htm").write_bytes(page("index.htm"))
        self.entry(self.web.url("site/"), site=True, fields={TEXT: -1, ASCII: -1, HTML: -1, AUTO: -1, MAIL: -1})
        self.entry(self.web.url(), "good.html", fields={HTML: -1, AUTO: -1, MAIL: -1})
        self.entry("http://www.example.test/", "index.htm", local=mirror, site=True)
        self.entry("http://www.example.test/", "inner.htm", local=mirror)


    TEXT_LOG = [
        "Opening Web Site... WEB/site/", "Site Open Complete. ", "Starting Automatic Link Check... Document 1 of 2",
        "Automatic Link Check complete.  1 of 3 links checked were questionable.", RULE,
        "Sending Email with Reports Attached...  ", RULE,
        "Opening Document - WEB/good.html", "Document Open Complete.  ", "Starting Auto Link Check - Document 1 of 1",
        "Automatic Link Check complete.  1 of 2 links checked were questionable.", RULE,
        "Sending Email with Reports Attached...  ", RULE,
        "Opening Web Site... http://www.example.test/", "File not found. - MIRROR\\missing.htm", "Site Open Complete.",
        "Starting automatic Link Check... Document 1 of 2",
        "Automatic Link Check complete.  1 of 3 links checked were questionable.", RULE,
        "Opening Document - http://www.example.test/inner.htm", "Document Open Complete.  ",
        "Starting Auto Link Check - Document 1 of 1",
        "Automatic Link Check complete.  None of 1 links checked were questionable.", RULE, "Enterprise Link Check Complete.  "]

    HEAD = ["<HTML>", "<HEAD><TITLE>Zephon Quorvantis Enterprise Report Log</TITLE>", "</HEAD>", "<BODY>",
            "<P><FONT SIZE=5>Zephon Quorvantis Enterprise Report Log</FONT><BR>", "Enterprise Check Initiated: <B>TIME</B><P><HR>"]
    FOOT = ["<P>End Enterprise Report Log", "<P><HR>", "</BODY>", "</HTML>", ""]

    @staticmethod
    def section(address, *bad):
        """What the HTML log says of an entry whose questionable links are these: (document, status, number, address)."""
        lines = ["<P><FONT SIZE=5>Zephon Quorvantis Validation Report</FONT><BR>",
                 "Report Generated: <B>TIME</B><BR> Report Identifier: <B>%s</B><P>" % address]
        for document, status, number, link in bad:
            lines += ['<P><B>Web Page: </B><I><A HREF="%s" TARGET="_blank">%s</A></I>' % (document, document),
                      "<P><TABLE WIDTH=2500 CELLPADDING=2><TR><TD WIDTH=4%><B>Link Status</B></TD>"
                      "<TD WIDTH=10%><B>Link Text</B></TD><TD WIDTH=87%><B>Link URL</B></TD></TR>",
                      '<TR><TD WIDTH=4%%> %s </TD><TD WIDTH=10%%>%s</TD><TD WIDTH=86%%><A HREF="%s" TARGET="_blank">%s</A></TD></TR>'
                      % (status, (number + " link").ljust(33), link, link), "</TABLE>"]
        return lines + ([] if bad else ["<P><UL><LI>All links OK.</UL>"]) + ["<P>End Report", "<P><HR>"]

    def html_log(self):
        web = self.web.url()
        return (self.HEAD
                + self.section(web + "site/", (web + "site/", "410", "2.", web + "gone"))
                + self.section(web + "good.html", (web + "good.html", "410", "2.", web + "gone"))
                + self.section("http://www.example.test/index.htm", ("http://www.example.test/index.htm", "NTFND", "2.",
                                                                     "http://www.example.test/missing.htm"))
                + self.section("http://www.example.test/inner.htm") + self.FOOT)

    def text_log(self):
        mirror = dos(self.scratch.root / "mirror")
        return [line.replace("WEB/", self.web.url()).replace("MIRROR", mirror) for line in self.TEXT_LOG]

    def compare_results(self, server):
        """Compares all that a whole run leaves with what is expected."""
        logs = self.logs("txt", "htm")
        self.assertEqual(self.events(logs["txt"]), self.text_log())
        lines = re.sub(r"[A-Z][a-z]+ \d\d, \d{4} - \d\d:\d\d:\d\d", "TIME", logs["htm"]).split("\r\n")
        self.assertEqual(lines, self.html_log())
        host = "127_0_0_1_%d_" % self.web.port
        names = [host + "site__text.txt", host + "site__ascii.txt", host + "site__html.htm", host + "good_html_html.htm"]
        self.assertEqual(self.reports(), sorted(names))
        mails = [email.message_from_bytes(mail["data"], policy=email.policy.default) for mail in server.mails(3)]
        self.assertEqual([(m["To"], m["Subject"]) for m in mails],
                         [("you@h.test", "Zephon Quorvantis Link Check Report")] * 2
                         + [("me@h.test", "Zephon Quorvantis Enterprise Check Log")])
        attached = [{part.get_filename(): part.get_payload(decode=True) for part in m.iter_attachments()} for m in mails]
        for sent, expected in zip(attached, (names[:3], names[3:])):
            self.assertEqual(sent, {name: self.scratch.read("Reports/" + name) for name in expected})
        self.assertEqual({name[-8:]: data.decode() for name, data in attached[2].items()},
                         {"_Log.txt": logs["txt"], "_Log.htm": logs["htm"]})
        body = mails[2].get_body().get_content()
        self.assertEqual(body.strip(), "Your Quorvantis Enterprise Check Log files are attached to this email.")

    def prepare(self, **settings):
        self.four()
        server = self.daemon()
        self.mail_settings(server.name)
        self.settings(mail=True, **settings)
        return server


class Whole(FourEntries):
    def test_from_the_menu_the_log_is_shown_whatever_is_wished_at_the_end(self):
        server = self.prepare(leave=True)
        p = self.program()
        request = self.begin(p)
        p.event("shown", form="ReportForm")
        p.reply(request)
        self.compare_results(server)
        self.assertEqual(self.events(p.state("ReportForm.Text1")["text"]), self.text_log() + ["Log Files Emailed."])
        self.assertEqual(p.documents(), [])
        self.assertEqual([m for m in p.seen if m["event"] == "message"], [])
        viewing = p.send("click", "ReportForm.Command2")
        p.event("modal", form="ReportSelectForm")
        name, = p.rows("ReportSelectForm.List1")   # what the last entry has written
        self.assertTrue((self.scratch.home / "Reports" / name).exists(), name)
        p.click("ReportSelectForm.ComClose")
        p.reply(viewing)

    def test_unattended_the_program_ends(self):
        server = self.prepare(leave=True, automatic=True)
        p = self.program("/auto-check", ready=False)
        p.event("exit", code=0)
        self.assertEqual(p.process.wait(30), 0)
        self.compare_results(server)
        self.assertEqual([m for m in p.seen if m["event"] in ("message", "modal") or m.get("form") == "ReportForm"], [])
        self.assertEqual([m["form"] for m in p.seen if m["event"] == "closed"][:1], ["InitialForm"])

    def test_unattended_the_log_is_shown_if_that_is_wished(self):
        server = self.prepare(automatic=True)
        p = self.program("/auto-check", ready=False)
        p.event("shown", form="ReportForm")
        p.event("ready")
        self.compare_results(server)
        self.assertEqual(p.documents(), [])
        p.click("ReportForm.Command1")
        self.assertEqual(p.exit(None), 0)

    def test_the_switch_alone_starts_nothing(self):
        self.prepare(leave=True)
        p = self.program("/auto-check")
        self.assertEqual(self.logs(), {})
        self.assertEqual(self.web.asked(), [])
        self.assertEqual(p.documents(), [])


class Cancelled(EnterpriseCase):
    """The second of three entries is stopped; the first has been through."""

    def three(self, second, **settings):
        self.web = self.server({"/one.html": reply(200, "OK", page("/good")), "/good": reply(200),
                                "/list.html": reply(200, "OK", page("/never")), "/site/": reply(200, "OK", page("a.html")),
                                "/site/full.html": reply(200, "OK", page("/never")), "*": "silent"})
        self.entry(self.web.url(), "one.html", fields={HTML: -1, AUTO: -1})
        second()
        self.entry(self.web.url(), "one.html", fields={HTML: -1, AUTO: -1})
        self.settings(**settings)
        self.first = ["Opening Document - " + self.web.url("one.html"), "Document Open Complete.  ",
                      "Starting Auto Link Check - Document 1 of 1",
                      "Automatic Link Check complete.  None of 1 links checked were questionable.", RULE]
        self.last = [RULE, "Enterprise Link Was Cancelled.  ", "Enterprise Link Check Complete.  "]

    def stop(self, p, target, button):
        p.until(lambda: any(asked == target for _, asked in self.web.asked()))
        p.click("CheckForm." + button)
        p.event("shown", form="ReportForm")

    def compare_results(self, p, middle, logs=("txt", "htm")):
        found = self.logs(*logs)
        self.assertEqual(self.events(found["txt"]), self.first + middle + self.last)
        self.assertEqual(p.state("ReportForm.Text1")["text"], found["txt"])
        self.assertEqual(self.reports(), ["127_0_0_1_%d_one_html_html.htm" % self.web.port])
        self.assertEqual(found["htm"].count("Report Identifier"), 1)
        self.assertTrue(found["htm"].endswith("<P>End Report\r\n<P><HR>\r\n"))
        self.assertEqual([t for _, t in self.web.asked()].count(b"/one.html"), 1)
        self.assertEqual(p.documents(), [])
        for name in ("Command1", "ComOpen", "MenuFileEnterprise", "txtFileName"):
            self.assertTrue(p.state("CheckForm." + name)["usable"], name)
        self.assertEqual(p.caption("CheckForm.Command1"), "Check &Web Site")
        self.assertEqual(p.caption("CheckForm.ComOpen"), "Check &Document")

    def run_and_stop(self, target, button, middle):
        p = self.program()
        request = self.begin(p)
        self.stop(p, target, button)
        p.reply(request)
        self.compare_results(p, middle)
        return p

    def document(self):
        self.entry(self.web.url("hangs/"), "late.html")

    def test_in_the_open_of_a_document(self):
        self.three(self.document)
        address = self.web.url("hangs/late.html")
        self.run_and_stop(b"/hangs/late.html", "ComOpen", [
            "Opening Document - " + address, "Document Open was cancelled - " + address])

    def test_in_the_wave_of_a_site(self):
        self.three(lambda: self.entry(self.web.url("site/"), site=True))
        self.run_and_stop(b"/site/a.html", "Command1", [
            "Opening Web Site... " + self.web.url("site/"), "Document Open was cancelled - " + self.web.url("site/a.html")])

    def test_in_the_check_of_a_document(self):
        self.three(lambda: self.entry(self.web.url(), "list.html", fields={HTML: -1, AUTO: -1}))
        self.run_and_stop(b"/never", "ComStop", [
            "Opening Document - " + self.web.url("list.html"), "Document Open Complete.  ",
            "Starting Auto Link Check - Document 1 of 1"])

    def test_in_the_check_of_a_site(self):
        self.three(lambda: self.entry(self.web.url("site/"), "full.html", site=True, fields={HTML: -1, AUTO: -1}))
        self.run_and_stop(b"/never", "ComStop", [
            "Opening Web Site... " + self.web.url("site/"), "Site Open Complete. ",
            "Starting Automatic Link Check... Document 1 of 1",
            "Automatic Link Check was cancelled.  None of 0 links checked were questionable."])

    def test_an_unattended_run_leaves_the_program_open(self):
        self.three(self.document, leave=True, automatic=True)
        address = self.web.url("hangs/late.html")
        p = self.program("/auto-check", ready=False)
        self.stop(p, b"/hangs/late.html", "ComOpen")
        p.event("ready")
        self.compare_results(p, ["Opening Document - " + address, "Document Open was cancelled - " + address])
        self.assertIsNone(p.process.poll())

    def test_nothing_can_be_stopped_while_a_mail_is_sent(self):
        server = FaultyMail("DATA", "hang")
        self.addCleanup(server.stop)
        self.mail_settings(server.name)
        self.three(lambda: self.entry(self.web.url(), "one.html", fields={HTML: -1, AUTO: -1, MAIL: -1}))
        p = self.program()
        request = self.begin(p)
        self.assertTrue(server.reached.wait(30))
        for name in ("ComStop", "Command1", "ComOpen", "ComStart", "MenuFileEnterprise", "MenuFileNew", "txtFileName"):
            self.assertFalse(p.state("CheckForm." + name)["usable"], name)
        self.assertEqual(p.caption("CheckForm.LabelInd"), "Emailing Reports...")
        server.let_go()
        p.reply(request)
        events = self.events(self.logs("txt", "htm")["txt"])
        self.assertTrue(events[10].startswith("Error When Emailing Reports: "), events)
        self.assertEqual(events[:10] + events[11:], self.first * 2 + [RULE] + self.first + ["Enterprise Link Check Complete.  "])


class Broken(EnterpriseCase):
    """Entries and places that fail: the run ends by itself, without a question."""

    def run_all(self, **settings):
        self.web = self.server({"/one.html": reply(200, "OK", page("/good")), "/good": reply(200)})
        self.settings(**settings)
        self.good = lambda: self.entry(self.web.url(), "one.html", fields={TEXT: -1, AUTO: -1})
        self.good_events = ["Opening Document - " + self.web.url("one.html"), "Document Open Complete.  ",
                            "Starting Auto Link Check - Document 1 of 1",
                            "Automatic Link Check complete.  None of 1 links checked were questionable.", RULE]

    def finish(self):
        p = self.program()
        p.reply(self.begin(p))
        self.assertEqual([m for m in p.seen if m["event"] == "message"], [])
        self.assertEqual(p.documents(), [])
        return p

    def test_an_unreachable_host_and_a_missing_document_are_passed_over(self):
        self.run_all()
        holder, port = closed_port()
        self.addCleanup(holder.close)
        self.entry("http://127.0.0.1:%d/" % port, "x.html", fields={TEXT: -1, AUTO: -1})
        self.entry("http://127.0.0.1:%d/" % port, site=True)
        self.entry(self.web.url(), "missing.html", fields={TEXT: -1, AUTO: -1})
        self.entry("http://www.example.test/", "no.htm", local=self.scratch.root / "nowhere")
        self.entry("http://www.example.test/", "no.htm", local=self.scratch.root / "nowhere", site=True)
        self.good()
        self.finish()
        none = ["Automatic Link Check complete.  None of 0 links checked were questionable.", RULE]
        missing = "File not found. - %s\\nowhere\\no.htm" % dos(self.scratch.root)
        far = "http://127.0.0.1:%d/" % port
        logs = self.logs("txt", "htm")
        self.assertEqual(
            self.events(logs["txt"]),
            ["Opening Document - " + far + "x.html", "Connection refused - " + far + "x.html",
             "Starting Auto Link Check - Document 0 of 0", *none,
             "Opening Web Site... " + far, "Connection refused - " + far, "Site Open Complete. ",
             "Starting Automatic Link Check...  0 Documents retrieved of a possible 0", *none,
             "Opening Document - " + self.web.url("missing.html"), "404 Not Found - " + self.web.url("missing.html"),
             "Starting Auto Link Check - Document 0 of 0", *none,
             "Opening Document - http://www.example.test/no.htm", missing, "Starting Auto Link Check - ", *none,
             "Opening Web Site... http://www.example.test/", missing, "Site Open Complete.",
             "Starting automatic Link Check...  0 Document(s) opened of a possible 0", *none]
            + self.good_events + ["Enterprise Link Check Complete.  "])
        self.assertEqual(logs["htm"].count("Report Identifier"), 1)
        self.assertTrue(logs["htm"].endswith("</BODY>\r\n</HTML>\r\n"))
        self.assertEqual(self.reports(), ["127_0_0_1_%d_one_html_text.txt" % self.web.port])

    def test_a_last_entry_that_fails_leaves_the_page_open(self):
        self.run_all()
        self.good()
        self.entry(self.web.url(), "missing.html")
        self.finish()
        self.assertTrue(self.logs("txt", "htm")["htm"].endswith("<P>End Report\r\n<P><HR>\r\n"))

    def test_a_host_without_an_address_ends_the_run_as_cancelled(self):
        self.run_all()
        address = "http://%s.test/" % ("a" * 64)  # longer than a name's part may be: no name server is asked
        self.entry(address, "x.html")
        self.good()
        self.finish()
        self.assertEqual(self.events(self.logs("txt")["txt"]), [
            "Opening Document - " + address + "x.html", " - " + address + "x.html", "20103 - Invalid Domain Name. - " + address + "x.html",
            RULE, "Enterprise Link Was Cancelled.  ", "Enterprise Link Check Complete.  "])
        self.assertEqual(self.web.asked(), [])

    def test_a_number_beyond_the_database_goes_by_what_is_in_force(self):
        self.run_all()
        self.good()
        self.list(1, 99, -3, "word", 1)
        self.finish()
        logs = self.logs("txt", "htm")
        self.assertEqual(self.events(logs["txt"]), self.good_events * 5 + ["Enterprise Link Check Complete.  "])
        self.assertEqual(logs["htm"].count("Report Identifier"), 5)

    def test_logs_that_cannot_be_written_are_left_out(self):
        self.scratch.write("blocked", b"a file, no folder")
        self.run_all(folder=self.scratch.home / "blocked")
        self.good()
        p = self.finish()
        self.logs()
        self.assertEqual(self.scratch.read("blocked"), b"a file, no folder")
        self.assertEqual(self.events(p.state("ReportForm.Text1")["text"]), self.good_events + ["Enterprise Link Check Complete.  "])
        self.assertEqual(self.reports(), ["127_0_0_1_%d_one_html_text.txt" % self.web.port])

    def test_an_empty_list_writes_the_head(self):
        self.run_all(automatic=True, leave=True)
        p = self.program("/auto-check", ready=False)
        p.event("exit", code=0)
        self.assertEqual(self.events(self.logs("txt")["txt"]), ["Enterprise Link Check Complete.  "])


# The user's crontab is one for all tests that run at a time.
@contextlib.contextmanager
def own_crontab(text):
    """The user's crontab holds this text (none: there is no crontab); afterwards it is as it was before."""
    with open(Path(tempfile.gettempdir()) / "quorvantis-test-crontab.lock", "w") as lock:
        fcntl.flock(lock, fcntl.LOCK_EX)
        old = read_crontab()
        try:
            write_crontab(text)
            yield
        finally:
            write_crontab(old)


def read_crontab():
    listed = subprocess.run(["crontab", "-l"], capture_output=True, timeout=20)
    return listed.stdout.decode() if listed.returncode == 0 else None


def write_crontab(text):
    if text is None:
        subprocess.run(["crontab", "-r"], capture_output=True, timeout=20)
    else:
        subprocess.run(["crontab", "-"], input=text.encode(), check=True, timeout=20)


OTHERS = """# what else there is to do\n
MAILTO=""\n  5 4 * * 0\ttrue # quorvantis-job seven\n
#1 2 * * 3 true # quorvantis-job 40\n0 0 1 1 * printf '%s\\%d' "é" # not a job\n\n"""


@unittest.skipUnless(shutil.which("crontab"), "there is no crontab")
class Crontab(EnterpriseCase):
    """The dialog of the weekly job, on a crontab with other lines."""

    def dialog(self, p):
        self.outer = p.send("click", "CheckForm.MenuFileEnterprise")
        p.event("modal", form="BatchForm")
        p.do("set", "BatchForm.Check5", value=1)
        self.inner = p.send("click", "BatchForm.Command5")
        p.event("modal", form="ScheduleForm")

    def leave(self, p):
        p.reply(self.inner)
        p.click("BatchForm.Command3")
        p.reply(self.outer)

    def schedule(self, p, hour="7", minute="05", half="AM", days=()):
        """Fills the dialog and schedules; gives the message that it shows."""
        for day in range(7):
            p.do("set", "ScheduleForm.CheckDay(%d)" % day, value=int(day in days))
        p.do("set", "ScheduleForm.TextHour", value=hour)
        p.do("set", "ScheduleForm.TextMinute", value=minute)
        p.do("select", "ScheduleForm.ComboAMPM", row=("AM", "PM").index(half))
        request = p.send("click", "ScheduleForm.Command2")
        text = p.event("message")["text"]
        p.do("answer", value="OK")
        p.reply(request)
        return text

    def one_entry(self):
        self.entry("http://127.0.0.1/", "x.html")
        self.settings(automatic=True)

    def remove(self, p, number):
        request = p.send("click", "ScheduleForm.Command3")
        self.assertEqual(p.event("message")["text"],
                         "Are you sure you want to delete the scheduled Enterprise Check named 'AT%d' from Task Scheduler?" % number)
        p.do("answer", value="Yes")
        p.reply(request)
        p.click("ScheduleForm.Command1")
        self.leave(p)

    def test_a_job_comes_is_found_and_goes_and_other_lines_stay(self):
        self.one_entry()
        for others in (OTHERS, "", None):
            with self.subTest(others), own_crontab(others):
                p = self.program()
                self.dialog(p)
                self.assertEqual(self.schedule(p, days=(0, 6)),
                                 "Your Enterprise Check has been scheduled as Task 'AT1' in Windows Task Scheduler.")
                self.leave(p)
                text = read_crontab()
                self.assertTrue(text.startswith(others or ""), text)
                added = text[len(others or ""):]
                self.assertRegex(added, r"\A5 7 \* \* 1,7 [^\n]*autocheck[^\n]* # quorvantis-job 1\n\Z")
                self.assertIn(str(self.scratch.home), added)
                self.dialog(p)
                self.assertIn("'AT1'", p.caption("ScheduleForm.LabelStatus"))
                self.assertFalse(p.state("ScheduleForm.TextHour")["usable"])
                self.assertEqual(read_crontab(), text)
                self.remove(p, 1)
                self.assertEqual(read_crontab() or "", others or "")
                p.close()
                (self.scratch.home / "schedcfg.zdt").unlink()

    def test_the_bars_set_the_time_within_their_bounds(self):
        self.one_entry()
        with own_crontab(None):
            p = self.program()
            self.dialog(p)
            for bar, text, steps in (("ScrollLabelTop", "TextHour", ((1, "01"), (12, "12"), (13, "12"), (0, "01"))),
                                     ("ScrollLabelLeft", "TextMinute", ((0, "00"), (59, "59"), (60, "59"), (-1, "00")))):
                for value, shown in steps:
                    p.do("set", "ScheduleForm." + bar, value=value)
                    self.assertEqual(p.state("ScheduleForm." + text)["text"], shown)
                p.do("set", "ScheduleForm." + text, value="7")
                self.assertEqual((p.state("ScheduleForm." + text)["text"], p.state("ScheduleForm." + bar)["value"]), ("7", 7))
                with self.assertRaises(Refused):
                    p.do("set", "ScheduleForm." + bar, value="x")
            p.click("ScheduleForm.Command1")
            self.leave(p)

    def test_the_number_follows_the_highest_and_a_tenth_goes_under_the_wrong_one(self):
        self.one_entry()
        jobs = "".join("1 1 * * 1 true # quorvantis-job %d\n" % n for n in (2, 11))
        with own_crontab(jobs):
            p = self.program()
            self.dialog(p)
            self.assertIn("'AT12'", self.schedule(p, "12", "0", "PM"))
            self.leave(p)
            text = read_crontab()
            self.assertTrue(text[len(jobs):].startswith("0 12 30 2 * "), text)
            self.dialog(p)
            self.remove(p, 12)
            self.assertEqual(read_crontab(), text.replace("1 1 * * 1 true # quorvantis-job 2\n", ""))

    def test_a_crontab_that_refuses_is_left_alone(self):
        self.one_entry()
        tools = self.scratch.root / "tools"
        tools.mkdir()
        script = tools / "crontab"
        for refused in ("-l", "-", None):
            with self.subTest(refused), own_crontab(OTHERS):
                if refused is None:
                    script.unlink()
                else:
                    script.write_text("#!/bin/sh\n[ \"$1\" = %s ] && { echo no >&2; exit 1; }\nexec %s \"$@\"\n"
                                      % (refused, shutil.which("crontab")))
                    script.chmod(0o755)
                p = self.program(environment={"PATH": str(tools) + ("" if refused is None else ":" + os.environ["PATH"])})
                self.dialog(p)
                self.assertTrue(p.state("ScheduleForm.TextHour")["usable"])
                self.assertEqual(self.schedule(p),
                                 "An error occurred that prevented scheduling your Enterprise Check. Is the Computer Name you entered "
                                 "correct? If the failure persists you will have to schedule Quorvantis manually from Windows Task "
                                 "Scheduler. See the Help File.")
                self.leave(p)
                self.assertEqual(read_crontab(), OTHERS)
                self.assertEqual(self.scratch.lines("schedcfg.zdt")[11], "")
                p.close()


def cron_runs():
    """Whether some cron daemon is at work."""
    for folder in Path("/proc").iterdir():
        try:
            if folder.name.isdigit() and (folder / "comm").read_text().strip() in ("cron", "crond"):
                return True
        except OSError:
            continue
    return False


@unittest.skipUnless(shutil.which("crontab") and (cron_runs() or (os.geteuid() == 0 and shutil.which("cron", path="/usr/sbin:/sbin:/usr/bin"))),
                     "there is no cron")
class ByCron(FourEntries):
    """The job that the dialog made, started by a real cron."""

    schedule, dialog, leave = Crontab.schedule, Crontab.dialog, Crontab.leave

    def cron(self):
        if cron_runs():
            return
        environment = {"PATH": "/usr/sbin:/usr/bin:/sbin:/bin"}
        daemon = subprocess.Popen([shutil.which("cron", path="/usr/sbin:/sbin:/usr/bin"), "-f"], env=environment,
                                  stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        self.addCleanup(daemon.wait, 20)
        self.addCleanup(daemon.terminate)

    def started(self):
        """The program that runs unattended for this test: its name and its process number."""
        for folder in Path("/proc").iterdir():
            try:
                if not folder.name.isdigit():
                    continue
                words = (folder / "cmdline").read_bytes().split(b"\0")
                homes = [line[len(b"QUORVANTIS_HOME="):] for line in (folder / "environ").read_bytes().split(b"\0")
                         if line.startswith(b"QUORVANTIS_HOME=")]
                if words[1:2] == [b"/auto-check"] and str(self.scratch.home).encode() in [home.rstrip(b"/") for home in homes]:
                    return Path(words[0].decode()).name, int(folder.name)
            except OSError:
                continue
        return None

    def test_the_job_runs_at_its_time(self):
        server = self.prepare(leave=True, automatic=True)
        others = 'XDG_CONFIG_HOME="%s"\nHOME="%s"\nMAILTO=""\n' % (self.scratch.root / "config", self.scratch.root)
        if is_desktop():
            others += 'DISPLAY="%s"\n' % display()
        others += "# and a line of the user's own\n"
        with own_crontab(others):
            # cron's clock is the machine's, whatever the zone of the tests; the job must not be for this very minute
            zone = {name: value for name, value in os.environ.items() if name != "TZ"}
            now = int(time.time())
            at = subprocess.check_output(["date", "-d", "@%d" % (now + (60 if now % 60 < 45 else 120)), "+%I %M %p"],
                                         env=dict(zone, LC_ALL="C"), text=True).split()
            p = self.program()
            self.dialog(p)
            self.assertIn("has been scheduled as Task 'AT1'", self.schedule(p, *at, days=range(7)))
            self.leave(p)
            self.assertEqual(p.exit(None), 0)
            self.assertTrue(read_crontab().startswith(others))
            self.cron()
            name, number = p.until(self.started, patience=150)
            self.assertEqual(name, Path(os.environ["QUORVANTIS_PROGRAM"]).name)
            p.until(lambda: not Path("/proc/%d" % number).exists() or self.started() is None, patience=60)
            self.compare_results(server)
            self.assertIsNone(self.started())


class Starter(FourEntries):
    """autocheck by hand: on the desktop if there is one, else without."""

    def test_without_a_display_the_program_without_windows_is_started(self):
        self.starts({"DISPLAY": ":4711"}, "quorvantis-headless")

    def test_with_a_display_the_windows_come(self):
        self.starts({"DISPLAY": display()}, "quorvantis")

    started = ByCron.started

    def starts(self, environment, expected):
        server = self.prepare(leave=True, automatic=True)
        settings = dict(os.environ, QUORVANTIS_HOME=str(self.scratch.home), XDG_CONFIG_HOME=str(self.scratch.root / "config"),
                        HOME=str(self.scratch.root), LC_ALL="C", TZ="UTC", **environment)
        for name in ("WAYLAND_DISPLAY", "QUORVANTIS_AUTOMATION", "QUORVANTIS_NO_PAUSES"):
            settings.pop(name, None)
        done = subprocess.run([str(PROGRAMS / "autocheck")], env=settings, stdin=subprocess.DEVNULL, capture_output=True, timeout=30)
        self.assertEqual((done.returncode, done.stdout, done.stderr), (0, b"", b""))
        seen = self.started()
        self.assertIsNotNone(seen)
        self.assertEqual(seen[0], expected)
        for _ in range(600):
            if self.started() is None:
                break
            time.sleep(0.05)
        self.assertIsNone(self.started())
        self.compare_results(server)


@unittest.skipUnless(is_desktop(), "there are no windows")
class Windows(EnterpriseCase):
    """The dialogs under a real mouse and a real keyboard."""

    def start(self):
        for name in ("a", "b", "c"):
            self.entry("http://127.0.0.1:9/", name + ".html")
        self.list()
        self.settings()
        opener = self.scratch.root / "xdg-open"
        opener.write_text('#!/bin/sh\necho "$1" >"%s/opened"\n' % self.scratch.root)
        opener.chmod(0o755)
        p = self.program(environment={"QUORVANTIS_AUTOMATION_PLACES": "1", "PATH": "%s:%s" % (self.scratch.root, os.environ["PATH"])})
        self.hands = Hands(p)
        self.hands.front("Zephon Quorvantis - Internet Mode")
        p.until(lambda: p.state("CheckForm.Command1")["place"][0] > 0)
        self.hands.click("CheckForm.ToolEnter")
        p.event("modal", form="BatchForm")
        self.shown(p, "BatchForm.Command1")
        return p

    def shown(self, p, at):
        self.hands.front(p.caption(at.split(".")[0]).strip() + " *")
        p.until(lambda: p.state(at)["place"][0] > 0)

    def focus(self, p, form):
        return p.state(form)["focus"]

    def test_a_list_is_put_together_by_keys_alone(self):
        p = self.start()
        self.hands.key("alt+a")
        p.event("modal", form="SelectForm")
        self.shown(p, "SelectForm.ComAdd")
        p.until(lambda: self.focus(p, "SelectForm") == "List1")
        self.hands.key("Down", "Down", "space", "alt+d")  # the first was selected before
        p.until(lambda: len(p.rows("SelectForm.List2")) == 2)
        self.assertEqual(p.rows("SelectForm.List2"), ["Internet Document: http://127.0.0.1:9/%s.html" % n for n in "ac"])
        order = [self.focus(p, "SelectForm")]
        for _ in range(4):
            self.hands.key("Tab")
            order.append(p.until(lambda: self.focus(p, "SelectForm") != order[-1] and self.focus(p, "SelectForm")))
        self.assertEqual(order, ["List1", "ComAdd", "ComRemoveAll", "List2", "ComOkay"])
        self.hands.key("alt+o")
        p.event("closed", form="SelectForm")
        p.until(lambda: len(p.rows("BatchForm.List1")) == 2)
        self.assertEqual(self.scratch.lines("batchlst.zdt"), ["2", "1", "3"])
        self.hands.key("alt+f")
        p.until(lambda: p.caption("BatchForm.Check5") == "Auto-Check is O&N")
        self.hands.key("alt+n")
        p.until(lambda: p.caption("BatchForm.Check5") == "Auto-Check is O&FF")

    def test_the_link_opens_its_help_page(self):
        p = self.start()
        self.hands.click("BatchForm.Label2")
        opened = self.scratch.root / "opened"
        p.until(lambda: opened.exists() and opened.read_text().strip())
        self.assertTrue(opened.read_text().strip().endswith("/help/topic220.html"))

    def test_a_row_that_is_pressed_keeps_no_highlight(self):
        p = self.start()
        self.list(1, 2, 3)
        self.hands.key("Escape")
        p.event("closed", form="BatchForm")
        self.hands.click("CheckForm.ToolEnter")
        p.event("modal", form="BatchForm")
        self.shown(p, "BatchForm.List1")
        self.hands.click("BatchForm.List1", row=1)
        p.until(lambda: self.focus(p, "BatchForm") == "List1")
        self.assertEqual([item["selected"] for item in p.state("BatchForm.List1")["items"]], [False] * 3)

    def test_the_arrows_count_the_time_up_and_down(self):
        p = self.start()
        self.list(1)
        self.hands.key("Escape")
        p.event("closed", form="BatchForm")
        self.scratch.write("schedcfg.zdt", "".join(l + "\r\n" for l in ["here", "11", "58", "PM", "M"] + [""] * 16).encode())
        self.hands.click("CheckForm.ToolEnter")
        p.event("modal", form="BatchForm")
        self.shown(p, "BatchForm.Check5")
        self.hands.click("BatchForm.Check5")
        p.until(lambda: p.state("BatchForm.Command5")["usable"])
        self.hands.click("BatchForm.Command5")
        p.event("modal", form="ScheduleForm")
        self.shown(p, "ScheduleForm.ScrollLabelTop")
        for bar, text, wanted in (("ScrollLabelTop", "TextHour", ("12", "11")), ("ScrollLabelLeft", "TextMinute", ("59", "58"))):
            left, top, width, height = p.state("ScheduleForm." + bar)["place"]
            for place, value in zip((top + 4, top + height - 4), wanted):
                self.hands.tool("mousemove", "--sync", left + width // 2, place, "click", 1)
                p.until(lambda: p.state("ScheduleForm." + text)["text"] == value)
