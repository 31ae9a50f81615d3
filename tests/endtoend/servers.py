"""Servers on the loopback: those with odd manners, which keep what they were sent, and real ones."""
import base64
import json
import os
import queue
import shutil
import socket
import struct
import subprocess
import sys
import tempfile
import threading
import time
from pathlib import Path


class OddServer:
    """answers: target -> bytes to send, a list of pieces (bytes, or seconds to wait), or one of the words below.
    silent: takes the request and says nothing; close: closes without a byte; reset: ends with a reset."""

    def __init__(self, answers=None, host="127.0.0.1"):
        self.answers = dict(answers or {})
        self.listener = socket.create_server((host, 0))
        self.host, self.port = self.listener.getsockname()[:2]
        self.requests = []  # (connection number, raw bytes)
        self.lock = threading.Lock()
        self.stopped = threading.Event()
        threading.Thread(target=self._accept, daemon=True).start()

    def url(self, path=""):
        return "http://%s:%d/%s" % (self.host, self.port, path)

    def asked(self):
        """Method and target of each request."""
        with self.lock:
            return [tuple(raw.split(b" ", 2)[:2]) for _, raw in self.requests]

    def raw(self):
        with self.lock:
            return [raw for _, raw in self.requests]

    def _accept(self):
        number = 0
        while True:
            try:
                connection, _ = self.listener.accept()
            except OSError:
                return
            number += 1
            threading.Thread(target=self._serve, args=(connection, number), daemon=True).start()

    def _serve(self, connection, number):
        buffer = b""
        with connection:
            while not self.stopped.is_set():
                while b"\r\n\r\n" not in buffer:
                    try:
                        data = connection.recv(65536)
                    except OSError:
                        return
                    if not data:
                        return
                    buffer += data
                head, buffer = buffer.split(b"\r\n\r\n", 1)
                with self.lock:
                    self.requests.append((number, head + b"\r\n\r\n"))
                method, target = head.split(b" ")[:2]
                if not self._answer(connection, method.decode(), target.decode("latin-1")):
                    return

    def _answer(self, connection, method, target):
        answer = self.answers.get((method, target), self.answers.get(target, self.answers.get("*", reply(404, "Not Found"))))
        if answer == "silent":
            self.stopped.wait(120)
            return False
        if answer == "close":
            return False
        if answer == "reset":
            connection.setsockopt(socket.SOL_SOCKET, socket.SO_LINGER, struct.pack("ii", 1, 0))
            return False
        try:
            for piece in answer if isinstance(answer, list) else [answer]:
                if isinstance(piece, (int, float)):
                    time.sleep(piece)
                else:
                    connection.sendall(piece.split(b"\r\n\r\n")[0] + b"\r\n\r\n" if method == "HEAD" and b"\r\n\r\n" in piece else piece)
        except OSError:
            return False
        return b"HTTP/1.1" in (answer if isinstance(answer, bytes) else b"HTTP/1.1")

    def stop(self):
        self.stopped.set()
        self.listener.close()


def reply(code=200, reason="OK", body=b"", *headers):
    head = ["HTTP/1.1 %d %s" % (code, reason), "Content-Length: %d" % len(body), *headers]
    return "\r\n".join(head).encode() + b"\r\n\r\n" + body


def page(*addresses):
    return b"<html><body>\r\n" + b"".join(b'<a href="%s">link</a>\r\n' % a.encode() for a in addresses) + b"</body></html>\r\n"


def closed_port():
    """A port that refuses connections: bound, but nothing listens."""
    holder = socket.socket()
    holder.bind(("127.0.0.1", 0))
    return holder, holder.getsockname()[1]


class Nginx:
    """A real nginx that serves a scratch folder on a free port."""

    def __init__(self, files):
        self.root = Path(tempfile.mkdtemp(prefix="quorvantis-nginx-"))
        self.root.chmod(0o755)
        (self.root / "site").mkdir()
        for name, data in files.items():
            path = self.root / "site" / name
            path.parent.mkdir(parents=True, exist_ok=True)
            path.write_bytes(data)
        free = socket.create_server(("127.0.0.1", 0))
        self.port = free.getsockname()[1]
        free.close()
        user = "user root;" if os.geteuid() == 0 else ""
        (self.root / "nginx.conf").write_text("""%s daemon off; pid %s/pid; error_log %s/error.log; worker_processes 1;
events { worker_connections 256; }
http { log_format short "$request_method $uri"; access_log %s/access.log short; keepalive_requests 1000000; client_body_temp_path %s/t1; proxy_temp_path %s/t2;
  fastcgi_temp_path %s/t3; uwsgi_temp_path %s/t4; scgi_temp_path %s/t5;
  server { listen 127.0.0.1:%d; root %s/site;
    location /moved { return 302 http://127.0.0.1:%d/good.html; }
    location /gone { return 410; } location /broken { return 503; } location /locked { return 403; } } }
""" % ((user,) + (self.root,) * 8 + (self.port, self.root, self.port)))
        self.process = subprocess.Popen([shutil.which("nginx") or "/usr/sbin/nginx", "-c", str(self.root / "nginx.conf"),
                                         "-e", str(self.root / "error.log")], stderr=subprocess.DEVNULL)
        wait_for_port(self.port, "nginx")

    def url(self, path=""):
        return "http://127.0.0.1:%d/%s" % (self.port, path)

    def asked(self):
        """Method and path of each request."""
        return [tuple(line.split(" ", 1)) for line in (self.root / "access.log").read_text().splitlines()]

    def stop(self):
        self.process.terminate()
        self.process.wait(10)
        shutil.rmtree(self.root, ignore_errors=True)


