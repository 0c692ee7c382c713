# SPDX-License-Identifier: MIT
"""Reads the accessibility tree and receives announcements over the accessibility bus, as a screen reader does."""

from collections.abc import Callable
from contextlib import ExitStack

import pyatspi
from gi.repository import GLib

from desktop import wait_until

SHOWN = "object:state-changed:showing"


class Listener(ExitStack):
    """A client of the accessibility bus. Starts that bus if necessary, so create it before the program starts."""

    def __init__(self) -> None:
        super().__init__()
        self._announcements: list[str] = []
        pyatspi.Registry.registerEventListener(self._on_event, SHOWN)
        self.callback(pyatspi.Registry.deregisterEventListener, self._on_event, SHOWN)

    def _on_event(self, event: "pyatspi.event.Event") -> None:
        if event.detail1 == 1 and event.source.getRole() == pyatspi.ROLE_NOTIFICATION:
            self._announcements.append(event.source.name)

    # ---- Announcements ------------------------------------------------------------------------------------

    def wait_for_announcement(self, what: str, matches: Callable[[str], object]) -> str:
        """Returns the first announcement that matches. Discards those before it."""
        received: list[str] = []

        def is_received() -> bool:
            self._process_events()
            while self._announcements:
                received.append(self._announcements.pop(0))
                if matches(received[-1]):
                    return True
            return False

        wait_until(lambda: f"an announcement of {what}, not only {received}", is_received)
        return received[-1]

    @staticmethod
    def _process_events() -> None:
        context = GLib.MainContext.default()
        while context.iteration(False):
            pass

    # ---- The tree -----------------------------------------------------------------------------------------

    def wait_for_screen(self, name: str) -> pyatspi.Accessible:
        """Waits until the screen of this name is showing."""

        def showing() -> list[pyatspi.Accessible]:
            self._process_events()
            return [page for page in self._pages()
                    if page.name == name and page.getState().contains(pyatspi.STATE_SHOWING)]

        return wait_until(lambda: f"the screen {name}, not {[page.name for page in self._pages()]}", showing)[0]

    def texts(self, screen: str) -> list[str]:
        """The texts on the drawing surface of a screen, from top to bottom."""
        page = self.wait_for_screen(screen)
        surface = pyatspi.findDescendant(page, lambda part: part.getRole() == pyatspi.ROLE_CANVAS)
        labels = pyatspi.findAllDescendants(surface, lambda part: part.getRole() == pyatspi.ROLE_LABEL)
        return [label.name for label in labels if label.name not in ("", "Chiffrolo")]

    def press_button(self, screen: str, name: str) -> None:
        """Uses the accessible action of the button."""
        button = pyatspi.findDescendant(self.wait_for_screen(screen), lambda part: part.name == name)
        action = button.queryAction()
        index = [action.getName(number) for number in range(action.nActions)].index("Press")
        action.doAction(index)

    @staticmethod
    def _pages() -> list[pyatspi.Accessible]:
        desktop = pyatspi.Registry.getDesktop(0)
        return [page for program in desktop if program for window in program if window for page in window if page]
