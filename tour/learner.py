# SPDX-License-Identifier: MIT
"""A learner who plays the program: looks at its screens, types, and clicks."""

import re
from collections.abc import Callable
from operator import add, floordiv, mul, sub
from typing import NamedTuple

import reading
from desktop import Desktop
from picture import Area, Colour
from screens import ARROWS, BLUE, HOME_BUTTONS, LIGHT_CYAN, LIGHT_RED, RED, Sheet, points

OPERATION = re.compile(r"(\d+)([-+x:])(\d+)=")
RESULTS: dict[str, Callable[[int, int], int]] = {"+": add, "-": sub, "x": mul, ":": floordiv}


class Operation(NamedTuple):
    left: int
    sign: str
    right: int

    @classmethod
    def of(cls, text: str) -> "Operation":
        """From a text that begins with an operation and its equals sign."""
        found = OPERATION.match(text)
        if found is None:
            raise reading.Unreadable(f"no operation: {text}")
        return cls(int(found[1]), found[2], int(found[3]))

    @property
    def result(self) -> int:
        return RESULTS[self.sign](self.left, self.right)


class Learner:
    """Knows nothing but what a picture shows."""

    def __init__(self, desktop: Desktop):
        self.desktop = desktop

    # ---- Screens ----------------------------------------------------------------------------------------

    def see(self, screen: str) -> Sheet:
        """Waits for a screen."""
        return self.wait_for(f"the screen {screen}", lambda sheet: sheet.shows(screen))

    def wait_for(self, what: str, condition: Callable[[Sheet], bool]) -> Sheet:
        return Sheet(self.desktop.wait_for(what, lambda picture: condition(Sheet(picture))))

    def start(self) -> Sheet:
        """Waits for the home screen, and for the keys to go there."""
        sheet = self.see("accueil")
        self.desktop.wait_for_focus()
        return sheet

    def open(self, screen: str) -> Sheet:
        """By its button on the home screen."""
        self.click(self.see("accueil"), HOME_BUTTONS[screen])
        return self.see(screen)

    def click(self, sheet: Sheet, place: Area) -> None:
        self.desktop.click_into(sheet.on_display(place))

    def click_arrow(self, screen: str) -> None:
        self.click(self.see(screen), ARROWS[screen])

    # ---- An exercise ------------------------------------------------------------------------------------

    def see_operation(self, screen: str) -> tuple[Sheet, Operation]:
        """Waits for a fresh operation."""
        exercise = EXERCISES[screen]

        def is_fresh(sheet: Sheet) -> bool:
            is_over = exercise.shows_bravo(sheet) or sheet.shows_arrow(screen)
            return sheet.shows(screen) and not is_over and sheet.has(BLUE, exercise.line)

        sheet = self.wait_for("an operation", is_fresh)
        return sheet, Operation.of(read_line(sheet, exercise.line, BLUE))

    def see_bravo(self, screen: str) -> Sheet:
        shows_bravo = EXERCISES[screen].shows_bravo
        return self.wait_for("Bravo", lambda sheet: shows_bravo(sheet) and sheet.shows_arrow(screen))

    def see_stopwatch(self) -> tuple[Sheet, int]:
        """Waits until it shows a time; a new operation empties it for a second."""
        sheet = self.wait_for("the stopwatch's digits", lambda sheet: sheet.has(LIGHT_RED, STOPWATCH))
        return sheet, read_stopwatch(sheet)

    def see_faux(self) -> Sheet:
        return self.wait_for("FAUX", shows_faux)

    def see_correction(self) -> Sheet:
        """Waits for what follows "FAUX"."""
        return self.wait_for("the correction", lambda sheet: not shows_faux(sheet))

    def type_answer(self, answer: int) -> None:
        self.desktop.press(*str(answer))

    def submit(self, answer: int) -> None:
        self.desktop.press(*str(answer), "Return")


STOPWATCH = points(195, 25, 279, 60)
STOPWATCH_LINE = points(198, 30, 277, 60)


def line_at(top: int) -> Area:
    """From the left edge to where the feedback stands; `top` is in points."""
    return points(20, top, 375, top + 33)


def read_line(sheet: Sheet, line: Area, colour: Colour) -> str:
    return reading.read(sheet.picture, sheet.on_display(line), colour)


def read_stopwatch(sheet: Sheet) -> int:
    digits = reading.read(sheet.picture, sheet.on_display(STOPWATCH_LINE), LIGHT_RED, reading.STOPWATCH)
    if len(digits) != 4:
        raise reading.Unreadable(f"no time: {digits}")
    return int(digits)


def shows_faux(sheet: Sheet) -> bool:
    """The box with the word, on whatever line it stands."""
    return sheet.has(LIGHT_CYAN, points(380, 60, 460, 240))


class Exercise(NamedTuple):
    line: Area  # of the operation
    bravo: Area  # a part of the ellipse where nothing is written

    def shows_bravo(self, sheet: Sheet) -> bool:
        return sheet.has(RED, self.bravo)


def _exercise(line: int, centre: int, ligne_bravo: int) -> Exercise:
    """From points."""
    left_of_text = points(centre - 37, ligne_bravo + 9, centre - 33, ligne_bravo + 15)
    return Exercise(line_at(line), left_of_text)


EXERCISES = {
    "addition": _exercise(80, 320, 240),
    "multiplication": _exercise(160, 240, 260),
    "division": _exercise(120, 240, 260),
    "record": _exercise(120, 240, 260),
}
