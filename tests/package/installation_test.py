#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""The package is installed into a scratch folder, started from its desktop entry, played, and removed."""

import os
import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

from package import ENTRY, ROOT, package

sys.path.insert(0, str(ROOT / "tests" / "window"))
from case import WindowCase

MACHINE = Path("/var/lib/dpkg")

# A desktop would not wait for the end of what it starts. A reader of what the program says does.
LAUNCHER = """#!/bin/sh
export HOME='{home}' PATH='{root}/usr/bin':"$PATH" XDG_DATA_DIRS='{root}/usr/share':/usr/share
gio launch '{root}/{entry}' 2>&1 | cat >&2
"""


class ScratchSystem:
    """Has dpkg's notes of what is installed on the machine, and nothing else of it."""

    def __init__(self, root: Path):
        self.root = root
        self._notes = root / "var/lib/dpkg"
        for folder in ("info", "updates", "triggers"):
            (self._notes / folder).mkdir(parents=True)
        shutil.copy(MACHINE / "status", self._notes)

    def dpkg(self, *arguments: str | Path) -> None:
        """As root only by appearance."""
        path = os.environ["PATH"] + ":/usr/sbin:/sbin"  # dpkg insists on tools that it would not need here
        environment = os.environ | {"PATH": path, "LC_ALL": "C"}
        command = ["fakeroot", "dpkg", f"--root={self.root}", *arguments]
        result = subprocess.run(command, env=environment, stdin=subprocess.DEVNULL, capture_output=True, text=True)
        assert result.returncode == 0, result.stdout + result.stderr

    def paths(self) -> set[Path]:
        return {path for path in self.root.rglob("*") if not path.is_relative_to(self.root / "var")}


class Installation(WindowCase):
    def setUp(self) -> None:
        scratch = Path(self.enterContext(tempfile.TemporaryDirectory()))
        self.home = scratch / "home"
        self.home.mkdir()
        self.system = ScratchSystem(scratch / "system")
        self.before = self.system.paths()
        self.system.dpkg("--install", package())
        launcher = scratch / "launcher"
        launcher.write_text(LAUNCHER.format(home=self.home, root=self.system.root, entry=ENTRY))
        launcher.chmod(0o755)
        os.environ["CHIFFROLO"] = str(launcher)
        super().setUp()

    def test_from_the_menu_to_the_removal(self) -> None:
        self.learner.start()
        self.assert_is_the_installed_one()
        self.learner.open("addition")
        self.answer_addition()
        self.desktop.press("Escape")
        self.learner.see("accueil")
        self.desktop.press("Escape")
        self.learner.click_arrow("Aurevoir")
        self.assert_ended_well()
        self.system.dpkg("--purge", "chiffrolo")
        self.assertEqual(self.system.paths(), self.before)
        self.assertEqual([path for path in self.home.rglob("*") if "chiffrolo" in path.name.lower()], [])

    def assert_is_the_installed_one(self) -> None:
        run = self.desktop.display.run
        window = run("xdotool", "getwindowfocus").decode().strip()
        process = run("xdotool", "getwindowpid", window).decode().strip()
        self.assertEqual(os.readlink(f"/proc/{process}/exe"), str(self.system.root / "usr/bin/chiffrolo"))
        window_class = run("xprop", "-id", window, "WM_CLASS").decode().strip().split('"')[3]
        self.assertIn(f"\nStartupWMClass={window_class}\n", (self.system.root / ENTRY).read_text())


if __name__ == "__main__":
    unittest.main()
