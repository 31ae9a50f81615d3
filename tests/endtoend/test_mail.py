"""Mail to a real server, and to servers that refuse, hang and break off. What arrives is read by Python's own library."""
import email
import email.policy
import os
import socket
import subprocess
import unittest

from case import Case
from servers import FaultyMail, MailDaemon, closed_port, python_with

AUTO, TEXT, HTML, ONLY, MAIL, COPY = 7285, 6838, 6842, 7099, 7101, 7103
ADDRESSES = [(7105, 60), (7165, 60), (7225, 60)]


@unittest.skipUnless(python_with("aiosmtpd"), "there is no aiosmtpd")
class MailCase(Case):
    def daemon(self, *options, **more):
        server = MailDaemon(*options, **more)
        self.addCleanup(server.stop)
        return server

    def faulty(self, step, fault):
        server = FaultyMail(step, fault)
        self.addCleanup(server.stop)
        return server

    def mail_settings(self, server, address="me@h.test", name="Web Author", subject="", to="", user="", word="", required="No"):
        lines = [server, address, name, subject, to, " 0", user, word, required, "", ""]
        self.scratch.write("emailcfg.zdt", "".join(l + "\r\n" for l in lines).encode())

    def message(self, mail):
        """The message as an independent library reads it."""
        return email.message_from_bytes(mail["data"], policy=email.policy.default)

    def parts(self, mail):
        message = self.message(mail)
        self.assertEqual(message.get_content_type(), "multipart/mixed")
        first, *others = message.iter_parts()
        self.assertEqual(first.get_content_type(), "text/plain")
        self.assertIsNone(first.get_filename())
        files = {}
        for part in others:
            self.assertEqual(part["Content-Transfer-Encoding"], "base64")
            files[part.get_filename()] = part.get_payload(decode=True)
        return first.get_payload(decode=True).decode(), files

    # the dialog
    def emailer(self, p, files):
        """Opens the manager with these files selected, and the dialog."""
        self.outer = p.send("click", "CheckForm.MenuReportsManage")
        p.event("modal", form="ReportManagerForm")
        for row in range(1, len(files)):
            p.do("select", "ReportManagerForm.List1", row=row)
        self.inner = p.send("click", "ReportManagerForm.ComEmail")
        p.event("modal", form="EmailForm")

    def close(self, p):
        p.reply(self.inner)
        p.click("ReportManagerForm.ComClose")
        p.reply(self.outer)

    def fill(self, p, to="you@h.test", subject="A subject", text="A text"):
        p.do("set", "EmailForm.TextTo", value=to)
        p.do("set", "EmailForm.Text(3)", value=subject)
        p.do("set", "EmailForm.Text(4)", value=text)

    def send(self, p, **values):
        self.fill(p, **values)
        p.click("EmailForm.ComSend")
        self.close(p)


