#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""Prints one table: what was measured, medians, ratios, and whether the goals are met.

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
sys.path.insert(0, str(BENCH.parent / "tour"))  # its learner finds the way to each screen

from desktop import Desktop, Display, end_process
from learner import Learner
from screens import WHITE

STARTS = 31
ROUNDS = 5  # in each of them, all programs have their turn
KEYS = 25  # a round; over in less than the twenty seconds that an answer may take
SETTLED = 2.0  # seconds, after which nothing of a start is left to do
IDLE = 10.0  # seconds
OBJECTIVE = 10  # points pass a level

# Qt has an accessibility tree then even if nobody has told the session bus that a screen reader runs.
ACCESSIBLE = {"QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1"}


class Programs(NamedTuple):
    chiffrolo: Path
    bare_qt: Path
    bare_xlib: Path
    window_bench: Path
    core_bench: Path


# ---- The table --------------------------------------------------------------------------------------------


class Table:
    def __init__(self) -> None:
        print(f"Cores: {os.cpu_count()}; programs that want one at the beginning: {os.getloadavg()[0]:.1f}\n")
        print("| measured | Chiffrolo | beside it | ratio | goal | met |")
        print("|---|---:|---:|---:|---:|---|", flush=True)

    def add_ratio(self, what: str, ours: float, beside: float, unit: str, most: float | None = None) -> None:
        ratio = round(ours / beside, 2)
        goal = "" if most is None else f"at most {most:.2f} | {_verdict(ratio <= most)}"
        self._add(what, f"{ours:.2f} {unit}", f"{beside:.2f} {unit}", f"{ratio:.2f}", goal)

    def add_amount(self, what: str, ours: int, unit: str, most: int | None = None) -> None:
        goal = "" if most is None else f"at most {most:,}{unit} | {_verdict(ours <= most)}"
        self._add(what, f"{ours:,}{unit}", "", "", goal)

    @staticmethod
    def _add(what: str, ours: str, beside: str, ratio: str, goal_and_verdict: str) -> None:
        print(f"| {what} | {ours} | {beside} | {ratio} | {goal_and_verdict or ' | '} |", flush=True)


def _verdict(met: bool) -> str:
    return "yes" if met else "no"


# ---- Times ------------------------------------------------------------------------------------------------


def times(command: list[str | Path], display: Display) -> list[float]:
    """In milliseconds."""
    return [float(line) for line in display.run(*map(str, command)).split()]


def measure_start(table: Table, programs: Programs) -> None:
    display = Display()
    try:
        turn = [programs.window_bench, "start", programs.chiffrolo, programs.bare_qt]
        ours, bare = zip(*(times(turn, display) for _ in range(STARTS)))
    finally:
        display.close()
    what = "start to first picture, beside a bare Qt window"
    table.add_ratio(what, median(ours), median(bare), "ms", most=1.2)


@contextmanager
def shown(program: Path, settings: dict[str, str]) -> Iterator[Desktop]:
    """A bare window, which is white."""
    with Desktop(program, settings=settings) as desktop:
        desktop.wait_for("the window", lambda picture: picture.pixel(0, 0) == WHITE)
        yield desktop


@contextmanager
def additions(program: Path, settings: dict[str, str]) -> Iterator[Desktop]:
    with Desktop(program, settings=settings) as desktop:
        learner = Learner(desktop)
        learner.start()
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
        with shown(programs.bare_qt, {}) as desktop:
            qt += time_keys(programs, desktop)
        with shown(programs.bare_xlib, {}) as desktop:
            xlib += time_keys(programs, desktop)
    what = "key press to changed pixels, beside a bare"
    table.add_ratio(f"{what} Qt widget", median(ours), median(qt), "ms", most=1.2)
    table.add_ratio(f"{what} Xlib window", median(ours), median(xlib), "ms")


@contextmanager
def session_with_screen_reader() -> Iterator[dict[str, str]]:
    """The variables that lead to its session bus."""
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


def measure_keys_heard(table: Table, programs: Programs) -> None:
    ours, qt = [], []
    with session_with_screen_reader() as session:
        for _ in range(ROUNDS):
            with additions(programs.chiffrolo, session | ACCESSIBLE) as desktop:
                ours += time_keys(programs, desktop)
            with shown(programs.bare_qt, session) as desktop:
                qt += time_keys(programs, desktop)
    what = "the same with a screen reader, beside a bare Qt widget without any"
    table.add_ratio(what, median(ours), median(qt), "ms", most=2.0)


# ---- Memory and rest --------------------------------------------------------------------------------------


