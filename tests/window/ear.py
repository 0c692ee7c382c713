# SPDX-License-Identifier: MIT
"""What reaches a screen reader: the accessibility tree and the announcements, as another process sees them."""

import time
from collections.abc import Callable
from typing import TypeVar

import pyatspi
from gi.repository import GLib

from desktop import PATIENCE, NotSeen

APPEARED = "object:state-changed:showing"
Found = TypeVar("Found")


class Ear:
    """Connects to the accessibility bus of the session, and wakes it. To be made before the program starts."""

    def __init__(self) -> None:
        self._heard: list[str] = []
        pyatspi.Registry.registerEventListener(self._listen, APPEARED)

    def close(self) -> None:
        pyatspi.Registry.deregisterEventListener(self._listen, APPEARED)

    def _listen(self, event: "pyatspi.event.Event") -> None:
        if event.detail1 == 1 and event.source.getRole() == pyatspi.ROLE_NOTIFICATION:
            self._heard.append(event.source.name)

    # ---- Announcements ------------------------------------------------------------------------------------

    def hear(self, what: str, fits: Callable[[str], object]) -> str:
        """Waits for an announcement; those before it are missed."""
        said: list[str] = []

        def is_said() -> bool:
            self._take_in()
            while self._heard:
                said.append(self._heard.pop(0))
                if fits(said[-1]):
                    return True
            return False

        _wait_until(is_said, lambda: f"{what} was not said, but: {said}")
        return said[-1]

    @staticmethod
    def _take_in() -> None:
        context = GLib.MainContext.default()
        while context.iteration(False):
            pass

    # ---- The tree -----------------------------------------------------------------------------------------

    def screen(self, name: str) -> pyatspi.Accessible:
        """Waits until the screen of that name is the one that is seen."""

        def seen() -> list[pyatspi.Accessible]:
            self._take_in()
            return [page for page in self._pages() if page.name == name and is_showing(page)]

        return _wait_until(seen, lambda: f"no screen {name} but {[page.name for page in self._pages()]}")[0]

    def texts(self, screen: str) -> list[str]:
        """What is written on the surface of a screen, from the top."""
        surface = next(part for part in descendants(self.screen(screen)) if part.getRole() == pyatspi.ROLE_CANVAS)
        parts = [surface.getChildAtIndex(index) for index in range(surface.childCount)]
        written = [part.name for part in parts if part is not None and part.getRole() == pyatspi.ROLE_LABEL]
        return [text for text in written if text not in ("", "Chiffrolo")]

    def press_button(self, screen: str, name: str) -> None:
        """As a screen reader does it for the learner."""
        button = next(part for part in descendants(self.screen(screen)) if part.name == name)
        action = button.queryAction()
        index = [action.getName(number) for number in range(action.nActions)].index("Press")
        action.doAction(index)

    @staticmethod
    def _pages() -> list[pyatspi.Accessible]:
        desktop = pyatspi.Registry.getDesktop(0)
        return [page for program in desktop if program for window in program if window for page in window if page]


def descendants(element: pyatspi.Accessible) -> list[pyatspi.Accessible]:
    children = [child for child in element if child is not None]
    return children + [further for child in children for further in descendants(child)]


def is_showing(element: pyatspi.Accessible) -> bool:
    return element.getState().contains(pyatspi.STATE_SHOWING)


def _wait_until(look: Callable[[], Found], complaint: Callable[[], str]) -> Found:
    end = time.monotonic() + PATIENCE
    while not (found := look()):
        if time.monotonic() > end:
            raise NotSeen(complaint())
        time.sleep(0.01)
    return found
