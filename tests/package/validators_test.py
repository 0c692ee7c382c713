#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""Debian's and the desktops' own validators find nothing to say about the package, nor reuse about the sources."""

import subprocess
import tempfile
import unittest
from pathlib import Path

from package import ENTRY, METAINFO, ROOT, package, unpack


class Validators(unittest.TestCase):
    @classmethod
    def setUpClass(cls) -> None:
        cls.unpacked = Path(cls.enterClassContext(tempfile.TemporaryDirectory()))
        unpack(cls.unpacked)

    def test_desktop_entry(self) -> None:
        self.assertEqual(self.accepted("desktop-file-validate", self.unpacked / ENTRY), "")

    def test_metainfo(self) -> None:
        said = self.accepted("appstreamcli", "validate", "--no-net", "--no-color", self.unpacked / METAINFO)
        self.assertNotRegex(said, r"(?m)^[EWI]: ")
        self.accepted("appstream-util", "validate-relax", "--nonet", self.unpacked / METAINFO)

    def test_package(self) -> None:
        said = self.accepted("lintian", "--allow-root", "-EvIL", "+pedantic", "--show-overrides", package())
        self.assertNotRegex(said, r"(?m)^[A-MO-Z]: ")

    def test_licences_of_the_sources(self) -> None:
        self.accepted("reuse", "--root", ROOT, "lint")

    def accepted(self, *command: str | Path) -> str:
        """What the validator says, having found no fault."""
        result = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
        self.assertEqual(result.returncode, 0, result.stdout)
        return result.stdout


if __name__ == "__main__":
    unittest.main()
