// SPDX-License-Identifier: MIT

/** Which key the program gets for a key of the keyboard, and what Control with "+", "-" and "0" does. */

/** `character` is a code point, 0 for none. */
export type KeyStroke = Readonly<Record<"code" | "character", number>>;

// Codes as in platform.h.
const otherKey = 0;
const enter: KeyStroke = { code: 13, character: 13 };
export const right: KeyStroke = { code: 39, character: 0 };
export const backspace = keyFor("\b");
export const escape = keyFor("\x1b");
const namedKeys = new Map([["Enter", enter], ["ArrowRight", right], ["Backspace", backspace], ["Escape", escape]]);

/** The key that types this character and does nothing else. */
export function keyFor(character: string): KeyStroke { return { code: otherKey, character: character.charCodeAt(0) }; }

const modifiers = /^(Shift|Control|Alt|AltGraph|Meta|OS|CapsLock|NumLock|ScrollLock|Fn|FnLock|Super|Hyper|Symbol)/;
const keysOfBrowser = /^(F\d+|Browser|Audio|Media|Launch|Process)/;
const visibleCharacter = /^[^\p{C}\p{Nd}]$/u;

/** AltGr may be reported as Control and Alt together. */
function isWithCommand(event: KeyboardEvent): boolean {
  return !event.getModifierState("AltGraph") && (event.ctrlKey || event.altKey || event.metaKey);
}

/** The first rule that applies decides. */
function typedDigit(event: KeyboardEvent): string {
  if (event.getModifierState("AltGraph")) return "";
  if (/^[0-9]$/.test(event.key)) return event.key;
  const onKeypad = /^Numpad([0-9])$/.exec(event.code);
  if (onKeypad) return onKeypad[1] ?? ""; // also without Num Lock
  if (event.shiftKey || event.key === "=") return ""; // some layouts have "=", which submits, in the digit row
  return /^Digit([0-9])$/.exec(event.code)?.[1] ?? "";
}

/** Null for a key that belongs to the browser or types nothing by itself. Characters beyond U+FFFF are ignored, and
 * so are digits of other scripts. */
export function translateKey(event: KeyboardEvent): KeyStroke | null {
  if (event.isComposing || isWithCommand(event) || modifiers.test(event.key) || keysOfBrowser.test(event.key))
    return null;
  const digit = typedDigit(event);
  if (digit !== "") return keyFor(digit);
  if (event.key === "Unidentified") return null; // Firefox 153 also so names the 5 of the keypad without Num Lock
  const named = namedKeys.get(event.key);
  if (named) return named;
  const isCharacter = event.key.length === 1 && visibleCharacter.test(event.key);
  return isCharacter ? keyFor(event.key) : { code: otherKey, character: 0 };
}

export type ZoomStep = "larger" | "smaller" | "normal";

/** Null if the key does not zoom. */
export function zoomStep(event: KeyboardEvent): ZoomStep | null {
  if (!event.ctrlKey || event.altKey || event.metaKey) return null;
  if (event.key === "+" || event.key === "=") return "larger"; // "+" is on the key of "="
  if (event.key === "-") return "smaller";
  // The zero types "à" on a French keyboard, and nothing on a keypad without Num Lock.
  return event.key === "0" || event.code === "Digit0" || event.code === "Numpad0" ? "normal" : null;
}

/** Drops the repeats of a key that was pressed on another screen: a child who holds Enter too long must not skip the
 * next screen. */
export class RepeatFilter<Screen> {
  readonly #pressedOn = new Map<string, Screen>();

  /** Whether the press counts. */
  press(event: KeyboardEvent, active: Screen): boolean {
    const key = event.code || event.key;
    if (!event.repeat) this.#pressedOn.set(key, active);
    return this.#pressedOn.get(key) === active;
  }

  /** Drops the repeats of the key until it is pressed again: they go on when Control is released first. */
  drop(event: KeyboardEvent): void { this.#pressedOn.delete(event.code || event.key); }

  /** Whether the key was last pressed on that screen. */
  wasPressedOn(event: KeyboardEvent, screen: Screen): boolean {
    return this.#pressedOn.get(event.code || event.key) === screen;
  }
}
