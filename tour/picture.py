# SPDX-License-Identifier: MIT
"""Pictures of the display, and searches for colours in them."""

from typing import NamedTuple

Colour = tuple[int, int, int]


class Area(NamedTuple):
    """A rectangle in pixels. `right` and `bottom` are exclusive."""

    left: int
    top: int
    right: int
    bottom: int

    @property
    def width(self) -> int:
        return self.right - self.left

    @property
    def height(self) -> int:
        return self.bottom - self.top

    def moved(self, x: int, y: int) -> "Area":
        return Area(self.left + x, self.top + y, self.right + x, self.bottom + y)

    def grown(self, margin: int) -> "Area":
        return Area(self.left - margin, self.top - margin, self.right + margin, self.bottom + margin)


class Picture:
    """Rows of pixels, three bytes each: red, green and blue."""

    def __init__(self, width: int, height: int, data: bytes):
        if len(data) != 3 * width * height:
            raise ValueError(f"{len(data)} bytes do not make a picture of {width} x {height} pixels")
        self.width = width
        self.height = height
        self.data = data

    @classmethod
    def from_ppm(cls, ppm: bytes) -> "Picture":
        kind, width, height, maximum, data = _ppm_fields(ppm)
        if kind != b"P6" or maximum != b"255":
            raise ValueError("not a binary PPM with 8 bits per channel")
        return cls(int(width), int(height), data)

    def to_ppm(self) -> bytes:
        return b"P6\n%d %d\n255\n" % (self.width, self.height) + self.data

    def __eq__(self, other: object) -> bool:
        return isinstance(other, Picture) and self.width == other.width and self.data == other.data

    def pixel(self, x: int, y: int) -> Colour:
        offset = 3 * (y * self.width + x)
        red, green, blue = self.data[offset : offset + 3]
        return red, green, blue

    def row(self, y: int, left: int, right: int) -> bytes:
        return self.data[3 * (y * self.width + left) : 3 * (y * self.width + right)]

    def crop(self, area: Area) -> "Picture":
        area = self._clipped(area)
        rows = (self.row(y, area.left, area.right) for y in range(area.top, area.bottom))
        return Picture(area.width, area.height, b"".join(rows))

    def bounding_box(self, colour: Colour, area: Area) -> Area | None:
        """Of all pixels in the area that have exactly this colour."""
        area = self._clipped(area)
        found = []
        for y in range(area.top, area.bottom):
            row = self.row(y, area.left, area.right)
            first = _first_pixel(row, bytes(colour))
            if first is not None:
                found.append((y, first, _last_pixel(row, bytes(colour))))
        if not found:
            return None
        return Area(
            area.left + min(first for _, first, _ in found),
            found[0][0],
            area.left + max(last for _, _, last in found) + 1,
            found[-1][0] + 1,
        )

    def has(self, colour: Colour, area: Area) -> bool:
        return self.bounding_box(colour, area) is not None

    def _clipped(self, area: Area) -> Area:
        return Area(
            max(area.left, 0), max(area.top, 0), min(area.right, self.width), min(area.bottom, self.height)
        )


def _ppm_fields(ppm: bytes) -> list[bytes]:
    """The four words of the header, without comments, and the pixel data."""
    words: list[bytes] = []
    rest = ppm
    while len(words) < 4:
        line, _, rest = rest.partition(b"\n")
        words += line.partition(b"#")[0].split()
    return [*words, rest]


def _first_pixel(row: bytes, colour: bytes) -> int | None:
    offset = row.find(colour)
    while offset >= 0 and offset % 3 != 0:
        offset = row.find(colour, offset + 1)
    return offset // 3 if offset >= 0 else None


def _last_pixel(row: bytes, colour: bytes) -> int:
    offset = row.rfind(colour)
    while offset % 3 != 0:
        offset = row.rfind(colour, 0, offset + 2)
    return offset // 3