class Dialog(MailCase):
    def test_the_message_comes_as_it_was_written(self):
        server = self.daemon()
        self.mail_settings(server.name)
        every = bytes(n * 7 % 256 for n in range(200000))
        files = {"a_text.txt": b"", "%s_text.txt" % ("n" * 200): every, "Übersicht – März_text.txt": "é\n.\n".encode(),
                 "z_html.htm": b"<P>.\r\n.\r\n"}
        for name, data in files.items():
            self.scratch.write("Reports/" + name, data)
        p = self.program()
        self.emailer(p, files)
        self.send(p, subject="Grüße – überall", text="Zeile 1\n.\nZeile — 3")
        (mail,) = server.mails(1)
        message = self.message(mail)
        text, attached = self.parts(mail)
        self.assertEqual(mail["sender"], "me@h.test")
        self.assertEqual(mail["recipients"], ["you@h.test"])
        self.assertEqual(message["From"], "Web Author <me@h.test>")
        self.assertEqual(message["To"].addresses[0].addr_spec, "you@h.test")
        self.assertEqual(message["Subject"], "Grüße – überall")
        self.assertEqual(message["MIME-Version"], "1.0")
        self.assertIsNotNone(message["Date"].datetime)
        self.assertRegex(message["Message-ID"], "^<[^ ]+@h.test>$")
        self.assertIsNone(message["Cc"])
        self.assertEqual(text.replace("\r\n", "\n"), "Zeile 1\n.\nZeile — 3\n\n")
        self.assertEqual({name.lower() if name.isascii() else name: data for name, data in attached.items()}, files)
        for line in mail["data"].split(b"\r\n"):
            self.assertLess(len(line), 999)
            self.assertNotIn(b"\n", line)

    def test_copies_and_blind_copies(self):
        server = self.daemon()
        self.mail_settings(server.name)
        addresses = ["a@h.test", "b@h.test", "c@h.test"]
        self.scratch.write("addbook.zdt", "".join("%s\r\n%s\r\n" % (a, a) + "\r\n" * 7 for a in addresses).encode())
        self.scratch.write("Reports/a_text.txt", b"x")
        p = self.program()
        for blind in (0, 1):
            self.emailer(p, ["a_text.txt"])
            p.do("set", "EmailForm.CheckBCC", value=blind)
            p.do("select", "EmailForm.ListCC", row=2)
            p.do("select", "EmailForm.ListCC", row=0)
            self.send(p, to="b@h.test")
        seen, hidden = server.mails(2)
        self.assertEqual(sorted(seen["recipients"]), addresses)
        self.assertEqual([a.addr_spec for a in self.message(seen)["Cc"].addresses], ["a@h.test", "c@h.test"])
        self.assertEqual(sorted(hidden["recipients"]), addresses)
        self.assertIsNone(self.message(hidden)["Cc"])
        self.assertIsNone(self.message(hidden)["Bcc"])
        self.assertNotIn(b"a@h.test", hidden["data"])

    def test_values_with_line_breaks_add_nothing(self):
        server = self.daemon()
        self.mail_settings(server.name)
        self.scratch.write("Reports/a_text.txt", b"x")
        p = self.program()
        self.emailer(p, ["a_text.txt"])
        self.send(p, to="you@h.test", subject="One\r\nBcc: evil@h.test\r\n\r\nBody")
        self.emailer(p, ["a_text.txt"])
        self.send(p, to="you@h.test\r\nRCPT TO:<evil@h.test>", subject="Two")
        for mail in server.mails(2):
            self.assertEqual(mail["recipients"], ["you@h.test"])
            self.assertIsNone(self.message(mail)["Bcc"])
            self.assertEqual(len(self.parts(mail)[1]), 1)

    def test_the_dialog_is_held_and_the_program_is_not_while_a_server_hangs(self):
        for step in ("greeting", "EHLO", "MAIL", "RCPT", "DATA", "message"):
            with self.subTest(step=step):
                server = self.faulty(step, "hang")
                self.mail_settings(server.name, subject="s", to="you@h.test")
                self.scratch.write("Reports/a_text.txt", b"x")
                p = self.program()
                self.emailer(p, ["a_text.txt"])
                click = p.send("click", "EmailForm.ComSend")
                self.assertTrue(server.reached.wait(20))
                self.assertFalse(p.state("EmailForm")["enabled"])
                self.assertTrue(p.state("EmailForm.FrameProgress")["visible"])
                self.assertEqual(p.caption("EmailForm.LabelProgess"), "Sending Mail, Please Wait...")
                self.assertEqual(p.state("EmailForm")["pointer"], "wait")
                p.do("close", "EmailForm")  # the close box of a dialog that is held
                self.assertFalse(p.replied(click))
                server.let_go()
                p.reply(click)
                self.assertTrue(server.closed.wait(20))
                self.close(p)
                self.assertEqual(p.do("forms")["forms"][0]["name"], "CheckForm")
                self.assertTrue(p.state("CheckForm")["usable"])
                p.close()

    def test_a_server_that_breaks_off_closes_the_dialog_and_the_next_mail_goes_out(self):
        for step in ("greeting", "EHLO", "MAIL", "RCPT", "DATA", "message"):
            with self.subTest(step=step):
                server = self.faulty(step, "break")
                self.mail_settings(server.name)
                self.scratch.write("Reports/a_text.txt", b"x")
                p = self.program()
                self.emailer(p, ["a_text.txt"])
                self.send(p)
                good = self.daemon()
                lines = self.scratch.lines("emailcfg.zdt")
                self.scratch.write("emailcfg.zdt", "".join(l + "\r\n" for l in [good.name] + lines[1:]).encode())
                self.emailer(p, ["a_text.txt"])
                self.send(p)
                good.mails(1)
                self.assertEqual([m for m in p.seen if m["event"] == "message"], [])
                p.close()


