#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""The pictures in `assets` and the icons of the package are up to date with their sources."""

import subprocess
import tempfile
import unittest
from pathlib import Path

from base_case import ROOT

FOLDERS = (ROOT / "assets", ROOT / "packaging" / "icons")

# Picture, tolerance of its colours, and the share of its pixels that may differ more: the edges of shapes depend on the
# version of the SVG renderer. The two icons drawn from XPM files do not.
DIFFERENCES = {"fleche.png": ("0%", 0), "arret.png": ("0%", 0), "aurevoir.jpg": ("10%", 0.02)}


class Pictures(unittest.TestCase):
    def test_pictures_equal_those_drawn_from_their_sources(self) -> None:
        scratch = Path(self.enterContext(tempfile.TemporaryDirectory()))
        for folder in FOLDERS:
            subprocess.run([folder / "draw", scratch], check=True)
        kept = {path.name: path for folder in FOLDERS for path in folder.glob("*.[pj][np]g")}
        self.assertEqual({path.name for path in scratch.iterdir()}, set(kept))
        for name, path in kept.items():
            tolerance, share = DIFFERENCES.get(name, ("5%", 0.005))
            self.assertLessEqual(different_share(path, scratch / name, tolerance), share, name)


def different_share(one: Path, other: Path, tolerance: str) -> float:
    """Of all pixels. On a colour that no picture contains, because any pixel would equal a transparent one."""
    command = ["convert", one, other, "-background", "fuchsia", "-alpha", "remove", "-metric", "AE", "-fuzz", tolerance]
    command += ["-compare", "-format", "%[distortion] %w %h", "info:"]
    different, width, height = map(float, subprocess.run(command, stdout=subprocess.PIPE, check=True).stdout.split())
    return different / (width * height)


if __name__ == "__main__":
    unittest.main()
