#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""On the keyboards of French-speaking children, the keys that show digits type them, whatever else they type.

Keys are pressed by their codes, which name places on a keyboard: what they type is up to the layout.
"""

import unittest
from typing import NamedTuple

from case import WindowCase
from desktop import Display, Surroundings
from surroundings import Weston


def codes(first: int, digits: str) -> dict[str, str]:
    """Of keys in a row, by their digits."""
    return {digit: str(first + place) for place, digit in enumerate(digits)}


DIGIT_ROW = codes(10, "1234567890")
KEYPAD = codes(79, "789") | codes(83, "456") | codes(87, "1230")
SHIFT, ALT_GR, CAPS_LOCK, NUM_LOCK = "50", "108", "66", "77"


class Layout(NamedTuple):
    name: str
    variant: str
    digits_need_shift: bool  # to be typed as such, as these keyboards have been designed
    equals: str
    equals_needs_shift: bool = False


BEHIND_ZERO, SECOND_BEHIND_ZERO, BEFORE_RIGHT_SHIFT = "20", "21", "61"

FRENCH = Layout("fr", "", True, SECOND_BEHIND_ZERO)
LAYOUTS = [
    FRENCH,
    Layout("fr", "bepo", True, BEHIND_ZERO),
    Layout("fr", "afnor", True, BEFORE_RIGHT_SHIFT, equals_needs_shift=True),
    Layout("be", "", True, BEFORE_RIGHT_SHIFT),
    Layout("ch", "fr", False, DIGIT_ROW["0"], equals_needs_shift=True),
    Layout("ca", "", False, SECOND_BEHIND_ZERO),
    Layout("us", "", False, SECOND_BEHIND_ZERO),
]


class KeyboardCase(WindowCase):
    """Plays additions; whatever the rest of a layout is, Escape and Right are where they always are."""

    def answer(self, keys: dict[str, str], layout: Layout, with_shift: bool = False) -> None:
        """The operation that is open, with the keys of its digits."""
        _, operation = self.learner.see_operation("addition")
        self.press(with_shift, *(keys[digit] for digit in str(operation.result)))
        self.press(layout.equals_needs_shift, layout.equals)
        self.learner.see_bravo("addition")
        self.desktop.press("Right")

    def press(self, with_shift: bool, *keys: str) -> None:
        if with_shift:
            self.desktop.press_with(SHIFT, *keys)
        else:
            self.desktop.press(*keys)

    def answer_in_all_ways(self, layout: Layout) -> None:
        self.answer(DIGIT_ROW, layout)
        if layout.digits_need_shift:
            self.answer(DIGIT_ROW, layout, with_shift=True)
        self.answer(KEYPAD, layout)
        self.answer_with_lock(NUM_LOCK, KEYPAD, layout)

    def answer_after_signs_of_alt_gr(self) -> None:
        """On a French keyboard. They are no part of an answer."""
        self.learner.see_operation("addition")
        self.desktop.press_with(ALT_GR, *DIGIT_ROW.values())
        self.answer(DIGIT_ROW, FRENCH)

    def answer_with_lock(self, lock: str, keys: dict[str, str], layout: Layout) -> None:
        self.desktop.press(lock)
        self.answer(keys, layout)
        self.desktop.press(lock)


class OnX11(KeyboardCase):
    surroundings = Surroundings

    def test_each_layout(self) -> None:
        self.learner.start()
        for layout in LAYOUTS:
            with self.subTest(layout=layout.name, variant=layout.variant):
                self.desktop.display.set_layout(layout.name, layout.variant)
                self.learner.open("addition")
                self.answer_in_all_ways(layout)
                self.desktop.press("Escape")

    def test_caps_lock_and_alt_gr(self) -> None:
        self.desktop.display.set_layout("fr")
        self.learner.start()
        self.learner.open("addition")
        self.answer_with_lock(CAPS_LOCK, DIGIT_ROW, FRENCH)
        self.answer_after_signs_of_alt_gr()


class FrenchWeston(Weston):
    """It takes its layout from the display."""

    def __init__(self, display: Display):
        display.set_layout("fr")
        super().__init__(display)


class OnWayland(KeyboardCase):
    surroundings = FrenchWeston

    def test_french_layout(self) -> None:
        self.learner.start()
        self.learner.open("addition")
        self.answer_in_all_ways(FRENCH)
        self.answer_after_signs_of_alt_gr()


if __name__ == "__main__":
    unittest.main()
