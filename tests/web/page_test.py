#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""The page in Chromium: what a learner sees, hears and can do."""

import re
import unittest
from itertools import product

from browser import ALT, CONTROL, META, PAGE, ROOT, SHIFT, Browser, wait_for

SCREENS = {"accueil": 0, "addition": 4, "multiplication": 5, "division": 6, "record": 7, "Aurevoir": 9}  # 1 + row
ARROW = "section:not([hidden]) .image[aria-label=Continuer]"

SAME_NUMBERS = "{ let calls = 0; crypto.getRandomValues = (array) => array.fill(BigInt(++calls)); }"
# The time goes on by `wait`, and by `sleep`, which runs no timer, as in a hidden tab.
CLOCK = """{ let clock = 0; const alarms = new Map(); window.requested = 0;
  performance.now = () => clock;
  setTimeout = setInterval = (task, delay) => alarms.set(++requested, { task, due: clock + (delay | 0) }) && requested;
  clearTimeout = (number) => alarms.delete(number);
  requestAnimationFrame = requestIdleCallback = (task) => setTimeout(task, 16);
  window.sleep = (time) => void (clock += time);
  window.wait = (time) => { for (const end = clock + time; ;) {
    const [number, next] = [...alarms].sort(([, a], [, b]) => a.due - b.due)[0] ?? [0, { due: Infinity }];
    clock = Math.min(end, Math.max(clock, next.due));
    if (next.due > end) return;
    if (requested > 1000) throw new Error("the page does not come to rest");
    alarms.delete(number); next.task(); } }; }"""
TRAP = """{ const instantiate = WebAssembly.instantiate;
  WebAssembly.instantiate = async (...values) => ({ exports: { ...(await instantiate(...values)).exports,
    NAME: () => { throw new WebAssembly.RuntimeError("unreachable"); } } }); }"""
# The view, the canvas and its backing size, and each control: kind, rectangle, whether its text is cut.
MEASURES = """((section) => {
  const rectangle = (thing) => (({ left, top, right, bottom }) => [left, top, right, bottom])(
    thing.getBoundingClientRect());
  const text = document.createRange(), canvas = section.querySelector("canvas");
  const isCut = (control) => {
    text.selectNodeContents(control);
    const [inner, outer] = [rectangle(text), rectangle(control)];
    return text.toString() && inner.some((edge, side) => (side < 2 ? outer[side] - edge : edge - outer[side]) > 1); };
  return [rectangle(section.querySelector(".view")), rectangle(canvas), [canvas.width, canvas.height],
    [...section.querySelectorAll(".controls > *")].map((control) =>
      [control.className, rectangle(control), isCut(control)])];
})(document.querySelector("section:not([hidden])"))"""


browser = Browser()  # for all tests


def setUpModule() -> None:
    if not PAGE.exists():
        raise SystemExit(f"{PAGE} does not exist: make it with packaging/web")
    unittest.enterModuleContext(browser)


def screen() -> str | None:
    return browser.evaluate("document.querySelector('#game:not([hidden]) section:not([hidden])')?.id")


def texts() -> str:
    return browser.evaluate("document.querySelector('section:not([hidden]) .texts').innerText")


def typed() -> str:
    """What has been typed of the answer."""
    return re.search(r"égale ?(\d*)(?: \?|$)", texts(), re.MULTILINE)[1]


def focused() -> str:
    return browser.evaluate("document.activeElement.textContent")


def press(*keys: str) -> None:
    for key in keys:
        browser.press(key)


def answer() -> None:
    """Gives the right result of an addition or a subtraction."""
    left, sign, right = re.search(r"(\d+) (plus|moins) (\d+) égale", texts()).groups()
    press(*str(int(left) + int(right) * (1 if sign == "plus" else -1)))
    browser.press("=", "Digit1")  # a key whose text is "=" never types a digit


