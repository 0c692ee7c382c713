#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""With any set of installed fonts, the texts are readable: no letter is replaced by a box."""

import subprocess
import tempfile
import unittest
from pathlib import Path

from base_case import program_path
from desktop import Desktop
from learner import Learner
from screens import LABEL_BORDER, LIGHT_YELLOW, RED, TITLES, ContentArea
from text_recognition import Coverage, coverage_of, split

CONFIGURATION = """<?xml version="1.0"?>
<!DOCTYPE fontconfig SYSTEM "fonts.dtd">
<fontconfig>
  <dir>{folder}</dir>
  <cachedir>{folder}/cache</cachedir>
  <include ignore_missing="yes">/etc/fonts/conf.d</include>
</fontconfig>
"""
MIN_HEIGHT_RATIO = 1.2  # of the highest character to the lowest; about 1 if all are boxes


def height(coverage: Coverage) -> int:
    """In pixels, from the first row of the character to the last."""
    rows = [y for y, row in enumerate(coverage) if max(row) > 0.5]
    return rows[-1] - rows[0] + 1 if rows else 0


class Fonts(unittest.TestCase):
    def setUp(self) -> None:
        self.folder = Path(self.enterContext(tempfile.TemporaryDirectory()))

    def test_text_is_readable_with_dejavu_only(self) -> None:
        self.assert_readable("DejaVu*")

    def test_text_is_readable_with_monospaced_font_only(self) -> None:
        """None of the faces that the program requests, and no similar one."""
        self.assert_readable("DejaVuSansMono*")

    def test_text_is_readable_with_script_font_only(self) -> None:
        self.assert_readable("KaushanScript*")

    def desktop_with(self, files: str) -> Desktop:
        """A desktop whose only fonts are the installed files that match the pattern `files`."""
        installed = subprocess.run(["fc-list", "--format=%{file}\\n"], stdout=subprocess.PIPE, check=True, text=True)
        fonts = {path for path in map(Path, installed.stdout.splitlines()) if path.match(files)}
        self.assertTrue(fonts, f"{files} is not installed")
        for font in fonts:
            (self.folder / font.name).symlink_to(font)
        configuration = self.folder / "fonts.conf"
        configuration.write_text(CONFIGURATION.format(folder=self.folder), encoding="ascii")
        return self.enterContext(Desktop(program_path(), variables={"FONTCONFIG_FILE": str(configuration)}))

    def assert_readable(self, files: str) -> None:
        """Checks the name of the program: sans serif on the home screen, with serifs on the other one."""
        learner = Learner(self.desktop_with(files))
        self.assert_heights_differ(learner.wait_for_start(), "accueil")
        self.assert_heights_differ(learner.open("addition"), "addition")

    def assert_heights_differ(self, content: ContentArea, screen: str) -> None:
        title = content.picture.crop(content.on_display(TITLES[screen].grown(-LABEL_BORDER)))
        heights = [height(character) for character in split(coverage_of(title, RED, LIGHT_YELLOW))]
        self.assertGreater(max(heights), MIN_HEIGHT_RATIO * min(heights), heights)


if __name__ == "__main__":
    unittest.main()
