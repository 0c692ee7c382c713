#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""What a school may rely on: the program talks to the learner's own desktop alone, and leaves nothing behind.

All that it asks of the system is written down while a learner plays and a screen reader listens. Needs a
session bus of its own: `dbus-run-session -- trust_test.py`.
"""

import os
import re
import tempfile
import unittest
from pathlib import Path
from typing import NamedTuple

from gi.repository import Gio

from case import program
from desktop import Desktop, wait_until
from ear import Ear
from learner import Learner

WRITES = re.compile(r"\bO_(WRONLY|RDWR|CREAT|TRUNC|APPEND)\b")
CHANGES_FILES = re.compile(
    r"creat|mkdir|mknod|rmdir|unlink|rename|link|symlink|truncate|f?chmod|[fl]?chown|utime|[fl]?(set|remove)xattr|mount"
)
CALL = re.compile(r"\d+ +(\w+)\((.*)")


class Call(NamedTuple):
    """Of the system, whether or not it succeeded."""

    name: str
    arguments: str

    def path(self) -> str:
        """The first one; an abstract socket's is written like a file's."""
        found = re.search(r'"@?([^"]*)"', self.arguments)
        return found[1] if found else self.arguments


class Trust(unittest.TestCase):
    @classmethod
    def setUpClass(cls) -> None:
        """Plays in a new account, where no library has put anything yet."""
        folder = Path(cls.enterClassContext(tempfile.TemporaryDirectory()))
        home = folder / "home"
        home.mkdir(mode=0o700)
        ear = Ear()
        cls.addClassCleanup(ear.close)
        settings = {"QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1", "HOME": str(home), "XDG_RUNTIME_DIR": str(home)}
        settings |= {f"XDG_{kind}_HOME": str(home / kind) for kind in ("CACHE", "CONFIG", "DATA", "STATE")}
        with Desktop(traced_program(folder), settings=settings) as desktop:
            cls.display = f"/tmp/.X11-unix/X{desktop.display.name.removeprefix(':')}"
            play_all(Learner(desktop), ear)
            assert desktop.program.exit_status() == 0, desktop.program.errors()
        cls.calls = read_calls(folder / "trace")
        cls.left_behind = list(home.rglob("*"))

    def named(self, pattern: str) -> list[Call]:
        return [call for call in self.calls if re.fullmatch(pattern, call.name)]

    def test_it_speaks_to_the_display_and_to_the_buses_of_the_desktop(self) -> None:
        """Through no socket that reaches beyond the computer, and through none that others can connect to."""
        buses = {path_of(os.environ["DBUS_SESSION_BUS_ADDRESS"]), path_of(accessibility_bus())}
        self.assertEqual({call.path() for call in self.named("connect")}, {self.display} | buses)
        kinds = {call.arguments.partition(",")[0] for call in self.named("socket|socketpair")}
        self.assertEqual(kinds, {"AF_UNIX"})
        self.assertEqual(self.named("bind|listen|accept4?"), [])

    def test_it_writes_no_file_and_changes_no_folder(self) -> None:
        """Qt asks for the session's own folder, which the desktop has made already."""
        opened = self.named("open|openat|openat2")
        self.assertGreater(len(opened), 10)
        self.assertLessEqual({call.path() for call in opened if WRITES.search(call.arguments)}, {"/dev/null"})
        changes = [call for call in self.calls if CHANGES_FILES.match(call.name)]
        self.assertEqual([call for call in changes if not call.arguments.endswith("EEXIST (File exists)")], [])
        self.assertEqual(self.left_behind, [])

    def test_it_starts_no_process(self) -> None:
        started = self.named("execve.*|v?fork|clone.*")
        self.assertEqual(started[0].path(), str(program()))
        self.assertEqual([call for call in started[1:] if "CLONE_THREAD" not in call.arguments], [])


# ---- Playing --------------------------------------------------------------------------------------------


def play_all(learner: Learner, ear: Ear) -> None:
    """A wrong answer and its correction, a challenge with a right one that is broken off, and goodbye."""
    learner.start()
    ear.screen("Accueil")
    learner.open("addition")
    learner.see_operation("addition")
    learner.submit(1)
    learner.see_faux()
    learner.click_arrow("addition")
    learner.desktop.press("Escape")
    learner.open("record")
    _, operation = learner.see_operation("record")
    learner.submit(operation.result)
    learner.see_bravo("record")
    assert any("Bravo" in text for text in ear.texts("Record"))
    learner.desktop.press("Escape")
    learner.click_arrow("FIN2")
    learner.see("accueil")
    learner.desktop.press("Escape")
    learner.click_arrow("Aurevoir")


# ---- Watching -------------------------------------------------------------------------------------------


def traced_program(folder: Path) -> Path:
    """The tracer steps aside, so that the process that is started is the program itself."""
    tracer = "strace -D -f -q -s 4096 -e signal=none -e trace=%network,%file,%process"
    script = folder / "traced"
    script.write_text(f"#!/bin/sh\nexec {tracer} -o '{folder}/trace' '{program()}'\n", encoding="utf-8")
    script.chmod(0o700)
    return script


def read_calls(trace: Path) -> list[Call]:
    """Once the tracer has written down the end of the program."""

    def lines() -> list[str]:
        return trace.read_text(encoding="utf-8", errors="replace").splitlines()

    wait_until("the tracer has ended", lambda: "+++ exited with 0 +++" in lines()[-1])
    return [Call(*call.groups()) for call in map(CALL.match, lines()) if call is not None]


# ---- The buses ------------------------------------------------------------------------------------------


def path_of(address: str) -> str:
    return re.match(r"unix:(?:path|abstract)=([^,]+)", address)[1]


def accessibility_bus() -> str:
    session = Gio.bus_get_sync(Gio.BusType.SESSION)
    asked = ("org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus", "GetAddress")
    return session.call_sync(*asked, None, None, Gio.DBusCallFlags.NONE, -1, None).unpack()[0]


if __name__ == "__main__":
    unittest.main()
