# SPDX-License-Identifier: MIT
"""The Debian package under test."""

import os
import subprocess
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
ID = "org.chiffrolo.Chiffrolo"  # the application ID on the desktop

ENTRY = f"usr/share/applications/{ID}.desktop"
METAINFO = f"usr/share/metainfo/{ID}.metainfo.xml"


def package() -> Path:
    """The newest package in the folder of the variable CHIFFROLO_PACKAGES; by default, in the build folder."""
    folder = Path(os.environ.get("CHIFFROLO_PACKAGES", ROOT / "build")).absolute()
    return max(folder.glob("chiffrolo_*.deb"), key=lambda path: path.stat().st_mtime)


def field(name: str) -> str:
    """A field of the package's control file."""
    command = ["dpkg-deb", "--field", package(), name]
    return subprocess.run(command, check=True, stdout=subprocess.PIPE, text=True).stdout.strip()


def unpack(folder: Path) -> None:
    subprocess.run(["dpkg-deb", "--extract", package(), folder], check=True)
