# SPDX-License-Identifier: MIT
"""Reads the text of an operation from a picture.

Each character is compared with templates that ImageMagick draws with the same font.
"""

import subprocess
from functools import cache
from itertools import chain
from math import sqrt
from operator import mul
from typing import NamedTuple

from picture import Area, Colour, Picture


class Font(NamedTuple):
    face: str
    size: int  # in points


class CharacterSet(NamedTuple):
    """The characters that a line may contain, and the background colour of the line."""

    fonts: tuple[tuple[str, Font], ...]  # by character
    ascent: int  # pixels, from the top of a line to its baseline
    background: Colour


def _character_set(fonts: dict[str, Font], ascent: int, background: Colour) -> CharacterSet:
    return CharacterSet(tuple(fonts.items()), ascent, background)


WHITE: Colour = (255, 255, 255)
SERIF = Font("Times New Roman:bold", 28)
SANS = Font("Arial:bold", 14)
EXERCISE = _character_set({character: SERIF for character in "0123456789+-=?:"} | {"x": SANS}, 33, WHITE)
STOPWATCH = _character_set({digit: Font("Arial:bold", 24) for digit in "0123456789"}, 29, (0, 255, 255))

LINE_HEIGHT = 45  # pixels, from the top of a line to below its lowest descender
CELL_WIDTH = 60  # pixels, of one character in the picture of all templates
DIGIT_WIDTH = 18  # pixels, from one digit to the next
MAX_CHARACTER_WIDTH = 24  # pixels
FRAME_WIDTH = 30  # pixels, enough for the widest character
FRAME_MARGIN = 2  # pixels around a character that is compared

MIN_COLUMN_COVERAGE = 0.15  # a column with less is blank
MIN_CORRELATION = 0.8
MIN_LEAD = 0.04  # of the best match over the second best

Coverage = list[list[float]]  # rows of pixels: 0 is background, 1 is fully covered by the text


class Unreadable(AssertionError):
    """A character matches no template, or two of them."""


class Match(NamedTuple):
    correlation: float
    character: str


def read(picture: Picture, line: Area, colour: Colour, characters: CharacterSet = EXERCISE) -> str:
    """The text of this colour on the line that begins at the top of the area, without its spaces."""
    line = line._replace(bottom=line.top + LINE_HEIGHT)
    parts = split(coverage_of(picture.crop(line), colour, characters.background))
    return "".join(recognise(part, characters) for part in parts)


def coverage_of(picture: Picture, colour: Colour, background: Colour) -> Coverage:
    """How much of each pixel is covered by the text colour."""
    return [
        [_pixel_coverage(picture.pixel(x, y), colour, background) for x in range(picture.width)]
        for y in range(picture.height)
    ]


def _pixel_coverage(pixel: Colour, colour: Colour, background: Colour) -> float:
    """0 if the pixel is not a mixture of the background and this colour."""
    if pixel == background:
        return 0.0
    full = [blank - part for blank, part in zip(background, colour)]
    actual = [blank - part for blank, part in zip(background, pixel)]
    coverage = sum(f * a for f, a in zip(full, actual)) / sum(f * f for f in full)
    is_mixture = all(abs(coverage * f - a) <= 16 for f, a in zip(full, actual))
    return coverage if is_mixture else 0.0


def split(coverage: Coverage) -> list[Coverage]:
    """The single characters: splits at blank columns, and between digits that touch each other."""
    amounts = [sum(column) for column in zip(*coverage)]
    spans = [part for span in _covered_spans(amounts) for part in _split_touching_digits(span, amounts)]
    return [[row[span.start : span.stop] for row in coverage] for span in spans]


def _covered_spans(amounts: list[float]) -> list[range]:
    spans = []
    start = None
    for x, amount in enumerate([*amounts, 0.0]):
        if amount >= MIN_COLUMN_COVERAGE and start is None:
            start = x
        elif amount < MIN_COLUMN_COVERAGE and start is not None:
            spans.append(range(start, x))
            start = None
    return spans


