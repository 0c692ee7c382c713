#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""The pictures in `assets` and the icons of the package are up to date with their sources."""

import subprocess
import tempfile
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
ASSETS = ROOT / "assets"
ICONS = ROOT / "packaging" / "icons"


class Pictures(unittest.TestCase):
    @classmethod
    def setUpClass(cls) -> None:
        cls.scratch = Path(cls.enterClassContext(tempfile.TemporaryDirectory()))
        cls.drawn = cls.scratch / "drawn"
        subprocess.run([ASSETS / "draw", cls.drawn], check=True)
        subprocess.run([ICONS / "draw", cls.drawn], check=True)

    def test_scripts_draw_every_picture(self) -> None:
        kept = {path.name for folder in (ASSETS, ICONS) for path in folder.glob("*.[pj][np]g")}
        self.assertEqual({path.name for path in self.drawn.iterdir()}, kept)

    def test_pictures_equal_those_drawn_from_their_sources(self) -> None:
        """The edges of shapes depend on the version of the SVG renderer. The two icons drawn from XPM files do not."""
        self.assertEqual(self.different_pixels("fleche.png"), 0)
        self.assertEqual(self.different_pixels("arret.png"), 0)
        self.assertLess(self.different_pixels("chiffrolo.png", "5%"), 300 * 300 * 0.005)
        self.assertLess(self.different_pixels("aurevoir.jpg", "10%"), 30 * 30 * 0.02)
        for name, side in (("fleche-grande", 192), ("arret-grand", 192), ("aurevoir-grand", 180),
                           ("48x48", 48), ("128x128", 128), ("256x256", 256)):
            self.assertLess(self.different_pixels(f"{name}.png", "5%"), side * side * 0.005, name)

    def different_pixels(self, name: str, tolerance: str = "0%") -> int:
        folder = ICONS if (ICONS / name).exists() else ASSETS
        kept = self.without_transparency(folder / name, "kept.ppm")
        drawn = self.without_transparency(self.drawn / name, "drawn.ppm")
        command = ["compare", "-metric", "AE", "-fuzz", tolerance, kept, drawn, "null:"]
        result = subprocess.run(command, stderr=subprocess.PIPE, text=True)
        self.assertIn(result.returncode, (0, 1), f"{name}: {result.stderr}")
        return round(float(result.stderr))

    def without_transparency(self, picture: Path, name: str) -> Path:
        """On a colour that no picture contains, because `compare` accepts any pixel for a transparent one."""
        flat = self.scratch / name
        subprocess.run(["convert", picture, "-background", "fuchsia", "-flatten", flat], check=True)
        return flat


if __name__ == "__main__":
    unittest.main()
