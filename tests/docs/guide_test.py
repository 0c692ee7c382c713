#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""The guide shows pictures of the tour and follows French typography."""

import os
import re
import sys
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "docs"))

from take_pictures import GUIDE, PICTURE_FOLDER, PICTURE_LINK

TOUR = Path(os.environ.get("CHIFFROLO_TOUR", ROOT / "build" / "tests" / "docs" / "tour"))  # the folder of its pictures
MAX_BYTES = 300_000  # of all pictures together


class Pictures(unittest.TestCase):
    def setUp(self) -> None:
        self.text = GUIDE.read_text(encoding="utf-8")
        self.shown = {name for _, name in PICTURE_LINK.findall(self.text)}

    def test_folder_contains_exactly_the_pictures_of_the_guide(self) -> None:
        self.assertEqual({path.name for path in PICTURE_FOLDER.iterdir()}, {f"{name}.png" for name in self.shown})
        self.assertEqual(self.text.count("!["), len(self.shown), "a foreign or repeated picture")

    def test_alternative_texts_have_at_least_three_words(self) -> None:
        for alternative_text, name in PICTURE_LINK.findall(self.text):
            self.assertGreaterEqual(len(alternative_text.split()), 3, name)

    def test_pictures_are_small(self) -> None:
        self.assertLess(sum(path.stat().st_size for path in PICTURE_FOLDER.iterdir()), MAX_BYTES)

    def test_tour_takes_all_pictures(self) -> None:
        taken = {path.stem.partition("-")[2] for path in TOUR.glob("*.png")}
        self.assertEqual(self.shown - taken, set())


# ---- Typography ------------------------------------------------------------------------------------------

NARROW = "\N{NARROW NO-BREAK SPACE}"
WIDE = "\N{NO-BREAK SPACE}"

FAULTS = {
    "no narrow no-break space before ; ! ?": f"[^{NARROW}][;!?]",
    "no no-break space before a colon": f"[^{WIDE}]:",
    "no no-break space within the guillemets": f"«[^{WIDE}]|[^{WIDE}]»",
    "an ordinary space beside a no-break space": f" [{NARROW}{WIDE}]|[{NARROW}{WIDE}] ",
    "a straight quotation mark or apostrophe": "[\"']",
    "three dots instead of an ellipsis": r"\.\.\.",
    "a hyphen instead of a dash": r"(?<=\S) -{1,2} ",
    "no separator of thousands": r"\d{4}",
    "an ordinary space within a number": r"\d \d{3}\b",
    "no no-break space before a per cent sign": f"[^{WIDE}]%",
    "no no-break space after n°": f"n°[^{WIDE}]",
}

NOT_PROSE = re.compile(r"<!--.*?-->|!(?=\[)|\]\([^)]*\)|`[^`]*`|^\|[-:|]+\|$|\*\*|^- ", re.MULTILINE)


def faults(text: str) -> list[str]:
    """One message for each fault in the prose. Ignores code, addresses and Markdown syntax."""
    found = []
    for number, line in enumerate(NOT_PROSE.sub("", text).splitlines(), 1):
        found += [f"line {number}: {message}: {line}" for message, fault in FAULTS.items() if re.search(fault, line)]
    return found


class Typography(unittest.TestCase):
    def test_guide_follows_french_typography(self) -> None:
        self.assertEqual(faults(GUIDE.read_text(encoding="utf-8")), [])


if __name__ == "__main__":
    unittest.main()
