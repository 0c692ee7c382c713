#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""In each desktop environment, the program fills the work area, has the focus at once, shows all screens, and exits
with status 0 and without error output."""

import signal
import unittest

from base_case import WindowCase, program_path
from desktop import Desktop, DesktopEnvironment, wait_until
from desktop_environments import (
    PANEL_HEIGHT,
    WAYLAND_PANEL_HEIGHT,
    HeadlessWeston,
    Metacity,
    Openbox,
    Weston,
    Xfwm4,
)
from picture import Area
from learner import Learner
from screens import WHITE, ContentArea


class EnvironmentTests:
    """The tests of each environment with a screen."""

    panel_height = PANEL_HEIGHT

    def test_all_screens_are_shown(self) -> None:
        self.learner.wait_for_start()
        self.assert_work_area_is_filled()
        self.desktop.press("space")  # presses the first button, which has the focus
        self.answer_addition()
        self.desktop.press("Escape")
        for screen in ("multiplication", "division"):
            self.learner.open(screen)
            self.learner.wait_for_operation(screen)
            self.desktop.press("Escape")
        self.learner.open("record")
        self.learner.wait_for_operation("record")
        self.desktop.press("Escape")
        self.learner.wait_for_screen("FIN2")
        self.desktop.press("Return")
        self.learner.wait_for_screen("accueil")
        self.desktop.press("Escape")
        self.learner.click_arrow("Aurevoir")
        self.assert_clean_exit()

    def assert_work_area_is_filled(self) -> None:
        """With the same pixels as on a display without a panel, cut off at the bottom."""
        with Desktop(program_path()) as desktop:
            whole = Learner(desktop).wait_for_start().picture
        expected = whole.crop(Area(0, 0, whole.width, whole.height - self.panel_height))

        def fills_work_area(content: ContentArea) -> bool:
            return content.picture.crop(Area(0, self.panel_height, whole.width, whole.height)) == expected

        home = self.learner.wait_for("the whole home screen", fills_work_area).picture
        for y in range(self.panel_height):
            self.assertNotEqual(home.pixel(0, y), WHITE, "the window covers the panel")


class WithoutWindowManager(EnvironmentTests, WindowCase):
    environment = DesktopEnvironment
    panel_height = 0


class WithOpenbox(EnvironmentTests, WindowCase):
    environment = Openbox


class WithXfwm4(EnvironmentTests, WindowCase):
    environment = Xfwm4


class WithMetacity(EnvironmentTests, WindowCase):
    environment = Metacity


class OnWayland(EnvironmentTests, WindowCase):
    environment = Weston
    panel_height = WAYLAND_PANEL_HEIGHT


class OnWaylandWithoutScreen(unittest.TestCase):
    def test_runs_until_sigterm(self) -> None:
        """Waits for requests in the Wayland log on standard error. Lines of this log begin with a timestamp."""
        with Desktop(program_path(), HeadlessWeston, variables={"WAYLAND_DEBUG": "client"}) as desktop:
            wait_until("the window is shown", lambda: "set_maximized" in desktop.program.error_output())
            wait_until("the window has a picture", lambda: ".attach(wl_buffer" in desktop.program.error_output())
            self.assertTrue(desktop.program.is_running())
            desktop.program.send_signal(signal.SIGTERM)
            self.assertEqual(desktop.program.exit_status(), -signal.SIGTERM)
            lines = desktop.program.error_output().splitlines()
        self.assertEqual([line for line in lines if not line.startswith("[")], [])


if __name__ == "__main__":
    unittest.main()
