// SPDX-License-Identifier: MIT

/** The keypad for fingers. Its keys give the program what the keys of a keyboard give. */

import { type KeyStroke, backspace, escape, keyFor, right } from "./keys";

interface KeyDescription {
  readonly caption: string;
  /** For screen readers. */
  readonly name: string;
  readonly className: string;
  readonly stroke: KeyStroke;
}

function digit(caption: string, className = "digit"): KeyDescription {
  return { caption, name: caption, className, stroke: keyFor(caption) };
}

/** In rows of four columns; the last two keys are two columns wide. */
const keys: readonly KeyDescription[] = [
  digit("1"), digit("2"), digit("3"),
  { caption: "⌫", name: "Effacer", className: "erase", stroke: backspace },
  digit("4"), digit("5"), digit("6"),
  { caption: "✕", name: "Quitter", className: "leave", stroke: escape },
  digit("7"), digit("8"), digit("9"),
  { caption: "→", name: "Continuer", className: "goOn", stroke: right },
  digit("0", "zero"),
  { caption: "=", name: "Valider", className: "submit", stroke: keyFor("=") },
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
    this.element.append(...keys.map((key) => this.#createKey(key)));
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
  #createKey({ caption, name, className, stroke }: KeyDescription): HTMLElement {
    const key = Object.assign(document.createElement("button"), { textContent: caption, className });
    key.setAttribute("aria-label", name);
    key.addEventListener("pointerdown", ({ button }) => {
      if (button !== 0) return;
      this.press(stroke);
      if (stroke === backspace) this.#repeatSoon(stroke, firstRepeat);
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
