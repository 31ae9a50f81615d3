"""Every status code, from real sockets."""
from case import Case
from servers import closed_port, page, reply


class Codes(Case):
    def statuses(self, *links, **more):
        self.scratch.document("http://127.0.0.1:9/doc.htm", links)
        p = self.program(**more)
        p.check()
        return self.scratch.statuses()

    def test_replies(self):
        server = self.server({"/ok": reply(), "/moved": reply(302, "Found", b"", "Location: /ok"),
                              "/stays": reply(301, "Moved Permanently"), "/e1": reply(401, "Unauthorized"),
                              "/e2": reply(404, "Not Found"), "/e3": reply(410, "Gone"), "/e4": reply(500, "Oops"),
                              "/e5": reply(503, "Later"), "/empty": reply(204, "No Content"), "/early": [b"HTTP/1.1 103 Early Hints\r\nLink: </x>\r\n\r\n", reply()]})
        names = ["ok", "moved", "stays", "e1", "e2", "e3", "e4", "e5", "empty", "early"]
        self.assertEqual(self.statuses(*[server.url(n) for n in names]),
                         ["OK", "OK *", "301", "401", "404", "410", "500", "503", "OK", "OK"])

    def test_links_that_are_not_asked(self):
        self.assertEqual(self.statuses("https://127.0.0.1/x", ("[Script URL]", "javascript:go()")), ["NA/SE", "NA/SC"])

    def test_failures_without_a_code(self):
        holder, port = closed_port()
        self.addCleanup(holder.close)
        server = self.server({"/close": "close", "/reset": "reset", "/garbage": b"no protocol at all\r\n\r\n",
                              "/head": b"HTTP/1.1 200 OK\r\nX-Long: " + b"x" * 3000000 + b"\r\n\r\n"})
        self.assertEqual(self.statuses("http://127.0.0.1:%d/" % port, server.url("close"), server.url("reset"),
                                       server.url("garbage"), server.url("head")),
                         ["RFUSD", "NTFND", "UKNWN", "UKNWN", "UKNWN"])

    def test_redirect_loops(self):
        server = self.server()
        server.answers["/a"] = reply(302, "Found", b"", "Location: " + server.url("a"))
        server.answers["/b"] = reply(301, "Moved", b"", "Location: /c")
        server.answers["/c"] = reply(302, "Found", b"", "Location: /b")
        self.assertEqual(self.statuses(server.url("a"), server.url("b")), ["302", "302"])
        self.assertEqual(len(server.asked()), 24)

    def test_impossible_hosts(self):
        long = "http://" + "x" * 64 + ".example/"
        self.assertEqual(self.statuses("http://a..b/", long, "http://a b/", "http://\u0001/"), ["INVDN"] * 4)

    def test_head_refused_and_get_answered(self):
        server = self.server({("HEAD", "/a"): reply(405, "Method Not Allowed"), ("GET", "/a"): reply(200, "OK", b"x" * 20)})
        self.assertEqual(self.statuses(server.url("a")), ["OK"])
        self.assertEqual(server.asked(), [(b"HEAD", b"/a"), (b"GET", b"/a")])

    def test_a_body_that_breaks_off_is_good(self):
        server = self.server({("HEAD", "/a"): reply(500, "Oops"),
                              ("GET", "/a"): [b"HTTP/1.1 200 OK\r\nContent-Length: 999999\r\n\r\nstart"]})
        self.assertEqual(self.statuses(server.url("a")), ["OK"])

    def test_a_silent_server_times_out(self):
        server = self.server({"/a": "silent"})
        p = self.program()
        request = p.send("click", "CheckForm.ComOpen")
        p.event("modal", form="WizardForm")
        server.answers["/doc.htm"] = reply(200, "OK", page("a"))
        p.do("set", "WizardForm.Text1", value=server.url("doc.htm"))
        p.do("set", "WizardForm.TabStrip1", value=2)
        p.do("set", "WizardForm.Text8", value="5")
        p.click("WizardForm.ComOpenNext")
        p.reply(request)
        p.check()
        self.assertEqual(self.scratch.statuses(), ["TMOUT"])

    def test_slow_replies_are_awaited(self):
        server = self.server({"/a": [0.4, reply()]})
        self.assertEqual(self.statuses(server.url("a")), ["OK"])

    def test_a_name_that_nobody_knows(self):
        # Without a name server the resolver can't say that a name doesn't exist; both answers are told apart from the others.
        self.assertIn(self.statuses("http://nosuch.invalid/")[0], ("DNSNF", "INVDN"))
