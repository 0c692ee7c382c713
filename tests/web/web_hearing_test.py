#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""Plays the page in Chromium like a blind user."""

import sys
import unittest
from collections.abc import Callable

from browser import PAGE, ROOT, Browser, wait_for

sys.path[:0] = [str(ROOT / "tour"), str(ROOT / "tests/window")]

from blind_learner import BlindLearner
from learner import Operation

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
        assert ("button", name) in names[names.index(("application", screen)):], names
        nodes = self.browser.command("Accessibility.getFullAXTree")["nodes"]
        button = next(node for node in nodes if not node["ignored"] and
                      (node["role"]["value"], node["name"]["value"]) == ("button", name))
        element = self.browser.command("DOM.resolveNode", backendNodeId=button["backendDOMNodeId"])["object"]
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

    def test_level_with_a_correction(self) -> None:
        self.reader.press_button("Accueil", "divisions")
        self.learner.answer_correctly("Divisions", 1)
        operation = self.learner.hear_operation("Divisions")
        wrong = str(operation.result + 1)
        self.learner.type_answer("Divisions", wrong)
        self.learner.press("Return")
        self.reader.wait_for_announcement("the judgement", lambda text: text.endswith(f"égale {wrong}. FAUX"))
        self.learner.press("Right")
        self.reader.wait_for_announcement("the correction", lambda text: text.startswith("correction"))
        self.correct(operation)
        self.learner.press("Right")
        self.learner.complete("divisions")

    def correct(self, operation: Operation) -> None:
        """Finds each digit of the quotient, and types 9, which no remainder is, for each remainder."""
        quotient = str(operation.result)
        dividend = str(operation.left)
        for length, digit in enumerate(quotient, len(dividend) - len(quotient) + 1):
            remainder = int(dividend[:length]) % operation.right
            for typed, verdict in (digit, f"juste : {digit}"), ("9", f"faux : {remainder}"):
                self.learner.press(typed)
                said = self.reader.wait_for_announcement(verdict, lambda text: verdict in text)
                self.assertTrue(any(verdict in text for text in self.reader.texts("Divisions")))
        self.assertIn("Score égale 0", said)


if __name__ == "__main__":
    unittest.main()