class Vsftpd:
    """A real FTP server for anonymous guests, and for the system's users (of whom none is let in)."""

    def __init__(self, files):
        self.root = Path(tempfile.mkdtemp(prefix="quorvantis-ftp-"))
        self.root.chmod(0o755)
        for name, data in files.items():
            path = self.root / "site" / name
            path.parent.mkdir(parents=True, exist_ok=True)
            path.write_bytes(data)
        (self.root / "empty").mkdir()
        free = socket.create_server(("127.0.0.1", 0))
        self.port = free.getsockname()[1]
        free.close()
        (self.root / "vsftpd.conf").write_text("""listen=YES
listen_address=127.0.0.1
listen_port=%d
background=NO
anonymous_enable=YES
local_enable=NO
anon_root=%s/site
secure_chroot_dir=%s/empty
run_as_launching_user=YES
seccomp_sandbox=NO
vsftpd_log_file=%s/log
xferlog_enable=YES
log_ftp_protocol=YES
""" % (self.port, self.root, self.root, self.root))
        self.process = subprocess.Popen([shutil.which("vsftpd") or "/usr/sbin/vsftpd", str(self.root / "vsftpd.conf")],
                                        stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        wait_for_port(self.port, "vsftpd")

    def url(self, path=""):
        return "ftp://127.0.0.1:%d/%s" % (self.port, path)

    def log(self):
        return (self.root / "log").read_text()

    def stop(self):
        self.process.terminate()
        self.process.wait(10)
        shutil.rmtree(self.root, ignore_errors=True)


def python_with(module):
    """A Python that has the module: the one that runs, or the system's."""
    for python in (sys.executable, "/usr/bin/python3"):
        if subprocess.run([python, "-c", "import " + module], stderr=subprocess.DEVNULL).returncode == 0:
            return python
    return None


class MailDaemon:
    """A real mail server. What it took: sender, recipients, user, mechanism, tls, data (bytes) of each message."""

    def __init__(self, *options, host="127.0.0.1", port=0):
        script = str(Path(__file__).parent / "mail_daemon.py")
        self.process = subprocess.Popen([python_with("aiosmtpd"), script, host, str(port), *options], stdout=subprocess.PIPE,
                                        stderr=subprocess.DEVNULL, text=True)
        self._mails = []
        self._lines = queue.Queue()
        self._reader = threading.Thread(target=self._read, daemon=True)
        self._reader.start()
        self.port = self._lines.get(timeout=20)["port"]
        self.name = "%s:%d" % (host, self.port)

    def _read(self):
        for line in self.process.stdout:
            what = json.loads(line)
            if what["event"] == "mail":
                what["data"] = base64.b64decode(what["data"])
                self._mails.append(what)
            else:
                self._lines.put(what)

    def mails(self, count):
        """The messages, which are so many; waits for the server's word about them. For none the server is ended first."""
        if count == 0:
            self.stop()
        for _ in range(500):
            if len(self._mails) >= count:
                break
            time.sleep(0.02)
        assert len(self._mails) == count, "%d mails instead of %d" % (len(self._mails), count)
        return self._mails

    def stop(self):
        self.process.terminate()
        self.process.wait(10)
        self._reader.join(10)
        self.process.stdout.close()


class FaultyMail:
    """A mail server that hangs ("hang") or breaks off ("break") at one step: "greeting", the first word of a command, or
    "message", behind the message's end. A hang ends with let_go(), which closes the connection."""

    def __init__(self, step, fault):
        self.step, self.fault = step, fault
        self.reached = threading.Event()
        self.released = threading.Event()
        self.closed = threading.Event()
        self.listener = socket.create_server(("127.0.0.1", 0))
        self.name = "127.0.0.1:%d" % self.listener.getsockname()[1]
        threading.Thread(target=self._serve, daemon=True).start()

    def _serve(self):
        try:
            connection, _ = self.listener.accept()
        except OSError:
            return
        with connection:
            self._talk(connection, connection.makefile("rb"))
        self.closed.set()

    def _say(self, connection, step, reply):
        if step == self.step:
            self.reached.set()
            if self.fault == "hang":
                self.released.wait(60)
            return False
        connection.sendall(reply)
        return True

    def _talk(self, connection, stream):
        if not self._say(connection, "greeting", b"220 test\r\n"):
            return
        for line in stream:
            verb = line.decode("latin-1").replace(":", " ").split()[0].upper()
            reply = {"DATA": b"354 go on\r\n", "QUIT": b"221 bye\r\n"}.get(verb, b"250 ok\r\n")
            if not self._say(connection, verb, reply) or verb == "QUIT":
                return
            if verb == "DATA":
                while stream.readline() not in (b".\r\n", b""):
                    pass
                if not self._say(connection, "message", b"250 taken\r\n"):
                    return

    def let_go(self):
        self.released.set()

    def stop(self):
        self.let_go()
        self.listener.close()


def wait_for_port(port, what):
    for _ in range(250):
        try:
            socket.create_connection(("127.0.0.1", port), 1).close()
            return
        except OSError:
            time.sleep(0.02)
    raise AssertionError("%s doesn't answer" % what)
