// SPDX-License-Identifier: MIT

/** The keypad for fingers. Its keys give the program what the keys of a keyboard give. */

import type { KeyStroke } from "./keys";

const backspace = 8;
const digits = [..."1234567890"].map((digit) => [digit, digit, { code: 0, character: digit.charCodeAt(0) }] as const);

/** Caption, name for screen readers, and key. */
const keys: readonly (readonly [string, string, KeyStroke])[] = [
  ...digits,
  ["⌫", "Effacer", { code: 0, character: backspace }],
  ["✕", "Quitter", { code: 0, character: 27 }],
  ["→", "Continuer", { code: 39, character: 0 }],
  ["=", "Valider", { code: 0, character: 61 }],
];

// As a keyboard repeats, in milliseconds.
const firstRepeat = 500;
const nextRepeats = 60;

export class Keypad {
  readonly element = document.createElement("nav");
  #isWanted = matchMedia("(pointer: coarse)").matches;
  #isUseful = false;
  #repeat: number | undefined;

  constructor(private readonly press: (stroke: KeyStroke) => void) {
    this.element.id = "keypad";
    this.element.hidden = true;
    this.element.setAttribute("aria-label", "Clavier");
    this.element.append(...keys.map(([caption, name, stroke]) => this.#createKey(caption, name, stroke)));
    for (const end of ["pointerup", "pointercancel", "pointerleave"])
      this.element.addEventListener(end, () => this.#endRepeats());
  }

  /** The learner touches the page, or presses a key of a keyboard. True if the keypad appears or disappears. */
  want(isWanted: boolean): boolean {
    this.#isWanted = isWanted;
    return this.#update();
  }

  /** On a screen that takes an answer. True if the keypad appears or disappears. */
  offer(isUseful: boolean): boolean {
    this.#isUseful = isUseful;
    return this.#update();
  }

  #update(): boolean {
    const wasHidden = this.element.hidden;
    this.element.hidden = !(this.#isWanted && this.#isUseful);
    document.body.classList.toggle("typing", !this.element.hidden);
    if (this.element.hidden) this.#endRepeats();
    return this.element.hidden !== wasHidden;
  }

  /** A finger presses it at once. `detail` is 0 for a click by a screen reader, which has no press; a finger that was
   * down before the key appeared clicks it too, and does not mean it. */
  #createKey(caption: string, name: string, stroke: KeyStroke): HTMLElement {
    const key = Object.assign(document.createElement("button"), { textContent: caption });
    key.setAttribute("aria-label", name);
    key.addEventListener("pointerdown", ({ button }) => {
      if (button !== 0) return;
      this.press(stroke);
      if (stroke.character === backspace) this.#repeatSoon(stroke, firstRepeat);
    });
    key.addEventListener("click", ({ detail }) => {
      if (detail === 0) this.press(stroke);
    });
    return key;
  }

  #repeatSoon(stroke: KeyStroke, delay: number): void {
    this.#endRepeats();
    this.#repeat = window.setTimeout(() => {
      this.press(stroke);
      this.#repeatSoon(stroke, nextRepeats);
    }, delay);
  }

  #endRepeats(): void { window.clearTimeout(this.#repeat); }
}
