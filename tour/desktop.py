# SPDX-License-Identifier: MIT
"""Runs the program on a virtual display and sends it real key presses and clicks.

Every process that is started here is ended here, by its own id.
"""

import os
import select
import signal
import subprocess
import tempfile
import time
from collections.abc import Callable
from pathlib import Path
from typing import TypeVar

from picture import Area, Picture

TIMEOUT = 20.0  # seconds; long enough for every step on a busy machine
Found = TypeVar("Found")


class WaitFailed(AssertionError):
    """The expected state was not reached before the timeout, or the program ended first."""


def start_without_output(command: list[str], variables: dict[str, str]) -> subprocess.Popen:
    return subprocess.Popen(
        command,
        env=variables,
        stdin=subprocess.DEVNULL,
        stdout=subprocess.DEVNULL,
        stderr=subprocess.DEVNULL,
    )


def end_process(process: subprocess.Popen) -> None:
    if process.poll() is None:
        process.terminate()
    try:
        process.wait(5)
    except subprocess.TimeoutExpired:
        process.kill()
        process.wait()


class Display:
    """A virtual X server (Xvfb) with a runtime folder for its programs, so that they leave no files."""

    def __init__(self, width: int = 1280, height: int = 1024) -> None:
        """In pixels."""
        self.width = width
        self.height = height
        self._runtime = tempfile.TemporaryDirectory(ignore_cleanup_errors=True)
        answer, number = os.pipe()
        size = f"{width}x{height}"
        self._sizes = {size}
        self._server = subprocess.Popen(
            ["Xvfb", "-displayfd", str(number), "-noreset", "-nolisten", "tcp", "-screen", "0", f"{size}x24"],
            pass_fds=[number],
            stdin=subprocess.DEVNULL,
            stdout=subprocess.DEVNULL,
            stderr=subprocess.DEVNULL,
        )
        os.close(number)
        try:
            self.name = ":" + _read_first_line(answer)
        except WaitFailed:
            self.close()
            raise

    def variables(self) -> dict[str, str]:
        """The environment variables of a program on this display."""
        return variables_without_display() | {"DISPLAY": self.name, "XDG_RUNTIME_DIR": self._runtime.name}

    def run(self, *command: str) -> bytes:
        """Returns the standard output."""
        return subprocess.run(
            command,
            env=self.variables(),
            stdin=subprocess.DEVNULL,
            stdout=subprocess.PIPE,
            check=True,
            timeout=TIMEOUT,
        ).stdout

    def picture(self) -> Picture:
        return Picture.from_ppm(self.run("import", "-silent", "-window", "root", "-depth", "8", "ppm:-"))

    def set_keyboard_layout(self, name: str, variant: str = "") -> None:
        self.run("setxkbmap", "-layout", name, "-variant", variant)

    def resize(self, width: int, height: int) -> None:
        """At most to the initial size."""
        size = f"{width}x{height}"
        if size not in self._sizes:
            no_timing = [str(width)] * 4 + [str(height)] * 4
            self.run("xrandr", "--newmode", size, "1", *no_timing)
            self.run("xrandr", "--addmode", "screen", size)
            self._sizes.add(size)
        self.run("xrandr", "--output", "screen", "--mode", size)

    def kill(self) -> None:
        """Simulates a crash of the X server."""
        self._server.kill()
        self._server.wait()

    def close(self) -> None:
        end_process(self._server)
        self._runtime.cleanup()


def variables_without_display() -> dict[str, str]:
    """The environment variables of this process, without those that select a display or a desktop theme."""
    unwanted = ("DISPLAY", "WAYLAND_", "XAUTHORITY", "QT_", "XDG_CURRENT_DESKTOP", "DESKTOP_SESSION", "KDE_", "GNOME_")
    return {name: value for name, value in os.environ.items() if not name.startswith(unwanted)}


def _read_first_line(pipe: int) -> str:
    """Closes the pipe afterwards."""
    with open(pipe, encoding="ascii") as answer:
        readable, _, _ = select.select([answer], [], [], TIMEOUT)
        line = answer.readline().strip() if readable else ""
    if not line:
        raise WaitFailed("Xvfb did not start")
    return line


