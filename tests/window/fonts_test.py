#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""With any set of installed fonts, the texts are readable: no letter is replaced by a box."""

import tempfile
import unittest

from base_case import WindowCase
from screens import LABEL_BORDER, ContentArea
from text_recognition import coverage_of, split

# The installed fonts whose files match. The program requests none of the last two, and no similar ones.
FONTS = ("DejaVu*", "DejaVuSansMono*", "KaushanScript*")
# "*.*" rejects font files, but not their folders, whose paths contain no dot.
CONFIGURATION = """<?xml version="1.0"?>
<!DOCTYPE fontconfig SYSTEM "fonts.dtd">
<fontconfig>
  <include>/etc/fonts/fonts.conf</include>
  <selectfont><rejectfont><glob>*.*</glob></rejectfont><acceptfont><glob>*/{files}</glob></acceptfont></selectfont>
</fontconfig>
"""
MIN_HEIGHT_RATIO = 1.2  # of the highest character to the lowest; about 1 if all are boxes


class Fonts(WindowCase):
    def test_name_of_program_is_readable(self) -> None:
        """It is sans serif on the home screen, and with serifs on the other one."""
        for files in FONTS:
            with self.subTest(files=files), tempfile.NamedTemporaryFile("w", suffix=".conf") as configuration:
                configuration.write(CONFIGURATION.format(files=files))
                configuration.flush()
                learner = self.start(variables={"FONTCONFIG_FILE": configuration.name})
                self.assert_heights_differ(learner.wait_for_start(), "accueil")
                self.assert_heights_differ(learner.open("addition"), "addition")

    def assert_heights_differ(self, content: ContentArea, screen: str) -> None:
        area, colour, background = content.layouts[screen].title
        title = content.picture.crop(content.on_display(area.grown(-LABEL_BORDER)))
        characters = split(coverage_of(title, colour, background))
        heights = [(character.max(axis=1) > 0.5).sum() for character in characters]  # in covered rows of pixels
        self.assertGreater(max(heights), MIN_HEIGHT_RATIO * min(heights), heights)


if __name__ == "__main__":
    unittest.main()
