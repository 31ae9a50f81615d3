"""What is sent beyond the bounds of platform/bounds.h, to the programs as they are used."""
from case import Case
from servers import reply

MIB = 1 << 20
MOST_BODY = 256 * MIB
MOST_HEAD = 100 * 1024


def head(size):
    """A good reply whose head has so many bytes."""
    lines = b"HTTP/1.1 200 OK\r\nContent-Length: 0\r\n"
    while size - len(lines) - 2 > 4000:
        lines += b"X: " + b"y" * 2000 + b"\r\n"
    return lines + b"X: " + b"y" * (size - len(lines) - 2 - 5) + b"\r\n\r\n"


class Bounds(Case):
    def test_a_body_beyond_the_bound_is_given_up(self):
        blank = b" " * MIB
        sizes = {"told": b"HTTP/1.1 200 OK\r\nContent-Length: %d\r\n\r\n" % (MOST_BODY + 1), "untold": b"HTTP/1.0 200 OK\r\n\r\n"}
        server = self.server({"/" + name: [start] + [blank] * 256 + [b"x"] for name, start in sizes.items()})
        p = self.program()
        for name in sizes:
            opening = p.begin_open(server.url(name))
            self.assertEqual(p.event("message", 120)["text"], "Reply too long - " + server.url(name))
            p.do("answer", value="OK")
            p.reply(opening)
            self.assertEqual(p.documents(), [])
            self.assertTrue(p.state("CheckForm.ComOpen")["usable"])
            for path in self.scratch.home.rglob("*"):
                self.assertLessEqual(path.stat().st_size, MOST_BODY, path)

    def test_an_address_to_go_on_at_is_cut(self):
        server = self.server({"/r": reply(302, "Found", b"", "Location: /" + "x" * 70000), "*": reply()})
        self.scratch.document(server.url("d.html"), [server.url("r")])
        p = self.program()
        p.check()
        self.assertEqual(self.scratch.statuses(), ["OK *"])
        told = [len(server.url()) - 1 + len(target) for _, target in server.asked()]
        self.assertEqual(told, [len(server.url("r")), 64 * 1024])

    def test_a_head_at_the_bound_is_good_and_one_beyond_it_is_not(self):
        self.assertEqual(len(head(MOST_HEAD)), MOST_HEAD)
        server = self.server({"/at": head(MOST_HEAD), "/beyond": head(MOST_HEAD + 1), "/far": head(3 * MOST_HEAD)})
        self.scratch.document(server.url("d.html"), [server.url(name) for name in ("at", "beyond", "far")])
        p = self.program()
        p.check()
        self.assertEqual(self.scratch.statuses(), ["OK", "UKNWN", "UKNWN"])