class PageCase(unittest.TestCase):
    def setUp(self) -> None:
        browser.set_display(1280, 1024)
        self.open()

    def tearDown(self) -> None:
        self.assertEqual(browser.console(), [])

    def open(self, activity: str = "accueil", *scripts: str) -> None:
        browser.run_first(*scripts)
        browser.open(PAGE)
        self.assert_soon("accueil", "start")
        if activity != "accueil":
            browser.click(f"#accueil .controls > :nth-child({SCREENS[activity]})")
            self.assertEqual(screen(), activity)

    def assert_soon(self, expected: str, message: str) -> None:
        wait_for(lambda: screen() == expected, f"{expected}, {message}")


class Keys(PageCase):
    keypad = ["Insert", "End", "ArrowDown", "PageDown", "ArrowLeft", "Clear", "ArrowRight", "Home", "ArrowUp", "PageUp"]
    # Modifiers, the prefix of the codes, and the keys of the digits 0 to 9.
    keyboards = [(0, "Digit", ["à", *"&é\"'(-è_ç"]), (SHIFT, "Digit", "0123456789"), (0, "Digit", '*"«»()@+-/'),
                 (0, "Digit", ["Dead", *"1É3456789"]), (0, "Numpad", "0123456789"), (0, "Numpad", keypad),
                 (SHIFT, "Numpad", keypad)]
    # Key, code, modifiers, and what they add to the answer.
    others = [("1", "Digit5", 0, "1"), ("٤", "Digit3", 0, "3"), ("٣", "KeyA", 0, ""), ("!", "Digit1", SHIFT, ""),
              ("Delete", "NumpadDecimal", 0, ""), (")", "Minus", 0, ""), ("ArrowLeft", "", 0, ""), ("Tab", "", 0, ""),
              ("Unidentified", "Numpad5", 0, "5"), ("Unidentified", "", 0, ""),
              ("Shift", "ShiftLeft", SHIFT, ""), ("a", "KeyQ", 0, ""),
              *((key, "Digit5", command, "") for key, command in product("5(", (CONTROL, ALT, META, CONTROL | ALT)))]

    def test_digits(self) -> None:
        rows = [(key, f"{prefix}{digit}", modifiers, str(digit))
                for modifiers, prefix, keys in self.keyboards for digit, key in enumerate(keys)] + self.others
        self.open("addition")
        for key, code, modifiers, digit in rows:
            with self.subTest(key=key, code=code, modifiers=modifiers):
                browser.hold("1")
                browser.hold(key, code, modifiers)
                self.assertEqual(typed(), "1" + digit)
                for _ in "1" + digit:
                    browser.hold("Backspace")
        self.assertEqual(typed(), "")
        for key, more in product("@1à", ("", ", ctrlKey: true, altKey: true")):  # with AltGr
            browser.evaluate(f"""document.activeElement.dispatchEvent(new KeyboardEvent("keydown",
                {{ key: "{key}", code: "Digit0", modifierAltGraph: true, bubbles: true{more} }}))""")
            self.assertEqual(typed(), "", f"AltGr, {key}{more}")

    def test_keys_that_do_not_reach_the_program(self) -> None:
        """The second of other keys opens an activity. The browser keeps those that do not zoom."""
        browser.evaluate("addEventListener('keydown', (event) => window.taken = event.defaultPrevented)")
        zoom = [("+", "Equal"), ("=", "Equal"), ("-", "Digit6"), ("0", ""), ("à", "Digit0"), ("Insert", "Numpad0")]
        for key, code, modifiers, is_taken in [
                *(("x", "KeyX", command, False) for command in (CONTROL, ALT, META, CONTROL | SHIFT)),
                ("F5", "", 0, False), ("F11", "", 0, False), ("r", "KeyR", CONTROL, False), ("Shift", "", SHIFT, False),
                *((key, code, CONTROL, True) for key, code in zoom)]:
            with self.subTest(key=key, modifiers=modifiers):
                browser.press(key, code, modifiers)
                browser.press(key, code, modifiers)
                self.assertEqual((screen(), browser.evaluate("taken")), ("accueil", is_taken))
        press("x", "x")
        self.assertEqual(screen(), "addition")

    def test_zoom_keys(self) -> None:
        width = "document.querySelector('section:not([hidden]) .label').getBoundingClientRect().width"
        self.open("addition")
        before = browser.evaluate(width)
        for keys, expected in (("+", 1.1), ("====", 2), ("+++++", 3), ("-", 2.5), ("-" * 10, 1), ("+à", 1), ("=0", 1)):
            for key in keys:
                browser.press(key, {"à": "Digit0"}.get(key, ""), CONTROL)
            self.assertAlmostEqual(browser.evaluate(width) / before, expected, 1, keys)
        press("1", "0")
        browser.hold("0", modifiers=CONTROL)
        browser.hold("0", repeated=True)  # Control was released first
        self.assertEqual(typed(), "10")

    def test_buttons_of_the_home_screen(self) -> None:
        names = ["additions-soustractions", "multiplications", "divisions", "Record", "Quitter"]
        self.assertEqual(focused(), names[0])
        steps = [("Tab", 0)] * 4 + [("Tab", SHIFT)] * 4 + [("ArrowDown", 0)] * 5 + [("ArrowUp", 0), ("ArrowLeft", 0)]
        for (key, modifiers), expected in zip(steps, [1, 2, 3, 4, 3, 2, 1, 0, 1, 2, 3, 4, 0, 4, 3]):
            browser.press(key, modifiers=modifiers)
            self.assertEqual(focused(), names[expected])
        for keys, opened in [  # the second key that types something opens the addition
                (["Tab", "Enter"], "multiplication"), (["Tab", " "], "multiplication"), (["Escape"], "Aurevoir"),
                (["x", "Tab", "Enter"], "addition"), (["x", "Tab", " "], "addition"), (["ArrowRight"] * 2, "addition")]:
            self.open()
            press(*keys)
            self.assertEqual(screen(), opened, keys)
        self.open()
        press("x", "Tab")
        browser.press(" ", "Space", CONTROL)
        self.assertEqual(screen(), "multiplication")

    def test_held_keys_end_on_the_next_screen(self) -> None:
        press("x")
        browser.hold(" ", "Space")
        browser.hold(" ", "Space", repeated=True)
        self.assertEqual(screen(), "addition")
        press("Escape")
        browser.release(" ", "Space")
        self.assertEqual(screen(), "accueil", "a released Space")
        self.open("addition")
        for _ in range(10):
            answer()
            browser.hold("Enter")
        browser.hold("Enter", repeated=True)
        self.assertEqual(screen(), "FIN", "a held Enter")
        press("Enter")
        self.assertEqual(screen(), "accueil")


