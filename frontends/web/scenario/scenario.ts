// SPDX-License-Identifier: MIT

/** The parser of scenarios. A scenario is a byte string: each of its characters stands for one byte. So a message
 * repeats a word exactly, even if the word is not UTF-8. */

import { Screen, screenNames } from "../page/module";

/** What is wrong with a line. The message is a byte string. */
export class ScenarioError extends Error {}

/** `name` is that of the scenario; `character` is the code point that the key types, 0 for none. */
export interface Key {
  readonly name: string;
  readonly code: number;
  readonly character: number;
}

export type Command =
  | { readonly kind: "rnd"; readonly numbers: readonly number[] }
  | { readonly kind: "key"; readonly key: Key }
  | { readonly kind: "click"; readonly control: string }
  | { readonly kind: "front" | "layout"; readonly screen: Screen }
  | { readonly kind: "wait"; readonly milliseconds: number }
  | { readonly kind: "setVariable"; readonly variable: number; readonly value: number }
  | { readonly kind: "setCounters"; readonly array: number; readonly values: readonly number[] }
  | { readonly kind: "close" | "state" };

export function byteString(bytes: Uint8Array): string {
  let text = "";
  for (const byte of bytes) text += String.fromCharCode(byte);
  return text;
}

export function bytesOf(text: string): Uint8Array {
  return Uint8Array.from(text, (byte) => byte.charCodeAt(0));
}

/** The lines of a scenario, without their line ends. */
export function linesOf(scenario: string): readonly string[] {
  const lines = scenario.split("\n");
  return lines[lines.length - 1] === "" ? lines.slice(0, -1) : lines;
}

/** Null for a blank line and for a line that begins with #. Throws a ScenarioError if the line is malformed. */
export function commandOf(line: string): Command | null {
  const [name, ...words] = line.split(/[ \t\r]+/).filter((word) => word !== "");
  if (name === undefined || line.startsWith("#")) return null;
  const command = commands.get(name) ?? refuse("unknown command", name);
  return command(words);
}

const commands = new Map<string, (words: readonly string[]) => Command>([
  ["rnd", (words) => ({ kind: "rnd", numbers: atLeastOne(words).map(randomNumber) })],
  ["key", (words) => ({ kind: "key", key: keyNamed(onlyOne(words)) })],
  ["click", (words) => ({ kind: "click", control: decoded(onlyOne(words)) })],
  ["front", (words) => ({ kind: "front", screen: screenNamed(onlyOne(words)) })],
  ["close", (words) => (expectCount(words, 0), { kind: "close" })],
  ["wait", (words) => ({ kind: "wait", milliseconds: wholeNumber(onlyOne(words), 86400000) })],
  ["set", (words) => assignment(atLeastOne(words))],
  ["state", (words) => (expectCount(words, 0), { kind: "state" })],
  ["layout", (words) => ({ kind: "layout", screen: screenNamed(onlyOne(words)) })],
]);

// ---- Arguments -------------------------------------------------------------------------------------------

/** The command-line program prints its messages as C texts, which end at a NUL byte. */
function refuse(what: string, word: string): never {
  throw new ScenarioError(`${what} "${word}"`.replace(/\0.*/, ""));
}

function atLeastOne(words: readonly string[]): readonly string[] {
  if (words.length === 0) throw new ScenarioError("missing argument");
  return words;
}

function expectCount(words: readonly string[], count: number): void {
  if (words.length < count) throw new ScenarioError("missing argument");
  const surplus = words[count];
  if (surplus !== undefined) refuse("surplus argument", surplus);
}

function onlyOne(words: readonly string[]): string {
  expectCount(words, 1);
  return words[0] as string;
}

/** From 0 to `highest`. What does not fit into 32 bits is no number. */
function wholeNumber(word: string, highest: number): number {
  const value = Number(word);
  if (!/^-?\d+$/.test(word) || value !== Math.max(-(2 ** 31), Math.min(value, 2 ** 31 - 1))) {
    refuse("not a number:", word);
  }
  if (value < 0 || value > highest) refuse("number out of range:", word);
  return value;
}

/** In [0, 1). What is too large for a double, or too close to 0, is no number. */
function randomNumber(word: string): number {
  if (/^-?(inf(inity)?|nan(\(\w*\))?)$/i.test(word)) refuse("number out of range:", word);
  const value = Number(word);
  const underflows = value === 0 && /^[^e]*[1-9]/i.test(word);
  if (!/^-?(\d+\.?\d*|\.\d+)(e[+-]?\d+)?$/i.test(word) || !Number.isFinite(value) || underflows) {
    refuse("not a number:", word);
  }
  if (value < 0 || value >= 1) refuse("number out of range:", word);
  return value;
}

const decoder = new TextDecoder("utf-8", { fatal: true, ignoreBOM: true });

/** Empty if the word is not UTF-8. */
function decoded(word: string): string {
  try {
    return decoder.decode(bytesOf(word));
  } catch {
    return "";
  }
}

// ---- Screens, keys and variables -------------------------------------------------------------------------

function screenNamed(name: string): Screen {
  return screenNames.find((screen) => screen === name) ?? refuse("unknown screen", name);
}

const namedKeys: readonly Key[] = [
  { name: "Enter", code: 13, character: 13 },
  { name: "Escape", code: 27, character: 27 },
  { name: "Backspace", code: 8, character: 8 },
  { name: "Space", code: 32, character: 32 },
  { name: "Right", code: 39, character: 0 },
  { name: "Left", code: 37, character: 0 },
];

/** A key that types a digit or a letter has the code of the digit or the capital letter; other such keys have 0. */
function keyNamed(name: string): Key {
  const named = namedKeys.find((key) => key.name === name);
  if (named !== undefined) return named;
  const [typed = "", ...surplus] = decoded(name);
  const character = typed.codePointAt(0) ?? 0;
  if (surplus.length > 0 || character < 33 || character > 65535) refuse("unknown key", name);
  return { name: typed, code: /^[0-9A-Za-z]$/.test(typed) ? typed.toUpperCase().charCodeAt(0) : 0, character };
}

// In the order of `assignableVariables` and `counterArrays` in shared_variables.h.
const variables = [
  "couleur", "ligne", "colonne", "chrono", "score", "essai", "enAttente", "nbOperations", "resultat",
];
const counterArrays = ["reussies", "effectuees"];
const highestValues = new Map([["couleur", 15], ["enAttente", 1]]);
const highestInteger = 32767;

function assignment([name = "", ...words]: readonly string[]): Command {
  const variable = variables.indexOf(name);
  if (variable >= 0) {
    const value = wholeNumber(onlyOne(words), highestValues.get(name) ?? highestInteger);
    return { kind: "setVariable", variable, value };
  }
  const array = counterArrays.indexOf(name);
  if (array < 0) refuse("unknown variable", name);
  expectCount(words, 4);
  return { kind: "setCounters", array, values: words.map((word) => wholeNumber(word, highestInteger)) };
}
