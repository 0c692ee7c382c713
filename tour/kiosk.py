# SPDX-License-Identifier: MIT
"""The browsers that can fill a virtual display with the page, one for each engine."""

import os
import subprocess
from contextlib import suppress
from pathlib import Path

from desktop import DesktopEnvironment, wait_until


class Kiosk(DesktopEnvironment):
    """Has a private home folder and profile. The page scales its screens to the window: in this one, those with a
    frame have the size as designed, and those without a frame are two pixels wider."""

    width, height = 898, 591
    display_size = (width, height)
    frameless_scale = width / 896

    browser: list[str] = []  # the start of its command line
    own_variables: dict[str, str] = {}

    def variables(self) -> dict[str, str]:
        """Without a session bus, which would start services that stay."""
        folders = ("HOME", "TMPDIR", *(f"XDG_{kind}_HOME" for kind in ("CACHE", "CONFIG", "DATA", "STATE")))
        private = dict.fromkeys(folders, str(self.home)) | {"DBUS_SESSION_BUS_ADDRESS": "disabled:"}
        return super().variables() | private | self.own_variables


class Chromium(Kiosk):
    display_size = (Kiosk.width + 1, Kiosk.height + 1)  # version 156 makes a window of the size of the display smaller
    # Whatever it wants from the network, it asks a proxy that does not exist.
    browser = ["chromium", "--kiosk", "--no-first-run", "--disable-background-networking",
               "--disable-component-update", "--proxy-server=127.0.0.1:9", "--host-resolver-rules=MAP * ~NOTFOUND"]

    def command_of(self, path: Path) -> list[str]:
        window = ["--window-position=0,0", f"--window-size={self.width},{self.height}"]
        profile = [f"--user-data-dir={self.home}/profile"]
        without_sandbox = ["--no-sandbox"] if os.geteuid() == 0 else []
        return [*self.browser, *window, *profile, *without_sandbox, f"--app={path.as_uri()}"]


class GtkBrowser(Kiosk):
    """Without a window manager, GTK gives a window a size of its own, and no focus."""

    own_variables = {"GDK_BACKEND": "x11", "NO_AT_BRIDGE": "1"}

    def program_started(self) -> None:
        """Waits until the window has the title of the page."""
        wait_until("the browser has the size and the focus", self._takes_size_and_focus)

    def _takes_size_and_focus(self) -> bool:
        """False if another window of the browser is closed during the search."""
        size = ["windowsize", "--sync", str(self.width), str(self.height)]
        with suppress(subprocess.CalledProcessError):
            self.display.run("xdotool", "search", "--onlyvisible", "--name", "Chiffrolo", *size, "windowfocus")
            return True
        return False


class Firefox(GtkBrowser):
    window_title = "Chiffrolo — Mozilla Firefox"
    browser = ["firefox-esr", "--no-remote", "--kiosk"]
    preferences = {
        # No pages, questions and notices of the first start.
        "browser.aboutwelcome.enabled": "false",
        "browser.shell.checkDefaultBrowser": "false",
        "datareporting.policy.dataSubmissionEnabled": "false",
        "termsofuse.bypassNotification": "true",
        # Whatever it wants from the network, it asks a proxy that does not exist.
        "network.proxy.type": "1",
        "network.proxy.http": '"127.0.0.1"',
        "network.proxy.http_port": "9",
        "network.proxy.ssl": '"127.0.0.1"',
        "network.proxy.ssl_port": "9",
        "network.captive-portal-service.enabled": "false",
        "network.connectivity-service.enabled": "false",
        "network.dns.disabled": "true",
    }

    def command_of(self, path: Path) -> list[str]:
        profile = self.home / "profile"
        profile.mkdir()
        lines = [f'user_pref("{name}", {value});\n' for name, value in self.preferences.items()]
        (profile / "user.js").write_text("".join(lines), encoding="utf-8")
        return [*self.browser, "--profile", str(profile), path.as_uri()]


class WebKit(GtkBrowser):
    """The browser that comes with the driver of WebKitGTK. It is not in the PATH."""

    def command_of(self, path: Path) -> list[str]:
        programs = sorted(Path("/usr/lib").glob("*/webkit2gtk-4.*/MiniBrowser"))
        if not programs:
            raise FileNotFoundError("MiniBrowser, of the package webkit2gtk-driver")
        return [str(programs[-1]), "--full-screen", path.as_uri()]


ENGINES: dict[str, type[Kiosk]] = {"chromium": Chromium, "firefox": Firefox, "webkit": WebKit}
