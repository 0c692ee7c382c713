#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""Takes the pictures of the guide anew: plays the tour and keeps what the guide shows of it.

Usage: take_pictures.py [PROGRAM [FOLDER]]
Without them, the program that `./run` builds and the folder of the guide's pictures.
"""

import re
import subprocess
import sys
import tempfile
from pathlib import Path

DOCS = Path(__file__).resolve().parent
ROOT = DOCS.parent
TOUR = ROOT / "tour"
sys.path.insert(0, str(TOUR))

from picture import Area, Picture
from screens import Sheet

GUIDE = DOCS / "guide.md"
FOLDER = DOCS / "guide"
SHOWN = re.compile(r"!\[([^\]]*)\]\(guide/([^)]*)\.png\)")  # the alternative text and the name of a picture

MARGIN = 24  # pixels of white around what is on a screen
SCALE = "70%"
COLOURS = 32  # enough for flat areas and the edges of letters


def names_in_guide() -> list[str]:
    return [name for _, name in SHOWN.findall(GUIDE.read_text(encoding="utf-8"))]


def take(program: Path, folder: Path) -> int:
    """The exit status: 0 if every picture that the guide shows is in the folder, and nothing else."""
    with tempfile.TemporaryDirectory() as scratch:
        subprocess.run([sys.executable, "-B", TOUR / "tour.py", program, scratch], check=True)
        taken = {path.stem.partition("-")[2]: path for path in Path(scratch).glob("*.png")}
        missing = sorted(set(names_in_guide()) - set(taken))
        if missing:
            print(f"The tour takes no picture of that name: {', '.join(missing)}", file=sys.stderr)
            return 1
        replace_pictures(folder, {name: taken[name] for name in names_in_guide()})
    return 0


def replace_pictures(folder: Path, taken: dict[str, Path]) -> None:
    folder.mkdir(exist_ok=True)
    for old in folder.glob("*.png"):
        old.unlink()
    for name, path in taken.items():
        prepare(path, folder / f"{name}.png")


def prepare(taken: Path, shown: Path) -> None:
    """What is on the screen, without its title bar and the white around, small and with a thin frame."""
    ppm = subprocess.run(["convert", taken, "-depth", "8", "ppm:-"], stdout=subprocess.PIPE, check=True).stdout
    command = ["convert", "ppm:-", "-trim", "+repage", "-bordercolor", "white", "-border", str(MARGIN)]
    command += ["-resize", SCALE, "-bordercolor", "silver", "-border", "1"]
    command += ["+dither", "-colors", str(COLOURS), "-white-threshold", "98%", "-strip", f"png8:{shown}"]
    subprocess.run(command, input=inner_area(Picture.from_ppm(ppm)).to_ppm(), check=True)


def inner_area(picture: Picture) -> Picture:
    """Its frame is as thick on the right and below as it is on the left."""
    sheet = Sheet(picture)
    return picture.crop(Area(sheet.left, sheet.top, picture.width - sheet.left, picture.height - sheet.left))


def main(arguments: list[str]) -> int:
    if len(arguments) > 2:
        sys.exit(__doc__)
    program, folder = [*arguments, *(ROOT / "build" / "chiffrolo", FOLDER)[len(arguments) :]]
    return take(Path(program).absolute(), Path(folder))


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
