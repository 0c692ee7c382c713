#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""Installs the Debian package into a scratch folder. There its files are consistent with each other, and the program
starts from its desktop entry, can be played and is removed completely."""

import gzip
import os
import re
import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "tests" / "window"))

from base_case import WindowCase
from desktop import Desktop

PACKAGES = Path(os.environ.get("CHIFFROLO_PACKAGES", ROOT / "build")).absolute()  # the newest package is tested
DPKG_STATUS = Path("/var/lib/dpkg/status")
MAX_BYTES = 1_000_000  # of all installed files

ID = "org.chiffrolo.Chiffrolo"  # the application ID on the desktop
ENTRY = f"usr/share/applications/{ID}.desktop"
METAINFO = f"usr/share/metainfo/{ID}.metainfo.xml"
DOCUMENTS = "usr/share/doc/chiffrolo"

# `gio launch` does not wait for the program. The pipe to `cat` does: it is open until the program ends.
LAUNCHER = """#!/bin/sh
export HOME='{home}' PATH='{root}/usr/bin':"$PATH" XDG_DATA_DIRS='{root}/usr/share':/usr/share
gio launch '{root}/{entry}' 2>&1 | cat >&2
"""


class Package(WindowCase):
    def setUp(self) -> None:
        """Installs into a root folder that has a copy of the machine's dpkg database and no other files."""
        scratch = Path(self.enterContext(tempfile.TemporaryDirectory()))
        self.home, self.root, self.launcher = (scratch / name for name in ("home", "root", "launcher"))
        for folder in ("info", "updates", "triggers"):
            (self.root / "var/lib/dpkg" / folder).mkdir(parents=True)
        shutil.copy(DPKG_STATUS, self.root / "var/lib/dpkg")
        self.home.mkdir()
        self.dpkg("--install", max(PACKAGES.glob("chiffrolo_*.deb"), key=lambda path: path.stat().st_mtime))

    def dpkg(self, *arguments: str | Path) -> None:
        path = os.environ["PATH"] + ":/usr/sbin:/sbin"  # dpkg refuses to run without tools in these folders
        command = ["fakeroot", "dpkg", f"--root={self.root}", *arguments]
        result = subprocess.run(command, env=os.environ | {"PATH": path}, capture_output=True, text=True)
        self.assertEqual(result.returncode, 0, result.stdout + result.stderr)

    def installed_files(self) -> list[Path]:
        return [path for path in (self.root / "usr").rglob("*") if path.is_file()]

    def read(self, path: str) -> str:
        content = (self.root / path).read_bytes()
        return (gzip.decompress(content) if path.endswith(".gz") else content).decode()

    # ---- The files --------------------------------------------------------------------------------------

    def test_everybody_may_read_the_files(self) -> None:
        """Including the control files. The package was built with an umask that forbids it."""
        paths = [*(self.root / "usr").rglob("*"), self.root / "var/lib/dpkg/info/chiffrolo.md5sums"]
        self.assertEqual({oct(path.stat().st_mode & 0o7777) for path in paths}, {"0o755", "0o644"})

    def test_is_small_and_its_guide_shows_exactly_its_pictures(self) -> None:
        self.assertLess(sum(path.stat().st_size for path in self.installed_files()), MAX_BYTES)
        shown = sorted(re.findall(r"!\[.*?\]\((.*?)\)", self.read(f"{DOCUMENTS}/guide.md"), re.DOTALL))
        pictures = (self.root / DOCUMENTS / "guide").iterdir()
        self.assertEqual(shown, sorted(f"guide/{picture.name}" for picture in pictures))

    def test_all_files_have_the_same_id(self) -> None:
        for path, text in ((ENTRY, f"\nIcon={ID}\n"), (METAINFO, f"<id>{ID}</id>"),
                           (METAINFO, f">{ID}.desktop</launchable>")):
            self.assertIn(text, self.read(path))
        icons = [path for path in self.installed_files() if "icons" in path.parts]
        self.assertEqual({icon.stem for icon in icons}, {ID})
        desktop_file_name = ID.encode("utf-16-le")
        self.assertIn(desktop_file_name, (self.root / "usr/bin/chiffrolo").read_bytes())

    def test_all_files_have_the_same_version(self) -> None:
        version = re.match(r"chiffrolo \((\S+)-\S+\) ", self.read(f"{DOCUMENTS}/changelog.Debian.gz"))[1]
        self.assertIn(f"\nVersion: {version}-", self.read("var/lib/dpkg/status").partition("\nPackage: chiffrolo\n")[2])
        releases = re.findall(r"(?m)^## (\S+) - (\S+)$", self.read(f"{DOCUMENTS}/changelog.gz"))
        self.assertEqual(releases[0][0], version)
        self.assertEqual(re.findall(r'<release version="(\S+)" date="(\S+)"', self.read(METAINFO)), releases)
        for language in ("", "fr/"):
            self.assertIn(f'"Chiffrolo {version}"', self.read(f"usr/share/man/{language}man6/chiffrolo.6.gz"))

    # ---- The program ------------------------------------------------------------------------------------

    def test_starts_from_desktop_entry_plays_and_is_removed_completely(self) -> None:
        self.launcher.write_text(LAUNCHER.format(home=self.home, root=self.root, entry=ENTRY))
        self.launcher.chmod(0o755)
        learner = self.start(path=self.launcher)
        self.assert_installed_program_has_focus(learner.desktop)
        learner.open("addition")
        learner.answer_correctly("addition")
        learner.desktop.press("Escape")
        learner.open("Aurevoir")
        learner.click_arrow("Aurevoir")
        self.assert_ends(learner.desktop.program)
        self.dpkg("--purge", "chiffrolo")
        self.assertEqual([path for path in self.root.iterdir() if path.name != "var"], [])
        self.assertEqual([path for path in self.home.rglob("*") if "chiffrolo" in path.name.lower()], [])

    def assert_installed_program_has_focus(self, desktop: Desktop) -> None:
        window = desktop.display.run("xdotool", "getwindowfocus").decode().strip()
        properties = desktop.display.run("xprop", "-id", window, "WM_CLASS", "_NET_WM_PID").decode()
        process, window_class = re.search(r"PID.* = (\d+)", properties)[1], properties.split('"')[3]
        self.assertEqual(os.readlink(f"/proc/{process}/exe"), str(self.root / "usr/bin/chiffrolo"))
        self.assertIn(f"\nStartupWMClass={window_class}\n", self.read(ENTRY))


if __name__ == "__main__":
    unittest.main()
