#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""The program connects only to the local desktop, writes no files and starts no processes.

Traces the system calls of the program during the tour, while a screen reader is running. Requires a private session
bus: `dbus-run-session -- trust_test.py`.
"""

import os
import re
import unittest
from pathlib import Path
from typing import NamedTuple

from gi.repository import Gio

from base_case import PROGRAM
from desktop import Desktop, DesktopEnvironment, wait_until
from listener import Listener
from tour import PictureFolder, Tour

WRITES = re.compile(r"\bO_(WRONLY|RDWR|CREAT|TRUNC|APPEND)\b")
CHANGES_FILES = re.compile(
    r"creat|mkdir|mknod|rmdir|unlink|rename|link|symlink|truncate|f?chmod|[fl]?chown|utime|[fl]?(set|remove)xattr|mount"
)
CALL = re.compile(r"^\d+ +(\w+)\((.*)", re.MULTILINE)


class Call(NamedTuple):
    """A system call, successful or not."""

    name: str
    arguments: str

    def path(self) -> str:
        """The first path of the arguments. The address of an abstract socket counts as a path."""
        found = re.search(r'"@?([^"]*)"', self.arguments)
        return decode_escapes(found[1]) if found else self.arguments


class Traced(DesktopEnvironment):
    """Runs the program under strace. With -D, the started process becomes the program itself."""

    tracer = "strace -D -f -q -s 4096 -e signal=none -e trace=%network,%file,%process"

    def command_of(self, path: Path) -> list[str]:
        return [*self.tracer.split(), "-o", str(self.home / "trace"), str(path)]

    def variables(self) -> dict[str, str]:
        """Uses an empty folder, so that no library finds files of an earlier run."""
        empty = self.home / "empty"
        empty.mkdir(mode=0o700)
        own = {"QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1", "HOME": str(empty), "XDG_RUNTIME_DIR": str(empty)}
        own |= {f"XDG_{kind}_HOME": str(empty / kind) for kind in ("CACHE", "CONFIG", "DATA", "STATE")}
        return super().variables() | own


class SystemCalls(unittest.TestCase):
    display: str
    calls: list[Call]
    created_files: list[Path]

    @classmethod
    def setUpClass(cls) -> None:
        with Listener() as listener, Desktop(PROGRAM, Traced) as desktop:
            cls.display = f"/tmp/.X11-unix/X{desktop.display.name.removeprefix(':')}"
            assert "Entrainement" in listener.texts("Accueil")
            home = desktop.environment.home
            assert Tour(desktop, PictureFolder(home / "pictures")).play() == 0, desktop.program.error_output()
            trace = home / "trace"
            wait_until("the tracer has ended", lambda: trace.read_bytes().endswith(b"+++ exited with 0 +++\n"))
            cls.calls = [Call(*call) for call in CALL.findall(trace.read_text(encoding="utf-8", errors="replace"))]
            cls.created_files = list((home / "empty").rglob("*"))

    def calls_of(self, pattern: str) -> list[Call]:
        return [call for call in self.calls if re.fullmatch(pattern, call.name)]

    def test_connects_only_to_display_and_desktop_buses(self) -> None:
        """All sockets are local, and none accepts connections."""
        addresses = os.environ["DBUS_SESSION_BUS_ADDRESS"], accessibility_bus()
        buses = {re.match(r"unix:(?:path|abstract)=([^,]+)", address)[1] for address in addresses}
        self.assertEqual({call.path() for call in self.calls_of("connect")}, {self.display} | buses)
        self.assertEqual({call.arguments.partition(",")[0] for call in self.calls_of("socket(pair)?")}, {"AF_UNIX"})
        self.assertEqual(self.calls_of("bind|listen|accept4?"), [])

    def test_writes_no_file_and_changes_no_folder(self) -> None:
        """Ignores that Qt tries to create the runtime folder, which already exists."""
        opened = self.calls_of("open|openat|openat2")
        self.assertGreater(len(opened), 10)
        self.assertLessEqual({call.path() for call in opened if WRITES.search(call.arguments)}, {"/dev/null"})
        changes = [call for call in self.calls if CHANGES_FILES.match(call.name)]
        self.assertEqual([call for call in changes if not call.arguments.endswith("EEXIST (File exists)")], [])
        self.assertEqual(self.created_files, [])

    def test_starts_no_process(self) -> None:
        started = self.calls_of("execve.*|v?fork|clone.*")
        self.assertEqual(started[0].path(), str(PROGRAM))
        self.assertEqual([call for call in started[1:] if "CLONE_THREAD" not in call.arguments], [])


def decode_escapes(text: str) -> str:
    """The tracer prints characters that are not ASCII as escapes of their bytes."""
    return os.fsdecode(text.encode("ascii").decode("unicode_escape").encode("latin-1"))


def accessibility_bus() -> str:
    """Its address."""
    session = Gio.bus_get_sync(Gio.BusType.SESSION)
    request = ("org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus", "GetAddress")
    return session.call_sync(*request, None, None, Gio.DBusCallFlags.NONE, -1, None).unpack()[0]


if __name__ == "__main__":
    unittest.main()