class Mouse(PageCase):
    close, first, second = "#addition header button", "#accueil .button", "#accueil .button ~ .button"

    def start(self) -> None:
        """Leads to the arrow."""
        self.open("addition")
        answer()

    def test_clicks(self) -> None:
        for control, expected in (ARROW, "addition"), ("#addition .image[aria-label=Arrêter]", "accueil"), \
                (self.close, "accueil"):
            self.start()
            browser.click(control, "right")
            self.assertIn("Bravo", texts())
            browser.click(control)
            self.assertEqual(screen(), expected)
            self.assertNotIn("Bravo", texts())
        browser.click("#accueil .label")
        self.assertEqual(focused(), "additions-soustractions", "only buttons take the focus")

    def test_press_and_release_apart(self) -> None:
        for pressed, released in (self.first, self.second), ("#accueil .label", self.first), (self.first, "canvas"):
            browser.mouse("Pressed", pressed)
            browser.mouse("Released", released)
            self.assertEqual(screen(), "accueil")

    def test_screen_changes_while_pressed(self) -> None:
        for control, (keys, expected) in product(
                (ARROW, self.close), [(["Escape"], "accueil"), (["Escape", "x", "x"], "addition")]):
            self.start()
            point = browser.mouse("Pressed", control)
            press(*keys)
            browser.mouse("Released", point)
            self.assertEqual(screen(), expected, (control, keys))


