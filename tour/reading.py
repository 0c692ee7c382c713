# SPDX-License-Identifier: MIT
"""Reads an operation from a picture.

Each character is compared with the same one drawn from the same font by another program.
"""

import subprocess
from functools import cache
from itertools import chain
from math import sqrt
from operator import mul
from typing import NamedTuple

from picture import Area, Colour, Picture


class Style(NamedTuple):
    face: str
    size: int  # in points


class Script(NamedTuple):
    """What can stand on a line, and on which paper."""

    symbols: tuple[tuple[str, Style], ...]
    ascent: int  # pixels, from the top of a line to the feet of its letters
    paper: Colour


def _script(symbols: dict[str, Style], ascent: int, paper: Colour) -> Script:
    return Script(tuple(symbols.items()), ascent, paper)


WHITE: Colour = (255, 255, 255)
SERIF = Style("Times New Roman:bold", 28)
SANS = Style("Arial:bold", 14)
EXERCISE = _script({symbol: SERIF for symbol in "0123456789+-=?:"} | {"x": SANS}, 33, WHITE)
STOPWATCH = _script({symbol: Style("Arial:bold", 24) for symbol in "0123456789"}, 29, (0, 255, 255))

LINE_HEIGHT = 45  # pixels, from the top of a line to below its deepest letters
CELL = 60  # pixels, the width that each symbol has for itself when they are drawn
DIGIT_WIDTH = 18  # pixels, from one digit to the next
WIDEST = 24  # pixels that one character covers at most
FRAME_WIDTH = 30  # pixels, enough for the widest character
FRAME_MARGIN = 2  # pixels around a symbol that is compared

FAINT = 0.15  # a column with less ink than that is blank
LEAST_LIKENESS = 0.8
LEAST_MARGIN = 0.04  # by which the likest symbol is liker than any other

Ink = list[list[float]]  # rows of pixels: 0 is paper, 1 is ink


class Unreadable(AssertionError):
    """A character that is like no symbol, or like two."""


class Match(NamedTuple):
    likeness: float
    symbol: str


def read(picture: Picture, line: Area, colour: Colour, script: Script = EXERCISE) -> str:
    """What stands in that colour on the line of text that begins at the top of an area; without its blanks."""
    line = line._replace(bottom=line.top + LINE_HEIGHT)
    characters = split(ink_of(picture.crop(line), colour, script.paper))
    return "".join(recognise(character, script) for character in characters)


def ink_of(picture: Picture, colour: Colour, paper: Colour) -> Ink:
    """How much of each pixel is covered with that colour."""
    return [
        [_coverage(picture.pixel(x, y), colour, paper) for x in range(picture.width)]
        for y in range(picture.height)
    ]


def _coverage(pixel: Colour, colour: Colour, paper: Colour) -> float:
    """0 too when the pixel is no mixture of paper and that colour."""
    if pixel == paper:
        return 0.0
    depth = [blank - part for blank, part in zip(paper, colour)]
    missing = [blank - part for blank, part in zip(paper, pixel)]
    coverage = sum(d * m for d, m in zip(depth, missing)) / sum(d * d for d in depth)
    is_mixture = all(abs(coverage * d - m) <= 16 for d, m in zip(depth, missing))
    return coverage if is_mixture else 0.0


def split(ink: Ink) -> list[Ink]:
    """The characters: whatever has a blank column to both sides, and digits that touch each other."""
    amounts = [sum(column) for column in zip(*ink)]
    spans = [cut for span in _inked_spans(amounts) for cut in _cut(span, amounts)]
    return [[row[span.start : span.stop] for row in ink] for span in spans]


def _inked_spans(amounts: list[float]) -> list[range]:
    spans = []
    start = None
    for x, amount in enumerate([*amounts, 0.0]):
        if amount >= FAINT and start is None:
            start = x
        elif amount < FAINT and start is not None:
            spans.append(range(start, x))
            start = None
    return spans


def _cut(span: range, amounts: list[float]) -> list[range]:
    """One character after the other, cut off where there is least ink about the width of a digit further on."""
    characters = []
    while len(span) > WIDEST:
        places = range(span.start + DIGIT_WIDTH - 3, span.start + DIGIT_WIDTH + 4)
        at = min(places, key=lambda x: amounts[x])
        characters.append(range(span.start, at))
        span = range(at, span.stop)
    return [*characters, span]


def recognise(character: Ink, script: Script) -> str:
    seen = _direction(character)
    matches = sorted(
        (Match(max(_product(seen, variant) for variant in variants), symbol)
         for symbol, variants in _templates(script).items()),
        reverse=True,
    )
    best, second = matches[:2]
    if best.likeness < LEAST_LIKENESS or best.likeness - second.likeness < LEAST_MARGIN:
        raise Unreadable(f"{best} is not clear enough against {second}")
    return best.symbol


# ---- Likeness: the correlation of the pixels, 1 for the same picture and about 0 for strangers ----------


def _direction(ink: Ink, x: int = 0, y: int = 0) -> list[float]:
    """All pixels in one row, the ink moved by (x, y), so that the product of two such rows is their correlation."""
    pixels = _framed(ink, x, y)
    mean = sum(pixels) / len(pixels)
    length = sqrt(sum((pixel - mean) ** 2 for pixel in pixels))
    return [(pixel - mean) / length for pixel in pixels]


def _product(one: list[float], other: list[float]) -> float:
    return sum(map(mul, one, other))


def _framed(ink: Ink, x: int, y: int) -> list[float]:
    """In a frame that has room for any character wherever it is moved."""
    before = FRAME_MARGIN + x
    behind = FRAME_WIDTH - len(ink[0]) - before
    rows = [[0.0] * before + row + [0.0] * behind for row in ink]
    blank = [0.0] * FRAME_WIDTH
    return list(chain(*[blank] * (FRAME_MARGIN + y), *rows, *[blank] * (FRAME_MARGIN - y)))


# ---- Templates ------------------------------------------------------------------------------------------


@cache
def _templates(script: Script) -> dict[str, list[list[float]]]:
    """Each symbol, moved a little in all directions."""
    black = (0, 0, 0)
    moves = [(x, y) for x in (-1, 0, 1) for y in (-1, 0, 1)]
    drawn = {}
    for place, (symbol, _) in enumerate(script.symbols):
        cell = Area(place * CELL, 0, (place + 1) * CELL, LINE_HEIGHT)
        (ink,) = split(ink_of(_sheet_of_symbols(script).crop(cell), black, WHITE))
        drawn[symbol] = [_direction(ink, x, y) for x, y in moves]
    return drawn


@cache
def _sheet_of_symbols(script: Script) -> Picture:
    """All symbols in a row, each in a cell of its own."""
    size = f"{CELL * len(script.symbols)}x{LINE_HEIGHT}"
    command = ["convert", "-size", size, "xc:white", "-fill", "black", "-density", "96"]
    command += ["-define", "type:hinting=off"]
    for place, (symbol, style) in enumerate(script.symbols):
        command += ["-font", _font_file(style.face), "-pointsize", str(style.size)]
        command += ["-annotate", f"+{place * CELL + 10}+{script.ascent}", symbol]
    command += ["-depth", "8", "ppm:-"]
    return Picture.from_ppm(subprocess.run(command, stdout=subprocess.PIPE, check=True).stdout)


@cache
def _font_file(face: str) -> str:
    """What the program gets too when it asks for that face."""
    command = ["fc-match", "--format=%{file}", face]
    return subprocess.run(command, stdout=subprocess.PIPE, check=True, text=True).stdout
