# SPDX-License-Identifier: MIT
"""Pictures of the display, and searches for colours in them."""

from pathlib import Path
from typing import NamedTuple

import numpy
from PIL import Image

Colour = tuple[int, int, int]


class Area(NamedTuple):
    """A rectangle in pixels. `right` and `bottom` are exclusive."""

    left: int
    top: int
    right: int
    bottom: int

    def moved(self, x: int, y: int) -> "Area":
        return Area(self.left + x, self.top + y, self.right + x, self.bottom + y)

    def grown(self, margin: int) -> "Area":
        return Area(self.left - margin, self.top - margin, self.right + margin, self.bottom + margin)


class Picture:
    """`pixels[y, x]` is the red, green and blue of a pixel."""

    def __init__(self, pixels: numpy.ndarray):
        self.pixels = pixels
        self.height, self.width, _ = pixels.shape

    @classmethod
    def from_image(cls, image: Image.Image) -> "Picture":
        return cls(numpy.asarray(image.convert("RGB")))

    def save(self, path: Path) -> None:
        Image.fromarray(self.pixels).save(path)

    def __eq__(self, other: object) -> bool:
        return isinstance(other, Picture) and numpy.array_equal(self.pixels, other.pixels)

    def pixel(self, x: int, y: int) -> Colour:
        red, green, blue = self.pixels[y, x].tolist()
        return red, green, blue

    def crop(self, area: Area) -> "Picture":
        """The part of the area that is inside of the picture."""
        return Picture(self.pixels[max(area.top, 0) : area.bottom, max(area.left, 0) : area.right])

    def bounding_box(self, colour: Colour, area: Area) -> Area | None:
        """Of all pixels in the area that have exactly this colour."""
        rows, columns = (self.crop(area).pixels == colour).all(axis=2).nonzero()
        if not rows.size:
            return None
        found = Area(*map(int, (columns.min(), rows.min(), columns.max() + 1, rows.max() + 1)))
        return found.moved(max(area.left, 0), max(area.top, 0))
