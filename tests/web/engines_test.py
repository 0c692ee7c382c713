#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""A learner plays the page in each engine, from a file, by real keys.

CHIFFROLO_PICTURES names the folder that gets the pictures of a tour.
"""

import os
import sys
import tempfile
import unittest
from pathlib import Path

import numpy

from browser import PAGE, ROOT

sys.path.insert(0, str(ROOT / "tour"))

import kiosk
from desktop import Desktop
from layouts import Layout
from learner import Learner
from picture import Area, Picture
from screens import ContentArea
from tour import OBJECTIVE, PictureFolder, Tour

os.environ.setdefault("CHIFFROLO_SCENARIO", str(ROOT / "build/scenario"))


# ---- Tours ------------------------------------------------------------------------------------------


class EngineTour(Tour):
    """Also completes a level of each activity."""

    def multiplications(self) -> None:
        super().multiplications()
        self.level("multiplication")

    def divisions(self) -> None:
        super().divisions()
        self.level("division")

    def level(self, screen: str) -> None:
        self.learner.open(screen)
        for _ in range(OBJECTIVE):
            self.learner.answer_correctly(screen)
            self.desktop.press("Right")
        self.pictures.save(f"{screen}-felicitations", self.learner.wait_for_screen("FIN"))
        self.learner.click_arrow("FIN")


class TourThatStays(EngineTour):
    """In a browser that lets no page close its window, the page offers to begin again."""

    def goodbye(self) -> int:
        self.learner.wait_for_screen("accueil")
        self.desktop.press("Escape")
        self.learner.click_arrow("Aurevoir")
        farewell = self.learner.wait_for("the farewell", lambda content: not content.shows_arrow("Aurevoir"))
        self.pictures.save("recommencer", farewell)
        self.desktop.press("Return")
        self.learner.wait_for_screen("accueil")
        return 0


class Play(unittest.TestCase):
    def play(self, environment: type[kiosk.Kiosk], tour: type[Tour]) -> None:
        folder = os.environ.get("CHIFFROLO_PICTURES") or self.enterContext(tempfile.TemporaryDirectory())
        with Desktop(PAGE, environment) as desktop:
            self.assertEqual(tour(desktop, PictureFolder(Path(folder))).play(), 0)


class Firefox(Play):
    def test_tour(self) -> None:
        self.play(kiosk.Firefox, TourThatStays)


class WebKit(Play):
    def test_tour(self) -> None:
        self.play(kiosk.WebKit, EngineTour)


# ---- Places -----------------------------------------------------------------------------------------


class Places(unittest.TestCase):
    """The engines show frames, buttons, boxes and images at the same pixels, and captions at most 3 pixels apart: they
    round the widths of characters and the baseline differently."""

    most_apart = 3  # pixels
    same = 48  # highest difference of a colour channel of one pixel, for the edges of round corners

    def test_engines_agree(self) -> None:
        shown = [self.contents(environment) for environment in kiosk.ENGINES.values()]
        for name, first in shown[0].items():
            for engine, contents in zip(list(kiosk.ENGINES)[1:], shown[1:]):
                with self.subTest(screen=name, engine=engine):
                    self.compare(contents[name], first, first.layouts[name])

    def contents(self, environment: type[kiosk.Kiosk]) -> dict[str, ContentArea]:
        with Desktop(PAGE, environment) as desktop:
            learner = Learner(desktop)
            home = learner.wait_for_start()
            learner.open("addition")
            addition, _ = learner.wait_for_operation("addition")
            desktop.press("Escape")
            learner.wait_for_screen("accueil")
            desktop.press("Escape")
            return {"accueil": home, "addition": addition, "Aurevoir": learner.wait_for_screen("Aurevoir")}

    def compare(self, shown: ContentArea, expected: ContentArea, layout: Layout) -> None:
        self.assertEqual((shown.left, shown.top), (expected.left, expected.top))
        window = Area(0, 0, *kiosk.Kiosk.display_size)
        pictures = [content.picture.crop(window) for content in (shown, expected)]
        differs = numpy.ptp([picture.pixels for picture in pictures], axis=0).max(axis=2) > self.same
        for label in WITHOUT_EDGES & layout.places.keys():
            differs[rows_and_columns(expected.on_display(layout.places[label]))] = False
        for control, area in layout.places.items():
            on_display = expected.on_display(area)
            inks = [ink(picture, on_display.grown(-TEXT_MARGIN)) for picture in pictures]
            self.assertEqual(inks[0] is None, inks[1] is None, control)
            if inks[0] and inks[1]:
                apart = max(abs(one - other) for one, other in zip(inks[0], inks[1]))
                self.assertLessEqual(apart, self.most_apart, f"{control}: {inks}")
            if control not in WITHOUT_EDGES:
                at_edge = numpy.zeros_like(differs)
                at_edge[rows_and_columns(on_display.grown(2))] = True
                at_edge[rows_and_columns(on_display.grown(-2))] = False
                self.assertEqual(numpy.argwhere(differs & at_edge).tolist(), [], control)


TEXT_MARGIN = 6  # pixels inside a control that its border and the focus ring may take
INK = 100  # the lowest channel of a dark or coloured pixel is below it
WITHOUT_EDGES = {"Etiquette1", "Label2", "mail"}  # labels without a border, whose text touches the edge


def rows_and_columns(area: Area) -> tuple[slice, slice]:
    return slice(max(0, area.top), area.bottom), slice(max(0, area.left), area.right)


def ink(picture: Picture, area: Area) -> Area | None:
    """The bounding box of dark or coloured pixels, relative to the area."""
    rows, columns = (picture.crop(area).pixels.min(axis=2) < INK).nonzero()
    return Area(columns.min(), rows.min(), columns.max() + 1, rows.max() + 1) if rows.size else None


if __name__ == "__main__":
    unittest.main()
