// SPDX-License-Identifier: MIT

/** One screen: its frame, its surface on a canvas, its controls, and its texts for screen readers. */

import { Control } from "./controls";
import { DisplayList } from "./display_list";
import type { Hold, Position } from "./fingers";
import type { ControlIndex, ScreenLayout, Window } from "./module";
import type { Page } from "./page";
import { pixelsPerPoint, Size } from "./units";
import { View } from "./view";

// The frame of a tool window, in CSS pixels.
const frameThickness = 1;
const titleHeight = 24;

/** What the learner pressed: a row of the layout, or the close box. */
export type Pressed = ControlIndex | "close";

export class ScreenWindow implements Window {
  readonly element = document.createElement("section");
  readonly surface: DisplayList;
  readonly #view: View;
  readonly #controls: readonly (Control | null)[]; // by row; null for a timer
  readonly #title = document.createElement("header");
  readonly #shown = document.createElement("div"); // what the frame surrounds
  readonly #canvas = document.createElement("canvas");
  readonly #context: CanvasRenderingContext2D;
  readonly #texts = document.createElement("div");
  readonly #content = document.createElement("div"); // holds the controls, and moves with the view
  readonly #pressable = new Map<Element, Pressed>();
  #spoken = "";
  #pixelRatio = 1;
  #scale = 0; // of the controls as they are placed
  #focused: HTMLElement | null = null;

  /** Invisible at first. `minimum` is the minimum content area, in pixels of the layout. */
  constructor(readonly layout: ScreenLayout, minimum: Size, private readonly page: Page) {
    this.surface = new DisplayList(layout.background);
    this.#view = new View(minimum);
    this.#context = this.#canvas.getContext("2d", { alpha: false }) as CanvasRenderingContext2D;
    this.#controls = layout.controls.map((row) => (row.kind === "timer" ? null : new Control(row)));
    this.#build();
  }

  // ---- What the program does ---------------------------------------------------------------------------

