# SPDX-License-Identifier: MIT
"""Chromium, which fills a virtual display with the page."""

import os
import tempfile
from pathlib import Path

from desktop import DesktopEnvironment, Display


class Kiosk(DesktopEnvironment):
    """Has a private home folder and profile. The page scales its screens to the window: in this one, those with a
    frame have the size as designed, and those without a frame are two pixels wider."""

    width, height = 898, 591
    display_size = (width + 1, height + 1)  # Chromium makes a window that has the size of the display smaller
    frameless_scale = width / 896

    def __init__(self, display: Display):
        super().__init__(display)
        self._scratch = tempfile.TemporaryDirectory(ignore_cleanup_errors=True)

    def command_of(self, path: Path) -> list[str]:
        window = ["--window-position=0,0", f"--window-size={self.width},{self.height}"]
        profile = ["--no-first-run", "--disable-background-networking", f"--user-data-dir={self._scratch.name}/profile"]
        without_sandbox = ["--no-sandbox"] if os.geteuid() == 0 else []
        return ["chromium", "--kiosk", f"--app={path.as_uri()}", *window, *profile, *without_sandbox]

    def variables(self) -> dict[str, str]:
        return super().variables() | {"HOME": self._scratch.name, "TMPDIR": self._scratch.name}

    def close(self) -> None:
        self._scratch.cleanup()
