# SPDX-License-Identifier: MIT
"""A virtual display with the program on it, driven by real key presses and clicks.

Whatever is started here is ended here, each process by its own id.
"""

import os
import select
import signal
import subprocess
import tempfile
import time
from collections.abc import Callable
from pathlib import Path

from picture import Area, Picture

PATIENCE = 20.0  # seconds; far more than anything takes, even on a busy machine


class NotSeen(AssertionError):
    """What was waited for did not happen in time."""


def start_quietly(command: list[str], environment: dict[str, str]) -> subprocess.Popen:
    """Nobody hears what it says."""
    return subprocess.Popen(
        command,
        env=environment,
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
    """An X server without a screen of glass: 1280 x 1024 pixels."""

    width = 1280
    height = 1024

    def __init__(self) -> None:
        answer, number = os.pipe()
        size = f"{self.width}x{self.height}"
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
            self.name = ":" + _line_from(answer)
        except NotSeen:
            self.close()
            raise

    def environment(self) -> dict[str, str]:
        return environment_without_display() | {"DISPLAY": self.name}

    def run(self, *command: str) -> bytes:
        return subprocess.run(
            command,
            env=self.environment(),
            stdin=subprocess.DEVNULL,
            stdout=subprocess.PIPE,
            check=True,
            timeout=PATIENCE,
        ).stdout

    def picture(self) -> Picture:
        return Picture.from_ppm(self.run("import", "-silent", "-window", "root", "-depth", "8", "ppm:-"))

    def set_layout(self, name: str, variant: str = "") -> None:
        """Of the keyboard."""
        self.run("setxkbmap", "-layout", name, "-variant", variant)

    def resize(self, width: int, height: int) -> None:
        """To at most the size that it started with."""
        size = f"{width}x{height}"
        if size not in self._sizes:
            no_timing = [str(width)] * 4 + [str(height)] * 4
            self.run("xrandr", "--newmode", size, "1", *no_timing)
            self.run("xrandr", "--addmode", "screen", size)
            self._sizes.add(size)
        self.run("xrandr", "--output", "screen", "--mode", size)

    def break_down(self) -> None:
        """Goes away as in a crash."""
        self._server.kill()
        self._server.wait()

    def close(self) -> None:
        end_process(self._server)


def environment_without_display() -> dict[str, str]:
    """This process's own environment, less what would lead to another display or to a desktop's own look."""
    unwanted = ("DISPLAY", "WAYLAND_", "XAUTHORITY", "QT_", "XDG_CURRENT_DESKTOP", "DESKTOP_SESSION", "KDE_", "GNOME_")
    return {name: value for name, value in os.environ.items() if not name.startswith(unwanted)}


def _line_from(pipe: int) -> str:
    """The first line that comes out of the pipe, which is closed then."""
    with open(pipe, encoding="ascii") as answer:
        readable, _, _ = select.select([answer], [], [], PATIENCE)
        line = answer.readline().strip() if readable else ""
    if not line:
        raise NotSeen("Xvfb did not start")
    return line


class Program:
    """The program under test, as a process."""

    def __init__(self, path: Path, environment: dict[str, str], folder: Path | None = None):
        self._errors = tempfile.TemporaryFile()
        self._process = subprocess.Popen(
            [str(path)],
            cwd=folder,
            env=environment,
            stdin=subprocess.DEVNULL,
            stdout=subprocess.DEVNULL,
            stderr=self._errors,
        )

    def is_running(self) -> bool:
        return self._process.poll() is None

    def send(self, sign: signal.Signals) -> None:
        self._process.send_signal(sign)

    def exit_status(self, seconds: float = PATIENCE) -> int:
        """Waits for the end. A signal counts as a negative status."""
        try:
            return self._process.wait(seconds)
        except subprocess.TimeoutExpired:
            raise NotSeen(f"the program did not end within {seconds} s") from None

    def errors(self) -> str:
        """What it has said on standard error."""
        self._errors.seek(0)
        return self._errors.read().decode()

    def close(self) -> None:
        end_process(self._process)
        self._errors.close()


class Surroundings:
    """What a display has beside the program: nothing, not even a window manager."""

    def __init__(self, display: Display):
        self.display = display

    def environment(self) -> dict[str, str]:
        """For the program."""
        return self.display.environment()

    def program_has_keys(self) -> bool:
        """Otherwise keys might go elsewhere."""
        focused = self.display.run("xdotool", "getwindowfocus", "getwindowname")
        return focused.strip() == b"Chiffrolo"

    def break_down(self) -> None:
        """What shows the program goes away as in a crash."""
        self.display.break_down()

    def close(self) -> None:
        """Ends them; the display is still there."""


class Desktop:
    """A display with the program on it, and with what else is asked for."""

    def __init__(
        self,
        path: Path,
        surroundings: Callable[[Display], Surroundings] = Surroundings,
        folder: Path | None = None,
        settings: dict[str, str] | None = None,
    ):
        """`settings` are variables of the program's environment."""
        self.display = Display()
        self._surroundings: Surroundings | None = None
        self._program: Program | None = None
        try:
            self._surroundings = surroundings(self.display)
            self._program = Program(path, self._surroundings.environment() | (settings or {}), folder)
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
    def surroundings(self) -> Surroundings:
        assert self._surroundings is not None
        return self._surroundings

    def press(self, *keys: str) -> None:
        """One after the other, each let go before the next; by their X names, or by their codes."""
        self.display.run("xdotool", "key", *keys)

    def press_with(self, modifier: str, *keys: str) -> None:
        """While the modifier is held down."""
        self.display.run("xdotool", "keydown", modifier, "key", *keys, "keyup", modifier)

    def click(self, x: int, y: int) -> None:
        self.display.run("xdotool", "mousemove", str(x), str(y), "click", "1")

    def click_into(self, area: Area) -> None:
        self.click((area.left + area.right) // 2, (area.top + area.bottom) // 2)

    def wait_for(self, what: str, condition: Callable[[Picture], bool]) -> Picture:
        """The first picture that fulfils the condition and stays as it is."""
        previous = self.display.picture()

        def settled() -> bool:
            nonlocal previous
            self._expect_program_to_run(what)
            before, previous = previous, self.display.picture()
            return before == previous and condition(previous)

        try:
            wait_until(what, settled)
        except NotSeen as reason:
            raise NotSeen(f"{reason}; {_keep(previous)}") from None
        return previous

    def wait_for_focus(self) -> None:
        """Until then, keys might go nowhere."""
        wait_until("the program has the keys", self.surroundings.program_has_keys)

    def _expect_program_to_run(self, what: str) -> None:
        if not self.program.is_running():
            status = self.program.exit_status()
            raise NotSeen(f"{what}: the program ended with status {status}: {self.program.errors()}")

    def close(self) -> None:
        if self._program is not None:
            self._program.close()
        if self._surroundings is not None:
            self._surroundings.close()
        self.display.close()


def wait_until(what: str, condition: Callable[[], bool]) -> None:
    end = time.monotonic() + PATIENCE
    while not condition():
        if time.monotonic() > end:
            raise NotSeen(f"not within {PATIENCE:.0f} s: {what}")
        time.sleep(0.02)


def _keep(picture: Picture) -> str:
    """Saves what was seen instead, for whoever looks into the failure."""
    path = Path(f"unexpected-{os.getpid()}.ppm").absolute()
    path.write_bytes(picture.to_ppm())
    return f"what was seen instead is in {path}"
