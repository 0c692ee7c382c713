# SPDX-License-Identifier: MIT
"""What the program may meet on a learner's machine: window managers, and Wayland."""

import subprocess
import tempfile
from pathlib import Path

import Xlib.display
from Xlib import Xatom, Xutil
from desktop import Display, Surroundings, end_process, environment_without_display, start_quietly, wait_until

PANEL_HEIGHT = 40  # pixels
WAYLAND_PANEL_HEIGHT = 32  # pixels, as the compositor draws it
WAYLAND_PANEL_COLOUR = (0x40, 0x40, 0x40)


class Panel:
    """A button in the upper left corner. Windows are asked to leave the whole edge free, to its height.

    No wider than that: some window managers push a bar aside that is wider than a display that has shrunk.
    """

    def __init__(self, display: Display):
        self._display = display
        self._connection = Xlib.display.Display(display.name)
        screen = self._connection.screen()
        self._root = screen.root
        self._button = self._root.create_window(0, 0, PANEL_HEIGHT, PANEL_HEIGHT, 0, screen.root_depth)
        self._set("_NET_WM_WINDOW_TYPE", Xatom.ATOM, [self._atom("_NET_WM_WINDOW_TYPE_DOCK")])
        top_edge = [0, 0, PANEL_HEIGHT, 0] + [0] * 4 + [0, display.width - 1] + [0] * 2
        self._set("_NET_WM_STRUT_PARTIAL", Xatom.CARDINAL, top_edge)
        self._button.set_wm_normal_hints(flags=Xutil.USPosition, x=0, y=0)  # or else it might be centred
        self._button.map()
        self._connection.flush()

    def is_respected(self) -> bool:
        """Whether a window manager leaves its place free."""
        work_area = self._root.get_full_property(self._atom("_NET_WORKAREA"), Xatom.CARDINAL)
        free = [0, PANEL_HEIGHT, self._display.width, self._display.height - PANEL_HEIGHT]
        return work_area is not None and list(work_area.value[:4]) == free

    def close(self) -> None:
        self._connection.close()

    def _atom(self, name: str) -> int:
        return self._connection.intern_atom(name)

    def _set(self, name: str, kind: int, values: list[int]) -> None:
        self._button.change_property(self._atom(name), kind, 32, values)


class Scratch(tempfile.TemporaryDirectory):
    """A home and a place for sockets of its own, readable to its owner alone, so that no one's settings count."""

    def __init__(self) -> None:
        super().__init__(ignore_cleanup_errors=True)
        self.path = Path(self.name)

    def variables(self) -> dict[str, str]:
        return {"HOME": self.name, "XDG_RUNTIME_DIR": self.name}


class Managed(Surroundings):
    """A window manager, and a panel."""

    command: list[str]

    def __init__(self, display: Display):
        super().__init__(display)
        self._scratch = Scratch()
        self._panel: Panel | None = None
        own = {"GSETTINGS_BACKEND": "memory", "NO_AT_BRIDGE": "1"}
        self._manager = start_quietly(self.command, display.environment() | self._scratch.variables() | own)
        try:
            wait_until("the window manager has started", self.has_started)
            self._panel = Panel(display)
            # It announces itself to other programs before it takes care of their windows: too early to go on.
            wait_until("the window manager is ready", self._panel.is_respected)
        except BaseException:
            self.close()
            raise

    def has_started(self) -> bool:
        """Whether it takes care of windows that appear from now on."""
        return True

    def close(self) -> None:
        """By ending its display: told to end, it would leave a message bus behind."""
        if self._panel is not None:
            self._panel.close()
        self.display.close()
        try:
            self._manager.wait(5)
        except subprocess.TimeoutExpired:
            end_process(self._manager)
        self._scratch.cleanup()


class Openbox(Managed):
    """Overlooks a window for good that appears while it starts."""

    command = ["openbox", "--sm-disable", "--startup", "sh -c 'touch $HOME/started'"]

    def has_started(self) -> bool:
        return (self._scratch.path / "started").exists()


class Xfwm4(Managed):
    """Asks a service for its settings."""

    command = ["dbus-run-session", "--", "xfwm4", "--compositor=off"]


class Metacity(Managed):
    command = ["metacity", "--sm-disable", "--compositor=none"]


class Weston(Surroundings):
    """A Wayland compositor, which shows its screen as the only window of the display."""

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
        self._compositor = start_quietly(command, self.display.environment() | self._scratch.variables())
        try:
            wait_until("the compositor is ready", self.is_ready)
            self.agree_on_pointer()
        except BaseException:
            self.close()
            raise

    def is_ready(self) -> bool:
        """Once its panel is seen, it keeps its place free."""
        return self.display.picture().pixel(*self.empty_place_of_panel()) == WAYLAND_PANEL_COLOUR

    def agree_on_pointer(self) -> None:
        """The compositor adds up movements from a place of its own: beyond an edge, both stop at the same place."""
        places = ((self.display.width - 1, self.display.height - 1), (0, 0), self.empty_place_of_panel())
        for x, y in places:
            self.display.run("xdotool", "mousemove", str(x), str(y))

    def empty_place_of_panel(self) -> tuple[int, int]:
        """Where the pointer, which belongs to the picture, is in nobody's way."""
        return self.display.width // 2, 2

    def backend(self) -> list[str]:
        size = [f"--width={self.display.width}", f"--height={self.display.height}"]
        return ["--backend=x11-backend.so", "--use-pixman", *size]

    def environment(self) -> dict[str, str]:
        sockets = {"XDG_RUNTIME_DIR": str(self._scratch.path), "WAYLAND_DISPLAY": self.socket}
        return environment_without_display() | sockets | {"QT_QPA_PLATFORM": "wayland"}

    def program_has_keys(self) -> bool:
        """From the first picture on."""
        return True

    def break_down(self) -> None:
        self._compositor.kill()
        self._compositor.wait()

    def close(self) -> None:
        end_process(self._compositor)
        self._scratch.cleanup()


class WestonWithoutScreen(Weston):
    """Nothing can be seen or pressed there."""

    def is_ready(self) -> bool:
        return (self._scratch.path / self.socket).exists()

    def backend(self) -> list[str]:
        return ["--backend=headless-backend.so", f"--width={self.display.width}", f"--height={self.display.height}"]
