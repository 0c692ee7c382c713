#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""What validators do not check: the files of the package are small and consistent with each other."""

import gzip
import re
import tempfile
import unittest
from pathlib import Path

from package import ENTRY, ID, METAINFO, ROOT, field, unpack

DOCUMENTS = "usr/share/doc/chiffrolo"
MANUALS = ("usr/share/man/man6/chiffrolo.6.gz", "usr/share/man/fr/man6/chiffrolo.6.gz")
ICON_FOLDERS = {"scalable", "48x48", "128x128", "256x256"}
MAX_KIBIBYTES = 1000 * 1000 // 1024


class Contents(unittest.TestCase):
    @classmethod
    def setUpClass(cls) -> None:
        cls.unpacked = Path(cls.enterClassContext(tempfile.TemporaryDirectory()))
        unpack(cls.unpacked)

    def read(self, path: str) -> str:
        content = (self.unpacked / path).read_bytes()
        return (gzip.decompress(content) if path.endswith(".gz") else content).decode()

    def test_is_small_and_recommends_fonts_and_wayland(self) -> None:
        self.assertLess(int(field("Installed-Size")), MAX_KIBIBYTES)
        self.assertEqual(field("Recommends"), "fonts-liberation, fonts-kaushanscript, qt6-wayland")

    def test_contains_guide_with_all_pictures(self) -> None:
        expected = {path.name for path in (ROOT / "docs" / "guide").iterdir()}
        self.assertEqual({path.name for path in (self.unpacked / DOCUMENTS / "guide").iterdir()}, expected)
        self.assertTrue((self.unpacked / DOCUMENTS / "guide.md").is_file())

    def test_all_files_have_the_same_id(self) -> None:
        self.assertIn(f"\nIcon={ID}\n", self.read(ENTRY))
        self.assertIn(f"<id>{ID}</id>", self.read(METAINFO))
        self.assertIn(f">{ID}.desktop</launchable>", self.read(METAINFO))
        icons = self.unpacked.glob(f"usr/share/icons/hicolor/*/apps/{ID}.*")
        self.assertEqual({icon.parts[-3] for icon in icons}, ICON_FOLDERS)
        desktop_file_name = ID.encode("utf-16-le")
        self.assertIn(desktop_file_name, (self.unpacked / "usr/bin/chiffrolo").read_bytes())

    def test_all_files_have_the_same_version(self) -> None:
        version = field("Version")
        self.assertTrue(self.read(f"{DOCUMENTS}/changelog.Debian.gz").startswith(f"chiffrolo ({version}) "))
        releases = re.findall(r"(?m)^## (\S+) - (\S+)$", self.read(f"{DOCUMENTS}/changelog.gz"))
        self.assertEqual(releases[0][0], version.rpartition("-")[0])
        self.assertEqual(re.findall(r'<release version="(\S+)" date="(\S+)"', self.read(METAINFO)), releases)
        for manual in MANUALS:
            self.assertIn(f'"Chiffrolo {releases[0][0]}"', self.read(manual))

    def test_gzip_headers_have_no_name_and_no_date(self) -> None:
        """So that builds are reproducible. Byte 3 of the header is the flags, bytes 4 to 7 are the date."""
        for path in self.unpacked.rglob("*.gz"):
            header = path.read_bytes()[:10]
            self.assertEqual((header[3], header[4:8]), (0, bytes(4)), path)


if __name__ == "__main__":
    unittest.main()
