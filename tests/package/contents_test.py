#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""What is in the package: its files, and that they agree with each other."""

import configparser
import gzip
import re
import subprocess
import tempfile
import unittest
from pathlib import Path
from xml.etree import ElementTree

from package import ENTRY, ID, METAINFO, ROOT, field, output, package, unpack

DOCUMENTS = "usr/share/doc/chiffrolo"
ICONS = "usr/share/icons/hicolor"
SIZES = (48, 128, 256)  # pixels
MANUAL = "usr/share/man/man6/chiffrolo.6.gz"
FRENCH_MANUAL = "usr/share/man/fr/man6/chiffrolo.6.gz"
FILES = {
    "usr/bin/chiffrolo",
    ENTRY,
    METAINFO,
    MANUAL,
    FRENCH_MANUAL,
    f"{DOCUMENTS}/changelog.gz",
    f"{DOCUMENTS}/changelog.Debian.gz",
    f"{DOCUMENTS}/copyright",
    f"{ICONS}/scalable/apps/{ID}.svg",
    *(f"{ICONS}/{size}x{size}/apps/{ID}.png" for size in SIZES),
}
MOST_KIBIBYTES = 1000 * 1000 // 1024


class Contents(unittest.TestCase):
    @classmethod
    def setUpClass(cls) -> None:
        cls.unpacked = Path(cls.enterClassContext(tempfile.TemporaryDirectory()))
        unpack(cls.unpacked)

    def test_files(self) -> None:
        guide = {f"{DOCUMENTS}/{path}" for path in self.guide()}
        unpacked = {str(path.relative_to(self.unpacked)) for path in self.unpacked.rglob("*") if path.is_file()}
        self.assertEqual(unpacked, FILES | guide)

    def guide(self) -> set[Path]:
        """The guide and its pictures."""
        documents = ROOT / "docs"
        return {path.relative_to(documents) for path in documents.rglob("*") if path.suffix in (".md", ".png")}

    def test_licence(self) -> None:
        copyright = (self.unpacked / DOCUMENTS / "copyright").read_text(encoding="utf-8")
        licence = (ROOT / "LICENSE").read_text(encoding="utf-8")
        holder = re.search(r"Copyright \(c\) (.*)", licence)[1]
        self.assertIn(f"\nCopyright: {holder}\nLicense: MIT\n", copyright)
        terms = licence[licence.index("Permission is") :].replace("\n\n", "\n.\n")
        self.assertTrue(copyright.endswith("\nLicense: MIT\n" + re.sub("(?m)^(?=.)", " ", terms)))

    def test_size(self) -> None:
        self.assertLess(int(field("Installed-Size")), MOST_KIBIBYTES)

    def test_dependencies(self) -> None:
        needed = set(re.findall(r"(?:^|, )([^ ,]+)", field("Depends")))
        self.assertGreaterEqual(needed, {"libc6", "libqt6core6", "libqt6gui6", "libqt6widgets6", "libstdc++6"})
        self.assertEqual(field("Recommends"), "fonts-liberation, fonts-kaushanscript, qt6-wayland")

    def test_one_id(self) -> None:
        self.assertEqual(self.entry()["Icon"], ID)
        self.assertEqual(self.metainfo().findtext("id"), ID)
        self.assertEqual(self.metainfo().findtext("launchable"), f"{ID}.desktop")
        told_to_the_desktop = ID.encode("utf-16-le")
        self.assertIn(told_to_the_desktop, (self.unpacked / "usr/bin/chiffrolo").read_bytes())

        self.assertEqual(self.entry()["Exec"], self.metainfo().findtext("provides/binary"))

    def entry(self) -> configparser.SectionProxy:
        parser = configparser.ConfigParser(interpolation=None)
        parser.optionxform = str  # keys as written
        parser.read(self.unpacked / ENTRY, encoding="utf-8")
        return parser["Desktop Entry"]

    def metainfo(self) -> ElementTree.Element:
        return ElementTree.parse(self.unpacked / METAINFO).getroot()

    def test_both_languages(self) -> None:
        for key in ("GenericName", "Comment", "Keywords"):
            self.assertNotEqual(self.entry()[key], self.entry()[f"{key}[fr]"])
        language = "{http://www.w3.org/XML/1998/namespace}lang"
        for text in ("summary", "description/p", "description/ul/li", "screenshots/screenshot/caption"):
            languages = [element.get(language) for element in self.metainfo().findall(text)]
            self.assertEqual(languages.count(None), languages.count("fr"), text)
            self.assertIn("fr", languages, text)

    def test_one_version(self) -> None:
        version = field("Version")
        self.assertRegex(self.unzipped(f"{DOCUMENTS}/changelog.Debian.gz"), rf"\Achiffrolo \({version}\) ")
        upstream, _ = version.rsplit("-", 1)
        releases = re.findall(r"(?m)^## (\S+) - (\S+)$", self.unzipped(f"{DOCUMENTS}/changelog.gz"))
        self.assertEqual(releases[0][0], upstream)
        told = [(release.get("version"), release.get("date")) for release in self.metainfo().iter("release")]
        self.assertEqual(told, releases)
        for manual in (MANUAL, FRENCH_MANUAL):
            self.assertIn(f'"Chiffrolo {upstream}"', self.unzipped(manual))

    def unzipped(self, path: str) -> str:
        return gzip.decompress((self.unpacked / path).read_bytes()).decode()

    def test_zipped_the_same_each_time(self) -> None:
        """A gzip header holds a date in its bytes 4 to 7; its flag 8 says that a name follows."""
        for path in (path for path in FILES if path.endswith(".gz")):
            header = (self.unpacked / path).read_bytes()[:10]
            self.assertEqual((header[3], header[4:8]), (0, bytes(4)), path)

    def test_icons_are_what_their_source_draws(self) -> None:
        """Another version of the renderer may place the edges of shapes a little differently."""
        drawn = Path(self.enterContext(tempfile.TemporaryDirectory())) / "drawn"
        subprocess.run([ROOT / "packaging" / "icons" / "draw", drawn], check=True)
        for size in SIZES:
            icon = self.unpacked / f"{ICONS}/{size}x{size}/apps/{ID}.png"
            self.assertEqual(output("identify", "-format", "%wx%h", icon), f"{size}x{size}")
            command = ["compare", "-metric", "AE", "-fuzz", "5%", icon, drawn / f"{size}x{size}.png", "null:"]
            different = subprocess.run(command, stderr=subprocess.PIPE, text=True).stderr
            self.assertLess(float(different), size * size * 0.005)


if __name__ == "__main__":
    unittest.main()