class Program:
    """The process of the program under test."""

    def __init__(self, command: list[str], variables: dict[str, str], folder: Path | None = None):
        self._errors = tempfile.TemporaryFile()
        self._process = subprocess.Popen(
            command,
            cwd=folder,
            env=variables,
            stdin=subprocess.DEVNULL,
            stdout=subprocess.DEVNULL,
            stderr=self._errors,
        )

    def is_running(self) -> bool:
        return self._process.poll() is None

    def send_signal(self, number: signal.Signals) -> None:
        self._process.send_signal(number)

    def exit_status(self, seconds: float = TIMEOUT) -> int:
        """Waits for the process to end. If a signal ended it, the status is the negative signal number."""
        try:
            return self._process.wait(seconds)
        except subprocess.TimeoutExpired:
            raise WaitFailed(f"the program did not end within {seconds} s") from None

    def error_output(self) -> str:
        """Everything written to standard error so far."""
        self._errors.seek(0)
        return self._errors.read().decode()

    def close(self) -> None:
        end_process(self._process)
        self._errors.close()


class DesktopEnvironment:
    """What runs on the display besides the program. This base class: nothing, not even a window manager."""

    panel_height = 0  # pixels, at the top edge of the display
    display_size = (1280, 1024)  # pixels
    frameless_scale = 1.0  # of the screens without a frame
    window_title = "Chiffrolo"

    def __init__(self, display: Display):
        self.display = display

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
        self.display.kill()

    def close(self) -> None:
        """Ends its processes. The display is closed later."""


class Desktop:
    """A display with a desktop environment and the program."""

    def __init__(
        self,
        path: Path,
        environment: type[DesktopEnvironment] = DesktopEnvironment,
        folder: Path | None = None,
        variables: dict[str, str] | None = None,
    ):
        """`folder` is the working directory of the program, `variables` are additional environment variables."""
        self.path = path
        self.display = Display(*environment.display_size)
        self._environment: DesktopEnvironment | None = None
        self._program: Program | None = None
        try:
            self._environment = environment(self.display)
            command = self._environment.command_of(path)
            self._program = Program(command, self._environment.variables() | (variables or {}), folder)
            self._environment.program_started()
        except BaseException:
            self.close()
            raise

    def __enter__(self) -> "Desktop":
        return self

    def __exit__(self, *_: object) -> None:
        self.close()

    @property
    def program(self) -> Program:
        assert self._program is not None
        return self._program

    @property
    def environment(self) -> DesktopEnvironment:
        assert self._environment is not None
        return self._environment

    def press(self, *keys: str) -> None:
        """Presses and releases one key after the other. Keys are X key names or key codes."""
        self.display.run("xdotool", "key", *keys)

    def press_with(self, modifier: str, *keys: str) -> None:
        """Like `press`, while the modifier is held down."""
        self.display.run("xdotool", "keydown", modifier, "key", *keys, "keyup", modifier)

    def click(self, x: int, y: int) -> None:
        self.display.run("xdotool", "mousemove", str(x), str(y), "click", "1")

    def click_area(self, area: Area) -> None:
        """Clicks its centre."""
        self.click((area.left + area.right) // 2, (area.top + area.bottom) // 2)

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
            raise WaitFailed(f"{reason}; {_save(previous)}") from None
        return previous

    def wait_for_focus(self) -> None:
        """Keys that are pressed earlier may be lost."""
        wait_until("the program has the focus", self.environment.program_has_focus)

    def _require_running_program(self, what: str) -> None:
        if not self.program.is_running():
            status = self.program.exit_status()
            raise WaitFailed(f"{what}: the program ended with status {status}: {self.program.error_output()}")

    def close(self) -> None:
        if self._program is not None:
            self._program.close()
        if self._environment is not None:
            self._environment.close()
        self.display.close()


def wait_until(what: str | Callable[[], str], condition: Callable[[], Found]) -> Found:
    """Returns the first result of the condition that is true. A function `what` is called after a timeout."""
    end = time.monotonic() + TIMEOUT
    while not (found := condition()):
        if time.monotonic() > end:
            raise WaitFailed(f"timeout after {TIMEOUT:.0f} s: {what() if callable(what) else what}")
        time.sleep(0.02)
    return found


def _save(picture: Picture) -> str:
    """Saves the last picture for the analysis of the failure. Returns a message with its path."""
    path = Path(f"unexpected-{os.getpid()}.ppm").absolute()
    path.write_bytes(picture.to_ppm())
    return f"the last picture is in {path}"
