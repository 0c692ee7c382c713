# SPDX-License-Identifier: MIT
"""Reads the text of an operation from a picture.

Each character is compared with templates that are drawn with the same font.
"""

import subprocess
from functools import cache
from typing import NamedTuple

import numpy
from PIL import Image, ImageDraw, ImageFont

from picture import Area, Colour, Picture
from screens import BLUE, LIGHT_CYAN, LIGHT_RED, WHITE


class Font(NamedTuple):
    face: str
    size: int  # in points


class CharacterSet(NamedTuple):
    """The characters that a line may contain, and the colours of the line."""

    fonts: tuple[tuple[str, Font], ...]  # by character; tuples, because templates are cached by them
    ascent: int  # pixels, from the top of a line to its baseline
    colour: Colour
    background: Colour


SERIF = Font("Times New Roman:bold", 28)
SANS = Font("Arial:bold", 14)
EXERCISE_FONTS = (*((character, SERIF) for character in "0123456789+-=?:"), ("x", SANS))
STOPWATCH_FONTS = tuple((digit, Font("Arial:bold", 24)) for digit in "0123456789")
EXERCISE = CharacterSet(EXERCISE_FONTS, 33, BLUE, WHITE)
STOPWATCH = CharacterSet(STOPWATCH_FONTS, 29, LIGHT_RED, LIGHT_CYAN)

LINE_HEIGHT = 45  # pixels, from the top of a line to below its lowest descender
DIGIT_WIDTH = 18  # pixels, from one digit to the next
MAX_CHARACTER_WIDTH = 24  # pixels
FRAME_WIDTH = 30  # pixels, enough for the widest character
FRAME_MARGIN = 2  # pixels around a character that is compared

MAX_DEVIATION = 16  # of a colour channel of a pixel from the mixture of text and background
MIN_COLUMN_COVERAGE = 0.15  # a column with less is blank
MIN_CORRELATION = 0.8
MIN_LEAD = 0.04  # of the best match over the second best

Coverage = numpy.ndarray  # rows of pixels: 0 is background, 1 is fully covered by the text


class Unreadable(AssertionError):
    """A character matches no template, or two of them."""


class Match(NamedTuple):
    correlation: float
    character: str


def read(picture: Picture, line: Area, characters: CharacterSet) -> str:
    """The text on the line that begins at the top of the area, without its spaces."""
    line = line._replace(bottom=line.top + LINE_HEIGHT)
    parts = split(coverage_of(picture.crop(line), characters.colour, characters.background))
    return "".join(recognise(part, characters) for part in parts)


def coverage_of(picture: Picture, colour: Colour, background: Colour) -> Coverage:
    """How much of each pixel is covered by the text colour; 0 if it is not a mixture of the background and this one."""
    full = numpy.subtract(background, colour)
    actual = numpy.subtract(background, picture.pixels)
    coverage = actual @ full / (full @ full)
    is_mixture = (abs(coverage[..., None] * full - actual) <= MAX_DEVIATION).all(axis=2)
    return coverage * is_mixture


def split(coverage: Coverage) -> list[Coverage]:
    """The single characters: splits at blank columns, and between digits that touch each other."""
    amounts = coverage.sum(axis=0)
    is_covered = amounts >= MIN_COLUMN_COVERAGE
    edges = numpy.diff(is_covered, prepend=False, append=False).nonzero()[0].tolist()
    spans = [part for span in map(range, edges[::2], edges[1::2]) for part in _split_touching_digits(span, amounts)]
    return [coverage[:, span.start : span.stop] for span in spans]


def _split_touching_digits(span: range, amounts: numpy.ndarray) -> list[range]:
    """Splits at the column with the least coverage about one digit width to the right."""
    characters = []
    while len(span) > MAX_CHARACTER_WIDTH:
        columns = range(span.start + DIGIT_WIDTH - 3, span.start + DIGIT_WIDTH + 4)
        end = min(columns, key=lambda x: amounts[x])
        characters.append(range(span.start, end))
        span = range(end, span.stop)
    return [*characters, span]


def recognise(coverage: Coverage, characters: CharacterSet) -> str:
    best, second = _matches(coverage, characters)[:2]
    if best.correlation < MIN_CORRELATION or best.correlation - second.correlation < MIN_LEAD:
        raise Unreadable(f"ambiguous character: best {best}, second best {second}")
    return best.character


def _matches(coverage: Coverage, characters: CharacterSet) -> list[Match]:
    """The best first. The correlation of pixels is 1 for equal pictures, and about 0 for unrelated ones."""
    seen = _unit_vector(_framed(coverage))
    return sorted((Match(max(template @ seen), character) for character, template in _templates(characters).items()),
                  reverse=True)


def _framed(coverage: Coverage) -> Coverage:
    """Padded to a frame of the same size for all characters."""
    _, width = coverage.shape
    return numpy.pad(coverage, ((FRAME_MARGIN, FRAME_MARGIN), (FRAME_MARGIN, FRAME_WIDTH - FRAME_MARGIN - width)))


def _unit_vector(frame: Coverage) -> numpy.ndarray:
    """With mean 0 and length 1: the dot product of two vectors is their correlation."""
    pixels = frame.ravel() - frame.mean()
    return pixels / numpy.linalg.norm(pixels)


# ---- Templates ------------------------------------------------------------------------------------------


@cache
def _templates(characters: CharacterSet) -> dict[str, numpy.ndarray]:
    """The variants of each character, as rows: moved by up to one pixel in all directions."""
    moves = [(y, x) for y in (-1, 0, 1) for x in (-1, 0, 1)]
    templates = {}
    for character, font in characters.fonts:
        (coverage,) = split(_draw(character, font, characters.ascent))
        frame = _framed(coverage)
        templates[character] = numpy.array([_unit_vector(numpy.roll(frame, move, axis=(0, 1))) for move in moves])
    return templates


def _draw(character: str, font: Font, ascent: int) -> Coverage:
    """On a line, with 96 pixels per inch. Draws it three times as large, so that a point is 4 pixels."""
    image = Image.new("L", (60 * 3, LINE_HEIGHT * 3))
    scaled = ImageFont.truetype(_font_file(font.face), font.size * 4)
    ImageDraw.Draw(image).text((10 * 3, ascent * 3), character, fill=255, font=scaled, anchor="ls")
    return numpy.asarray(image.reduce(3)) / 255


@cache
def _font_file(face: str) -> str:
    """The file that the program also gets from fontconfig for this face."""
    return subprocess.check_output(["fc-match", "--format=%{file}", face], text=True)
