#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""Measures the program and prints one table of medians, ratios and goals.

Usage: measure.py BUILD_FOLDER DEBIAN_PACKAGE
"""

import json
import os
import subprocess
import sys
import tempfile
import time
from collections.abc import Callable, Iterator
from contextlib import contextmanager
from pathlib import Path
from statistics import median
from typing import NamedTuple

BENCH = Path(__file__).resolve().parent
sys.path.insert(0, str(BENCH.parent / "tour"))  # for its learner

from desktop import Desktop, Display, end_process
from learner import Learner
from screens import WHITE
from table import Table

STARTS = 31
ROUNDS = 5  # each one measures all programs
KEYS = 25  # per round; takes less time than the limit of an operation
STARTUP_TIME = 2.0  # seconds, after which all work of the start is done
IDLE_TIME = 10.0  # seconds
OBJECTIVE = 10  # points that complete a level

# Makes Qt provide its accessibility tree although the session bus does not report a running screen reader.
ACCESSIBLE = {"QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1"}


class Programs(NamedTuple):
    chiffrolo: Path
    bare_qt: Path
    bare_xlib: Path
    window_bench: Path
    core_bench: Path


# ---- Times ------------------------------------------------------------------------------------------------


def times(command: list[str | Path], display: Display) -> list[float]:
    """In milliseconds."""
    return [float(line) for line in display.run(*map(str, command)).split()]


def measure_start(table: Table, programs: Programs) -> None:
    command: list[str | Path] = [programs.window_bench, "start", programs.chiffrolo, programs.bare_qt]
    with Display() as display:
        ours, bare = zip(*(times(command, display) for _ in range(STARTS)))
    what = "start to first picture, compared with a bare Qt window"
    table.add_ratio(what, median(ours), median(bare), "ms", maximum=1.2)


@contextmanager
def bare_window(program: Path, variables: dict[str, str]) -> Iterator[Desktop]:
    """A desktop with a bare window, which is white. Waits until it is shown."""
    with Desktop(program, variables=variables) as desktop:
        desktop.wait_for("the window", lambda picture: picture.pixel(0, 0) == WHITE)
        yield desktop


@contextmanager
def additions(program: Path, variables: dict[str, str]) -> Iterator[Desktop]:
    with Desktop(program, variables=variables) as desktop:
        learner = Learner(desktop)
        learner.wait_for_start()
        learner.open("addition")
        yield desktop


def time_keys(programs: Programs, desktop: Desktop) -> list[float]:
    time.sleep(0.5)
    return times([programs.window_bench, "keys", str(KEYS)], desktop.display)


def measure_keys(table: Table, programs: Programs) -> None:
    ours, qt, xlib = [], [], []
    for _ in range(ROUNDS):
        with additions(programs.chiffrolo, {}) as desktop:
            ours += time_keys(programs, desktop)
        with bare_window(programs.bare_qt, {}) as desktop:
            qt += time_keys(programs, desktop)
        with bare_window(programs.bare_xlib, {}) as desktop:
            xlib += time_keys(programs, desktop)
    what = "key press to changed pixels, compared with a bare"
    table.add_ratio(f"{what} Qt widget", median(ours), median(qt), "ms", maximum=1.2)
    table.add_ratio(f"{what} Xlib window", median(ours), median(xlib), "ms")


@contextmanager
def session_with_screen_reader() -> Iterator[dict[str, str]]:
    """Yields the environment variables of its session bus."""
    command = ["dbus-daemon", "--session", "--nofork", "--print-address"]
    bus = subprocess.Popen(command, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)
    try:
        session = {"DBUS_SESSION_BUS_ADDRESS": bus.stdout.readline().strip()}
        command = [sys.executable, "-B", str(BENCH / "screen_reader.py")]
        reader = subprocess.Popen(command, env=os.environ | session, stdout=subprocess.PIPE, text=True)
        try:
            reader.stdout.readline()
            yield session
        finally:
            end_process(reader)
    finally:
        end_process(bus)


def measure_keys_with_screen_reader(table: Table, programs: Programs) -> None:
    ours, qt = [], []
    with session_with_screen_reader() as session:
        for _ in range(ROUNDS):
            with additions(programs.chiffrolo, session | ACCESSIBLE) as desktop:
                ours += time_keys(programs, desktop)
            with bare_window(programs.bare_qt, session) as desktop:
                qt += time_keys(programs, desktop)
    what = "the same with a screen reader, compared with a bare Qt widget without accessibility"
    table.add_ratio(what, median(ours), median(qt), "ms", maximum=2.0)


# ---- Memory and wake-ups ----------------------------------------------------------------------------------


def measure_memory(table: Table, programs: Programs) -> None:
    ours: list[float] = []
    bare: list[float] = []
    for _ in range(ROUNDS):
        for program, results in (programs.chiffrolo, ours), (programs.bare_qt, bare):
            with Desktop(program) as desktop:
                time.sleep(STARTUP_TIME)
                results.append(memory(process_of(desktop)))
    what = "memory (proportional set size), compared with a bare Qt window"
    table.add_ratio(what, median(ours), median(bare), "MB", maximum=1.25)


def process_of(desktop: Desktop) -> int:
    return int(desktop.display.run("xdotool", "getwindowfocus", "getwindowpid"))


def memory(process: int) -> float:
    """In megabytes. Shared pages are divided among the processes that map them."""
    lines = Path(f"/proc/{process}/smaps_rollup").read_text(encoding="ascii").splitlines()
    (kilobytes,) = (int(line.split()[1]) for line in lines if line.startswith("Pss:"))
    return kilobytes * 1024 / 1e6


# Three for each tick of the stopwatch, once per second: the timer, and two threads of Qt. Before Qt shows a picture, it
# queries the display whether the previous one is shown. This wakes the querying thread and the one that reads replies.
MAX_WAKEUPS = {"record": 3 * round(IDLE_TIME + 1)}


def measure_wakeups(table: Table, programs: Programs) -> None:
    actions: dict[str, Callable[[Learner], object]] = {
        "accueil": lambda learner: None,
        "addition": lambda learner: learner.open("addition"),
        "multiplication": lambda learner: learner.open("multiplication"),
        "division": lambda learner: learner.open("division"),
        "record": lambda learner: learner.open("record"),
        "FIN": complete_level,
        "FIN2": abandon_challenge,
        "Aurevoir": lambda learner: learner.open("Aurevoir"),
    }
    for screen, action in actions.items():
        with Desktop(programs.chiffrolo) as desktop:
            learner = Learner(desktop)
            learner.wait_for_start()
            action(learner)
            count = count_wakeups(process_of(desktop))
        what = f"wake-ups in {IDLE_TIME:.0f} idle seconds on the screen {screen}"
        table.add_amount(what, count, "", maximum=MAX_WAKEUPS.get(screen, 0))


def complete_level(learner: Learner) -> None:
    learner.open("addition")
    for _ in range(OBJECTIVE):
        _, operation = learner.wait_for_operation("addition")
        learner.submit(operation.result)
        learner.wait_for_bravo("addition")
        learner.desktop.press("Right")
    learner.wait_for_screen("FIN")


def abandon_challenge(learner: Learner) -> None:
    learner.open("record")
    learner.wait_for_operation("record")
    learner.desktop.press("Escape")
    learner.wait_for_screen("FIN2")


def count_wakeups(process: int) -> int:
    """The number of wake-ups of all threads while the program receives no input."""
    time.sleep(STARTUP_TIME)
    before = voluntary_switches(process)
    time.sleep(IDLE_TIME)
    return voluntary_switches(process) - before


def voluntary_switches(process: int) -> int:
    """The number of voluntary context switches. Each wake-up ends with one, when the thread sleeps again."""
    threads = Path(f"/proc/{process}/task").glob("*/status")
    lines = [line for thread in threads for line in thread.read_text(encoding="utf-8").splitlines()]
    return sum(int(line.split()[1]) for line in lines if line.startswith("voluntary_ctxt_switches"))


# ---- The core, and the package ----------------------------------------------------------------------------


def measure_core(table: Table, programs: Programs) -> None:
    command = [str(programs.core_bench), "--benchmark_format=json"]
    output = subprocess.run(command, check=True, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL).stdout
    for benchmark in json.loads(output)["benchmarks"]:
        screen = benchmark["name"].partition("/")[2]
        table.add_amount(f"key presses per second in the core, {screen}", round(benchmark["items_per_second"]), "")


def measure_package(table: Table, package: Path) -> None:
    table.add_amount("package size", package.stat().st_size, " bytes")
    with tempfile.TemporaryDirectory() as folder:
        subprocess.run(["dpkg-deb", "--extract", package, folder], check=True)
        installed = sum(path.lstat().st_size for path in Path(folder).rglob("*") if path.is_file())
    table.add_amount("installed size, without the fonts (separate packages)", installed, " bytes", maximum=1_000_000)


def main(build: Path, package: Path) -> None:
    programs = Programs(*(build / name for name in Programs._fields))
    table = Table()
    measure_start(table, programs)
    measure_keys(table, programs)
    measure_keys_with_screen_reader(table, programs)
    measure_memory(table, programs)
    measure_wakeups(table, programs)
    measure_core(table, programs)
    measure_package(table, package)


if __name__ == "__main__":
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    with tempfile.TemporaryDirectory() as runtime:
        os.environ["XDG_RUNTIME_DIR"] = runtime  # Qt prints a warning if it is not set
        main(Path(sys.argv[1]).absolute(), Path(sys.argv[2]))
