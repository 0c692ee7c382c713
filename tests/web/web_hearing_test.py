#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""Plays the page in Chromium like a blind user."""

import sys
import unittest
from collections.abc import Callable

from browser import PAGE, ROOT, Browser, wait_for

sys.path[:0] = [str(ROOT / "tour"), str(ROOT / "tests/window")]

from blind_learner import BlindLearner

KEYS = {"Return": "Enter", "Right": "ArrowRight"}
# Screen readers announce what is added to a live region.
LISTEN = """window.heard = [];
    new MutationObserver((changes) => heard.push(...changes.flatMap((change) => [...change.addedNodes])
      .map((node) => node.textContent)))
      .observe(document.querySelector("[aria-live=assertive]"), { childList: true })"""


class PageReader:
    """What a screen reader gets from the page: the accessibility tree, and what is added to the live region."""

    def __init__(self, browser: Browser) -> None:
        self.browser, self.announcements = browser, list[str]()
        browser.evaluate(LISTEN)

    def wait_for_announcement(self, what: str, matches: Callable[[str], object]) -> str:
        def first_match() -> str | None:
            self.announcements += self.browser.evaluate("heard.splice(0)")
            while self.announcements:
                if matches(text := self.announcements.pop(0)):
                    return text
            return None

        return wait_for(first_match, f"an announcement of {what}")

    def texts(self, screen: str) -> list[str]:
        names = self.browser.names()
        return [name for role, name in names[names.index(("application", screen)):] if role == "StaticText"]

    def press_button(self, screen: str, name: str) -> None:
        """By the action that the browser offers to screen readers."""
        names = self.browser.names()
        place = names.index(("button", name), names.index(("application", screen)))
        node = self.browser.nodes()[place]["backendDOMNodeId"]
        element = self.browser.command("DOM.resolveNode", backendNodeId=node)["object"]
        self.browser.command("Runtime.callFunctionOn", objectId=element["objectId"],
                             functionDeclaration="function () { this.click(); }")


class PlayedWithScreenReader(unittest.TestCase):
    def setUp(self) -> None:
        self.browser = self.enterContext(Browser())
        self.browser.open(PAGE)
        wait_for(lambda: ("application", "Accueil") in self.browser.names(), "the home screen")
        self.reader = PageReader(self.browser)
        self.learner = BlindLearner(self, self.reader, lambda key: self.browser.press(KEYS.get(key, key)))

    def test_level_and_challenge_can_be_completed(self) -> None:
        for button in "additions-soustractions", "Record":
            self.learner.play(button)
        self.assertEqual(self.browser.console(), [])


if __name__ == "__main__":
    unittest.main()
