#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""The fonts of the web page have all characters that the screens print, and keep the conditions of their licence."""

import os
import re
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

from fontTools.ttLib import TTFont

ROOT = Path(__file__).resolve().parents[2]
RESERVED = re.compile("liberation|arimo|tinos|cousine|kaushan", re.IGNORECASE)


class Fonts(unittest.TestCase):
    def setUp(self) -> None:
        self.files = self.make_fonts(SOURCE_DATE_EPOCH="0", PYTHONHASHSEED="1")
        self.fonts = {file.stem: TTFont(file) for file in self.files if file.suffix == ".woff2"}

    def make_fonts(self, **environment: str) -> dict[Path, bytes]:
        folder = Path(self.enterContext(tempfile.TemporaryDirectory()))
        program = ROOT / "packaging/web_fonts.py"
        subprocess.run([sys.executable, program, folder], env=os.environ | environment, check=True)
        return {file: file.read_bytes() for file in sorted(folder.iterdir())}

    def test_every_printed_character_is_in_the_fonts(self) -> None:
        code = "".join(file.read_text(encoding="utf-8") for file in ROOT.glob("core/**/*.cpp"))
        printed = "".join(re.findall('^(?! *(?://|#)).*".*$', code, re.MULTILINE))  # lines of code with texts
        farewell = re.search(r'"([^"]+)", \{[^}]*\},\s*\{"Brush Script MT"', code)[1]
        for face, texts in ("serif-bold", printed), ("sans-bold", printed), ("script", farewell):
            self.assertEqual({*texts} - {*map(chr, self.fonts[face].getBestCmap())}, set(), face)

    def test_same_bytes_at_another_time(self) -> None:
        later = self.make_fonts(SOURCE_DATE_EPOCH="1", PYTHONHASHSEED="2")
        self.assertTrue([*later.values()] == [*self.files.values()])  # assertEqual would list the bytes for long

    def test_no_reserved_names(self) -> None:
        for font in self.fonts.values():
            names = [str(name) for name in font["name"].names if name.nameID != 0]  # 0: the copyright
            if "CFF " in font:
                names += [*font["CFF "].cff.fontNames, str(font["CFF "].cff[0].rawDict)]
            self.assertNotRegex("; ".join(names), RESERVED)


if __name__ == "__main__":
    unittest.main()
