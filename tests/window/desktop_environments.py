# SPDX-License-Identifier: MIT
"""Desktop environments for the tests: window managers on X11, and Wayland compositors."""

import subprocess
from contextlib import suppress

import Xlib.display
from Xlib import Xatom, Xutil
from desktop import DesktopEnvironment, Display, end_process, start_process, variables_without_display, wait_until

PANEL_HEIGHT = 40  # pixels
WAYLAND_PANEL_COLOUR = (0x40, 0x40, 0x40)


class Panel:
    """A button in the top left corner that reserves the whole top edge of the display.

    It is not as wide as the display: some window managers move a panel that is wider than a display that has shrunk.
    """

    def __init__(self, display: Display):
        self._connection = Xlib.display.Display(display.name)
        screen = self._connection.screen()
        self._root = screen.root
        self._button = self._root.create_window(0, 0, PANEL_HEIGHT, PANEL_HEIGHT, 0, screen.root_depth)
        self._set("_NET_WM_WINDOW_TYPE", Xatom.ATOM, [self._atom("_NET_WM_WINDOW_TYPE_DOCK")])
        top_edge = [0, 0, PANEL_HEIGHT, 0] + [0] * 4 + [0, display.width - 1] + [0] * 2
        self._set("_NET_WM_STRUT_PARTIAL", Xatom.CARDINAL, top_edge)
        self._button.set_wm_normal_hints(flags=Xutil.USPosition, x=0, y=0)  # prevents that it is centred
        self._button.map()
        self._connection.flush()

    def is_reserved(self) -> bool:
        """Whether the window manager has removed the top edge from the work area."""
        work_area = self._root.get_full_property(self._atom("_NET_WORKAREA"), Xatom.CARDINAL)
        return work_area is not None and work_area.value[1] == PANEL_HEIGHT

    def _atom(self, name: str) -> int:
        return self._connection.intern_atom(name)

    def _set(self, name: str, kind: int, values: list[int]) -> None:
        self._button.change_property(self._atom(name), kind, 32, values)


class StartedEnvironment(DesktopEnvironment):
    """A process with a private home and runtime folder, so that the settings of the user have no effect."""

    def command(self) -> list[str]:
        raise NotImplementedError

    def wait_until_ready(self) -> None:
        raise NotImplementedError

    def start(self) -> None:
        own = {"HOME": str(self.home), "XDG_RUNTIME_DIR": str(self.home)}
        own |= {"GSETTINGS_BACKEND": "memory", "NO_AT_BRIDGE": "1"}
        self.process = start_process(self.command(), self.display.variables() | own)
        self.callback(self.end)
        self.wait_until_ready()

    def end(self) -> None:
        end_process(self.process)


class WindowManager(StartedEnvironment):
    """A window manager and a panel."""

    panel_height = PANEL_HEIGHT

    def wait_until_ready(self) -> None:
        """The window manager sets its properties on the root window before it manages windows."""
        self._panel = Panel(self.display)
        wait_until("the window manager is ready", self._panel.is_reserved)

    def end(self) -> None:
        """Closes the display to end the window manager: ended by a signal, it would leave a message bus running."""
        self.display.close()
        with suppress(subprocess.TimeoutExpired):
            self.process.wait(5)
        super().end()


class Openbox(WindowManager):
    """Never manages a window that appears while it starts."""

    def command(self) -> list[str]:
        return ["openbox", "--sm-disable", "--startup", "sh -c 'touch $HOME/started'"]

    def wait_until_ready(self) -> None:
        wait_until("openbox has started", (self.home / "started").exists)
        super().wait_until_ready()


class Xfwm4(WindowManager):
    """Reads its settings from a service on the session bus."""

    def command(self) -> list[str]:
        return ["dbus-run-session", "--", "xfwm4", "--compositor=off"]


class Metacity(WindowManager):
    def command(self) -> list[str]:
        return ["metacity", "--sm-disable", "--compositor=none"]


class Weston(StartedEnvironment):
    """A Wayland compositor with a French keyboard. Its screen is the only window of the X display."""

    panel_height = 32  # fixed by weston
    socket = "chiffrolo"
    backend = ["--backend=x11-backend.so", "--use-pixman", "--idle-time=0"]
    settings = """
[shell]
panel-position=top
panel-color=0xff404040
clock-format=none
startup-animation=none
close-animation=none
"""

    def start(self) -> None:
        self.display.set_keyboard_layout("fr")  # weston uses that of the X display
        super().start()

    def command(self) -> list[str]:
        """Writes the file with the settings."""
        (self.home / "weston.ini").write_text(self.settings, encoding="ascii")
        size = [f"--width={self.display.width}", f"--height={self.display.height}"]
        return ["weston", f"--config={self.home}/weston.ini", f"--socket={self.socket}", *self.backend, *size]

    def wait_until_ready(self) -> None:
        """The area of the panel is reserved when it is shown. Then moves the pointer to two corners. There, its
        positions on the X display and in the compositor become equal: the compositor adds up relative movements from
        its own start position, and both stop at the edges."""
        empty = self.display.width // 2, 2  # here the pointer, which is part of the picture, covers nothing
        wait_until("the panel is shown", lambda: self.display.picture().pixel(*empty) == WAYLAND_PANEL_COLOUR)
        for x, y in ((self.display.width - 1, self.display.height - 1), (0, 0), empty):
            self.display.run("xdotool", "mousemove", str(x), str(y))

    def variables(self) -> dict[str, str]:
        sockets = {"XDG_RUNTIME_DIR": str(self.home), "WAYLAND_DISPLAY": self.socket}
        return variables_without_display() | sockets | {"QT_QPA_PLATFORM": "wayland"}

    def program_has_focus(self) -> bool:
        """A window has the focus as soon as it is shown."""
        return True

    def kill_display_server(self) -> None:
        self.process.kill()


class HeadlessWeston(Weston):
    """Has no screen: no pictures, no keys and no clicks."""

    backend = ["--backend=headless-backend.so"]

    def wait_until_ready(self) -> None:
        wait_until("the compositor is ready", (self.home / self.socket).exists)
