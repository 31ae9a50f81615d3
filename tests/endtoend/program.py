"""Drives one of the programs over its automation protocol, with a scratch folder for all that it keeps."""
import json
import os
import queue
import shutil
import subprocess
import tempfile
import threading
from pathlib import Path

from displays import display

PATIENCE = 30.0


def is_desktop():
    """Whether the program under test is the one with windows."""
    return Path(os.environ["QUORVANTIS_PROGRAM"]).name == "quorvantis"


class Refused(Exception):
    """The program answered a request with an error."""


class Scratch:
    """A program folder and a settings folder, removed at the end."""

    def __init__(self, first_start=False, tips=False):
        self.root = Path(tempfile.mkdtemp(prefix="quorvantis-test-"))
        self.home = self.root / "home"
        self.home.mkdir()
        settings = self.root / "config" / "quorvantis"
        settings.mkdir(parents=True)
        (settings / "quorvantis.ini").write_text("[Options]\nShow Tips at Startup=%d\n" % (1 if tips else 0))
        if not first_start:
            self.write("corvelleone.zdt", b"Corvelle\r\n")

    def write(self, name, data):
        path = self.home / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_bytes(data)

    def read(self, name):
        return (self.home / name).read_bytes()

    def lines(self, name):
        data = self.read(name)
        assert data == b"" or data.endswith(b"\r\n"), (name, data[-20:])
        return data.decode("utf-8", "replace").split("\r\n")[:-1]

    def links(self, number=1):
        """The links of a document: text, address, mark, status, path of each."""
        lines = self.lines("cache/xlf%05d.lks" % number)
        assert len(lines) % 5 == 0, lines
        return [tuple(lines[i:i + 5]) for i in range(0, len(lines), 5)]

    def statuses(self, number=1):
        return [link[3] for link in self.links(number)]

    def document(self, address, links, number=1):
        """Lays down a document of an earlier session. links: addresses, or (text, address) pairs."""
        folder = address[:address.rfind("/") + 1]
        header = [folder, address[len(folder):], "", address, "", "", "", "0"]
        self.write("cache/xlf%05d.qvn" % number, "".join(l + "\r\n" for l in header).encode())
        rows = [link if isinstance(link, tuple) else ("a link", link) for link in links]
        self.write("cache/xlf%05d.lks" % number, "".join(
            "%s\r\n%s\r\nX\r\n\r\n\r\n" % row for row in rows).encode("utf-8", "surrogateescape"))
        old = self.read("session.zdt") if (self.home / "session.zdt").exists() else b""
        self.write("session.zdt", old + ("%s\r\n %d \r\n" % (address, number)).encode())
        self.write("cache/ccounter.txt", b"%05d" % number)

    def patch(self, name, values):
        """Changes fields of a record file: 16-bit numbers by the place of their bytes, texts padded to a width by (place, width)."""
        data = bytearray(self.read(name))
        for place, value in values.items():
            if isinstance(place, tuple):
                data[place[0]:place[0] + place[1]] = value.encode().ljust(place[1])
            else:
                data[place:place + 2] = value.to_bytes(2, "little", signed=True)
        self.write(name, bytes(data))

    def remove(self):
        shutil.rmtree(self.root, ignore_errors=True)


