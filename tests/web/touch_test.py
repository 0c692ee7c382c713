#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""The page under fingers: the keypad, what a finger hits, and zooming."""

import re
import time
import unittest
from itertools import product
from typing import Any

from browser import SHIFT, wait_for
from page_test import ARROW, SAME_NUMBERS, SCREENS, PageCase, browser, screen, setUpModule, texts, typed

__all__ = ["setUpModule"]

# Width, height, ratio, and the least side of a target.
TABLET, TURNED_TABLET = (768, 1024, 2, 44), (1024, 768, 2, 44)
PHONE, TURNED_PHONE = (360, 740, 3, 24), (740, 360, 3, 24)
DEVICES = [TABLET, TURNED_TABLET, PHONE, TURNED_PHONE]
ANSWERED = ["addition", "multiplication", "division", "record"]  # the screens that take an answer
STOP = "section:not([hidden]) .image[aria-label=Arrêter]"
NAMES = {"Backspace": "Effacer", "Escape": "Quitter", "ArrowRight": "Continuer", "=": "Valider"}
RESULTS = {"plus": lambda left, right: left + right, "moins": lambda left, right: left - right,
           "fois": lambda left, right: left * right, "divisé par": lambda left, right: left // right}

RECTANGLE = "(({ left, top, right, bottom }) => [left, top, right, bottom])(%s.getBoundingClientRect())"
# For each thing that can be pressed: its name, the sides of what a finger hits, and whether that is a full rectangle.
TARGETS = """[...document.querySelectorAll("section:not([hidden]) button:not([hidden])")].map((button) => {
  const { left, top, right, bottom } = button.getBoundingClientRect(), middle = [(left + right) / 2, (top + bottom) / 2];
  const isHit = (x, y) => document.elementFromPoint(x, y)?.closest("button") === button;
  const reach = (x, y) => { let steps = 0; while (isHit(middle[0] + x * steps, middle[1] + y * steps)) steps += 0.25;
    return steps - 0.25; };
  const [west, east, north, south] = [reach(-1, 0), reach(1, 0), reach(0, -1), reach(0, 1)];
  let isFull = true;
  for (let x = 2 - west; x < east - 2; x += 1) for (let y = 2 - north; y < south - 2; y += 1)
    isFull &&= isHit(middle[0] + x, middle[1] + y);
  return [button.ariaLabel ?? button.textContent, west + east + 0.25, north + south + 0.25, isFull];
})"""
# Milliseconds from the press of a key to the digit on the canvas, the middle one of 200.
DELAY = """(() => {
  const keys = ["1", "Effacer"].map((name) => document.querySelector(`#keypad [aria-label="${name}"]`));
  const delays = Array.from({ length: 200 }, (_, index) => {
    const before = performance.now();
    keys[index % 2].dispatchEvent(new PointerEvent("pointerdown", { bubbles: true, pointerType: "touch" }));
    const delay = performance.now() - before;
    keys[index % 2].dispatchEvent(new PointerEvent("pointerup", { bubbles: true, pointerType: "touch" }));
    return delay; });
  return delays.sort((one, other) => one - other)[100]; })()"""


def touch(action: str, *points: list[float]) -> None:
    """`action` is Start, Move or End; all fingers that are down are given."""
    fingers = [{"x": x, "y": y, "id": number} for number, (x, y) in enumerate(points)]
    browser.command("Input.dispatchTouchEvent", type=f"touch{action}", touchPoints=fingers)


def rectangle(selector: str) -> list[float]:
    return browser.evaluate(RECTANGLE % f"document.querySelector('{selector}')")


def middle(selector: str) -> list[float]:
    left, top, right, bottom = rectangle(selector)
    return [(left + right) / 2, (top + bottom) / 2]


def tap(target: str | list[float]) -> None:
    touch("Start", middle(target) if isinstance(target, str) else target)
    touch("End")


def key(name: str) -> str:
    return f'#keypad [aria-label="{NAMES.get(name, name)}"]'


def tap_keys(*names: str) -> None:
    for name in names:
        tap(key(name))


def result() -> int:
    left, sign, right = re.findall(r"(\d+) (\D+) (\d+) égale \?$", texts(), re.MULTILINE)[-1]
    return RESULTS[sign](int(left), int(right))


def has_keypad() -> bool:
    return browser.evaluate("document.getElementById('keypad').checkVisibility()")


class TouchCase(PageCase):
    device = TABLET

    def setUp(self) -> None:
        self.take(*self.device)
        self.open()

    def take(self, width: int, height: int, ratio: float, *_: int, is_touched: bool = True) -> None:
        browser.command("Emulation.setDeviceMetricsOverride", width=width, height=height, deviceScaleFactor=ratio,
                        mobile=is_touched)
        browser.command("Emulation.setTouchEmulationEnabled", enabled=is_touched, maxTouchPoints=5 if is_touched else 1)
        browser.picture(0, 0, 1, 1)  # as for `set_display`

    def assert_targets(self, least: int) -> None:
        for name, width, height, is_full in browser.evaluate(TARGETS):
            with self.subTest(screen=screen(), target=name):
                self.assertGreaterEqual(min(width, height), least)
                self.assertTrue(is_full)


class Play(TouchCase):
    def test_a_game_by_taps(self) -> None:
        for device in DEVICES:
            with self.subTest(device=device):
                self.take(*device)
                self.open()
                self.play(device[3])

    def play(self, least: int) -> None:
        self.assert_targets(least)
        tap("#accueil .button")
        tap_keys(*str(result() + 1), "Backspace", *str(result() + 1)[-1], "=")
        self.assertIn("FAUX", texts())
        self.assert_targets(least)
        tap(ARROW)
        for _ in range(2):  # the correction: the tens, then the units
            self.assertNotIn("Bravo", texts())
            tap_keys(*str(result()), "=")
        self.assertRegex(texts(), "Score égale 0$")
        tap(ARROW)
        for score in range(1, 11):
            tap_keys(*str(result()), "=")
            self.assertRegex(texts(), f"Bravo\\s+Score égale {score}\\b")
            tap(ARROW)
        self.assertEqual(screen(), "FIN")
        self.assert_targets(least)
        tap(ARROW)
        tap("#accueil .button:last-child")
        self.assertEqual(screen(), "Aurevoir")
        self.assert_targets(least)
        tap(ARROW)
        self.assertIn("Au revoir", browser.evaluate("document.getElementById('notice').innerText"))
        self.assertRegex("".join(browser.console()), "^[^\n]*may close only[^\n]*$")


class Keypad(TouchCase):
    def test_place(self) -> None:
        for activity, device in product(SCREENS, DEVICES):
            self.take(*device)
            self.open(activity)
            with self.subTest(activity=activity, device=device):
                self.assertEqual(has_keypad(), activity in ANSWERED)
                if activity in ANSWERED:
                    self.check_place(*device)

    def check_place(self, width: int, height: int, ratio: float, *_: int) -> None:
        left, top, right, bottom = rectangle("#keypad")
        game = rectangle("#game")
        self.assertTrue(game[2] <= left or game[3] <= top)
        self.assertEqual([*game[:2], right, bottom], [0, 0, width, height])
        names = browser.evaluate("[...document.querySelectorAll('#keypad button')].map((key) => key.ariaLabel)")
        self.assertEqual(names, [*"1234567890", "Effacer", "Quitter", "Continuer", "Valider"])
        for name in names:
            key_left, key_top, key_right, key_bottom = rectangle(key(name))
            self.assertGreaterEqual(min(key_right - key_left, key_bottom - key_top), 44, name)
            self.assertTrue(left <= key_left and top <= key_top and right >= key_right and bottom >= key_bottom, name)
        view = rectangle("section:not([hidden]) .view")
        stop = browser.evaluate(f"parseFloat(document.querySelector('{STOP}').style.top)")
        self.assertLessEqual(896 * stop / 440, view[2] - view[0] + 2)  # the stop is 440 pixels from the top
        self.assertLessEqual(564 * stop / 440, view[3] - view[1] + 2)

    def test_comes_by_a_finger_and_goes_by_a_key(self) -> None:
        self.take(1280, 800, 1, is_touched=False)
        self.open("addition")
        browser.click("canvas")
        self.assertFalse(has_keypad())
        for count, point in enumerate([[300, 300], [1150, 760], [1250, 560]], 1):  # two are where keys appear
            tap(point)
            self.assertTrue(has_keypad())
            browser.press("Shift", modifiers=SHIFT)
            self.assertTrue(has_keypad())
            browser.press("1")
            self.assertEqual((has_keypad(), screen(), typed()), (False, "addition", "1" * count))
        self.open("addition")
        for digit in str(result()):
            browser.press(digit)
        browser.press("=")
        tap(ARROW)
        self.assertTrue(has_keypad() and texts().endswith("?"))

    def test_only_backspace_repeats(self) -> None:
        self.open("addition")
        for name in "1", "=":
            touch("Start", middle(key(name)))
            time.sleep(0.7)  # Backspace repeats after half a second
            touch("End")
            self.assertRegex(texts(), "égale 1 \\?$" if name == "1" else "égale 1\\s+FAUX$")
        tap(ARROW)
        tap_keys(*"1234")
        point = middle(key("Backspace"))
        other = [point[0] + 10, point[1] + 10]
        touch("Start", point)
        touch("Start", point, other)  # one more finger on it
        self.assertEqual(typed(), "12")
        wait_for(lambda: typed() == "", "the repeats", 2)
        touch("End", point)
        touch("End")
        tap_keys(*"5678")
        time.sleep(0.2)
        self.assertEqual(typed(), "5678")

    def test_repeats_end_with_the_screen(self) -> None:
        self.open("addition")
        touch("Start", middle(key("Backspace")))
        browser.evaluate(f"""document.querySelector("#addition header button").click(),
            document.querySelector("#accueil .button").click(),
            document.querySelector('{key("5")}').dispatchEvent(new PointerEvent("pointerdown"))""")
        time.sleep(0.7)
        touch("End")
        self.assertEqual((screen(), typed()), ("addition", "5"))

    def test_keys_are_those_of_a_keyboard(self) -> None:
        for activity in "addition", "multiplication", "division":
            runs = []
            for press in browser.press, tap_keys:
                self.open(activity, SAME_NUMBERS)
                runs.append([texts()])
                for submit, go_on in ("=", "ArrowRight"), ("=", "="), ("=", "ArrowRight"), ("Escape", "0"):
                    right = str(result())
                    for name in [*right[:-1], "7", "Backspace", right[-1], submit, go_on]:
                        press(name)
                        runs[-1].append((screen(), texts()))
            self.assertEqual(runs[0], runs[1])

    def test_delay(self) -> None:
        self.open("addition")
        delay = browser.evaluate(DELAY)
        print(f"from a key to the digit: {delay:.2f} ms")
        self.assertLess(delay, 20)


class Targets(TouchCase):
    def test_images_of_the_other_exercises(self) -> None:
        for activity, device in product(["multiplication", "division"], DEVICES):
            self.take(*device)
            self.open(activity)
            tap_keys(*str(result()), "=")
            self.assertEqual(len(browser.evaluate(TARGETS)), 3)
            self.assert_targets(device[3])


class Zoom(TouchCase):
    device = TURNED_TABLET
    title = "#addition .label"

    def setUp(self) -> None:
        super().setUp()
        self.open("addition")
        self.start = rectangle(self.title)

    def pinch(self, at: list[float], before: float, after: float, way: float = 0) -> None:
        """Two fingers beside each other: their distances, and the way that both go down."""
        for step in range(11):
            spread, y = before + (after - before) * step / 10, at[1] + way * step / 10
            touch("Move" if step else "Start", [at[0] - spread / 2, y], [at[0] + spread / 2, y])
        touch("End")

    def zoom(self) -> float:
        left, _, right, _ = rectangle(self.title)
        return (right - left) / (self.start[2] - self.start[0])

    def test_two_fingers_zoom_around_their_middle(self) -> None:
        for y, before, after, expected in [(160, 100, 200, 2), (160, 100, 300, 3), (160, 400, 40, 1),
                                           (330, 100, 300, 3), (160, 200, 20, 1)]:
            at = [300, y]  # the lower point has nowhere to go until the content is higher than the room
            self.pinch(at, before, after)
            self.assertAlmostEqual(self.zoom(), expected, 1)
            for axis in 0, 1:
                moved = at[axis] + (self.start[axis] - at[axis]) * self.zoom()
                self.assertAlmostEqual(rectangle(self.title)[axis], moved, delta=2)

    def test_one_finger_moves_what_is_zoomed(self) -> None:
        self.pinch([400, 300], 100, 250, 50)
        before = rectangle(self.title)
        touch("Start", [300, 300])
        for step in range(1, 6):
            touch("Move", [300 - 20 * step, 300 + 10 * step])
        touch("End")
        for axis, way in enumerate([-100, 50]):
            self.assertAlmostEqual(rectangle(self.title)[axis] - before[axis], way, delta=2)
        touch("Start", [400, 600])
        touch("Move", [-3000, -3000])
        touch("End")
        pictures = {browser.picture(0, 0, 736, 768)}
        for digit in "123":
            tap_keys(digit)
            pictures.add(browser.picture(0, 0, 736, 768))
        self.assertEqual(len(pictures), 4, "the view follows the writing")

    def test_gestures_press_nothing(self) -> None:
        """Neither in the page nor in the browser."""
        self.open()
        first, second = middle("#accueil .button"), middle("#accueil .button ~ .button")
        below = [first[0], first[1] + 30]
        for steps in [[first], [second], [first]], [[first], [below], [first]], [[first, second], [second, first]], \
                [[first, below], [below, second]]:
            for step, points in enumerate(steps):
                touch("Move" if step else "Start", *points)
            touch("End")
            self.assertEqual(screen(), "accueil")
        self.open("addition")
        one, nine = middle(key("1")), middle(key("9"))
        touch("Start", one, nine)
        touch("Move", [one[0] - 20, one[1] - 90], [nine[0] + 20, nine[1] + 90])
        touch("End")
        for x, y in [300, 300], middle(self.title), nine:
            for more in {"tapCount": 2}, {"duration": 900}:
                browser.command("Input.synthesizeTapGesture", x=x, y=y, gestureSourceType="touch", **more)
            browser.command("Input.synthesizeScrollGesture", x=x, y=y, yDistance=200, gestureSourceType="touch")
        offers_menu = "document.dispatchEvent(new Event('contextmenu', { cancelable: true }))"
        state = f"[visualViewport.scale, scrollY, getSelection().toString(), {offers_menu}]"
        self.assertEqual(browser.evaluate(state), [1, 0, "", False])
        browser_zoom = browser.evaluate("document.querySelector('meta[name=viewport]').content")
        self.assertNotRegex(browser_zoom, "user-scalable|minimum|maximum")


if __name__ == "__main__":
    unittest.main()
