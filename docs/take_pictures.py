#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""Updates the pictures of the guide and of README.md: plays the tour and copies the pictures that they show.

Usage: take_pictures.py [PROGRAM [FOLDER]]
Defaults: the program that `./run` builds, and the folder of this script. The guide's pictures are in FOLDER/guide.
"""

import re
import subprocess
import sys
import tempfile
from pathlib import Path

from PIL import Image, ImageOps

DOCS = Path(__file__).resolve().parent
ROOT = DOCS.parent
TOUR = ROOT / "tour"
sys.path.insert(0, str(TOUR))
sys.dont_write_bytecode = True  # not beside the modules of the tour

from picture import Picture
from screens import content_corner

GUIDE = DOCS / "guide.md"
README_PICTURE = "addition-etape-1"  # README.md shows it as addition.png
PICTURE_LINK = re.compile(r"!\[([^\]]*)\]\(guide/([^)]*)\.png\)")  # groups: alternative text, name

MARGIN = 24  # pixels of white around the contents of a screen
SCALE = 0.7
COLOURS = 64  # enough for plain areas and antialiased letters


def names_in_guide() -> list[str]:
    return [name for _, name in PICTURE_LINK.findall(GUIDE.read_text(encoding="utf-8"))]


def take(program: Path, folder: Path) -> int:
    """Returns the exit status. With status 0, the subfolder contains exactly the pictures that the guide shows."""
    with tempfile.TemporaryDirectory() as scratch:
        subprocess.run([sys.executable, "-B", TOUR / "tour.py", program, scratch], check=True)
        taken = {path.stem.partition("-")[2]: path for path in Path(scratch).glob("*.png")}
        missing = sorted({README_PICTURE, *names_in_guide()} - set(taken))
        if missing:
            print(f"Pictures that the tour does not take: {', '.join(missing)}", file=sys.stderr)
            return 1
        replace_pictures(folder / "guide", {name: taken[name] for name in names_in_guide()})
        prepare(taken[README_PICTURE], folder / "addition.png")
    return 0


def replace_pictures(folder: Path, taken: dict[str, Path]) -> None:
    folder.mkdir(parents=True, exist_ok=True)
    for old in folder.glob("*.png"):
        old.unlink()
    for name, path in taken.items():
        prepare(path, folder / f"{name}.png")


def prepare(taken: Path, shown: Path) -> None:
    """Crops the picture to the contents of the screen, scales it down and adds a thin frame."""
    image = crop_to_content_area(Image.open(taken))
    image = image.crop(ImageOps.invert(image).getbbox())  # without the white margins
    image = ImageOps.scale(ImageOps.expand(image, MARGIN, "white"), SCALE)
    image = ImageOps.expand(image, 1, "silver")
    colours = image.quantize(COLOURS, Image.Quantize.MAXCOVERAGE, dither=Image.Dither.NONE)
    colours.save(shown, optimize=True)


def crop_to_content_area(image: Image.Image) -> Image.Image:
    """The frame has the same width on the left, on the right and at the bottom."""
    left, top = content_corner(Picture.from_image(image))
    return image.crop((left, top, image.width - left, image.height - left))


def main(arguments: list[str]) -> int:
    if len(arguments) > 2:
        sys.exit(__doc__)
    given = [Path(argument) for argument in arguments]
    program, folder = given + [ROOT / "build" / "chiffrolo", DOCS][len(given) :]
    return take(program.absolute(), folder)


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