class Layout(PageCase):
    sizes = [(1280, 1024), (898, 590), (360, 740), (740, 360), (1920, 1080)]

    def test_controls_are_where_the_layout_says(self) -> None:
        table = (ROOT / "core/screen/layouts.cpp").read_text(encoding="utf-8")
        for activity, frame in ("accueil", [0, 0, 0, 0]), ("Aurevoir", [1, 26, 1, 1]):
            self.open(activity)
            rows = re.search(activity.lower() + r"Controls\{(.*?)\n\};", table, re.DOTALL)[1]
            places = [[*map(int, filter(None, row)), 480, 480][:4] for row in re.findall(
                r"\{(\d+), (\d+), (\d+), (\d+)\}|Picture::arrow, (\d+), (\d+)", rows)]
            for (width, height), ratio in product(self.sizes, (1, 1.25, 1.5, 2, 3)):
                browser.set_display(width, height, ratio)
                room = [frame[0], frame[1], width - frame[2], height - frame[3]]
                with self.subTest(activity=activity, width=width, height=height, ratio=ratio):
                    self.check(places, room, ratio)

    def check(self, places: list[list[int]], room: list[int], ratio: float) -> None:
        """`places` are left, top, width and height in twips."""
        rounding = ratio / 64  # the browser counts in 1/64 pixel
        is_arranged = f"Math.abs(({MEASURES})[2][0] - {(room[2] - room[0]) * ratio}) <= 2"
        wait_for(lambda: browser.evaluate(is_arranged), "the new size", 2)
        view, canvas, backing, controls = browser.evaluate(MEASURES)
        self.assertEqual(canvas, view)
        for axis in 0, 1:
            self.assertAlmostEqual((view[axis + 2] - view[axis]) * ratio, backing[axis], delta=rounding)
        for edge, expected in zip(view, room):
            self.assertAlmostEqual(edge * ratio, expected * ratio, delta=1 + rounding)
        scale = min((view[2] - view[0]) / 896, (view[3] - view[1]) / 564)
        self.assertEqual(len(controls), len(places))
        for (kind, rectangle, is_cut), (left, top, width, height) in zip(controls, places):
            self.assertFalse(is_cut, kind)
            for side, twips in enumerate([left, top, left + width, top + height]):
                stroke = scale if kind == "line" and side > 1 else 0  # a line includes its end
                expected = view[side % 2] + twips / 15 * scale + stroke
                tolerance = 0.5 + 2 * rounding + (0.5 if stroke else 0)
                self.assertAlmostEqual(rectangle[side] * ratio, expected * ratio, delta=tolerance, msg=kind)
                self.assertLessEqual(rectangle[side], view[side % 2 + 2] + rounding, kind)

    def test_smallest_font_size_of_the_browser(self) -> None:
        with Browser("blink-settings=minimumFontSize=24") as other:
            other.set_display(898, 590)
            other.open(PAGE)
            shown = "document.querySelectorAll('section:not([hidden]) .button').length"
            wait_for(lambda: other.evaluate(shown) == 5, "the home screen")
            enlarged = other.evaluate("document.querySelectorAll('#accueil .controls > [style*=\"scale(\"]').length")
            self.assertGreater(enlarged, 0, "the browser enlarges no caption")
            for kind, _, is_cut in other.evaluate(MEASURES)[3]:
                self.assertFalse(is_cut, kind)

    def test_a_new_size_keeps_the_picture(self) -> None:
        for before, after in [((1280, 1024, 1), (1280, 1024, 1.5)), ((898, 590, 2), (740, 360, 2)),
                              ((360, 740, 1.25), (898, 590, 1))]:
            pictures = []
            for start in before, after:
                browser.set_display(*start)
                self.open("addition", SAME_NUMBERS)
                answer()
                browser.set_display(*after)
                # Without the title bar, in which the browser places the letters.
                pictures.append(browser.picture(0, 26, after[0], after[1] - 26))
            self.assertTrue(pictures[0] == pictures[1], f"{before}, then {after}")  # assertEqual would print them

    def test_zoom_follows_the_answer(self) -> None:
        is_shown = f"""(({{ left, top, right, bottom }}) => right > 0 && left >= 0 && top >= 0 && right <= innerWidth &&
            bottom <= innerHeight)(document.querySelector("{ARROW}").getBoundingClientRect())"""
        for (width, height), steps in product([(898, 590), (740, 360)], (3, 5, 7)):  # 150, 200 and 300 %
            with self.subTest(width=width, height=height, steps=steps):
                browser.set_display(width, height)
                self.open("record", CLOCK)
                for _ in range(steps):
                    browser.press("+", modifiers=CONTROL)
                pictures = {browser.picture(0, 0, width, height)}
                for key in *"9999", "Enter":
                    press(key)
                    pictures.add(browser.picture(0, 0, width, height))
                self.assertEqual(len(pictures), 6, "each key is visible")
                for _ in range(10 if steps > 3 else 0):  # there may be no room for the answer and the arrow
                    across = 0 if browser.evaluate(is_shown) else 60
                    browser.mouse("Wheel", "#record .view", deltaX=across, deltaY=1000)
                wait_for(lambda: browser.evaluate(is_shown), "the arrow", 1)


