# SPDX-License-Identifier: MIT
"""Where things are on the screens of the program, in pixels of a display of 96 dots per inch."""

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
    """From 1/72 inch."""
    return Area(*(round(edge * 96 / 72) for edge in (left, top, right, bottom)))


def twips(left: int, top: int, width: int, height: int) -> Area:
    """From 1/1440 inch."""
    return Area(*(round(edge / 15) for edge in (left, top, left + width, top + height)))


ICON = 480  # twips, the side of an arrow or a stop sign

# By the name of the screen: the light yellow label that no other screen has at this place.
TITLES = {
    "accueil": twips(6120, 360, 4455, 615),
    "addition": twips(3720, 240, 5295, 495),
    "multiplication": twips(2160, 240, 5295, 495),
    "division": twips(3480, 240, 3135, 495),
    "FIN": twips(5880, 1680, 3975, 1935),
}

# By the name of the screen to which they lead.
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


class Sheet:
    """The inner area of the screen that a picture shows. All places count from its top left corner."""

    def __init__(self, picture: Picture):
        self.picture = picture
        self.left, self.top = _inner_corner(picture)

    def on_display(self, area: Area) -> Area:
        return area.moved(self.left, self.top)

    def box_of(self, colour: Colour, area: Area) -> Area | None:
        box = self.picture.box_of(colour, self.on_display(area))
        return box and box.moved(-self.left, -self.top)

    def has(self, colour: Colour, area: Area) -> bool:
        return self.box_of(colour, area) is not None

    def title(self) -> Area | None:
        """The place of the light yellow label."""
        inside = self.box_of(LIGHT_YELLOW, Area(0, 0, self.picture.width, self.picture.height))
        return inside and inside.grown(LABEL_BORDER)

    def shows(self, screen: str) -> bool:
        if screen in TITLES:
            return self.title() == TITLES[screen]
        return self.title() is None and self._untitled() == screen

    def _untitled(self) -> str:
        """Which one of the screens without a title it is. Only two of them always have an arrow."""
        return next((screen for screen in ("FIN2", "Aurevoir") if self.shows_arrow(screen)), "record")

    def shows_arrow(self, screen: str) -> bool:
        return self._shows_image("fleche.png", ARROWS[screen])

    def shows_stop(self) -> bool:
        return self._shows_image("arret.png", STOP)

    def _shows_image(self, name: str, place: Area) -> bool:
        """Whether an image of the program is there, pixel for pixel."""
        return self.picture.crop(self.on_display(place)) == _asset(name)

    def close_box(self) -> Area:
        """In the right end of the title bar, which is all that lies above the inner area."""
        right = self.picture.width - self.left
        return Area(right - self.top, 0, right, self.top)


def _inner_corner(picture: Picture) -> tuple[int, int]:
    """Where the white begins, behind the frame and below the title bar if the screen has any."""
    column = picture.width // 2
    row = picture.height - 10
    left = picture.box_of(WHITE, Area(0, row, picture.width, row + 1))
    top = picture.box_of(WHITE, Area(column, 0, column + 1, picture.height))
    return (left.left, top.top) if left and top else (0, 0)  # nothing is shown yet


@cache
def _asset(name: str) -> Picture:
    """On white, as the program shows it."""
    command = ["convert", str(_assets / name), "-background", "white", "-flatten", "-depth", "8", "ppm:-"]
    return Picture.from_ppm(subprocess.run(command, stdout=subprocess.PIPE, check=True).stdout)
