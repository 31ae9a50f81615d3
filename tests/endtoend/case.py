"""What the tests of this folder have in common."""
import os
import subprocess
import unittest
from pathlib import Path

from program import Program, Scratch
from servers import Nginx, OddServer


class Case(unittest.TestCase):
    maxDiff = None

    def setUp(self):
        self.scratch = Scratch()
        self.addCleanup(lambda: self.scratch.remove())

    def server(self, answers=None):
        server = OddServer(answers)
        self.addCleanup(server.stop)
        return server

    def nginx(self, files):
        server = Nginx(files)
        self.addCleanup(server.stop)
        return server

    def program(self, *arguments, **more):
        program = Program(self.scratch, *arguments, **more)
        self.addCleanup(program.close)
        return program

    def command_line(self, *arguments):
        """The words that start quorvantis-check."""
        return [str(Path(os.environ["QUORVANTIS_PROGRAM"]).parent / "quorvantis-check"), *arguments]

    def command(self, *arguments, **more):
        """Runs quorvantis-check; gives what it was and did."""
        return subprocess.run(self.command_line(*arguments), capture_output=True, text=True, timeout=60, **more)
