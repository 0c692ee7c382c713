# SPDX-License-Identifier: MIT
"""Runs the program on a virtual display and sends it real key presses and clicks.

Every process that is started here is ended here, by its own id.
"""

import os
import subprocess
import tempfile
import time
from collections.abc import Callable
from contextlib import ExitStack
from pathlib import Path
from typing import Any, TypeVar

from PIL import ImageGrab

from picture import Area, Picture

TIMEOUT = 20.0  # seconds; long enough for every step on a busy machine
Found = TypeVar("Found")


class WaitFailed(AssertionError):
    """The expected state was not reached before the timeout, or the program ended first."""


def start_process(command: list[str], variables: dict[str, str], **options: Any) -> subprocess.Popen:
    """Without input, and without the outputs that the options of `Popen` do not redirect."""
    options = dict.fromkeys(("stdin", "stdout", "stderr"), subprocess.DEVNULL) | options
    return subprocess.Popen(command, env=variables, **options)


def end_process(process: subprocess.Popen) -> None:
    process.terminate()
    try:
        process.wait(5)
    except subprocess.TimeoutExpired:
        process.kill()
        process.wait()


class Display(ExitStack):
    """A virtual X server (Xvfb) with a runtime folder for its programs, so that they leave no files."""

    def __init__(self, width: int = 1280, height: int = 1024) -> None:
        """In pixels."""
        super().__init__()
        self.width = width
        self.height = height
        self._runtime = self.enter_context(tempfile.TemporaryDirectory(ignore_cleanup_errors=True))
        command = ["Xvfb", "-displayfd", "1", "-noreset", "-nolisten", "tcp", "-screen", "0", f"{width}x{height}x24"]
        self.server = start_process(command, variables_without_display(), stdout=subprocess.PIPE)
        self.callback(end_process, self.server)
        with self.server.stdout as answer:
            number = answer.readline().decode().strip()
        if not number:
            raise WaitFailed("Xvfb did not start")
        self.name = f":{number}"

    def variables(self) -> dict[str, str]:
        """The environment variables of a program on this display."""
        return variables_without_display() | {"DISPLAY": self.name, "XDG_RUNTIME_DIR": self._runtime}

    def run(self, *command: str) -> bytes:
        """Returns the standard output."""
        return subprocess.check_output(command, env=self.variables(), stdin=subprocess.DEVNULL, timeout=TIMEOUT)

    def picture(self) -> Picture:
        return Picture.from_image(ImageGrab.grab(xdisplay=self.name))

    def set_keyboard_layout(self, name: str, variant: str = "") -> None:
        self.run("setxkbmap", "-layout", name, "-variant", variant)

    def resize(self, width: int, height: int) -> None:
        """At most to the initial size."""
        size = f"{width}x{height}"
        if size.encode() not in self.run("xrandr"):
            no_timing = [str(width)] * 4 + [str(height)] * 4
            self.run("xrandr", "--newmode", size, "1", *no_timing)
            self.run("xrandr", "--addmode", "screen", size)
        self.run("xrandr", "--output", "screen", "--mode", size)


def variables_without_display() -> dict[str, str]:
    """The environment variables of this process, without those that select a display or a desktop theme."""
    unwanted = ("DISPLAY", "WAYLAND_", "XAUTHORITY", "QT_", "XDG_CURRENT_DESKTOP", "DESKTOP_SESSION", "KDE_", "GNOME_")
    return {name: value for name, value in os.environ.items() if not name.startswith(unwanted)}


class Program(ExitStack):
    """The process of the program under test."""

    def __init__(self, command: list[str], variables: dict[str, str]):
        super().__init__()
        self._errors = self.enter_context(tempfile.TemporaryFile())
        self.process = start_process(command, variables, stderr=self._errors)
        self.callback(end_process, self.process)

    def exit_status(self, seconds: float = TIMEOUT) -> int:
        """Waits for the process to end. If a signal ended it, the status is the negative signal number."""
        try:
            return self.process.wait(seconds)
        except subprocess.TimeoutExpired:
            raise WaitFailed(f"the program did not end within {seconds:.0f} s") from None

    def error_output(self) -> str:
        """Everything written to standard error so far."""
        self._errors.seek(0)
        return self._errors.read().decode()


