#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""The validators of Debian and the desktops find no fault in the package, and reuse finds none in the sources."""

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

    def test_desktop_entry_is_valid(self) -> None:
        self.assertEqual(self.validate("desktop-file-validate", self.unpacked / ENTRY), "")

    def test_metainfo_is_valid(self) -> None:
        output = self.validate("appstreamcli", "validate", "--no-net", "--no-color", self.unpacked / METAINFO)
        self.assertNotRegex(output, r"(?m)^[EWI]: ")
        self.validate("appstream-util", "validate-relax", "--nonet", self.unpacked / METAINFO)

    def test_package_is_valid(self) -> None:
        output = self.validate("lintian", "--allow-root", "-EvIL", "+pedantic", "--show-overrides", package())
        self.assertNotRegex(output, r"(?m)^[A-MO-Z]: ")

    def test_sources_have_licences(self) -> None:
        self.validate("reuse", "--root", ROOT, "lint")

    def validate(self, *command: str | Path) -> str:
        """Requires exit status 0. Returns the output of the validator."""
        result = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
        self.assertEqual(result.returncode, 0, result.stdout)
        return result.stdout


if __name__ == "__main__":
    unittest.main()
