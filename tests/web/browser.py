# SPDX-License-Identifier: MIT
"""Chromium without a window, with raw keys and a mouse whose press and release are apart."""

import os
import tempfile
import time
from collections.abc import Callable, Iterator
from contextlib import ExitStack
from pathlib import Path
from typing import Any

from selenium import webdriver
from selenium.webdriver.chrome.service import Service

ROOT = Path(__file__).resolve().parents[2]
# From the variable CHIFFROLO_PAGE; by default, the file that packaging/web makes.
PAGE = Path(os.environ.get("CHIFFROLO_PAGE", ROOT / "build/web/chiffrolo.html")).absolute()

SHIFT, CONTROL, ALT, META = 8, 2, 1, 4
VIRTUAL_CODES = {"Backspace": 8, "Tab": 9, "Enter": 13, "Escape": 27, " ": 32, "ArrowLeft": 37, "ArrowUp": 38,
                 "ArrowRight": 39, "ArrowDown": 40}


def wait_for(condition: Callable[[], Any], what: str, seconds: float = 5) -> Any:
    """The first value of `condition` that is true."""
    end = time.monotonic() + seconds
    while not (value := condition()):
        if time.monotonic() > end:
            raise AssertionError(f"not within {seconds} s: {what}")
        time.sleep(0.01)
    return value


class Browser:
    """Use it in a `with` statement. Everything concerns the tab that was opened or chosen last."""

    def __init__(self, *arguments: str) -> None:
        """Further arguments of Chromium, without "--"."""
        self.arguments = arguments

    def __enter__(self) -> "Browser":
        with ExitStack() as parts:
            self.folder = Path(parts.enter_context(tempfile.TemporaryDirectory(ignore_cleanup_errors=True)))
            self.driver = self.start()
            parts.callback(self.driver.quit)
            self.parts = parts.pop_all()
        self.scripts: list[str] = []
        return self

    def start(self) -> webdriver.Chrome:
        options = webdriver.ChromeOptions()
        options.binary_location = "/usr/bin/chromium"
        for argument in "headless=new", "no-sandbox", "disable-gpu", f"user-data-dir={self.folder}/profile", \
                *self.arguments:
            options.add_argument(f"--{argument}")
        options.set_capability("goog:loggingPrefs", {"browser": "ALL"})
        folder = str(self.folder)
        service = Service("/usr/bin/chromedriver", env={"HOME": folder, "TMPDIR": folder, "PATH": "/usr/bin:/bin"})
        return webdriver.Chrome(service=service, options=options)

    def __exit__(self, *_: object) -> None:
        self.parts.close()

    def command(self, method: str, **parameters: Any) -> Any:
        return self.driver.execute_cdp_cmd(method, parameters)

    def evaluate(self, expression: str) -> Any:
        """The value of an expression, or of the promise that it is."""
        answer = self.command("Runtime.evaluate", expression=expression, returnByValue=True, awaitPromise=True)
        if "exceptionDetails" in answer:
            raise AssertionError(answer["exceptionDetails"])
        return answer["result"].get("value")

    def console(self) -> list[str]:
        """The messages since the last call."""
        return [entry["message"] for entry in self.driver.get_log("browser")]

    # ---- Pages ---------------------------------------------------------------------------------------

    def set_display(self, width: int, height: int, ratio: float = 1) -> None:
        self.command("Emulation.setDeviceMetricsOverride", width=width, height=height, deviceScaleFactor=ratio,
                     mobile=False)
        # Without it, the page learns of the new ratio only when something else changes.
        self.picture(0, 0, 1, 1)

    def run_first(self, *scripts: str) -> None:
        """Runs these scripts, and no earlier ones, before those of the pages that are opened from now on."""
        for identifier in self.scripts:
            self.command("Page.removeScriptToEvaluateOnNewDocument", identifier=identifier)
        added = [self.command("Page.addScriptToEvaluateOnNewDocument", source=script) for script in scripts]
        self.scripts = [answer["identifier"] for answer in added]

    def open(self, file: Path) -> None:
        self.driver.get(file.as_uri())

    def open_tab(self) -> None:
        self.driver.switch_to.new_window("tab")
        self.scripts = []

    def picture(self, left: float, top: float, width: float, height: float) -> str:
        """What is visible in that part of the window, as the text of a PNG file."""
        clip = {"x": left, "y": top, "width": width, "height": height, "scale": 1}
        return self.command("Page.captureScreenshot", clip=clip)["data"]

    def nodes(self) -> list[dict[str, Any]]:
        """What a screen reader finds, in reading order."""
        nodes = self.command("Accessibility.getFullAXTree")["nodes"]
        by_identifier = {node["nodeId"]: node for node in nodes}

        def read(node: dict[str, Any]) -> Iterator[dict[str, Any]]:
            yield node
            for child in node.get("childIds", []):
                if child in by_identifier:
                    yield from read(by_identifier[child])

        return [node for node in read(nodes[0]) if not node["ignored"]]

    def names(self) -> list[tuple[str, str]]:
        """The roles and names of the nodes."""
        return [(node["role"]["value"], node["name"]["value"]) for node in self.nodes()]

    # ---- Keyboard and mouse --------------------------------------------------------------------------

    def hold(self, key: str, code: str = "", modifiers: int = 0, repeated: bool = False) -> None:
        is_character = len(key) == 1 and not modifiers & (CONTROL | ALT | META)
        text = "\r" if key == "Enter" else key if is_character else ""
        self.send_key("keyDown", key, code, modifiers, autoRepeat=repeated, text=text)

    def release(self, key: str, code: str = "", modifiers: int = 0) -> None:
        self.send_key("keyUp", key, code, modifiers)

    def send_key(self, action: str, key: str, code: str, modifiers: int, **more: Any) -> None:
        virtual = VIRTUAL_CODES.get(key, ord(key.upper()) if len(key) == 1 else 0)
        self.command("Input.dispatchKeyEvent", type=action, key=key, code=code or key, modifiers=modifiers,
                     windowsVirtualKeyCode=virtual, **more)

    def press(self, key: str, code: str = "", modifiers: int = 0) -> None:
        self.hold(key, code, modifiers)
        self.release(key, code, modifiers)

    def mouse(self, action: str, target: str | list[float], button: str = "left", **more: float) -> list[float]:
        """`action` is Pressed, Released or Wheel. At a point, or in the middle of an element; answers that point."""
        x, y = point = target if isinstance(target, list) else self.evaluate(
            f"""(({{ left, right, top, bottom }}) => [(left + right) / 2, (top + bottom) / 2])
                (document.querySelector("{target}").getBoundingClientRect())""")
        self.command("Input.dispatchMouseEvent", type=f"mouse{action}", x=x, y=y, button=button, clickCount=1, **more)
        return point

    def click(self, selector: str, button: str = "left") -> None:
        self.mouse("Released", self.mouse("Pressed", selector, button), button)
