#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""Puts a style sheet, a script and an icon into a page, and their hashes into its content security policy.

Usage: web_page.py TEMPLATE STYLE SCRIPT ICON LICENCE PAGE
The template has @STYLE@, @SCRIPT@, @ICON@ and @LICENCE@, and @STYLE_HASH@ and @SCRIPT_HASH@ in its policy.
"""

import sys
from base64 import b64encode
from hashlib import sha256
from pathlib import Path
from urllib.parse import quote


def policy_hash(text: str) -> str:
    return "sha256-" + b64encode(sha256(text.encode()).digest()).decode()


def stripped(file: str) -> str:
    return Path(file).read_text(encoding="utf-8").strip()


def main(template: str, style_file: str, script_file: str, icon: str, licence: str, page: str) -> None:
    style, script, notice = stripped(style_file), stripped(script_file), stripped(licence)
    if "</script" in script or "-->" in notice:
        sys.exit("The script or the licence would end its element or comment.")
    values = {
        "STYLE_HASH": policy_hash(style),
        "SCRIPT_HASH": policy_hash(script),
        "ICON": "data:image/svg+xml," + quote(Path(icon).read_text(encoding="utf-8"), safe=" =:/,;()'"),
        "LICENCE": notice,
        "STYLE": style,
        "SCRIPT": script,
    }
    text = Path(template).read_text(encoding="utf-8")
    for name, value in values.items():
        text = text.replace(f"@{name}@", value, 1)
    Path(page).write_text(text, encoding="utf-8")


if __name__ == "__main__":
    main(*sys.argv[1:])