def measure_memory(table: Table, programs: Programs) -> None:
    ours, bare = [], []
    for _ in range(ROUNDS):
        for program, found in (programs.chiffrolo, ours), (programs.bare_qt, bare):
            with Desktop(program) as desktop:
                time.sleep(SETTLED)
                found.append(memory(process_of(desktop)))
    what = "memory (proportional set size), beside a bare Qt window"
    table.add_ratio(what, median(ours), median(bare), "MB", most=1.25)


def process_of(desktop: Desktop) -> int:
    return int(desktop.display.run("xdotool", "getwindowfocus", "getwindowpid"))


def memory(process: int) -> float:
    """In megabytes. What several programs share counts in parts."""
    lines = Path(f"/proc/{process}/smaps_rollup").read_text(encoding="ascii").splitlines()
    (kilobytes,) = (int(line.split()[1]) for line in lines if line.startswith("Pss:"))
    return kilobytes * 1024 / 1e6


# The stopwatch ticks every second. To show its time, Qt asks the display whether the picture before it is out: the
# thread that asks and the one that listens to the display are woken, too.
MOST_WAKEUPS = {"record": 3 * round(IDLE + 1)}


def measure_wakeups(table: Table, programs: Programs) -> None:
    ways: dict[str, Callable[[Learner], object]] = {
        "accueil": lambda learner: None,
        "addition": lambda learner: learner.open("addition"),
        "multiplication": lambda learner: learner.open("multiplication"),
        "division": lambda learner: learner.open("division"),
        "record": lambda learner: learner.open("record"),
        "FIN": pass_level,
        "FIN2": give_challenge_up,
        "Aurevoir": lambda learner: learner.open("Aurevoir"),
    }
    for screen, way in ways.items():
        with Desktop(programs.chiffrolo) as desktop:
            learner = Learner(desktop)
            learner.start()
            way(learner)
            count = wakeups(process_of(desktop))
        what = f"wake-ups in {IDLE:.0f} idle seconds on the screen {screen}"
        table.add_amount(what, count, "", most=MOST_WAKEUPS.get(screen, 0))


def pass_level(learner: Learner) -> None:
    learner.open("addition")
    for _ in range(OBJECTIVE):
        _, operation = learner.see_operation("addition")
        learner.submit(operation.result)
        learner.see_bravo("addition")
        learner.desktop.press("Right")
    learner.see("FIN")


def give_challenge_up(learner: Learner) -> None:
    learner.open("record")
    learner.see_operation("record")
    learner.desktop.press("Escape")
    learner.see("FIN2")


def wakeups(process: int) -> int:
    """While the program is left alone."""
    time.sleep(SETTLED)
    before = switches(process)
    time.sleep(IDLE)
    return switches(process) - before


def switches(process: int) -> int:
    """A thread that sleeps and is woken switches voluntarily each time that it goes back to sleep."""
    threads = Path(f"/proc/{process}/task").glob("*/status")
    lines = [line for thread in threads for line in thread.read_text(encoding="utf-8").splitlines()]
    return sum(int(line.split()[1]) for line in lines if line.startswith("voluntary_ctxt_switches"))


# ---- The core, and the package ----------------------------------------------------------------------------


def measure_core(table: Table, programs: Programs) -> None:
    command = [programs.core_bench, "--benchmark_format=json"]
    told = subprocess.run(command, check=True, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL).stdout
    for benchmark in json.loads(told)["benchmarks"]:
        screen = benchmark["name"].partition("/")[2]
        table.add_amount(f"key presses a second in the core, {screen}", round(benchmark["items_per_second"]), "")


def measure_package(table: Table, package: Path) -> None:
    table.add_amount("package", package.stat().st_size, " bytes")
    with tempfile.TemporaryDirectory() as folder:
        subprocess.run(["dpkg-deb", "--extract", package, folder], check=True)
        installed = sum(path.lstat().st_size for path in Path(folder).rglob("*") if path.is_file())
    table.add_amount("installed, without the fonts, which are packages of their own", installed, " bytes", most=1_000_000)


def main(build: Path, package: Path) -> None:
    programs = Programs(*(build / name for name in Programs._fields))
    table = Table()
    measure_start(table, programs)
    measure_keys(table, programs)
    measure_keys_heard(table, programs)
    measure_memory(table, programs)
    measure_wakeups(table, programs)
    measure_core(table, programs)
    measure_package(table, package)


if __name__ == "__main__":
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    with tempfile.TemporaryDirectory() as runtime:
        os.environ["XDG_RUNTIME_DIR"] = runtime  # Qt complains where there is none
        main(Path(sys.argv[1]).absolute(), Path(sys.argv[2]))