class DesktopEnvironment(ExitStack):
    """What runs on the display besides the program. This base class: nothing, not even a window manager.

    `home` is a folder of its own.
    """

    panel_height = 0  # pixels, at the top edge of the display
    display_size = (1280, 1024)  # pixels
    frameless_scale = 1.0  # of the screens without a frame
    window_title = "Chiffrolo"

    def __init__(self, display: Display):
        super().__init__()
        self.display = display
        self.home = Path(self.enter_context(tempfile.TemporaryDirectory(ignore_cleanup_errors=True)))

    def start(self) -> None:
        """Starts its processes."""

    def command_of(self, path: Path) -> list[str]:
        """The command line that starts the program."""
        return [str(path)]

    def variables(self) -> dict[str, str]:
        """The environment variables of the program."""
        return self.display.variables()

    def program_started(self) -> None:
        """Called once, when the program runs. Does what its window needs from the environment."""

    def program_has_focus(self) -> bool:
        focused = self.display.run("xdotool", "getwindowfocus", "getwindowname")
        return focused.decode().strip() == self.window_title

    def kill_display_server(self) -> None:
        """Simulates a crash of the X server or the compositor that shows the program."""
        self.display.server.kill()


class Desktop:
    """A display with a desktop environment and the program."""

    def __init__(
        self, path: Path, environment: type[DesktopEnvironment] = DesktopEnvironment, variables: dict[str, str] = {}
    ):
        """`variables` are additional environment variables of the program."""
        self.path = path
        with ExitStack() as parts:
            self.display = parts.enter_context(Display(*environment.display_size))
            self.environment = parts.enter_context(environment(self.display))
            self.environment.start()
            program = Program(self.environment.command_of(path), self.environment.variables() | variables)
            self.program = parts.enter_context(program)
            self.environment.program_started()
            self._parts = parts.pop_all()

    def __enter__(self) -> "Desktop":
        return self

    def __exit__(self, *_: object) -> None:
        self._parts.close()

    def press(self, *keys: str) -> None:
        """Presses and releases one key after the other. Keys are X key names or key codes; "ctrl+space" is two keys."""
        self.display.run("xdotool", "key", *keys)

    def click_area(self, area: Area) -> None:
        """Clicks its centre."""
        x, y = (area.left + area.right) // 2, (area.top + area.bottom) // 2
        self.display.run("xdotool", "mousemove", str(x), str(y), "click", "1")

    def wait_for(self, what: str, condition: Callable[[Picture], bool]) -> Picture:
        """Returns the first picture that meets the condition and equals the picture before it."""
        previous = self.display.picture()

        def settled() -> bool:
            nonlocal previous
            self._require_running_program(what)
            before, previous = previous, self.display.picture()
            return before == previous and condition(previous)

        try:
            wait_until(what, settled)
        except WaitFailed as reason:
            path = Path(f"unexpected-{os.getpid()}.png").absolute()
            previous.save(path)
            raise WaitFailed(f"{reason}; the last picture is in {path}") from None
        return previous

    def wait_for_focus(self) -> None:
        """Keys that are pressed earlier may be lost."""
        wait_until("the program has the focus", self.environment.program_has_focus)

    def _require_running_program(self, what: str) -> None:
        status = self.program.process.poll()
        if status is not None:
            raise WaitFailed(f"{what}: the program ended with status {status}: {self.program.error_output()}")


def wait_until(what: str | Callable[[], str], condition: Callable[[], Found]) -> Found:
    """Returns the first result of the condition that is true. A function `what` is called after a timeout."""
    end = time.monotonic() + TIMEOUT
    while not (found := condition()):
        if time.monotonic() > end:
            raise WaitFailed(f"timeout after {TIMEOUT:.0f} s: {what() if callable(what) else what}")
        time.sleep(0.02)
    return found