class Automatic(MailCase):
    def prepare(self, server, addresses=("you@h.test",), **more):
        first = self.program()
        first.kill()
        values = {AUTO: -1, TEXT: -1, HTML: 0, ONLY: 0, MAIL: -1, COPY: more.pop("copy_me", 0)}
        for place, address in zip(ADDRESSES, addresses):
            values[place] = address
        self.scratch.patch("preferen.zdt", values)
        self.mail_settings(server, **more)
        self.scratch.document("http://127.0.0.1:9/a/one.htm", [("Good", "https://h.test/")])

    def check(self, answer="Yes"):
        p = self.program()
        run = p.send("click", "CheckForm.ComStart")
        question = p.event("message")
        self.assertEqual(question["text"], "Reports were created, do you want to Email them now?")
        self.assertEqual(question["buttons"], ["Yes", "No"])
        p.do("answer", value=answer)
        p.reply(run)
        return p

    def test_the_reports_of_a_check_are_mailed(self):
        server = self.daemon()
        self.prepare(server.name, ("one@h.test", "", "three@h.test"), copy_me=-1)
        self.check()
        (mail,) = server.mails(1)
        self.assertEqual(mail["recipients"], ["one@h.test", "three@h.test", "me@h.test"])
        text, files = self.parts(mail)
        self.assertEqual(text.replace("\r\n", "\n"), "\nYour Quorvantis Validation Reports are attached to this email.\n\n")
        name = "127_0_0_1_9_a_all_text.txt"
        self.assertEqual(files, {name: self.scratch.read("Reports/" + name)})
        message = self.message(mail)
        self.assertEqual(message["Subject"], "Zephon Quorvantis Link Check Report")
        self.assertIsNone(message["Cc"])
        self.assertNotIn(b"three@h.test", mail["data"])
        self.assertTrue((self.scratch.home / "reports.tmp").exists())

    def test_no_leaves_the_mail_out(self):
        server = self.daemon()
        self.prepare(server.name)
        self.check("No")
        server.mails(0)

    def test_logging_in(self):
        server = self.daemon("--auth", "web author", "s3cret! Wört")
        self.prepare(server.name, user="web author", word="s3cret! Wört", required="Yes")
        self.check()
        (mail,) = server.mails(1)
        self.assertEqual((mail["user"], mail["mechanism"]), ("web author", "LOGIN"))

    def test_a_wrong_log_in_and_none_are_no_mail(self):
        server = self.daemon("--auth", "me", "right")
        self.prepare(server.name, user="me", word="wrong", required="Yes")
        p = self.check()
        server.mails(0)
        p.close()
        self.mail_settings(server.name, user="me", word="right", required="No")
        self.check()
        server.mails(0)

    def test_refusals(self):
        for verb in ("MAIL", "RCPT", "DATA"):
            with self.subTest(verb=verb):
                server = self.daemon("--refuse", verb)
                self.prepare(server.name)
                p = self.check()
                server.mails(0)
                self.assertEqual(p.caption("CheckForm.LabelInd"), "None of 1 links checked were questionable.")
                self.assertEqual(p.state("CheckForm")["pointer"], "default")
                p.close()

    def test_a_server_that_is_not_there(self):
        holder, port = closed_port()
        self.addCleanup(holder.close)
        self.prepare("127.0.0.1:%d" % port)
        self.check()

    def certificate(self):
        path = str(self.scratch.root / "certificate.pem")
        subprocess.run(["openssl", "req", "-x509", "-newkey", "rsa:2048", "-nodes", "-keyout", path, "-out", path + ".crt", "-days", "2",
                        "-subj", "/CN=mail.test"], check=True, stderr=subprocess.DEVNULL)
        with open(path, "a") as both, open(path + ".crt") as public:
            both.write(public.read())
        return path

    def test_tls_begins_where_the_server_offers_it(self):
        server = self.daemon("--certificate", self.certificate())
        self.prepare(server.name)
        self.check()
        self.assertTrue(server.mails(1)[0]["tls"])

    def test_tls_from_the_start_on_its_port(self):
        try:
            server = self.daemon("--certificate", self.certificate(), "--implicit", host="127.0.0.77", port=465)
        except Exception:
            self.skipTest("port 465 can't be had")
        self.prepare("127.0.0.77:465")
        self.check()
        self.assertTrue(server.mails(1)[0]["tls"])