class Program:
    """One running program: the one under test, or the one at `path`."""

    def __init__(self, scratch, *arguments, ready=True, environment=None, path=None):
        self.scratch = scratch
        self.errors = open(scratch.root / "errors.txt", "ab")
        settings = dict(os.environ, QUORVANTIS_AUTOMATION="1", QUORVANTIS_NO_PAUSES="1", QUORVANTIS_HOME=str(scratch.home),
                        XDG_CONFIG_HOME=str(scratch.root / "config"), HOME=str(scratch.root), LC_ALL="C", TZ="UTC")
        if is_desktop():
            settings["DISPLAY"] = display()
            settings.pop("WAYLAND_DISPLAY", None)
        settings.update(environment or {})
        self.environment = settings
        self.process = subprocess.Popen([str(path or os.environ["QUORVANTIS_PROGRAM"]), *arguments], stdin=subprocess.PIPE,
                                        stdout=subprocess.PIPE, stderr=self.errors, env=settings, cwd=str(scratch.root))
        self.events = queue.Queue()
        self.seen = []
        self.replies = {}
        self.changed = threading.Condition()
        self.ended = False
        self.last_id = 0
        threading.Thread(target=self._read, daemon=True).start()
        if ready:
            self.event("ready")

    def _read(self):
        for line in self.process.stdout:
            message = json.loads(line)
            with self.changed:
                if "event" in message:
                    self.seen.append(message)
                    self.events.put(message)
                else:
                    self.replies[message["id"]] = message
                self.changed.notify_all()
        with self.changed:
            self.ended = True
            self.changed.notify_all()
        self.events.put({"event": "(end)"})

    def send_raw(self, data):
        self.process.stdin.write(data)
        self.process.stdin.flush()

    def send(self, do, at=None, **fields):
        """Sends a request; gives its id."""
        self.last_id += 1
        request = dict(id=self.last_id, do=do, **fields)
        if at is not None:
            request["at"] = at
        self.send_raw(json.dumps(request).encode() + b"\n")
        return self.last_id

    def replied(self, request):
        with self.changed:
            return request in self.replies

    def reply(self, request, patience=PATIENCE):
        with self.changed:
            if not self.changed.wait_for(lambda: request in self.replies or self.ended, patience) or request not in self.replies:
                raise AssertionError("no reply to request %r; last events %r" % (request, self.seen[-4:]))
            message = self.replies.pop(request)
        if not message["ok"]:
            raise Refused(message["error"])
        return message

    def settle(self, request):
        """The reply to a request that may ask and tell: each message gets its default answer meanwhile."""
        while not self.replied(request) and not self.ended:
            with self.changed:
                self.changed.wait(0.02)
            while not self.events.empty():
                event = self.events.get()
                if event["event"] == "message":
                    self.do("answer", value=event["default"])
        return self.reply(request)

    def do(self, verb, at=None, patience=PATIENCE, **fields):
        return self.reply(self.send(verb, at, **fields), patience)

    def event(self, name, patience=PATIENCE, **fields):
        """Waits for an event of this name and these fields; others that come before it are passed over."""
        while True:
            try:
                event = self.events.get(timeout=patience)
            except queue.Empty:
                raise AssertionError("no event %s %r; seen %r" % (name, fields, self.seen[-6:])) from None
            if event["event"] == name and all(event.get(key) == value for key, value in fields.items()):
                return event
            if event["event"] == "(end)":
                raise AssertionError("the program ended before the event %s" % name)

    def state(self, at):
        return self.do("get", at)["state"]

    def caption(self, at):
        return self.state(at)["caption"]

    def rows(self, at="CheckForm.List1"):
        return [item["text"] for item in self.state(at)["items"]]

    def documents(self):
        return [(item["text"], item["data"]) for item in self.state("CheckForm.txtFileName")["items"]]

    def click(self, at, patience=PATIENCE):
        return self.do("click", at, patience)

    def until(self, test, patience=PATIENCE):
        """Asks again and again until the test gives something."""
        pause = threading.Event()
        for _ in range(int(patience / 0.02)):
            value = test()
            if value:
                return value
            pause.wait(0.02)
        raise AssertionError("waited in vain")

    def begin_open(self, address):
        request = self.send("click", "CheckForm.ComOpen")
        self.event("modal", form="WizardForm")
        self.do("set", "WizardForm.Text1", value=address)
        self.do("click", "WizardForm.ComOpenNext")
        return request

    def open(self, address):
        return self.reply(self.begin_open(address))

    def check(self, patience=120):
        self.click("CheckForm.ComStart", patience)
        return self.caption("CheckForm.LabelInd")

    def exit(self, answer):
        """Ends the program by its menu; `answer` to the question about the session, None if it must not come."""
        self.send("click", "CheckForm.MenuFileExit")
        if answer is not None:
            self.event("message")
            self.do("answer", value=answer)
        self.event("exit")
        return self.process.wait(PATIENCE)

    def kill(self):
        self.process.kill()
        self.process.wait()

    def close(self):
        if self.process.poll() is None:
            self.process.stdin.close()
            try:
                self.process.wait(5)
            except subprocess.TimeoutExpired:
                self.kill()
        self.process.stdout.close()
        self.errors.close()