  activate(): void {
    this.#view.goToTopLeft();
    this.page.show(this);
  }
  destroy(): void { this.page.remove(this); }
  contentWidth(): number { return this.#view.contentWidth / pixelsPerPoint; }

  setVisible(image: ControlIndex, isVisible: boolean): void {
    const control = this.#control(image);
    control.element.hidden = !isVisible;
    this.#view.imageChanged(isVisible ? control.area : null);
  }
  setCaption(label: ControlIndex, caption: string): void {
    this.#control(label).element.textContent = caption;
    this.#scale = 0; // a longer caption may need a smaller font
  }

  // The module keeps the timers.
  timerStarted(): void {}
  timerStopped(): void {}

  // ---- What the page does ------------------------------------------------------------------------------

  get buttons(): readonly HTMLElement[] {
    return this.#controls.flatMap((control) => (control?.row.kind === "button" ? [control.element] : []));
  }

  /** The button that had the focus last, or the first one; null on a screen without buttons. */
  get focused(): HTMLElement | null { return this.#focused ?? this.buttons[0] ?? null; }

  /** What of this screen an event hit; null for nothing that can be pressed. */
  pressedBy(event: Event): Pressed | null {
    const element = event.target instanceof Element ? event.target.closest("button") : null;
    return (element && this.#pressable.get(element)) ?? null;
  }

  /** `room` is that of the whole screen, in CSS pixels. */
  arrange(room: Size, zoom: number, pixelRatio: number): void {
    const isFramed = this.layout.frame === "toolWindow";
    const aligned = (length: number): number => Math.round(length * pixelRatio) / pixelRatio;
    const frame = isFramed ? aligned(frameThickness) : 0;
    const top = isFramed ? frame + aligned(titleHeight) + frame : 0;
    const width = Math.floor((room.width - 2 * frame) * pixelRatio + 0.01);
    const height = Math.floor((room.height - top - frame) * pixelRatio + 0.01);
    this.#pixelRatio = pixelRatio;
    this.#scale = 0;
    this.#title.style.cssText = `top: ${frame}px; left: ${frame}px; right: ${frame}px; height: ${titleHeight}px`;
    for (const { style } of [this.#shown, this.#canvas]) {
      style.width = `${width / pixelRatio}px`;
      style.height = `${height / pixelRatio}px`;
    }
    this.#shown.style.left = `${frame}px`;
    this.#shown.style.top = `${top}px`;
    this.#canvas.width = Math.max(1, width);
    this.#canvas.height = Math.max(1, height);
    this.#view.arrange({ width: width / pixelRatio, height: height / pixelRatio }, zoom);
    this.paint();
  }

  paint(): void {
    const { scale, left, top } = this.#view;
    const ratio = scale * this.#pixelRatio;
    const [x, y] = [-Math.round(left * ratio), -Math.round(top * ratio)];
    this.surface.paint(this.#context, ratio, x, y);
    this.#content.style.left = `${x / this.#pixelRatio}px`;
    this.#content.style.top = `${y / this.#pixelRatio}px`;
    if (scale === this.#scale) return;
    this.#scale = scale;
    for (const control of this.#controls) control?.place(scale, this.#pixelRatio);
  }

  /** After an event, before `paint`: moves the view to what was drawn. */
  follow(cause: "learner" | "tick"): void { this.#view.follow(this.surface.takeDrawn(), cause); }

  /** A button got the focus. */
  focus(button: HTMLElement, shallReveal: boolean): void {
    this.#focused = button;
    const control = this.#controls.find((candidate) => candidate?.element === button);
    if (!control || !shallReveal) return;
    this.#view.reveal(control.area);
    this.paint();
  }

  /** By CSS pixels. */
  panBy(x: number, y: number): void {
    this.#view.panBy(x, y);
    this.paint();
  }

  hold(): Hold {
    const held = this.#view.hold();
    const { left, top } = this.#shown.getBoundingClientRect();
    const inView = ({ x, y }: Position): Position => ({ x: x - left, y: y - top });
    return (factor, from, to) => {
      held(factor, inView(from), inView(to));
      this.paint();
    };
  }

  /** For screen readers, in reading order. */
  read(texts: readonly string[]): void {
    if (this.#spoken === texts.join("\n")) return;
    this.#spoken = texts.join("\n");
    const paragraph = (words: string): Node => Object.assign(document.createElement("p"), { textContent: words });
    this.#texts.replaceChildren(...texts.map(paragraph));
  }

  #control(index: ControlIndex): Control { return this.#controls[index] as Control; }

  #build(): void {
    const { frame, accessibleName, name, caption } = this.layout;
    Object.assign(this.element, { className: frame, id: name, hidden: true, tabIndex: -1 });
    this.element.setAttribute("role", "application"); // screen readers leave it the keys when it gets the focus
    this.element.setAttribute("aria-label", accessibleName);
    this.#canvas.setAttribute("aria-hidden", "true");
    this.#shown.className = "view";
    this.#texts.className = "texts";
    this.#content.className = "controls";
    if (frame === "toolWindow") this.#buildTitle(caption);
    this.#shown.append(this.#canvas, this.#texts, this.#content);
    this.element.append(this.#shown);
    for (const [index, control] of this.#controls.entries()) {
      if (!control) continue;
      this.#content.append(control.element);
      if (control.element instanceof HTMLButtonElement) this.#pressable.set(control.element, index);
    }
  }

  #buildTitle(caption: string): void {
    const words = Object.assign(document.createElement("span"), { textContent: caption });
    const box = Object.assign(document.createElement("button"), { textContent: "×", title: "Fermer", tabIndex: -1 });
    box.setAttribute("aria-label", "Fermer");
    this.#pressable.set(box, "close");
    this.#title.append(words, box);
    this.element.append(this.#title);
  }
}
