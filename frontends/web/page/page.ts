// SPDX-License-Identifier: MIT

/** Shows one game in the page, and reports to it what the learner does. */

import { followFingers, Hold } from "./fingers";
import { metrics } from "./fonts";
import { HomeEntry } from "./home_entry";
import { Keypad } from "./keypad";
import { RepeatFilter, translateKey, zoomStep } from "./keys";
import type { Game, Module, Platform, Screen } from "./module";
import { Pressed, ScreenWindow } from "./screen_window";
import { clamp, pixelsPerTwip, Size } from "./units";
import { largestZoom, zoomed } from "./view";

const paper: Size = { width: 1000, height: 640 }; // A4 in landscape, in CSS pixels, less its margins

export class Page implements Platform {
  readonly metrics = metrics;
  readonly #game: Game;
  readonly #windows = new Set<ScreenWindow>();
  readonly #repeats = new RepeatFilter<Screen>();
  readonly #homeEntry = new HomeEntry(() => this.#report((now) => this.#game.close(now)));
  readonly #keypad = new Keypad((stroke) => this.#report((now) => this.#game.key(now, stroke.code, stroke.character)));
  #current: ScreenWindow | null = null;
  #pressed: Pressed | null = null; // by the pointer, on the current screen
  #alarm: number | undefined;
  #zoom = 1;
  #isTouched = false; // by a finger, when the pointer was last pressed
  #isOver = false;

  /** `region` holds the screens, `announcer` is the live region. `left` is called when the learner has left the
   * program, `failed` when the game cannot go on. */
  constructor(module: Module, private readonly region: HTMLElement, private readonly announcer: HTMLElement,
    private readonly left: () => void, private readonly failed: (error: unknown) => void) {
    this.#game = module.createGame(this);
  }

