# SPDX-License-Identifier: MIT
"""Plays the program through its window: reads pictures of the display, types and clicks."""

import re
from collections.abc import Callable
from operator import add, floordiv, mul, sub
from typing import NamedTuple

import text_recognition
from desktop import Desktop
from layouts import read_layouts
from picture import Area, Picture
from screens import BLUE, LIGHT_CYAN, LIGHT_RED, RED, ContentArea, points

OPERATION = re.compile(r"(\d+)([-+x:])(\d+)=")
RESULTS: dict[str, Callable[[int, int], int]] = {"+": add, "-": sub, "x": mul, ":": floordiv}


class Operation(NamedTuple):
    left: int
    sign: str
    right: int

    @classmethod
    def parse(cls, text: str) -> "Operation":
        """From a text that begins with an operation and an equals sign."""
        found = OPERATION.match(text)
        if found is None:
            raise text_recognition.Unreadable(f"not an operation: {text}")
        return cls(int(found[1]), found[2], int(found[3]))

    @property
    def result(self) -> int:
        return RESULTS[self.sign](self.left, self.right)


class Learner:
    """Takes all its information from pictures of the display."""

    def __init__(self, desktop: Desktop):
        self.desktop = desktop
        self.layouts = read_layouts(desktop.path, desktop.environment.frameless_scale)

    # ---- Screens ----------------------------------------------------------------------------------------

    def wait_for_screen(self, screen: str) -> ContentArea:
        return self.wait_for(f"the screen {screen}", lambda content: content.shows(screen))

    def wait_for(self, what: str, condition: Callable[[ContentArea], bool]) -> ContentArea:
        def content(picture: Picture) -> ContentArea:
            return ContentArea(picture, self.layouts)

        return content(self.desktop.wait_for(what, lambda picture: condition(content(picture))))

    def wait_for_start(self) -> ContentArea:
        """Waits for the home screen and the keyboard focus."""
        content = self.wait_for_screen("accueil")
        self.desktop.wait_for_focus()
        return content

    def open(self, screen: str) -> ContentArea:
        """Clicks its button on the home screen."""
        self.click("accueil", HOME_BUTTONS[screen])
        return self.wait_for_screen(screen)

    def click(self, screen: str, control: str) -> None:
        """Waits for the screen."""
        content = self.wait_for_screen(screen)
        self.desktop.click_area(content.on_display(self.layouts[screen].places[control]))

    def click_arrow(self, screen: str) -> None:
        self.click(screen, "flèche")

    # ---- An exercise ------------------------------------------------------------------------------------

    def wait_for_operation(self, screen: str) -> tuple[ContentArea, Operation]:
        """Waits for a new operation."""
        exercise = EXERCISES[screen]

        def is_new(content: ContentArea) -> bool:
            is_over = exercise.shows_bravo(content) or content.shows_arrow(screen)
            return content.shows(screen) and not is_over and content.has(BLUE, exercise.line)

        content = self.wait_for("an operation", is_new)
        return content, Operation.parse(read_line(content, exercise.line))

    def answer_correctly(self, screen: str) -> ContentArea:
        _, operation = self.wait_for_operation(screen)
        self.submit(operation.result)
        return self.wait_for_bravo(screen)

    def wait_for_bravo(self, screen: str) -> ContentArea:
        shows_bravo = EXERCISES[screen].shows_bravo
        return self.wait_for("Bravo", lambda content: shows_bravo(content) and content.shows_arrow_and_stop(screen))

    def wait_for_stopwatch(self) -> ContentArea:
        """Waits until the stopwatch shows a time: it is empty for one second after a new operation."""
        return self.wait_for("the stopwatch's digits", lambda content: content.has(LIGHT_RED, STOPWATCH))

    def wait_for_faux(self) -> ContentArea:
        return self.wait_for("FAUX", shows_faux)

    def wait_for_correction(self) -> ContentArea:
        """Waits until "FAUX" is hidden."""
        return self.wait_for("the correction", lambda content: not shows_faux(content))

    def submit(self, answer: int) -> None:
        self.desktop.press(*str(answer), "Return")


# By the name of the screen that they open.
HOME_BUTTONS = {
    "addition": "Commande1",
    "multiplication": "Commande2",
    "division": "Commande3",
    "record": "Commande4",
    "Aurevoir": "Commande5",
}

STOPWATCH = points(195, 25, 279, 60)
STOPWATCH_LINE = points(198, 30, 277, 60)


def read_line(content: ContentArea, line: Area) -> str:
    return text_recognition.read(content.picture, content.on_display(line), text_recognition.EXERCISE)


def read_stopwatch(content: ContentArea) -> int:
    line = content.on_display(STOPWATCH_LINE)
    digits = text_recognition.read(content.picture, line, text_recognition.STOPWATCH)
    if len(digits) != 4:
        raise text_recognition.Unreadable(f"not a time: {digits}")
    return int(digits)


def shows_faux(content: ContentArea) -> bool:
    """Whether the box of "FAUX" is shown on any line."""
    return content.has(LIGHT_CYAN, points(380, 60, 460, 240))


class Exercise(NamedTuple):
    line: Area  # of the operation, from the left edge to the box of "FAUX"
    bravo: Area  # a part of the ellipse without text

    def shows_bravo(self, content: ContentArea) -> bool:
        return content.has(RED, self.bravo)


def _exercise(top: int, centre: int, ligne_bravo: int) -> Exercise:
    """All values are in points."""
    left_of_text = points(centre - 37, ligne_bravo + 9, centre - 33, ligne_bravo + 15)
    return Exercise(points(20, top, 375, top + 33), left_of_text)


EXERCISES = {
    "addition": _exercise(80, 320, 240),
    "multiplication": _exercise(160, 240, 260),
    "division": _exercise(120, 240, 260),
    "record": _exercise(120, 240, 260),
}
