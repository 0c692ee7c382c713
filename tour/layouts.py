# SPDX-License-Identifier: MIT
"""The screens as designed: the places and colours of their controls, from the command `layout` of `scenario`."""

import os
import shlex
import subprocess
from pathlib import Path
from typing import NamedTuple

from picture import Area, Colour

SCREENS = ("accueil", "addition", "multiplication", "division", "record", "FIN", "FIN2", "Aurevoir")


class Title(NamedTuple):
    """The only label with a border."""

    area: Area
    colour: Colour
    background: Colour


class Layout(NamedTuple):
    places: dict[str, Area]  # by the name of the control; timers have none
    title: Title | None


def read_layouts(program: Path, frameless_scale: float = 1.0) -> dict[str, Layout]:
    """By the name of the screen. Runs the file that CHIFFROLO_SCENARIO names, or `scenario` beside the program."""
    player = os.environ.get("CHIFFROLO_SCENARIO", program.with_name("scenario"))
    commands = "".join(f"layout {screen}\n" for screen in SCREENS)
    output = subprocess.check_output([player], input=commands, encoding="utf-8")
    rows = [shlex.split(line)[1:] for line in output.splitlines() if line.startswith("layout ")]
    return {screen: _layout([row[1:] for row in rows if row[0] == screen], frameless_scale) for screen in SCREENS}


def _layout(rows: list[list[str]], frameless_scale: float) -> Layout:
    """Each row is a kind, a name, and the properties of this kind."""
    scale = frameless_scale if any(kind == "screen" and frame == "frameless" for kind, _, frame, *_ in rows) else 1.0
    places = {name: _twips(scale, *map(int, properties[:4]))
              for kind, name, *properties in rows if kind not in ("screen", "timer")}
    titles = [Title(places[name], _colour(properties[8]), _colour(properties[9]))
              for kind, name, *properties in rows if kind == "label" and properties[11] == "thin"]
    return Layout(places, titles[0] if titles else None)


def _twips(scale: float, left: int, top: int, width: int, height: int) -> Area:
    """Converts an area from twips (1/1440 inch) to pixels."""
    return Area(*(round(edge / 15 * scale) for edge in (left, top, left + width, top + height)))


def _colour(text: str) -> Colour:
    """From "#rrggbb"."""
    red, green, blue = bytes.fromhex(text.removeprefix("#"))
    return red, green, blue