def _split_touching_digits(span: range, amounts: list[float]) -> list[range]:
    """Splits at the column with the least coverage about one digit width to the right."""
    characters = []
    while len(span) > MAX_CHARACTER_WIDTH:
        columns = range(span.start + DIGIT_WIDTH - 3, span.start + DIGIT_WIDTH + 4)
        end = min(columns, key=lambda x: amounts[x])
        characters.append(range(span.start, end))
        span = range(end, span.stop)
    return [*characters, span]


def recognise(coverage: Coverage, characters: CharacterSet) -> str:
    seen = _unit_vector(coverage)
    matches = sorted(
        (Match(max(_dot_product(seen, variant) for variant in variants), character)
         for character, variants in _templates(characters).items()),
        reverse=True,
    )
    best, second = matches[:2]
    if best.correlation < MIN_CORRELATION or best.correlation - second.correlation < MIN_LEAD:
        raise Unreadable(f"ambiguous character: best {best}, second best {second}")
    return best.character


# ---- Correlation of pixels: 1 for equal pictures, about 0 for unrelated ones ----------------------------


def _unit_vector(coverage: Coverage, x: int = 0, y: int = 0) -> list[float]:
    """The pixels moved by (x, y), with mean 0 and length 1: the dot product of two vectors is their correlation."""
    pixels = _framed(coverage, x, y)
    mean = sum(pixels) / len(pixels)
    length = sqrt(sum((pixel - mean) ** 2 for pixel in pixels))
    return [(pixel - mean) / length for pixel in pixels]


def _dot_product(one: list[float], other: list[float]) -> float:
    return sum(map(mul, one, other))


def _framed(coverage: Coverage, x: int, y: int) -> list[float]:
    """Pads the moved pixels to a frame of the same size for all characters."""
    before = FRAME_MARGIN + x
    behind = FRAME_WIDTH - len(coverage[0]) - before
    rows = [[0.0] * before + row + [0.0] * behind for row in coverage]
    blank = [0.0] * FRAME_WIDTH
    return list(chain(*[blank] * (FRAME_MARGIN + y), *rows, *[blank] * (FRAME_MARGIN - y)))


# ---- Templates ------------------------------------------------------------------------------------------


@cache
def _templates(characters: CharacterSet) -> dict[str, list[list[float]]]:
    """The variants of each character: moved by up to one pixel in all directions."""
    black = (0, 0, 0)
    moves = [(x, y) for x in (-1, 0, 1) for y in (-1, 0, 1)]
    templates = {}
    for index, (character, _) in enumerate(characters.fonts):
        cell = Area(index * CELL_WIDTH, 0, (index + 1) * CELL_WIDTH, LINE_HEIGHT)
        (coverage,) = split(coverage_of(_draw_templates(characters).crop(cell), black, WHITE))
        templates[character] = [_unit_vector(coverage, x, y) for x, y in moves]
    return templates


@cache
def _draw_templates(characters: CharacterSet) -> Picture:
    """All characters in a row, each in its own cell."""
    size = f"{CELL_WIDTH * len(characters.fonts)}x{LINE_HEIGHT}"
    command = ["convert", "-size", size, "xc:white", "-fill", "black", "-density", "96"]
    command += ["-define", "type:hinting=off"]
    for index, (character, font) in enumerate(characters.fonts):
        command += ["-font", _font_file(font.face), "-pointsize", str(font.size)]
        command += ["-annotate", f"+{index * CELL_WIDTH + 10}+{characters.ascent}", character]
    command += ["-depth", "8", "ppm:-"]
    return Picture.from_ppm(subprocess.run(command, stdout=subprocess.PIPE, check=True).stdout)


@cache
def _font_file(face: str) -> str:
    """The file that the program also gets from fontconfig for this face."""
    command = ["fc-match", "--format=%{file}", face]
    return subprocess.run(command, stdout=subprocess.PIPE, check=True, text=True).stdout
