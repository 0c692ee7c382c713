# SPDX-License-Identifier: MIT
"""Positions on the screens of the program, in pixels on a display of 96 pixels per inch."""

import subprocess
from functools import cache
from pathlib import Path

from picture import Area, Colour, Picture

WHITE: Colour = (255, 255, 255)
BLUE: Colour = (0, 0, 128)
LIGHT_RED: Colour = (255, 0, 0)
RED: Colour = (128, 0, 0)
GREY: Colour = (128, 128, 128)
CYAN: Colour = (0, 128, 128)
LIGHT_CYAN: Colour = (0, 255, 255)
LIGHT_YELLOW: Colour = (255, 255, 224)


def points(left: float, top: float, right: float, bottom: float) -> Area:
    """Converts an area from points (1/72 inch) to pixels."""
    return Area(*(round(edge * 96 / 72) for edge in (left, top, right, bottom)))


def twips(left: int, top: int, width: int, height: int) -> Area:
    """Converts an area from twips (1/1440 inch) to pixels."""
    return Area(*(round(edge / 15) for edge in (left, top, left + width, top + height)))


ICON = 480  # twips, the side of an arrow or a stop sign

# By the name of the screen: its light yellow title label. Its position is different on each screen.
TITLES = {
    "accueil": twips(6120, 360, 4455, 615),
    "addition": twips(3720, 240, 5295, 495),
    "multiplication": twips(2160, 240, 5295, 495),
    "division": twips(3480, 240, 3135, 495),
    "FIN": twips(5880, 1680, 3975, 1935),
}

# By the name of the screen that they open.
HOME_BUTTONS = {
    "addition": twips(6360, 2640, 3975, 615),
    "multiplication": twips(6360, 3600, 3975, 615),
    "division": twips(6360, 4560, 3975, 615),
    "record": twips(2160, 3600, 2295, 735),
    "Aurevoir": twips(7680, 7320, 1335, 615),
}

ARROWS = {
    "addition": twips(12840, 6600, ICON, ICON),
    "multiplication": twips(9000, 6600, ICON, ICON),
    "division": twips(9000, 6600, ICON, ICON),
    "record": twips(9000, 6600, ICON, ICON),
    "FIN": twips(7680, 5880, ICON, ICON),
    "FIN2": twips(8640, 6360, ICON, ICON),
    "Aurevoir": twips(11280, 4200, ICON, ICON),
}
STOP = twips(120, 6600, ICON, ICON)

LABEL_BORDER = 1  # pixels

_assets = Path(__file__).resolve().parents[1] / "assets"


class ContentArea:
    """The content area of the window in a picture of the display. Positions are relative to its top left corner."""

    def __init__(self, picture: Picture):
        self.picture = picture
        self.left, self.top = _content_corner(picture)

    def on_display(self, area: Area) -> Area:
        return area.moved(self.left, self.top)

    def bounding_box(self, colour: Colour, area: Area) -> Area | None:
        box = self.picture.bounding_box(colour, self.on_display(area))
        return box and box.moved(-self.left, -self.top)

    def has(self, colour: Colour, area: Area) -> bool:
        return self.bounding_box(colour, area) is not None

    def title(self) -> Area | None:
        """The area of the light yellow label."""
        inside = self.bounding_box(LIGHT_YELLOW, Area(0, 0, self.picture.width, self.picture.height))
        return inside and inside.grown(LABEL_BORDER)

    def shows(self, screen: str) -> bool:
        if screen in TITLES:
            return self.title() == TITLES[screen]
        return self.title() is None and self._untitled() == screen

    def _untitled(self) -> str:
        """The name of a screen without a title. FIN2 and Aurevoir always show an arrow."""
        return next((screen for screen in ("FIN2", "Aurevoir") if self.shows_arrow(screen)), "record")

    def shows_arrow(self, screen: str) -> bool:
        return self._shows_image("fleche.png", ARROWS[screen])

    def shows_stop(self) -> bool:
        return self._shows_image("arret.png", STOP)

    def _shows_image(self, name: str, area: Area) -> bool:
        """Compares all pixels with an image of the program."""
        return self.picture.crop(self.on_display(area)) == _asset(name)

    def close_box(self) -> Area:
        """At the right end of the title bar, which fills the space above the content area."""
        right = self.picture.width - self.left
        return Area(right - self.top, 0, right, self.top)


def _content_corner(picture: Picture) -> tuple[int, int]:
    """The first white pixel to the right of the frame and below the title bar, if there is one."""
    column = picture.width // 2
    row = picture.height - 10
    left = picture.bounding_box(WHITE, Area(0, row, picture.width, row + 1))
    top = picture.bounding_box(WHITE, Area(column, 0, column + 1, picture.height))
    return (left.left, top.top) if left and top else (0, 0)  # the window is not shown yet


@cache
def _asset(name: str) -> Picture:
    """On a white background, as the program shows it."""
    command = ["convert", str(_assets / name), "-background", "white", "-flatten", "-depth", "8", "ppm:-"]
    return Picture.from_ppm(subprocess.run(command, stdout=subprocess.PIPE, check=True).stdout)
