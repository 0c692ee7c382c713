#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""On a desktop of high contrast, what the theme paints has the theme's colours, and all else those of the program."""

import tempfile
import unittest
from pathlib import Path

from case import program
from desktop import Desktop
from learner import Learner
from screens import HOME_BUTTONS

SETTINGS = """
[Colors:Window]
BackgroundNormal=0,0,0
ForegroundNormal=255,255,255
[Colors:Button]
BackgroundNormal=0,0,0
ForegroundNormal=255,255,0
[Colors:View]
BackgroundNormal=0,0,0
ForegroundNormal=255,255,255
"""
BLACK = (0, 0, 0)
WHITE = (255, 255, 255)
YELLOW = (255, 255, 0)


class Theme(unittest.TestCase):
    def test_high_contrast(self) -> None:
        folder = Path(self.enterContext(tempfile.TemporaryDirectory()))
        (folder / "kdeglobals").write_text(SETTINGS, encoding="ascii")
        session = {"XDG_CURRENT_DESKTOP": "KDE", "KDE_SESSION_VERSION": "5", "XDG_CONFIG_HOME": str(folder)}
        learner = Learner(self.enterContext(Desktop(program(), settings=session)))
        home = learner.start()
        for name, place in HOME_BUTTONS.items():
            inside = place.grown(-6)
            self.assertTrue(home.has(YELLOW, inside), f"the caption of {name}")
            self.assertFalse(home.has(WHITE, inside), f"the ground of {name}")

        sheet = learner.open("addition")
        bar = sheet.picture.crop(sheet.close_box())
        self.assertEqual(bar.pixel(2, bar.height - 2), BLACK)
        self.assertTrue(any(WHITE == bar.pixel(x, bar.height // 2) for x in range(bar.width)), "the cross")
        _, operation = learner.see_operation("addition")  # in blue on white, as ever
        learner.submit(operation.result)
        learner.see_bravo("addition")


if __name__ == "__main__":
    unittest.main()
