#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""Measures the page in Chromium and prints one table of medians, ratios and goals.

Usage: measure_web.py PAGE
The files from which the page was made stand beside it.
"""

import gzip
import re
import sys
import tempfile
import time
from base64 import b64encode
from pathlib import Path
from statistics import median

import brotli

BENCH = Path(__file__).resolve().parent
sys.path.insert(0, str(BENCH.parent / "tests" / "web"))  # for its browser

from browser import Browser, wait_for
from table import Table

STARTS = 25
KEYS = 20_000
KEYS_FOR_MEMORY = 1_000_000
IDLE_TIME = 10.0  # seconds
BARE_PAGE = '<!DOCTYPE html><html lang="fr"><meta charset="utf-8"><title>1</title><p>1</p></html>'

# Counts what keeps a page awake.
COUNTER = """
window.alarms = 0;
for (const name of ["setTimeout", "setInterval", "requestAnimationFrame", "requestIdleCallback"]) {
  const start = window[name];
  window[name] = (...values) => { ++window.alarms; return start.apply(window, values); };
}
"""

# Presses keys and returns, sorted, how long the page took for each, in milliseconds. Lets the browser paint meanwhile.
PRESS_KEYS = """
(async () => {
  const keys = [..."0123456789", ...Array(6).fill("Backspace"), "Enter", "ArrowRight"];
  const times = [];
  for (let index = 0; index < %d; ++index) {
    const key = keys[(index * 7919) %% keys.length];
    const event = new KeyboardEvent("keydown", {key, bubbles: true, cancelable: true});
    const before = performance.now();
    document.dispatchEvent(event);
    times.push(performance.now() - before);
    if (index %% 100 === 0) await new Promise((go) => setTimeout(go));
  }
  times.sort((one, other) => one - other);
  return [times[times.length >> 1], times[Math.floor(times.length * 0.99)]];
})()
"""

# Presses two keys of the keypad for fingers in turn, and returns the middle time for one, in milliseconds.
PRESS_KEYPAD = """
Array.from({ length: 200 }, (_, index) => {
  const key = document.querySelectorAll("#keypad button")[index % 2 * 3]; // 1 and Backspace
  const before = performance.now();
  key.dispatchEvent(new PointerEvent("pointerdown", { bubbles: true }));
  const time = performance.now() - before;
  key.dispatchEvent(new PointerEvent("pointerup", { bubbles: true }));
  return time;
}).sort((one, other) => one - other)[100]
"""


def measure_sizes(table: Table, page: Path) -> None:
    text = page.read_text(encoding="utf-8")
    parts = {path.name: path.read_bytes() for path in sorted(page.parent.glob("fonts/*.woff2"))}
    parts |= {name: (page.parent / name).read_bytes() for name in ("chiffrolo.wasm", "page.css")}
    parts["pictures"] = "".join(re.findall(r'"data:image/[^"]*"', text)).encode()
    for name, content in parts.items():
        add_sizes(table, f"part: {name}", content)
    code = re.sub(r'"data:image/[^"]*"', '""', text)
    for name, content in parts.items():
        if name.endswith(".woff2"):
            code = code.replace(b64encode(content).decode(), "")
    add_sizes(table, "code: the page without fonts and pictures", code.encode(), maximum=60_000)
    add_sizes(table, "the page", text.encode(), maximum=90_000)


def add_sizes(table: Table, what: str, content: bytes, maximum: int | None = None) -> None:
    table.add_amount(what, len(content), " bytes")
    table.add_amount(f"{what}, gzip", len(gzip.compress(content)), " bytes")
    table.add_amount(f"{what}, brotli", len(brotli.compress(content)), " bytes", maximum)


def first_picture(browser: Browser, page: Path) -> float:
    """In milliseconds after the navigation began."""
    browser.driver.get("about:blank")
    browser.open(page)
    entry = "performance.getEntriesByName('first-contentful-paint')[0]?.startTime"
    return wait_for(lambda: browser.evaluate(entry), "the first picture")


def measure_start(table: Table, browser: Browser, page: Path) -> None:
    with tempfile.TemporaryDirectory() as folder:
        bare_page = Path(folder, "bare.html")
        bare_page.write_text(BARE_PAGE, encoding="utf-8")
        ours, bare = zip(*((first_picture(browser, page), first_picture(browser, bare_page)) for _ in range(STARTS)))
    table.add_ratio("page: start to first picture, compared with a bare page", median(ours), median(bare), "ms", 2.5)


def open_home(browser: Browser, page: Path) -> None:
    browser.open(page)
    wait_for(lambda: browser.evaluate("!document.getElementById('notice')"), "the home screen")


def open_additions(browser: Browser, page: Path) -> None:
    open_home(browser, page)
    browser.evaluate("document.querySelector('#accueil .button').click()")


def measure_keys(table: Table, browser: Browser, page: Path) -> None:
    open_additions(browser, page)
    middle, slow = browser.evaluate(PRESS_KEYS % KEYS)
    table.add_time("page: key event to drawn, median", middle, maximum=1)
    table.add_time("page: key event to drawn, 99 %", slow, maximum=4)
    open_additions(browser, page)
    table.add_time("page: finger on the keypad to drawn digit, median", browser.evaluate(PRESS_KEYPAD), maximum=1)


def memory(browser: Browser) -> tuple[int, int]:
    """Bytes of the page's objects and of the module, and the number of nodes, without what can be freed."""
    browser.command("HeapProfiler.collectGarbage")
    usage = browser.command("Runtime.getHeapUsage")
    return usage["usedSize"] + usage["backingStorageSize"], browser.command("Memory.getDOMCounters")["nodes"]


def measure_memory(table: Table, browser: Browser, page: Path) -> None:
    open_additions(browser, page)
    browser.evaluate(PRESS_KEYS % KEYS)
    before, nodes_before = memory(browser)
    for _ in range(KEYS_FOR_MEMORY // KEYS):
        browser.evaluate(PRESS_KEYS % KEYS)
    after, nodes_after = memory(browser)
    table.add_amount("page: memory before a million keys", before, " bytes")
    table.add_amount("page: memory after a million keys", after, " bytes", maximum=before * 21 // 20)
    table.add_amount("page: more elements after a million keys", nodes_after - nodes_before, "", maximum=10)


def measure_idleness(table: Table, browser: Browser, page: Path) -> None:
    browser.run_first(COUNTER)
    for screen, open_screen in ("accueil", open_home), ("addition", open_additions):
        open_screen(browser, page)
        browser.evaluate("alarms = 0")
        time.sleep(IDLE_TIME)
        count = browser.evaluate("alarms")
        table.add_amount(f"page: timers and frames in {IDLE_TIME:.0f} idle seconds on {screen}", count, "", maximum=0)


def main(page: Path) -> None:
    table = Table()
    measure_sizes(table, page)
    with Browser() as browser:
        measure_start(table, browser, page)
        measure_keys(table, browser, page)
        measure_memory(table, browser, page)
        measure_idleness(table, browser, page)


if __name__ == "__main__":
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    main(Path(sys.argv[1]).absolute())
