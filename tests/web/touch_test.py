#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""The page under fingers: the keypad, what a finger hits, and zooming."""

import re
import unittest

from browser import SHIFT
from page_test import (ARROW, CLOCK, SAME_NUMBERS, SCREENS, PageCase, browser, press, screen, setUpModule, texts,
                       typed)

__all__ = ["setUpModule"]

# Width, height, ratio, and the least side of what a finger hits.
TABLET, PHONE, SMALL_PHONE = (768, 1024, 2, 44), (360, 740, 3, 24), (568, 320, 2, 24)
DEVICES = [TABLET, (1024, 768, 2, 44), PHONE, (740, 360, 3, 24)]
EXERCISES = ["addition", "multiplication", "division", "record"]
KEYS = [*"123", "Backspace", *"456", "Escape", *"789", "ArrowRight", "0", "="]
NAMES = [*"123", "Effacer", *"456", "Quitter", *"789", "Continuer", "0", "Valider"]
RESULTS = {"plus": lambda left, right: left + right, "moins": lambda left, right: left - right,
           "fois": lambda left, right: left * right, "divisé par": lambda left, right: left // right}

# For each button: its name, width and height of what a finger hits, and whether that is a full rectangle.
TARGETS = """[...document.querySelectorAll("section:not([hidden]) button:not([hidden])")].map((button) => {
  const { left, top, width, height } = button.getBoundingClientRect(), [x, y] = [left + width / 2, top + height / 2];
  const isHit = (right, down) => document.elementFromPoint(x + right, y + down)?.closest("button") === button;
  const reach = (right, down, way = 0) => isHit(right * way, down * way) ? reach(right, down, way + 0.25) : way;
  const [west, east, north, south] = [reach(-1, 0), reach(1, 0), reach(0, -1), reach(0, 1)];
  let isFull = true;
  for (let right = 2 - west; right < east - 2; right += 2)
    for (let down = 2 - north; down < south - 2; down += 2) isFull &&= isHit(right, down);
  return [button.ariaLabel ?? button.textContent, west + east, north + south, isFull]; })"""


# Of an element: the colour of its text, and those of its background.
COLOURS = """((selector) => {
  const { color, backgroundColor, backgroundImage } = getComputedStyle(document.querySelector(selector));
  return color + (backgroundImage === "none" ? backgroundColor : backgroundImage); })"""


def touch(action: str, *points: list[float]) -> None:
    """`action` is Start, Move or End; `points` are those of all fingers that are down."""
    fingers = [{"x": x, "y": y, "id": number} for number, (x, y) in enumerate(points)]
    browser.command("Input.dispatchTouchEvent", type=f"touch{action}", touchPoints=fingers)


def rectangles(selector: str) -> list[list[float]]:
    return browser.evaluate(f"""[...document.querySelectorAll("{selector}")].map((element) =>
        (({{ left, top, right, bottom }}) => [left, top, right, bottom])(element.getBoundingClientRect()))""")


def middles(selector: str) -> list[list[float]]:
    return [[(left + right) / 2, (top + bottom) / 2] for left, top, right, bottom in rectangles(selector)]


def tap(target: str | list[float]) -> None:
    touch("Start", middles(target)[0] if isinstance(target, str) else target)
    touch("End")


def tap_keys(*names: str) -> None:
    places = middles("#keypad button")
    for name in names:
        tap(places[KEYS.index(name)])


def result() -> int:
    """Of the operation that waits for an answer."""
    left, sign, right = re.findall(r"(\d+) (\D+) (\d+) égale \?$", texts(), re.MULTILINE)[-1]
    return RESULTS[sign](int(left), int(right))


def has_keypad() -> bool:
    return browser.evaluate("document.getElementById('keypad').checkVisibility()")


class TouchCase(PageCase):
    def setUp(self) -> None:
        self.take(*TABLET)
        self.open("addition")

    def take(self, width: int, height: int, ratio: float, *_: int, is_touched: bool = True) -> None:
        browser.command("Emulation.setDeviceMetricsOverride", width=width, height=height, deviceScaleFactor=ratio,
                        mobile=is_touched)
        browser.command("Emulation.setTouchEmulationEnabled", enabled=is_touched, maxTouchPoints=5 if is_touched else 1)
        browser.picture(0, 0, 1, 1)  # as for `set_display`

    def assert_targets(self, least: int) -> None:
        for name, width, height, is_full in browser.evaluate(TARGETS):
            self.assertTrue(min(width, height) >= least and is_full, (screen(), name, width, height, is_full))


class Play(TouchCase):
    def test_a_game_by_taps(self) -> None:
        for device in DEVICES:
            self.take(*device)
            self.open("accueil", SAME_NUMBERS)
            with self.subTest(device=device):
                self.play(device[3])

    def play(self, least: int) -> None:
        self.assert_targets(least)
        tap("#accueil .button")
        wrong = str(result() + 1)
        tap_keys(*wrong, "0")
        self.assertEqual(typed(), wrong + "0")
        tap_keys("Backspace", "=")
        self.assertIn("FAUX", texts())
        tap_keys("ArrowRight")
        for _ in range(2):  # the correction: the tens, then the units
            tap_keys(*str(result()), "=")
        self.assertRegex(texts(), "Score égale 0$")
        tap(ARROW)
        for score in range(1, 11):
            tap_keys(*str(result()), "=")
            self.assertRegex(texts(), rf"Bravo\s+Score égale {score}\b")
            if score == 1:
                self.assert_targets(least)
            tap(ARROW)
        for place, control in ("FIN", ".image"), ("accueil", ".button:last-child"), ("Aurevoir", ".image"):
            self.assertEqual(screen(), place)
            self.assert_targets(least)
            tap(f"#{place} {control}")
        self.assertIn("Au revoir", browser.evaluate("document.getElementById('notice').innerText"))
        self.assertRegex("".join(browser.console()), "^[^\n]*may close only[^\n]*$")

    def test_targets_of_other_screens(self) -> None:
        for activity, device in ("multiplication", TABLET), ("division", PHONE), ("record", SMALL_PHONE), \
                ("record", TABLET), ("record", PHONE):
            self.take(*device)
            self.open(activity)
            tap_keys(*str(result()), "=")
            self.assertTrue(rectangles(ARROW))
            self.assert_targets(device[3])
            tap_keys("ArrowRight", "Escape")
            self.assertEqual(screen(), "FIN2" if activity == "record" else "accueil")
            self.assert_targets(device[3])


class Keypad(TouchCase):
    def test_place(self) -> None:
        for device in *DEVICES, SMALL_PHONE:
            self.take(*device)
            for activity in SCREENS if device == TABLET else EXERCISES[:1]:
                self.open(activity)
                self.assertEqual(has_keypad(), activity in EXERCISES, activity)
                if has_keypad():
                    self.check_place(*device)

    def check_place(self, width: int, height: int, *_: int) -> None:
        names = browser.evaluate("[...document.querySelectorAll('#keypad button')].map((key) => key.ariaLabel)")
        self.assertEqual(names, NAMES)
        game, view, keypad = rectangles("#game, #keypad, section:not([hidden]) .view")
        self.assertTrue(game[2] <= keypad[0] or game[3] <= keypad[1])
        self.assertEqual([*game[:2], *keypad[2:]], [0, 0, width, height])
        for left, top, right, bottom in rectangles("#keypad button"):
            self.assertGreaterEqual(min(right - left, bottom - top), 44)
            self.assertTrue(keypad[0] < left and keypad[1] < top and keypad[2] > right and keypad[3] > bottom)
        # The stop is 440 of 564 pixels from the top.
        scale = browser.evaluate("parseFloat(document.querySelector('section:not([hidden]) .image').style.top) / 440")
        self.assertLessEqual(896 * scale, view[2] - view[0] + 1)
        self.assertLessEqual(564 * scale, view[3] - view[1] + 1)

    def test_comes_by_a_finger_and_goes_by_a_key(self) -> None:
        self.take(1280, 800, 1, is_touched=False)
        self.open("addition")
        browser.click("canvas")
        self.assertFalse(has_keypad())
        for count, point in enumerate([[300.0, 300.0], [1150.0, 760.0], [1250.0, 560.0]], 1):  # two are on keys
            tap(point)
            browser.press("Shift", modifiers=SHIFT)
            self.assertTrue(has_keypad())
            press("1")
            self.assertEqual((has_keypad(), screen(), typed()), (False, "addition", "1" * count))
        self.open("addition")
        press(*str(result()), "=")
        tap(ARROW)
        self.assertTrue(has_keypad() and texts().endswith("égale ?"), "the finger hits what it touched")

    def test_only_backspace_repeats(self) -> None:
        self.open("addition", CLOCK, SAME_NUMBERS)
        self.assertNotEqual(result(), 1)
        places = dict(zip(KEYS, middles("#keypad button")))
        for name, shown in ("1", r"égale 1 \?$"), ("=", r"égale 1\s+FAUX$"):
            touch("Start", places[name])
            browser.evaluate("wait(700)")  # Backspace repeats after half a second
            touch("End")
            self.assertRegex(texts(), shown)
        tap_keys("ArrowRight", *"1234")
        point = places["Backspace"]
        touch("Start", point)
        touch("Start", point, [point[0] + 20, point[1]])  # one more finger on it
        self.assertEqual(typed(), "12")
        browser.evaluate("wait(700)")
        self.assertEqual(typed(), "")
        touch("End")
        press_one = "document.querySelector('#keypad button').dispatchEvent(new PointerEvent('pointerdown'))"
        browser.evaluate(press_one)
        browser.evaluate("wait(700)")
        self.assertEqual(typed(), "1", "no finger is down")
        touch("Start", point)
        browser.evaluate(f"""document.querySelector("#addition header button").click(),
            document.querySelector("#accueil .button").click(), {press_one}""")
        browser.evaluate("wait(700)")
        touch("End")
        self.assertEqual((screen(), typed()), ("addition", "1"), "not on the next screen")


class Zoom(TouchCase):
    def setUp(self) -> None:
        self.take(*DEVICES[1])
        self.open("addition")
        self.start = self.title()

    def title(self) -> list[float]:
        return rectangles("#addition .label")[0]

    def zoom(self) -> float:
        return (self.title()[2] - self.title()[0]) / (self.start[2] - self.start[0])

    def pinch(self, at: list[float], before: float, after: float) -> None:
        """Two fingers beside each other, at these distances."""
        for step in range(11):
            half = (before + (after - before) * step / 10) / 2
            touch("Move" if step else "Start", [at[0] - half, at[1]], [at[0] + half, at[1]])
        touch("End")

    def test_two_fingers_zoom_around_their_middle(self) -> None:
        for y, before, after, expected in [(160, 100, 200, 2), (160, 100, 300, 3), (160, 400, 40, 1),
                                           (330, 100, 300, 3), (160, 200, 20, 1)]:
            at = [300.0, y]  # the lower point has nowhere to go until the content is higher than the room
            self.pinch(at, before, after)
            self.assertAlmostEqual(self.zoom(), expected, 1)
            for axis in 0, 1:
                moved = at[axis] + (self.start[axis] - at[axis]) * self.zoom()
                self.assertAlmostEqual(self.title()[axis], moved, delta=2)
        for action, half in ("Start", 100), ("Move", 200), ("Move", 100):  # there and back
            touch(action, [300 - half, 160], [300 + half, 160])
        touch("End")
        self.assertEqual(self.title(), self.start)

    def test_one_finger_moves_what_is_zoomed(self) -> None:
        self.pinch([400, 350], 100, 250)
        before = self.title()
        touch("Start", [300, 300])
        for step in range(1, 6):
            touch("Move", [300 - 20 * step, 300 + 10 * step])
        touch("End")
        for axis, way in enumerate([-100, 50]):
            self.assertAlmostEqual(self.title()[axis] - before[axis], way, delta=2)
        touch("Start", [700, 600])
        touch("Move", [10, 10])
        touch("End")
        pictures = {browser.picture(0, 0, 736, 768)}
        for digit in "123":
            tap_keys(digit)
            pictures.add(browser.picture(0, 0, 736, 768))
        self.assertEqual(len(pictures), 4, "the view follows the writing")

    def test_gestures_press_nothing(self) -> None:
        """Neither in the page nor in the browser."""
        one, *_, nine = middles("#keypad .digit")
        for x, y in [300.0, 300.0], middles("#addition .label")[0], nine:
            for count, duration in (2, 50), (1, 900):
                browser.command("Input.synthesizeTapGesture", x=x, y=y, tapCount=count, duration=duration,
                                gestureSourceType="touch")
            browser.command("Input.synthesizeScrollGesture", x=x, y=y, yDistance=200, gestureSourceType="touch")
        touch("Start", one, nine)
        touch("Move", [one[0] - 20, one[1] - 90], [nine[0] + 20, nine[1] + 90])
        touch("End")
        has_menu = "document.dispatchEvent(new Event('contextmenu', { cancelable: true }))"
        state = browser.evaluate(f"[visualViewport.scale, scrollY, getSelection().toString(), {has_menu}]")
        self.assertEqual(state, [1, 0, "", False])
        viewport = browser.evaluate("document.querySelector('meta[name=viewport]').content")
        self.assertNotRegex(viewport, "user-scalable|minimum|maximum")
        self.open()
        first, second = middles("#accueil .button")[:2]
        below = [first[0], first[1] + 30]
        for steps in ([first], [second], [first]), ([first], [below], [first]), ([first, second], [second, first]), \
                ([first, below], [below, second]):
            for step, points in enumerate(steps):
                touch("Move" if step else "Start", *points)
            touch("End")
            self.assertEqual(screen(), "accueil", steps)


class Themes(TouchCase):
    """Buttons, title bar and keypad have the colours that the learner has chosen, the rest has its own."""

    followers = ["#accueil .button", "#addition header", "#keypad .digit", "#keypad .erase", "#keypad .submit"]

    def tearDown(self) -> None:
        browser.command("Emulation.setEmulatedMedia", features=[])
        super().tearDown()

    def luminances(self, selector: str) -> list[float]:
        """Of the text, and of the colours of the background. The formula is that of WCAG 2."""
        channels = [int(number) / 255 for number in re.findall(r"\d+", browser.evaluate(f"{COLOURS}('{selector}')"))]
        linear = [channel / 12.92 if channel <= 0.04 else ((channel + 0.055) / 1.055) ** 2.4 for channel in channels]
        return [0.2126 * linear[i] + 0.7152 * linear[i + 1] + 0.0722 * linear[i + 2] for i in range(0, len(linear), 3)]

    def test_colours(self) -> None:
        for scheme, forced in ("light", "none"), ("dark", "none"), ("light", "active"), ("dark", "active"):
            browser.command("Emulation.setEmulatedMedia", features=[
                {"name": "prefers-color-scheme", "value": scheme}, {"name": "forced-colors", "value": forced}])
            own = browser.evaluate(f"{COLOURS}('#addition .label')")
            self.assertEqual(own, "rgb(128, 0, 0)rgb(255, 255, 224)")
            for selector in self.followers:
                with self.subTest(scheme=scheme, forced=forced, selector=selector):
                    text, *backgrounds = self.luminances(selector)
                    for background in backgrounds:
                        self.assertEqual(text > background, scheme == "dark")
                        contrast = (max(text, background) + 0.05) / (min(text, background) + 0.05)
                        self.assertGreaterEqual(contrast, 21 if forced == "active" else 4.5)


if __name__ == "__main__":
    unittest.main()
