# SPDX-License-Identifier: MIT
"""Reads an operation from a picture.

Each character is compared with the same one drawn from the same font by another program.
"""

import subprocess
from functools import cache
from math import sqrt
from typing import NamedTuple

from picture import Area, Colour, Picture

SYMBOLS = "0123456789+-=?"
SIZE = 28  # points
FACE = "Times New Roman:bold"

LINE_HEIGHT = 45  # pixels, from the top of a line to below its deepest letters
ASCENT = 33  # pixels, from the top of a line to the feet of its letters
CELL = 60  # pixels, the width that each symbol has for itself when they are drawn

FAINT = 0.15  # a column with less ink than that is blank
LEAST_LIKENESS = 0.8
LEAST_MARGIN = 0.04  # by which the likest symbol is liker than any other

Ink = list[list[float]]  # rows of pixels: 0 is paper, 1 is ink


class Unreadable(AssertionError):
    """A character that is like no symbol, or like two."""


class Match(NamedTuple):
    likeness: float
    symbol: str


def read(picture: Picture, line: Area, colour: Colour) -> str:
    """What stands on a line in that colour, without its blanks."""
    characters = split(ink_of(picture.crop(line), colour))
    return "".join(recognise(character) for character in characters)


def ink_of(picture: Picture, colour: Colour) -> Ink:
    """How much of each pixel is covered with that colour, on white paper."""
    return [
        [_coverage(picture.pixel(x, y), colour) for x in range(picture.width)] for y in range(picture.height)
    ]


def _coverage(pixel: Colour, colour: Colour) -> float:
    """0 too when the pixel is no mixture of white and that colour."""
    if pixel == (255, 255, 255):
        return 0.0
    depth = [255 - part for part in colour]
    missing = [255 - part for part in pixel]
    coverage = sum(d * m for d, m in zip(depth, missing)) / sum(d * d for d in depth)
    is_mixture = all(abs(coverage * d - m) <= 16 for d, m in zip(depth, missing))
    return coverage if is_mixture else 0.0


def split(ink: Ink) -> list[Ink]:
    """The characters: whatever has a blank column to both sides."""
    columns = [sum(column) for column in zip(*ink)] + [0.0]
    characters = []
    start = None
    for x, amount in enumerate(columns):
        if amount >= FAINT and start is None:
            start = x
        elif amount < FAINT and start is not None:
            characters.append([row[start:x] for row in ink])
            start = None
    return characters


def recognise(character: Ink) -> str:
    matches = sorted(
        (Match(likeness(character, template), symbol) for symbol, template in templates().items()), reverse=True
    )
    best, second = matches[:2]
    if best.likeness < LEAST_LIKENESS or best.likeness - second.likeness < LEAST_MARGIN:
        raise Unreadable(f"{best} is not clear enough against {second}")
    return best.symbol


def likeness(one: Ink, other: Ink) -> float:
    """The correlation of the two where they fit best: 1 for the same, about 0 for strangers."""
    if abs(len(one[0]) - len(other[0])) > 3:
        return 0.0
    shifts = [(x, y) for x in (-1, 0, 1) for y in (-2, -1, 0, 1, 2)]
    return max(_correlation(_framed(one, 0, 0), _framed(other, x, y)) for x, y in shifts)


def _framed(ink: Ink, x: int, y: int) -> list[float]:
    """All pixels row by row, the ink moved by (x, y) in a frame that is wide enough for any symbol."""
    width = 40
    margin = 2
    blank = [0.0] * width
    right = width - len(ink[0]) - margin - x
    rows = [[0.0] * (margin + x) + row + [0.0] * right for row in ink]
    return sum([blank] * (margin + y) + rows + [blank] * (margin - y), [])


def _correlation(one: list[float], other: list[float]) -> float:
    count = len(one)
    mean_one = sum(one) / count
    mean_other = sum(other) / count
    both = sum(a * b for a, b in zip(one, other)) - count * mean_one * mean_other
    alone = sum(a * a for a in one) - count * mean_one**2
    alone_other = sum(b * b for b in other) - count * mean_other**2
    return both / sqrt(alone * alone_other)


@cache
def templates() -> dict[str, Ink]:
    black = (0, 0, 0)
    drawn = {}
    for place, symbol in enumerate(SYMBOLS):
        cell = Area(place * CELL, 0, (place + 1) * CELL, LINE_HEIGHT)
        (drawn[symbol],) = split(ink_of(_sheet_of_symbols().crop(cell), black))
    return drawn


@cache
def _sheet_of_symbols() -> Picture:
    """All symbols in a row, each in a cell of its own."""
    size = f"{CELL * len(SYMBOLS)}x{LINE_HEIGHT}"
    command = ["convert", "-size", size, "xc:white", "-fill", "black", "-font", _font_file()]
    command += ["-density", "96", "-pointsize", str(SIZE), "-define", "type:hinting=off"]
    for place, symbol in enumerate(SYMBOLS):
        command += ["-annotate", f"+{place * CELL + 10}+{ASCENT}", symbol]
    command += ["-depth", "8", "ppm:-"]
    return Picture.from_ppm(subprocess.run(command, stdout=subprocess.PIPE, check=True).stdout)


def _font_file() -> str:
    """What the program gets too when it asks for that face."""
    command = ["fc-match", "--format=%{file}", FACE]
    return subprocess.run(command, stdout=subprocess.PIPE, check=True, text=True).stdout