class Time(PageCase):
    def test_nothing_is_requested_unless_it_is_due(self) -> None:
        for activity, alarms in ("accueil", 0), ("addition", 0), ("record", 10):
            self.open(activity, CLOCK)
            before = browser.evaluate("requested")
            browser.evaluate("wait(10_000)")
            self.assertEqual(browser.evaluate("requested") - before, alarms, activity)

    def test_a_tab_that_is_seen_again_catches_up_in_due_order(self) -> None:
        self.open("record", CLOCK)
        for event, expected in [
                ("sleep(20_000), document.dispatchEvent(new Event('visibilitychange'))", "20 secondes"),
                ("wait(5_000)", "25 secondes"), ("sleep(20_000)", "25 secondes")]:
            browser.evaluate(event)
            self.assertIn(expected, texts())
        press("5")  # too late: the clock has stopped after 32 seconds
        self.assertIn("32 secondes", texts())
        self.assertFalse(browser.evaluate(f"document.querySelector('{ARROW}').hidden"))


class History(PageCase):
    def test_back_and_forward(self) -> None:
        browser.driver.get("about:blank")
        self.open("addition")
        browser.driver.back()
        self.assert_soon("accueil", "back")
        browser.driver.forward()
        self.assert_soon("accueil", "forward")
        browser.click("#accueil .button")
        browser.evaluate("""document.dispatchEvent(new KeyboardEvent("keydown", { key: "Escape" })),
            document.querySelectorAll("#accueil .button")[1].click()""")
        self.assert_soon("multiplication", "the second of two quick screens")
        wait_for(lambda: browser.evaluate("history.state") == "away", "its entry")
        browser.driver.back()
        self.assert_soon("accueil", "back from there")
        browser.click("#accueil .button")
        press("Escape")
        wait_for(lambda: browser.evaluate("history.state") is None, "the entry of the home screen")
        browser.driver.back()
        wait_for(lambda: browser.driver.current_url == "about:blank", "the page is left")

    def test_only_leaving_the_challenge_asks_first(self) -> None:
        for activity in SCREENS:
            self.open(activity)
            asks = browser.evaluate("!dispatchEvent(new Event('beforeunload', { cancelable: true }))")
            self.assertEqual(asks, activity == "record", activity)

    def test_quit(self) -> None:
        for key in "Enter", " ":
            self.open("Aurevoir")
            browser.click("#Aurevoir .image")
            words = browser.evaluate("document.getElementById('notice').innerText").split("\n\n")
            self.assertEqual((screen(), words), (None, ["Au revoir", "Recommencer"]))
            self.assertIn("may close only", browser.console()[0])  # no script opened this tab
            press(key)
            self.assert_soon("accueil", "Recommencer")


