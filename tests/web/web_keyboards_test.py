#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""In each engine, digit keys type digits on the keyboard layouts of French-speaking countries, as on the desktop."""

import sys
import unittest

from browser import PAGE, ROOT

sys.path[:0] = [str(ROOT / "tour"), str(ROOT / "tests/window")]

import keyboards_test
import kiosk


class Chromium(keyboards_test.OnX11):
    path = PAGE
    environment: type[kiosk.Kiosk] = kiosk.Chromium


class Firefox(Chromium):
    environment = kiosk.Firefox


class WebKit(Chromium):
    environment = kiosk.WebKit
    knows_alt_gr = False  # WebKitGTK 2.50 does not report this modifier


if __name__ == "__main__":
    unittest.main()
