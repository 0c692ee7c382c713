#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""Installs the package into a scratch folder, starts it from its desktop entry, plays it, and removes it."""

import os
import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

from package import ENTRY, ROOT, package

sys.path.insert(0, str(ROOT / "tests" / "window"))
from base_case import WindowCase

DPKG_DATABASE = Path("/var/lib/dpkg")

# `gio launch` does not wait for the program. The pipe to `cat` does: it is open until the program ends.
LAUNCHER = """#!/bin/sh
export HOME='{home}' PATH='{root}/usr/bin':"$PATH" XDG_DATA_DIRS='{root}/usr/share':/usr/share
gio launch '{root}/{entry}' 2>&1 | cat >&2
"""


class ScratchSystem:
    """A root folder with a copy of the machine's dpkg database, and no other files."""

    def __init__(self, root: Path):
        self.root = root
        self._database = root / "var/lib/dpkg"
        for folder in ("info", "updates", "triggers"):
            (self._database / folder).mkdir(parents=True)
        shutil.copy(DPKG_DATABASE / "status", self._database)

    def dpkg(self, *arguments: str | Path) -> None:
        """Runs dpkg under fakeroot."""
        path = os.environ["PATH"] + ":/usr/sbin:/sbin"  # dpkg refuses to run without tools in these folders
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

    def test_installs_starts_plays_and_removes_completely(self) -> None:
        self.learner.wait_for_start()
        self.assert_installed_program_is_running()
        self.learner.open("addition")
        self.answer_addition()
        self.desktop.press("Escape")
        self.learner.wait_for_screen("accueil")
        self.desktop.press("Escape")
        self.learner.click_arrow("Aurevoir")
        self.assert_clean_exit()
        self.system.dpkg("--purge", "chiffrolo")
        self.assertEqual(self.system.paths(), self.before)
        self.assertEqual([path for path in self.home.rglob("*") if "chiffrolo" in path.name.lower()], [])

    def assert_installed_program_is_running(self) -> None:
        run = self.desktop.display.run
        window = run("xdotool", "getwindowfocus").decode().strip()
        process = run("xdotool", "getwindowpid", window).decode().strip()
        self.assertEqual(os.readlink(f"/proc/{process}/exe"), str(self.system.root / "usr/bin/chiffrolo"))
        window_class = run("xprop", "-id", window, "WM_CLASS").decode().strip().split('"')[3]
        self.assertIn(f"\nStartupWMClass={window_class}\n", (self.system.root / ENTRY).read_text())


if __name__ == "__main__":
    unittest.main()
