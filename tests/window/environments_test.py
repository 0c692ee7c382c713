#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""The program behaves alike wherever it is shown: it fills the work area, gets the keys at once, changes its
screens, ends well, and complains about nothing."""

import signal
import unittest

from case import WindowCase, program
from desktop import Desktop, Surroundings, wait_until
from learner import Learner
from picture import Area
from screens import WHITE, Sheet
from surroundings import PANEL_HEIGHT, WAYLAND_PANEL_HEIGHT, Metacity, Openbox, Weston, WestonWithoutScreen, Xfwm4

class Environment:
    """What is tried in each of them."""

    panel_height = PANEL_HEIGHT

    def test_round(self) -> None:
        self.learner.start()
        self.expect_to_fill_work_area()
        self.desktop.press("space")  # the first button has the focus
        self.answer_addition()
        self.desktop.press("Escape")
        for screen in ("multiplication", "division"):
            self.learner.open(screen)
            self.learner.see_operation(screen)
            self.desktop.press("Escape")
        self.learner.open("record")
        self.learner.see_operation("record")
        self.desktop.press("Escape")
        self.learner.see("FIN2")
        self.desktop.press("Return")
        self.learner.see("accueil")
        self.desktop.press("Escape")
        self.learner.click_arrow("Aurevoir")
        self.assert_ended_well()

    def expect_to_fill_work_area(self) -> None:
        """With the picture that it shows on a whole display, as far as there is room for it."""
        with Desktop(program()) as alone:
            whole = Learner(alone).start().picture
        expected = whole.crop(Area(0, 0, whole.width, whole.height - self.panel_height))

        def fills_work_area(sheet: Sheet) -> bool:
            return sheet.picture.crop(Area(0, self.panel_height, whole.width, whole.height)) == expected

        home = self.learner.wait_for("the whole home screen", fills_work_area).picture
        for y in range(self.panel_height):
            self.assertNotEqual(home.pixel(0, y), WHITE, "the panel stays free")


class WithoutWindowManager(Environment, WindowCase):
    surroundings = Surroundings
    panel_height = 0


class WithOpenbox(Environment, WindowCase):
    surroundings = Openbox


class WithXfwm4(Environment, WindowCase):
    surroundings = Xfwm4


class WithMetacity(Environment, WindowCase):
    surroundings = Metacity


class OnWayland(Environment, WindowCase):
    surroundings = Weston
    panel_height = WAYLAND_PANEL_HEIGHT


class OnWaylandWithoutScreen(unittest.TestCase):
    def test_stays_until_told_to_end(self) -> None:
        """With all that it says to the compositor on standard error, on lines that begin with a time."""
        with Desktop(program(), WestonWithoutScreen, settings={"WAYLAND_DEBUG": "client"}) as desktop:
            wait_until("the window is shown", lambda: "set_maximized" in desktop.program.errors())
            wait_until("the window has a picture", lambda: ".attach(wl_buffer" in desktop.program.errors())
            self.assertTrue(desktop.program.is_running())
            desktop.program.send(signal.SIGTERM)
            self.assertEqual(desktop.program.exit_status(), -signal.SIGTERM)
            said = desktop.program.errors().splitlines()
        self.assertEqual([line for line in said if not line.startswith("[")], [])


if __name__ == "__main__":
    unittest.main()
