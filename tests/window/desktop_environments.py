# SPDX-License-Identifier: MIT
"""Desktop environments for the tests: window managers on X11, and Wayland compositors."""

import subprocess
import tempfile
from pathlib import Path

import Xlib.display
from Xlib import Xatom, Xutil
from desktop import DesktopEnvironment, Display
from desktop import end_process, start_without_output, variables_without_display, wait_until

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

    def close(self) -> None:
        self._connection.close()

    def _atom(self, name: str) -> int:
        return self._connection.intern_atom(name)

    def _set(self, name: str, kind: int, values: list[int]) -> None:
        self._button.change_property(self._atom(name), kind, 32, values)


class Scratch(tempfile.TemporaryDirectory):
    """A private home and runtime folder, so that the settings of the user have no effect."""

    def __init__(self) -> None:
        super().__init__(ignore_cleanup_errors=True)
        self.path = Path(self.name)

    def variables(self) -> dict[str, str]:
        return {"HOME": self.name, "XDG_RUNTIME_DIR": self.name}


class WindowManager(DesktopEnvironment):
    """A window manager and a panel."""

    panel_height = PANEL_HEIGHT
    command: list[str]

    def __init__(self, display: Display):
        super().__init__(display)
        self._scratch = Scratch()
        self._panel: Panel | None = None
        own = {"GSETTINGS_BACKEND": "memory", "NO_AT_BRIDGE": "1"}
        self._manager = start_without_output(self.command, display.variables() | self._scratch.variables() | own)
        try:
            wait_until("the window manager has started", self.has_started)
            self._panel = Panel(display)
            # The window manager sets its properties on the root window before it manages windows.
            wait_until("the window manager is ready", self._panel.is_reserved)
        except BaseException:
            self.close()
            raise

    def has_started(self) -> bool:
        """Whether windows that appear from now on are managed."""
        return True

    def close(self) -> None:
        """Closes the display to end the window manager: ended by a signal, it would leave a message bus running."""
        if self._panel is not None:
            self._panel.close()
        self.display.close()
        try:
            self._manager.wait(5)
        except subprocess.TimeoutExpired:
            end_process(self._manager)
        self._scratch.cleanup()


class Openbox(WindowManager):
    """Never manages a window that appears while it starts."""

    command = ["openbox", "--sm-disable", "--startup", "sh -c 'touch $HOME/started'"]

    def has_started(self) -> bool:
        return (self._scratch.path / "started").exists()


class Xfwm4(WindowManager):
    """Reads its settings from a service on the session bus."""

    command = ["dbus-run-session", "--", "xfwm4", "--compositor=off"]


class Metacity(WindowManager):
    command = ["metacity", "--sm-disable", "--compositor=none"]


class Weston(DesktopEnvironment):
    """A Wayland compositor whose screen is the only window of the X display."""

    panel_height = 32  # fixed by weston
    socket = "chiffrolo"
    settings = """
[core]
idle-time=0
[shell]
panel-position=top
panel-color=0xff404040
clock-format=none
startup-animation=none
close-animation=none
locking=false
"""

    def __init__(self, display: Display):
        super().__init__(display)
        self._scratch = Scratch()
        settings = self._scratch.path / "weston.ini"
        settings.write_text(self.settings, encoding="ascii")
        command = ["weston", f"--config={settings}", f"--socket={self.socket}", *self.backend()]
        self._compositor = start_without_output(command, self.display.variables() | self._scratch.variables())
        try:
            wait_until("the compositor is ready", self.is_ready)
            self.synchronise_pointers()
        except BaseException:
            self.close()
            raise

    def is_ready(self) -> bool:
        """Whether the panel is shown: from then on, its area is reserved."""
        return self.display.picture().pixel(*self.empty_position_on_panel()) == WAYLAND_PANEL_COLOUR

    def synchronise_pointers(self) -> None:
        """Moves the pointer to two corners. There, the positions of the X display and the compositor become equal:
        the compositor adds up relative movements from its own start position, and both stop at the edges."""
        last_corner = self.display.width - 1, self.display.height - 1
        for x, y in (last_corner, (0, 0), self.empty_position_on_panel()):
            self.display.run("xdotool", "mousemove", str(x), str(y))

    def empty_position_on_panel(self) -> tuple[int, int]:
        """Here the pointer, which is part of the picture, covers nothing that a test reads."""
        return self.display.width // 2, 2

    def backend(self) -> list[str]:
        size = [f"--width={self.display.width}", f"--height={self.display.height}"]
        return ["--backend=x11-backend.so", "--use-pixman", *size]

    def variables(self) -> dict[str, str]:
        sockets = {"XDG_RUNTIME_DIR": str(self._scratch.path), "WAYLAND_DISPLAY": self.socket}
        return variables_without_display() | sockets | {"QT_QPA_PLATFORM": "wayland"}

    def program_has_focus(self) -> bool:
        """A window has the focus as soon as it is shown."""
        return True

    def kill_display_server(self) -> None:
        self._compositor.kill()
        self._compositor.wait()

    def close(self) -> None:
        end_process(self._compositor)
        self._scratch.cleanup()


class HeadlessWeston(Weston):
    """Has no screen: no pictures, no keys and no clicks."""

    def is_ready(self) -> bool:
        return (self._scratch.path / self.socket).exists()

    def backend(self) -> list[str]:
        return ["--backend=headless-backend.so", f"--width={self.display.width}", f"--height={self.display.height}"]
