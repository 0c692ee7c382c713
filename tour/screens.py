# SPDX-License-Identifier: MIT
"""The screens of the program in pictures of the display, which has 96 pixels per inch."""

from functools import cache
from pathlib import Path

from PIL import Image

from layouts import Layout
from picture import Area, Colour, Picture

WHITE: Colour = (255, 255, 255)
BLUE: Colour = (0, 0, 128)
LIGHT_RED: Colour = (255, 0, 0)
RED: Colour = (128, 0, 0)
LIGHT_CYAN: Colour = (0, 255, 255)


def points(left: float, top: float, right: float, bottom: float) -> Area:
    """Converts an area from points (1/72 inch) to pixels."""
    return Area(*(round(edge * 96 / 72) for edge in (left, top, right, bottom)))


LABEL_BORDER = 1  # pixels

_assets = Path(__file__).resolve().parents[1] / "assets"


class ContentArea:
    """The content area of the window in a picture of the display. Positions are relative to its top left corner."""

    def __init__(self, picture: Picture, layouts: dict[str, Layout]):
        self.picture = picture
        self.layouts = layouts
        self.left, self.top = content_corner(picture)

    def on_display(self, area: Area) -> Area:
        return area.moved(self.left, self.top)

    def bounding_box(self, colour: Colour, area: Area) -> Area | None:
        box = self.picture.bounding_box(colour, self.on_display(area))
        return box and box.moved(-self.left, -self.top)

    def has(self, colour: Colour, area: Area) -> bool:
        return self.bounding_box(colour, area) is not None

    def title(self) -> Area | None:
        """The area of the title label. Its colour is the same on all screens, its position is not."""
        colour = self.layouts["accueil"].title.background
        inside = self.bounding_box(colour, Area(0, 0, self.picture.width, self.picture.height))
        return inside and inside.grown(LABEL_BORDER)

    def shows(self, screen: str) -> bool:
        title = self.layouts[screen].title
        if title:
            return self.title() == title.area
        return self.title() is None and self._untitled() == screen

    def _untitled(self) -> str:
        """The name of a screen without a title. FIN2 and Aurevoir always show an arrow."""
        return next((screen for screen in ("FIN2", "Aurevoir") if self.shows_arrow(screen)), "record")

    def shows_arrow(self, screen: str) -> bool:
        return self._shows_image("fleche.png", self.layouts[screen].places["flèche"])

    def shows_arrow_and_stop(self, screen: str) -> bool:
        return self.shows_arrow(screen) and self._shows_image("arret.png", self.layouts[screen].places["arret"])

    def _shows_image(self, name: str, area: Area) -> bool:
        """Compares all pixels with an image of the program."""
        return self.picture.crop(self.on_display(area)) == _asset(name)

    def close_box(self) -> Area:
        """At the right end of the title bar, which fills the space above the content area."""
        right = self.picture.width - self.left
        return Area(right - self.top, 0, right, self.top)


def content_corner(picture: Picture) -> tuple[int, int]:
    """The first white pixel to the right of the frame and below the title bar, if there is one."""
    column = picture.width // 2
    row = picture.height - 10
    left = picture.bounding_box(WHITE, Area(0, row, picture.width, row + 1))
    top = picture.bounding_box(WHITE, Area(column, 0, column + 1, picture.height))
    return (left.left, top.top) if left and top else (0, 0)  # the window is not shown yet


@cache
def _asset(name: str) -> Picture:
    """On a white background, as the program shows it."""
    image = Image.open(_assets / name).convert("RGBA")
    return Picture.from_image(Image.alpha_composite(Image.new("RGBA", image.size, "white"), image))
