#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""In each desktop environment, the program fills the work area, has the focus at once, shows all screens, and exits
with status 0 and without error output. It follows the display when that is resized."""

import signal
import unittest
from functools import partial

from base_case import PROGRAM, WindowCase
from desktop import Desktop, DesktopEnvironment, wait_until
from desktop_environments import HeadlessWeston, Metacity, Openbox, Weston, Xfwm4
from learner import EXERCISES, read_line
from picture import Area, Picture
from screens import WHITE, ContentArea

LINE = EXERCISES["addition"].line
MIN_WIDTH = 896  # pixels, of the content area; a narrower one is scaled down
FRAME_WIDTH = 2  # pixels, left and right together


class WithoutWindowManager(WindowCase):
    environment = DesktopEnvironment

    def setUp(self) -> None:
        self.learner = self.start(self.environment)
        self.desktop = self.learner.desktop

    def test_all_screens_are_shown(self) -> None:
        self.assert_work_area_is_filled()
        click_stop = partial(self.learner.click, "addition", "arret")
        for leave in (partial(self.desktop.press, "Escape"), click_stop):
            self.desktop.press("ctrl+space")  # as the guide recommends to learners without a mouse
            self.learner.answer_correctly("addition")
            leave()
            self.learner.wait_for_screen("accueil")
        for screen in ("multiplication", "division", "record"):
            self.desktop.press("Tab")
            self.desktop.press("ctrl+space")
            self.learner.wait_for_operation(screen)
            self.desktop.press("Escape")
            if screen == "record":
                self.learner.wait_for_screen("FIN2")
                self.desktop.press("Return")
            self.learner.wait_for_screen("accueil")
        self.desktop.press("Escape")
        self.learner.click_arrow("Aurevoir")
        self.assert_ends(self.desktop.program)

    def assert_work_area_is_filled(self) -> None:
        """With the same pixels as on a display without a panel, cut off at the bottom."""
        panel_height = self.environment.panel_height
        reference = self.start()
        whole = reference.wait_for_start().picture
        work_area = Area(0, panel_height, whole.width, whole.height)

        def is_filled(picture: Picture) -> bool:
            expected = reference.desktop.display.picture()  # taken anew: the focus may be drawn later than the screen
            return picture.crop(work_area) == expected.crop(work_area.moved(0, -panel_height))

        home = self.desktop.wait_for("the whole home screen", is_filled)
        self.assertEqual(home.pixel(home.width - 1, home.height - 1), WHITE, "the corner of the work area")
        covered = home.bounding_box(WHITE, Area(0, 0, 1, panel_height))
        self.assertIsNone(covered, "the window covers the panel")

    def test_drawing_is_kept_when_display_is_resized(self) -> None:
        """It is scaled down while the display is too small."""
        self.learner.open("addition")
        _, operation = self.learner.wait_for_operation("addition")
        first, rest = str(operation.result)[0], str(operation.result)[1:]
        whole = self.desktop.display.width, self.desktop.display.height
        self.desktop.press(first)
        before = self.learner.wait_for("the digit", lambda content: read_line(content, LINE).endswith(f"{first}?"))
        right_edge = self.learner.layouts["addition"].title.area.right * (800 - FRAME_WIDTH) / MIN_WIDTH

        def is_scaled_down(content: ContentArea) -> bool:
            return content.title() is not None and abs(content.title().right - right_edge) <= 2

        for height in (1024, 600):
            self.desktop.display.resize(800, height)
            self.learner.wait_for("the screen scaled down", is_scaled_down)
        self.desktop.display.resize(*whole)
        self.learner.wait_for("the original picture", lambda content: content.picture == before.picture)
        self.desktop.press(*rest, "Return")
        self.learner.wait_for_bravo("addition")


class WithOpenbox(WithoutWindowManager):
    environment = Openbox


class WithXfwm4(WithoutWindowManager):
    environment = Xfwm4


class WithMetacity(WithoutWindowManager):
    environment = Metacity


class OnWayland(WithoutWindowManager):
    environment = Weston
    test_drawing_is_kept_when_display_is_resized = None  # the screen of weston keeps its size


class OnWaylandWithoutScreen(WindowCase):
    def test_runs_until_sigterm(self) -> None:
        """Waits for requests in the Wayland log on standard error. Lines of this log begin with a timestamp and end
        with a parenthesis; two threads may write into one line."""
        with Desktop(PROGRAM, HeadlessWeston, variables={"WAYLAND_DEBUG": "client"}) as desktop:
            for request in ("set_maximized", ".attach(wl_buffer"):
                wait_until(request, lambda: request in desktop.program.error_output())
            desktop.program.process.send_signal(signal.SIGTERM)
            self.assertEqual(desktop.program.exit_status(), -signal.SIGTERM)
            lines = desktop.program.error_output().splitlines()
        self.assertEqual([line for line in lines if not line.startswith("[") and not line.endswith(")")], [])


if __name__ == "__main__":
    unittest.main()
