"""The programs as they are installed: into an empty prefix, and as a Debian package, and used from there."""
import os
import shutil
import stat
import subprocess
import unittest
from pathlib import Path

from case import Case
from program import Program, Scratch, is_desktop
from servers import page, reply

BUILD = Path(os.environ["QUORVANTIS_PROGRAM"]).resolve().parent.parent
PROGRAM = Path(os.environ["QUORVANTIS_PROGRAM"]).name
FILES = ["bin/autocheck", "bin/quorvantis", "bin/quorvantis-check", "bin/quorvantis-headless", "share/applications/quorvantis.desktop",
         "share/doc/quorvantis/README.md", "share/doc/quorvantis/architecture.md", "share/icons/hicolor/scalable/apps/quorvantis.svg",
         "share/man/man1/quorvantis-check.1", "share/man/man1/quorvantis-headless.1", "share/man/man1/quorvantis.1",
         "share/quorvantis/tipofday.txt"]


class Installed(Case):
    def setUp(self):
        super().setUp()
        self.prefix = self.scratch.root / "prefix"

    def install(self):
        subprocess.run(["cmake", "--install", str(BUILD), "--prefix", str(self.prefix)], check=True, stdout=subprocess.DEVNULL, timeout=120)

    def names(self, folder):
        return sorted(str(path.relative_to(folder)) for path in folder.rglob("*") if path.is_file())

    def use(self, prefix):
        """A first start: the tip, a help page, a document opened and checked, by what lies in the prefix alone."""
        server = self.server({"/d.html": reply(200, "OK", page("gone")), "*": reply(404, "Not Found")})
        scratch = Scratch(first_start=True, tips=True)
        self.addCleanup(scratch.remove)
        shutil.rmtree(scratch.home)
        opener = scratch.root / "xdg-open"
        opener.write_text('#!/bin/sh\necho "$1" >"%s/opened"\n' % scratch.root)
        opener.chmod(0o755)
        p = Program(scratch, ready=False, path=prefix / "bin" / PROGRAM, environment={"PATH": "%s:%s" % (scratch.root, os.environ["PATH"])})
        self.addCleanup(p.close)
        p.event("modal", form="ConfigForm")
        p.click("ConfigForm.ComCancel")
        p.event("modal", form="TipForm")
        tips = (prefix / "share/quorvantis/tipofday.txt").read_text().splitlines()
        self.assertIn(p.caption("TipForm.lblTipText").strip(), [tip.strip() for tip in tips])
        p.click("TipForm.cmdOK")
        p.event("ready")
        p.open(server.url("d.html"))
        self.assertEqual(p.check(), "1 of 1 links checked were questionable.")
        p.click("CheckForm.MenuHelpLocal")
        opened = p.until(lambda: (scratch.root / "opened").exists() and (scratch.root / "opened").read_text().strip())
        self.assertTrue(Path(opened.replace("file://", "")).is_file(), opened)
        checked = subprocess.run([str(prefix / "bin/quorvantis-check"), server.url("d.html")], capture_output=True, text=True, timeout=60)
        self.assertEqual(checked.returncode, 1)
        self.assertIn("1 of 1 links checked were questionable.", checked.stdout)

    def test_into_an_empty_prefix(self):
        self.install()
        names = [name for name in self.names(self.prefix) if not name.startswith("share/quorvantis/help/")]
        self.assertEqual(names, [name for name in FILES if (BUILD / "bin" / "quorvantis").exists() or "quorvantis.1" not in name])
        help_pages = self.names(self.prefix / "share/quorvantis/help")
        self.assertIn("style.css", help_pages)
        self.assertIn("topic70.html", help_pages)
        self.use(self.prefix)

    def test_the_desktop_entry_names_what_is_there(self):
        self.install()
        lines = (self.prefix / "share/applications/quorvantis.desktop").read_text().splitlines()
        entry = dict(line.split("=", 1) for line in lines if "=" in line)
        self.assertEqual(lines[0], "[Desktop Entry]")
        self.assertTrue((self.prefix / "bin" / entry["Exec"]).exists())
        self.assertTrue((self.prefix / "share/icons/hicolor/scalable/apps" / (entry["Icon"] + ".svg")).exists())
        self.assertEqual((entry["Type"], entry["Terminal"]), ("Application", "false"))

    def test_the_manual_tells_every_option(self):
        self.install()
        text = (self.prefix / "share/man/man1/quorvantis-check.1").read_text().replace("\\-", "-")
        told = subprocess.run([str(self.prefix / "bin/quorvantis-check"), "--help"], capture_output=True, text=True, timeout=30).stdout
        options = {word.split(",")[0] for word in told.split() if word.startswith("--")} - {"--help"}
        self.assertGreater(len(options), 15)
        for option in options:
            self.assertIn(option, text)

    @unittest.skipUnless(shutil.which("man"), "there is no man")
    def test_the_manual_pages_have_no_faults(self):
        self.install()
        for path in sorted((self.prefix / "share/man/man1").iterdir()):
            done = subprocess.run(["man", "--warnings", "-E", "UTF-8", "-l", "-Tutf8", str(path)], capture_output=True, timeout=30)
            self.assertEqual((done.returncode, done.stderr), (0, b""), path.name)

    @unittest.skipUnless(shutil.which("cpack") and shutil.which("dpkg-shlibdeps") and BUILD.name == "release", "no package is made here")
    def test_as_a_debian_package(self):
        made = self.scratch.root / "package"
        subprocess.run(["cpack", "-B", str(made)], cwd=str(BUILD), check=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                       timeout=300)
        (package,) = made.glob("*.deb")
        fields = dict(line.split(": ", 1) for line in
                      subprocess.check_output(["dpkg-deb", "--field", str(package)], text=True).splitlines() if ": " in line)
        self.assertEqual(fields["Package"], "quorvantis")
        for library in ("libcurl4", "libgmime-3.0-0", "libc6"):
            self.assertIn(library, fields["Depends"])
        subprocess.run(["dpkg-deb", "--extract", str(package), str(self.prefix)], check=True, timeout=60)
        for name in FILES:
            path = self.prefix / "usr" / name
            self.assertTrue(path.is_file(), name)
            self.assertEqual(stat.S_IMODE(path.stat().st_mode), 0o755 if name.startswith("bin/") else 0o644, name)
        self.use(self.prefix / "usr")