class Trust(PageCase):
    def test_the_policy_blocks_what_is_not_in_the_page(self) -> None:
        browser.evaluate("""window.refused = [];
            document.addEventListener("securitypolicyviolation", (event) => refused.push(event.effectiveDirective));
            fetch("http://localhost/").catch(() => {}); new Image().src = "http://localhost/x.png";
            document.head.append(Object.assign(document.createElement("script"), { textContent: "window.ran = 1" }))""")
        refused = "connect-src,img-src,script-src-elem"
        wait_for(lambda: browser.evaluate("refused.sort().join()") == refused, refused)
        self.assertIsNone(browser.evaluate("window.ran"))
        self.assertRegex("\n".join(browser.console()), "Content Security Policy")

    def test_nothing_is_kept(self) -> None:
        self.open("addition")
        answer()
        self.assertEqual(browser.evaluate("""indexedDB.databases().then((bases) =>
            [localStorage.length, sessionStorage.length, document.cookie, bases.length])"""), [0, 0, "", 0])


class Failure(PageCase):
    cannot_start = "Chiffrolo ne peut pas démarrer"

    def tearDown(self) -> None:
        browser.command("Emulation.setScriptExecutionDisabled", value=False)
        browser.console()

    def assert_says(self, sentence: str) -> None:
        wait_for(lambda: any(sentence in name for _, name in browser.names()), sentence, 3)

    def test_damaged_file(self) -> None:
        page = PAGE.read_text(encoding="utf-8")
        script, end = page.index("<script>"), page.rindex("</script>")
        middle = (script + end) // 2
        changed = page[:middle] + ("b" if page[middle] == "a" else "a") + page[middle + 1:]
        for number, damaged in enumerate([page[:script], page[:script + 1000], page[:middle], page[:end], changed]):
            file = browser.folder / f"{number}.html"
            file.write_text(damaged, encoding="utf-8")
            browser.open_tab()
            browser.open(file)
        first, *tabs = browser.driver.window_handles
        for tab in tabs:
            browser.driver.switch_to.window(tab)
            self.assert_says(self.cannot_start)
            browser.driver.close()
        browser.driver.switch_to.window(first)

    def test_without_scripts(self) -> None:
        browser.command("Emulation.setScriptExecutionDisabled", value=True)
        browser.open(PAGE)
        self.assert_says(self.cannot_start)

    def test_missing_functions(self) -> None:
        for script in ["delete window.DecompressionStream", "delete window.WebAssembly", "delete window.ResizeObserver",
                       "FontFace.prototype.load = () => Promise.reject(new Error('no font'))",
                       TRAP.replace("NAME", "createGame")]:
            with self.subTest(script=script):
                browser.run_first(script)
                browser.open(PAGE)
                self.assert_says(self.cannot_start)

    def test_trap(self) -> None:
        for name, recover in ("start", "Enter"), ("key", "Enter"), ("querySpokenTexts", " "):
            with self.subTest(name=name):
                browser.run_first(TRAP.replace("NAME", name))
                browser.open(PAGE)
                wait_for(lambda: browser.evaluate("!!document.querySelector('#accueil, #notice button')"), "a page")
                press("x")
                self.assert_says("Chiffrolo s’est arrêté")
                browser.run_first()
                press(recover)
                self.assert_soon("accueil", "Recommencer")


class ScreenReader(PageCase):
    def test_roles_and_names(self) -> None:
        """What is announced is in web_hearing_test.py."""
        self.assertEqual(browser.evaluate("document.documentElement.lang"), "fr")
        self.open("addition")
        answer()
        names = browser.names()
        self.assertEqual([name for role, name in names if role == "application"],
                         ["Chiffrolo", "Additions et soustractions"])
        self.assertEqual({name for role, name in names if role == "button"}, {"Fermer", "Arrêter", "Continuer"})
        self.open("Aurevoir")
        self.assertIn(("image", "Chiffrolo"), browser.names())


class Numbers(PageCase):
    def test_each_start_draws_another_operation(self) -> None:
        operations = set()
        for _ in range(3):
            self.open("addition")
            operations.add(texts())
        self.assertGreater(len(operations), 1)


if __name__ == "__main__":
    unittest.main()
