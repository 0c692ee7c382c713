#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""The installed files are consistent with each other, and the program starts from its desktop entry."""

import os
import re
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "tests" / "window"))

from base_case import PROGRAM, WindowCase
from desktop import Desktop, DesktopEnvironment

MAX_BYTES = 1_000_000  # of all installed files

ID = "org.chiffrolo.Chiffrolo"  # the application ID on the desktop
ENTRY = f"share/applications/{ID}.desktop"
METAINFO = f"share/metainfo/{ID}.metainfo.xml"


class Launched(DesktopEnvironment):
    """`gio launch` does not wait for the program. The pipe to `cat` does: it is open until the program ends."""

    def command_of(self, path: Path) -> list[str]:
        return ["sh", "-c", 'gio launch "$ENTRY" 2>&1 | cat >&2']


class Installation(WindowCase):
    def setUp(self) -> None:
        self.root = Path(self.enterContext(tempfile.TemporaryDirectory()))
        command: list[str | Path] = ["cmake", "--install", PROGRAM.parent, "--prefix", self.root, "--strip"]
        subprocess.run(command, stdout=subprocess.DEVNULL, check=True)

    def read(self, path: str) -> str:
        return (self.root / path).read_text(encoding="utf-8")

    def test_files_are_small_and_have_the_same_id(self) -> None:
        files = [path for path in self.root.rglob("*") if path.is_file()]
        self.assertLess(sum(path.stat().st_size for path in files), MAX_BYTES)
        for path, text in ((ENTRY, f"\nIcon={ID}\n"), (METAINFO, f"<id>{ID}</id>"),
                           (METAINFO, f">{ID}.desktop</launchable>")):
            self.assertIn(text, self.read(path))
        self.assertEqual({path.stem for path in files if "icons" in path.parts}, {ID})
        self.assertIn(ID.encode("utf-16-le"), (self.root / "bin/chiffrolo").read_bytes())

    def test_guide_shows_exactly_its_pictures(self) -> None:
        page = self.root / "share/doc/chiffrolo/html/guide.html"
        shown = re.findall(r'<img [^>]*src="(.*?)"', page.read_text(encoding="utf-8"))
        self.assertEqual(sorted(shown), sorted(f"guide/{path.name}" for path in (page.parent / "guide").iterdir()))

    def test_files_have_the_same_version(self) -> None:
        releases = re.findall(r"(?m)^## (\S+) - (\S+)$", (ROOT / "CHANGELOG.md").read_text(encoding="utf-8"))
        version = releases[0][0]
        self.assertIn(f"chiffrolo ({version}-", (ROOT / "debian/changelog").read_text(encoding="utf-8"))
        self.assertEqual(re.findall(r'<release version="(\S+)" date="(\S+)"', self.read(METAINFO)), releases)
        for language in ("", "fr/"):
            self.assertIn(f'"Chiffrolo {version}"', self.read(f"share/man/{language}man6/chiffrolo.6"))
        output = subprocess.run([PROGRAM, "--version"], stdout=subprocess.PIPE, check=True, text=True).stdout
        self.assertEqual(output, f"Chiffrolo {version}\n")

    def test_starts_from_the_desktop_entry(self) -> None:
        folders = {"PATH": f"{self.root}/bin:{os.environ['PATH']}", "XDG_DATA_DIRS": f"{self.root}/share:/usr/share"}
        learner = self.start(Launched, variables=folders | {"ENTRY": str(self.root / ENTRY)})
        self.assert_installed_program_has_focus(learner.desktop)
        learner.open("Aurevoir")
        learner.click_arrow("Aurevoir")
        self.assert_ends(learner.desktop.program)

    def assert_installed_program_has_focus(self, desktop: Desktop) -> None:
        window = desktop.display.run("xdotool", "getwindowfocus").decode().strip()
        properties = desktop.display.run("xprop", "-id", window, "WM_CLASS", "_NET_WM_PID").decode()
        process, window_class = re.search(r"PID.* = (\d+)", properties)[1], properties.split('"')[3]
        self.assertEqual(os.readlink(f"/proc/{process}/exe"), str(self.root / "bin/chiffrolo"))
        self.assertIn(f"\nStartupWMClass={window_class}\n", self.read(ENTRY))


if __name__ == "__main__":
    unittest.main()
