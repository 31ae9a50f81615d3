#!/usr/bin/env python3
"""Serves the sample site on a free port of the loopback, runs a program on its home page and passes its exit status on.

usage: sample_site.py FOLDER PROGRAM [options]
"""
import functools
import http.server
import subprocess
import sys
import threading

MOVED = {"/old-news.html": "/news.html", "/moved.html": "/docs/"}
GONE = {"/withdrawn.html": 410, "/members/index.html": 401}


class Handler(http.server.SimpleHTTPRequestHandler):
    protocol_version = "HTTP/1.1"

    def answer_oddly(self):
        path = self.path.split("?")[0]
        if path not in MOVED and path not in GONE:
            return False
        self.send_response(302 if path in MOVED else GONE[path])
        if path in MOVED:
            self.send_header("Location", MOVED[path])
        self.send_header("Content-Length", "0")
        self.end_headers()
        return True

    def do_GET(self):
        if not self.answer_oddly():
            super().do_GET()

    def do_HEAD(self):
        if not self.answer_oddly():
            super().do_HEAD()

    def log_message(self, *_):
        pass


def main():
    folder, program, *options = sys.argv[1:]
    server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), functools.partial(Handler, directory=folder))
    threading.Thread(target=server.serve_forever, daemon=True).start()
    address = "http://127.0.0.1:%d/index.html" % server.server_port
    print("Sample site: " + address, flush=True)
    return subprocess.run([program, address, *options]).returncode


if __name__ == "__main__":
    sys.exit(main())
