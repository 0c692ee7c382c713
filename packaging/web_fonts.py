#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""Makes the fonts of the web page from the fonts of Debian's fonts-liberation2 and fonts-kaushanscript.

Usage: web_fonts.py FOLDER

Writes into FOLDER:
- serif-bold, sans-bold, sans-regular and script, each .woff2: without hints and kerning, and with the characters of
  French only. `script` has those of "Au revoir".
- font_table.json: the metrics of each, in units of which `unitsPerEm` are the font size. `advances` has the
  characters of each width. A line is `ascent` + `descent` high.
- fonts_licence.txt: the copyright notices and the licence, for the page that embeds the fonts.

The licence reserves the names of the fonts, so that these have others.
"""

import json
import re
import sys
from dataclasses import dataclass
from pathlib import Path

from fontTools import subset
from fontTools.ttLib import TTFont, woff2

ACCENTED = "àâäæçéèêëîïôöœùûüÿ"
NO_BREAK_SPACES = "\u00a0\u202f"
FRENCH = "".join(map(chr, range(32, 127))) + ACCENTED + ACCENTED.upper() + "«»’‘“”–—…·×÷−€°" + NO_BREAK_SPACES

FONTS = Path("/usr/share/fonts")
LIBERATION = FONTS / "truetype" / "liberation2"
KAUSHAN = FONTS / "opentype" / "kaushanscript"

# Fields of the copyright files. The second begins with the copyright notice, and has the text of the licence.
NOTICES = {"fonts-liberation2": "Copyright", "fonts-kaushanscript": "License"}
INTRODUCTION = """\
The fonts Chiffrolo Serif, Chiffrolo Sans and Chiffrolo Script are Modified Versions of the fonts below: subsets with
other names. All are licensed under the SIL Open Font License, Version 1.1, whose text follows the notices."""


@dataclass
class Face:
    file: str
    source: Path
    family: str
    style: str
    characters: str = FRENCH


FACES = [
    Face("serif-bold", LIBERATION / "LiberationSerif-Bold.ttf", "Chiffrolo Serif", "Bold"),
    Face("sans-bold", LIBERATION / "LiberationSans-Bold.ttf", "Chiffrolo Sans", "Bold"),
    Face("sans-regular", LIBERATION / "LiberationSans-Regular.ttf", "Chiffrolo Sans", "Regular"),
    Face("script", KAUSHAN / "KaushanScript-Regular.otf", "Chiffrolo Script", "Regular", "Au revoir"),
]

# Numbers of entries in the table of names.
COPYRIGHT, FAMILY, STYLE, FULL_NAME, POSTSCRIPT_NAME, LICENCE, LICENCE_ADDRESS = 0, 1, 2, 4, 6, 13, 14


def make_subset(face: Face) -> TTFont:
    font = TTFont(face.source, recalcTimestamp=False)
    if "Open Font License" not in font["name"].getDebugName(LICENCE):
        sys.exit(f"{face.source}: not under the Open Font License")
    missing = {character for character in face.characters if ord(character) not in font.getBestCmap()}
    if missing:
        sys.exit(f"{face.source}: no {missing}")
    options = subset.Options(hinting=False, layout_features=[], desubroutinize=True, notdef_outline=False,
                             name_IDs=[COPYRIGHT, LICENCE, LICENCE_ADDRESS])
    options.drop_tables += ["FFTM", "GDEF", "GPOS", "GSUB", "gasp", "kern"]
    subsetter = subset.Subsetter(options)
    subsetter.populate(text=face.characters)
    subsetter.subset(font)
    return font


def rename(font: TTFont, face: Face) -> None:
    full_name = f"{face.family} {face.style}"
    postscript_name = f"{face.family.replace(' ', '')}-{face.style}"
    names = {FAMILY: face.family, STYLE: face.style, FULL_NAME: full_name, POSTSCRIPT_NAME: postscript_name}
    for number, name in names.items():
        font["name"].setName(name, number, 3, 1, 0x409)  # Windows, Unicode, English
    if "CFF " in font:
        outlines = font["CFF "].cff
        outlines.fontNames = [postscript_name]
        for entry in ("version", "Notice", "Copyright", "FullName", "FamilyName", "Weight"):
            outlines[0].rawDict.pop(entry, None)


def write_woff2(font: TTFont, path: Path) -> None:
    if "glyf" in font:
        # Left edges that agree with the outlines need not be stored. Only that of the empty .notdef does not.
        font["hmtx"][".notdef"] = (font["hmtx"][".notdef"][0], 0)
        font.flavorData = woff2.WOFF2FlavorData(transformedTables={"glyf", "loca", "hmtx"})
    font.flavor = "woff2"
    font.save(path)


def metrics(font: TTFont) -> dict[str, object]:
    characters: dict[int, str] = {}
    for code, glyph in sorted(font.getBestCmap().items()):
        advance = font["hmtx"][glyph][0]
        characters[advance] = characters.get(advance, "") + chr(code)
    return {
        "unitsPerEm": font["head"].unitsPerEm,
        "ascent": font["hhea"].ascent,
        "descent": -font["hhea"].descent,
        "averageWidth": font["OS/2"].xAvgCharWidth,
        "advances": dict(sorted(characters.items())),
    }


def copyright_field(package: str, field: str) -> str:
    """The first one in the copyright file of the package, which is that of the font: others are of the packaging."""
    text = Path("/usr/share/doc", package, "copyright").read_text(encoding="utf-8")
    found = re.search(rf"^{field}:(.*(?:\n .*)*)", text, re.MULTILINE)
    if not found:
        sys.exit(f"{package}: no {field} in its copyright file")
    return re.sub(r"^ +\.?", "", found[1], flags=re.MULTILINE).strip()


def licence() -> str:
    notices = [f"From {package}:\n{copyright_field(package, field)}" for package, field in NOTICES.items()]
    return "\n\n".join([INTRODUCTION, *notices]) + "\n"


def main(folder: Path) -> None:
    folder.mkdir(parents=True, exist_ok=True)
    table = {}
    for face in FACES:
        font = make_subset(face)
        rename(font, face)
        table[face.file] = metrics(font)
        write_woff2(font, folder / f"{face.file}.woff2")
    text = json.dumps(table, ensure_ascii=False, separators=(",", ":"))
    (folder / "font_table.json").write_text(text + "\n", encoding="utf-8")
    (folder / "fonts_licence.txt").write_text(licence(), encoding="utf-8")


if __name__ == "__main__":
    main(Path(sys.argv[1]))
