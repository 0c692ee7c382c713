# SPDX-License-Identifier: MIT
"""Starts the installed program on a virtual display, answers one operation, and leaves.

Reads what a screen reader reads.
"""

import re
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
sys.path[:0] = [str(ROOT / "tour"), str(ROOT / "tests" / "window")]

from desktop import Display, Program
from listener import Listener

SIGNS = {"plus": int.__add__, "moins": int.__sub__}

with (
    Listener() as listener,
    Display() as display,
    Program(["/usr/bin/chiffrolo"], display.variables() | {"QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1"}) as program,
):
    listener.wait_for_screen("Accueil")
    listener.press_button("Accueil", "additions-soustractions")
    operation = re.compile(r"(\d+) (plus|moins) (\d+) égale \?")
    left, sign, right = operation.search(listener.wait_for_announcement("an operation", operation.search)).groups()
    display.run("xdotool", "key", *str(SIGNS[sign](int(left), int(right))), "Return")
    print(listener.wait_for_announcement("Bravo", lambda text: "Bravo" in text))
    display.run("xdotool", "key", "Escape")
    listener.press_button("Accueil", "Quitter")
    listener.wait_for_screen("Au revoir")
    listener.press_button("Au revoir", "Quitter")
    sys.exit(program.exit_status())
