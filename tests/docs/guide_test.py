#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""The guide shows pictures that the tour takes, and keeps to French typography."""

import os
import re
import sys
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "docs"))

from take_pictures import FOLDER, GUIDE, SHOWN

TOUR = Path(os.environ.get("CHIFFROLO_TOUR", ROOT / "build" / "tests" / "docs" / "tour"))  # its pictures
MOST_BYTES = 300_000  # of all pictures


class Pictures(unittest.TestCase):
    def setUp(self) -> None:
        self.text = GUIDE.read_text(encoding="utf-8")
        self.shown = {name for _, name in SHOWN.findall(self.text)}

    def test_all_are_there_and_none_too_many(self) -> None:
        self.assertEqual({path.name for path in FOLDER.iterdir()}, {f"{name}.png" for name in self.shown})
        self.assertEqual(self.text.count("!["), len(self.shown), "pictures from elsewhere, or shown twice")

    def test_each_says_in_words_what_it_shows(self) -> None:
        for words, name in SHOWN.findall(self.text):
            self.assertGreaterEqual(len(words.split()), 3, name)

    def test_they_are_small(self) -> None:
        self.assertLess(sum(path.stat().st_size for path in FOLDER.iterdir()), MOST_BYTES)

    def test_the_tour_takes_them(self) -> None:
        taken = {path.stem.partition("-")[2] for path in TOUR.glob("*.png")}
        self.assertEqual(self.shown - taken, set())


# ---- Typography ------------------------------------------------------------------------------------------

NARROW = "\N{NARROW NO-BREAK SPACE}"
WIDE = "\N{NO-BREAK SPACE}"

FAULTS = {
    "no narrow no-break space before ; ! ?": f"[^{NARROW}][;!?]",
    "no no-break space before a colon": f"[^{WIDE}]:",
    "no no-break space within the guillemets": f"«[^{WIDE}]|[^{WIDE}]»",
    "an ordinary space beside a no-break one": f" [{NARROW}{WIDE}]|[{NARROW}{WIDE}] ",
    "a straight quotation mark or apostrophe": "[\"']",
    "three dots instead of an ellipsis": r"\.\.\.",
    "a hyphen instead of a dash": r"(?<=\S) -{1,2} ",
    "thousands not apart": r"\d{4}",
    "an ordinary space within a number": r"\d \d{3}\b",
    "no no-break space before a per cent sign": f"[^{WIDE}]%",
    "no no-break space after n°": f"n°[^{WIDE}]",
}

NOT_PROSE = re.compile(r"<!--.*?-->|!(?=\[)|\]\([^)]*\)|`[^`]*`|^\|[-:|]+\|$|\*\*|^- ", re.MULTILINE)


def faults(text: str) -> list[str]:
    """What is wrong where, in prose: neither in code, nor in addresses, nor in the marks of the layout."""
    found = []
    for number, line in enumerate(NOT_PROSE.sub("", text).splitlines(), 1):
        found += [f"line {number}: {what}: {line}" for what, fault in FAULTS.items() if re.search(fault, line)]
    return found


class Typography(unittest.TestCase):
    def test_guide(self) -> None:
        self.assertEqual(faults(GUIDE.read_text(encoding="utf-8")), [])


if __name__ == "__main__":
    unittest.main()