  /** Shows the home screen. */
  start(): void {
    this.region.after(this.#keypad.element);
    this.#listenToLearner();
    this.#listenToBrowser();
    this.#report((now) => this.#game.start(now));
  }

  // ---- What the program does ---------------------------------------------------------------------------

  createWindow(screen: Screen): ScreenWindow {
    const { width, height } = this.#game.minimumContentSize();
    const minimum = { width: width * pixelsPerTwip, height: height * pixelsPerTwip };
    const created = new ScreenWindow(this.#game.layout(screen), minimum, this);
    this.region.append(created.element);
    this.#windows.add(created);
    this.#arrange([created]);
    return created;
  }

  /** Tablets that are started together draw different operations. */
  randomSeed(): bigint { return crypto.getRandomValues(new BigUint64Array(1))[0] ?? 0n; }

  quit(): void { this.#isOver = true; }

  /** A window has become the active one. */
  show(shown: ScreenWindow): void {
    if (this.#current) this.#current.element.hidden = true;
    this.#current = shown;
    this.#pressed = null; // a click needs its press and its release on the same screen
    shown.element.hidden = false;
    if (this.#keypad.offer(shown.layout.typing === "answer")) this.#arrange();
    (shown.focused ?? shown.element).focus({ preventScroll: true });
  }

  remove(removed: ScreenWindow): void {
    this.#windows.delete(removed);
    removed.element.remove();
    if (this.#current === removed) this.#current = null;
  }

  // ---- What the learner does ---------------------------------------------------------------------------

  #listenToLearner(): void {
    document.addEventListener("keydown", (event) => this.#pressKey(event));
    document.addEventListener("keyup", (event) => this.#releaseKey(event));
    this.region.addEventListener("pointerdown", (event) => {
      this.#pressed = event.button === 0 ? this.#current?.pressedBy(event) ?? null : null;
    });
    document.addEventListener("pointerdown", ({ pointerType }) => { this.#isTouched = pointerType === "touch"; });
    // The document hears the click after the region does: while a finger is down, nothing may move under it.
    document.addEventListener("click", ({ detail }) => {
      if (this.#isTouched && detail > 0 && this.#keypad.want(true)) this.#arrange();
    });
    document.addEventListener("mousedown", (event) => {
      const isButton = event.target instanceof Element && event.target.closest(".button, #notice") !== null;
      if (!isButton) event.preventDefault(); // nothing else takes the focus
    });
    document.addEventListener("contextmenu", (event) => event.preventDefault());
    followFingers(this.region, () => this.#hold());
    this.region.addEventListener("click", (event) => this.#click(event));
    this.region.addEventListener("focusin", (event) => {
      if (event.target instanceof HTMLButtonElement) this.#current?.focus(event.target, this.#pressed === null);
    });
    this.region.addEventListener("wheel", (event) => this.#pan(event), { passive: true });
  }

  #listenToBrowser(): void {
    document.addEventListener("visibilitychange", () => this.#report(() => {}));
    window.addEventListener("beforeunload", (event) => {
      if (this.#isOver || this.#current?.layout.closing !== "endsChallenge") return;
      event.preventDefault();
      event.returnValue = ""; // Chrome and Edge before version 119 ask only with this
    });
    new ResizeObserver(() => this.#arrange()).observe(this.region);
    window.addEventListener("beforeprint", () => this.#arrange(this.#windows, paper, 3));
    window.addEventListener("afterprint", () => this.#arrange());
    this.#watchPixelRatio();
  }

  #pressKey(event: KeyboardEvent): void {
    const screen = this.#game.active;
    if (this.#isOver || screen === null) return;
    const step = zoomStep(event);
    if (step) {
      event.preventDefault();
      this.#repeats.drop(event);
      this.#zoom = zoomed(this.#zoom, step);
      return this.#arrange();
    }
    const stroke = translateKey(event);
    const hasButtons = this.#current?.focused != null;
    if (!this.#repeats.press(event, screen)) return event.preventDefault();
    if (stroke !== null && this.#keypad.want(false)) this.#arrange();
    if (stroke === null || (hasButtons && event.key === "Tab")) return;
    this.#report((now) => this.#game.key(now, stroke.code, stroke.character));
    // The focused button gets Enter and Space, if the screen has stayed.
    const isForButton = hasButtons && (event.key === "Enter" || event.key === " ");
    if (!isForButton || this.#game.active !== screen) event.preventDefault();
    if (hasButtons && this.#game.active === screen) this.#moveFocus(event.key);
  }

  /** A button that gets the focus while Space is held must not be clicked by its release. */
  #releaseKey(event: KeyboardEvent): void {
    const screen = this.#isOver ? null : this.#game.active;
    if (screen !== null && event.key === " " && !this.#repeats.wasPressedOn(event, screen)) event.preventDefault();
  }

  /** The arrows go round the buttons. */
  #moveFocus(key: string): void {
    const step = { ArrowRight: 1, ArrowDown: 1, ArrowLeft: -1, ArrowUp: -1 }[key];
    const buttons = this.#current?.buttons ?? [];
    const from = buttons.findIndex((button) => button === document.activeElement);
    if (step) buttons[(from + step + buttons.length) % buttons.length]?.focus({ preventScroll: true });
  }

  /** `detail` is 0 for a click by the keyboard or by a screen reader, which has no press. */
  #click(event: MouseEvent): void {
    const clicked = this.#current?.pressedBy(event) ?? null;
    const counts = event.detail === 0 || clicked === this.#pressed;
    this.#pressed = null;
    if (clicked === null || !counts) return;
    this.#report((now) => (clicked === "close" ? this.#game.close(now) : this.#game.click(now, clicked)));
  }

  /** What was between the fingers stays there. */
  #hold(): Hold {
    const [zoom, held] = [this.#zoom, this.#current?.hold()];
    return (factor, from, to) => {
      const before = this.#zoom;
      this.#zoom = clamp(zoom * factor, 1, largestZoom);
      if (this.#zoom !== before) this.#arrange();
      held?.(this.#zoom / zoom, from, to);
    };
  }

  #pan(event: WheelEvent): void {
    if (event.ctrlKey) return; // the browser's own zoom
    const unit = event.deltaMode === WheelEvent.DOM_DELTA_PIXEL ? 1 : 20;
    const [x, y] = event.shiftKey && event.deltaX === 0 ? [event.deltaY, 0] : [event.deltaX, event.deltaY];
    this.#current?.panBy(x * unit, y * unit);
  }

  // ---- After each event --------------------------------------------------------------------------------

  /** First delivers the ticks that are due, then the event, unless those have led to another screen. */
  #report(event: (now: number) => void): void {
    if (this.#isOver) return;
    try {
      const now = performance.now();
      const before = this.#current;
      if (before !== null) this.#game.deliverDueTicks(now);
      this.#current?.follow("tick");
      if (this.#current === before) event(now);
      this.#current?.follow("learner");
      this.#current?.paint();
      this.#finish(now);
    } catch (error) {
      this.#isOver = true;
      window.clearTimeout(this.#alarm);
      this.failed(error);
    }
  }

  #finish(now: number): void {
    window.clearTimeout(this.#alarm);
    const screen = this.#game.active;
    if (this.#isOver) {
      this.#game.destroy();
      return this.left();
    }
    if (screen === null) return;
    const due = this.#game.nextDue();
    if (due !== Infinity) this.#alarm = window.setTimeout(() => this.#report(() => {}), Math.max(0, due - now));
    this.#current?.read(this.#game.spokenTexts(screen));
    const words = this.#game.takeAnnouncement();
    if (words !== "") this.announcer.replaceChildren(words);
    this.#homeEntry.follow(this.#current?.layout.closing !== "endsProgram");
  }

  #arrange(windows: Iterable<ScreenWindow> = this.#windows, size: Size = this.region.getBoundingClientRect(),
    pixelRatio = devicePixelRatio): void {
    for (const window of windows) window.arrange(size, this.#zoom, pixelRatio);
  }

  /** The ratio may change without the size. */
  #watchPixelRatio(): void {
    matchMedia(`(resolution: ${devicePixelRatio}dppx)`).addEventListener("change", () => {
      this.#arrange();
      this.#watchPixelRatio();
    }, { once: true });
  }
}
