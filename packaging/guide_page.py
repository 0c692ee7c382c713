#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""Makes a web page of the guide.

Usage: guide_page.py GUIDE PAGE
"""

import sys
from pathlib import Path

import markdown

PAGE = """<!DOCTYPE html>
<html lang="fr">
<head>
<meta charset="utf-8">
<meta name="viewport" content="width=device-width">
<title>Guide de Chiffrolo</title>
<style>
body {{ max-width: 45rem; margin: 2rem auto; padding: 0 1rem; font: 1.1rem/1.5 sans-serif; }}
img {{ max-width: 100%; }}
table {{ border-collapse: collapse; }}
td, th {{ border: 1px solid gray; padding: .3rem .6rem; text-align: left; }}
</style>
</head>
<body>
{body}
</body>
</html>
"""

if __name__ == "__main__":
    guide, page = map(Path, sys.argv[1:])
    body = markdown.markdown(guide.read_text(encoding="utf-8"), extensions=["tables", "toc"], tab_length=3)
    page.write_text(PAGE.format(body=body), encoding="utf-8")
