#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""What no validator asks for: the files of the package agree with each other, and take little room."""

import gzip
import re
import tempfile
import unittest
from pathlib import Path

from package import ENTRY, ID, METAINFO, ROOT, field, unpack

DOCUMENTS = "usr/share/doc/chiffrolo"
MANUALS = ("usr/share/man/man6/chiffrolo.6.gz", "usr/share/man/fr/man6/chiffrolo.6.gz")
ICON_FOLDERS = {"scalable", "48x48", "128x128", "256x256"}
MOST_KIBIBYTES = 1000 * 1000 // 1024


class Contents(unittest.TestCase):
    @classmethod
    def setUpClass(cls) -> None:
        cls.unpacked = Path(cls.enterClassContext(tempfile.TemporaryDirectory()))
        unpack(cls.unpacked)

    def read(self, path: str) -> str:
        content = (self.unpacked / path).read_bytes()
        return (gzip.decompress(content) if path.endswith(".gz") else content).decode()

    def test_size_and_recommendations(self) -> None:
        self.assertLess(int(field("Installed-Size")), MOST_KIBIBYTES)
        self.assertEqual(field("Recommends"), "fonts-liberation, fonts-kaushanscript, qt6-wayland")

    def test_guide_and_its_pictures(self) -> None:
        kept = {path.name for path in (ROOT / "docs" / "guide").iterdir()}
        self.assertEqual({path.name for path in (self.unpacked / DOCUMENTS / "guide").iterdir()}, kept)
        self.assertTrue((self.unpacked / DOCUMENTS / "guide.md").is_file())

    def test_one_id(self) -> None:
        self.assertIn(f"\nIcon={ID}\n", self.read(ENTRY))
        self.assertIn(f"<id>{ID}</id>", self.read(METAINFO))
        self.assertIn(f">{ID}.desktop</launchable>", self.read(METAINFO))
        icons = self.unpacked.glob(f"usr/share/icons/hicolor/*/apps/{ID}.*")
        self.assertEqual({icon.parts[-3] for icon in icons}, ICON_FOLDERS)
        told_to_the_desktop = ID.encode("utf-16-le")
        self.assertIn(told_to_the_desktop, (self.unpacked / "usr/bin/chiffrolo").read_bytes())

    def test_one_version(self) -> None:
        version = field("Version")
        self.assertTrue(self.read(f"{DOCUMENTS}/changelog.Debian.gz").startswith(f"chiffrolo ({version}) "))
        releases = re.findall(r"(?m)^## (\S+) - (\S+)$", self.read(f"{DOCUMENTS}/changelog.gz"))
        self.assertEqual(releases[0][0], version.rpartition("-")[0])
        self.assertEqual(re.findall(r'<release version="(\S+)" date="(\S+)"', self.read(METAINFO)), releases)
        for manual in MANUALS:
            self.assertIn(f'"Chiffrolo {releases[0][0]}"', self.read(manual))

    def test_zipped_the_same_each_time(self) -> None:
        """A gzip header holds a date in its bytes 4 to 7; its flag 8 says that a name follows."""
        for path in self.unpacked.rglob("*.gz"):
            header = path.read_bytes()[:10]
            self.assertEqual((header[3], header[4:8]), (0, bytes(4)), path)


if __name__ == "__main__":
    unittest.main()
