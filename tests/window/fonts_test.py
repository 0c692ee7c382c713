#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""Whatever fonts a machine has, the texts can be read: no box stands in for a letter."""

import subprocess
import tempfile
import unittest
from pathlib import Path

from case import program
from desktop import Desktop
from learner import Learner
from reading import Ink, ink_of, split
from screens import LABEL_BORDER, LIGHT_YELLOW, RED, TITLES, Sheet

CONFIGURATION = """<?xml version="1.0"?>
<!DOCTYPE fontconfig SYSTEM "fonts.dtd">
<fontconfig>
  <dir>{folder}</dir>
  <cachedir>{folder}/cache</cachedir>
  <include ignore_missing="yes">/etc/fonts/conf.d</include>
</fontconfig>
"""
LEAST_VARIETY = 1.2  # from the lowest character to the highest; 1 if all are boxes


def height(ink: Ink) -> int:
    """In pixels, from the first row with ink to the last."""
    inked = [y for y, row in enumerate(ink) if max(row) > 0.5]
    return inked[-1] - inked[0] + 1 if inked else 0


class Fonts(unittest.TestCase):
    def setUp(self) -> None:
        self.folder = Path(self.enterContext(tempfile.TemporaryDirectory()))

    def test_dejavu_only(self) -> None:
        self.assert_readable("DejaVu*")

    def test_monospaced_only(self) -> None:
        """None of the faces that are asked for, nor anything like them."""
        self.assert_readable("DejaVuSansMono*")

    def test_script_only(self) -> None:
        self.assert_readable("KaushanScript*")

    def desktop_with(self, files: str) -> Desktop:
        """A desktop with no other fonts than those in the files of these names."""
        known = subprocess.run(["fc-list", "--format=%{file}\\n"], stdout=subprocess.PIPE, check=True, text=True)
        fonts = {path for path in map(Path, known.stdout.splitlines()) if path.match(files)}
        self.assertTrue(fonts, f"{files} is not installed")
        for font in fonts:
            (self.folder / font.name).symlink_to(font)
        configuration = self.folder / "fonts.conf"
        configuration.write_text(CONFIGURATION.format(folder=self.folder), encoding="ascii")
        return self.enterContext(Desktop(program(), settings={"FONTCONFIG_FILE": str(configuration)}))

    def assert_readable(self, files: str) -> None:
        """The name of the program, without serifs on the home screen and with serifs on the other one."""
        learner = Learner(self.desktop_with(files))
        self.assert_variety(learner.start(), "accueil")
        self.assert_variety(learner.open("addition"), "addition")

    def assert_variety(self, sheet: Sheet, screen: str) -> None:
        title = sheet.picture.crop(sheet.on_display(TITLES[screen].grown(-LABEL_BORDER)))
        heights = [height(ink) for ink in split(ink_of(title, RED, LIGHT_YELLOW))]
        self.assertGreater(max(heights), LEAST_VARIETY * min(heights), heights)


if __name__ == "__main__":
    unittest.main()
