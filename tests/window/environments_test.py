#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""In each desktop environment, the program fills the work area, has the focus at once, shows all screens, and exits
with status 0 and without error output."""

import signal
import unittest

from base_case import WindowCase, answer_addition, program_path
from desktop import Desktop, wait_until
from desktop_environments import HeadlessWeston, Metacity, Openbox, Weston, Xfwm4
from picture import Area
from learner import Learner
from screens import WHITE


class WithoutWindowManager(WindowCase):
    def test_all_screens_are_shown(self) -> None:
        self.assert_work_area_is_filled()
        self.desktop.press("space")  # presses the first button, which has the focus
        answer_addition(self.learner)
        self.desktop.press("Escape")
        for screen in ("multiplication", "division", "record"):
            self.learner.open(screen)
            self.learner.wait_for_operation(screen)
            self.desktop.press("Escape")
        self.learner.wait_for_screen("FIN2")
        self.desktop.press("Return")
        self.learner.wait_for_screen("accueil")
        self.desktop.press("Escape")
        self.learner.click_arrow("Aurevoir")
        self.assertEqual((self.desktop.program.exit_status(), self.desktop.program.error_output()), (0, ""))

    def assert_work_area_is_filled(self) -> None:
        """With the same pixels as on a display without a panel, cut off at the bottom."""
        panel_height = self.environment.panel_height
        with Desktop(program_path()) as desktop:
            whole = Learner(desktop).wait_for_start().picture
        work_area = Area(0, panel_height, whole.width, whole.height)
        expected = whole.crop(work_area.moved(0, -panel_height))
        home = self.desktop.wait_for("the whole home screen", lambda picture: picture.crop(work_area) == expected)
        self.assertFalse(home.has(WHITE, Area(0, 0, 1, panel_height)), "the window covers the panel")


class WithOpenbox(WithoutWindowManager):
    environment = Openbox


class WithXfwm4(WithoutWindowManager):
    environment = Xfwm4


class WithMetacity(WithoutWindowManager):
    environment = Metacity


class OnWayland(WithoutWindowManager):
    environment = Weston


class OnWaylandWithoutScreen(unittest.TestCase):
    def test_runs_until_sigterm(self) -> None:
        """Waits for requests in the Wayland log on standard error. Lines of this log begin with a timestamp."""
        with Desktop(program_path(), HeadlessWeston, variables={"WAYLAND_DEBUG": "client"}) as desktop:
            for request in ("set_maximized", ".attach(wl_buffer"):
                wait_until(request, lambda: request in desktop.program.error_output())
            desktop.program.send_signal(signal.SIGTERM)
            self.assertEqual(desktop.program.exit_status(), -signal.SIGTERM)
            lines = desktop.program.error_output().splitlines()
        self.assertEqual([line for line in lines if not line.startswith("[")], [])


if __name__ == "__main__":
    unittest.main()
