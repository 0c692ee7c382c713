#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""The program connects only to the local desktop, writes no files and starts no processes.

Traces the system calls of the program during the tour, while a screen reader is running. Requires a private session
bus: `dbus-run-session -- trust_test.py`.
"""

import os
import re
import shlex
import tempfile
import unittest
from pathlib import Path
from typing import NamedTuple

from gi.repository import Gio

from base_case import PROGRAM
from desktop import Desktop, wait_until
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


class SystemCalls(unittest.TestCase):
    display: str
    calls: list[Call]
    created_files: list[Path]

    @classmethod
    def setUpClass(cls) -> None:
        """Uses an empty home folder, so that no library finds files of an earlier run."""
        folder = Path(cls.enterClassContext(tempfile.TemporaryDirectory()))
        home = folder / "home"
        home.mkdir(mode=0o700)
        listener = Listener()
        cls.addClassCleanup(listener.close)
        variables = {"QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1", "HOME": str(home), "XDG_RUNTIME_DIR": str(home)}
        variables |= {f"XDG_{kind}_HOME": str(home / kind) for kind in ("CACHE", "CONFIG", "DATA", "STATE")}
        with Desktop(traced_program(folder), variables=variables) as desktop:
            cls.display = f"/tmp/.X11-unix/X{desktop.display.name.removeprefix(':')}"
            assert "Entrainement" in listener.texts("Accueil")
            assert Tour(desktop, PictureFolder(folder / "pictures")).play() == 0, desktop.program.error_output()
        trace = folder / "trace"
        wait_until("the tracer has ended", lambda: trace.read_bytes().endswith(b"+++ exited with 0 +++\n"))
        cls.calls = [Call(*call) for call in CALL.findall(trace.read_text(encoding="utf-8", errors="replace"))]
        cls.created_files = list(home.rglob("*"))

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


def traced_program(folder: Path) -> Path:
    """A script that starts the program under strace. With -D, the started process becomes the program itself."""
    tracer = "strace -D -f -q -s 4096 -e signal=none -e trace=%network,%file,%process"
    command = shlex.join([*tracer.split(), "-o", str(folder / "trace"), str(PROGRAM)])
    script = folder / "traced"
    script.write_text(f"#!/bin/sh\nexec {command}\n", encoding="utf-8")
    script.chmod(0o700)
    return script


def accessibility_bus() -> str:
    """Its address."""
    session = Gio.bus_get_sync(Gio.BusType.SESSION)
    request = ("org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus", "GetAddress")
    return session.call_sync(*request, None, None, Gio.DBusCallFlags.NONE, -1, None).unpack()[0]


if __name__ == "__main__":
    unittest.main()
