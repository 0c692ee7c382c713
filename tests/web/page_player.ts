// SPDX-License-Identifier: MIT

/** Plays scenarios in the page through its own DOM events, and records what crosses the boundary. It runs before the
 * script of the page: it puts a clock, a history and random numbers of its own in place of the browser's, and a
 * recording front end beside that of the page, which also gives the widths. */

import { Game, pageFunctions, PageFunctions, Screen } from "../../frontends/web/page/module";
import { Hands, Player } from "../../frontends/web/scenario/player";
import { Key, linesOf } from "../../frontends/web/scenario/scenario";
import { Transcript } from "../../frontends/web/scenario/transcript";

declare global {
  interface Window { playScenario(scenario: string): { transcript: readonly string[]; message: string }; }
}

// ---- A clock ---------------------------------------------------------------------------------------------

let now = 0;
let alarm: { readonly due: number; readonly ring: () => void } | null = null;

performance.now = () => now;
window.setTimeout = ((ring: () => void, delay: number): number => {
  alarm = { due: now + delay, ring };
  return 1;
}) as typeof window.setTimeout;
window.clearTimeout = () => { alarm = null; };

// ---- A history of two entries ----------------------------------------------------------------------------

let isAway = false;

function goBack(): void {
  isAway = false;
  window.dispatchEvent(new PopStateEvent("popstate"));
}
Object.defineProperty(History.prototype, "state", { get: () => (isAway ? "away" : null) });
history.pushState = () => { isAway = true; };
history.back = goBack;

// ---- A recording front end beside that of the page -------------------------------------------------------

const lines: string[] = [];
const transcript = new Transcript((line) => lines.push(line));
const games: Game[] = [];
const asked = ["contentWidth", "textWidth", "lineHeight", "averageCharacterWidth", "randomSeed"];
let exports: Record<string, (...values: number[]) => number> = {};

/** Calls the recording front end first; the program gets its answers. */
function recording(page: PageFunctions): PageFunctions {
  const memory = (): WebAssembly.Memory => (exports as unknown as { memory: WebAssembly.Memory }).memory;
  const recorded = pageFunctions(games, memory);
  return Object.fromEntries(Object.entries(page).map(([name, call]) => [name, (...values: never[]) => {
    const answer = recorded[name]?.(...values);
    const shown = call(...values);
    return asked.includes(name) ? answer : shown;
  }]));
}

const instantiate = WebAssembly.instantiate.bind(WebAssembly);
WebAssembly.instantiate = (async (module: WebAssembly.Module, imports: { page: PageFunctions }) => {
  const instance = await instantiate(module, { page: recording(imports.page) });
  exports = instance.exports as typeof exports;
  const changed = { ...instance.exports, start: (address: number): void => {
    const game = new Game(transcript, (name, ...values) => exports[name]?.(address, ...values) ?? 0);
    games.push(game);
    transcript.readLayouts(game);
    game.start(now);
  } };
  return { exports: changed };
}) as unknown as typeof WebAssembly.instantiate;

// ---- The learner -----------------------------------------------------------------------------------------

const keyNames = new Map([[13, "Enter"], [27, "Escape"], [8, "Backspace"], [32, " "]]);
const arrows = new Map([[39, "ArrowRight"], [37, "ArrowLeft"]]);

class DomHands implements Hands {
  constructor(readonly game: Game) {}

  key({ code, character }: Key): void {
    const key = character === 0 ? arrows.get(code) ?? "" : keyNames.get(character) ?? String.fromCharCode(character);
    for (const type of ["keydown", "keyup"]) document.dispatchEvent(new KeyboardEvent(type, { key, cancelable: true }));
  }

  click(control: number): void {
    const rows = transcript.layout(this.game.active as NonNullable<typeof this.game.active>).controls;
    const place = rows.slice(0, control).filter((row) => row.kind !== "timer").length;
    const isTimer = rows[control]?.kind === "timer";
    const element = document.querySelectorAll(`#${this.game.active} .controls > *`)[place];
    if (!isTimer && element instanceof HTMLElement) press(element);
  }

  close(): void {
    const box = document.querySelector(`#${this.game.active} header button`);
    if (box instanceof HTMLElement) press(box);
    else if (isAway) goBack();
    else this.#afterwards(() => this.game.close(now)); // on the home screen "back" leaves the page
  }

  /** No event of a page does this. */
  front(screen: Screen): void { this.#afterwards(() => this.game.front(now, screen)); }

  wait(milliseconds: number): void {
    const end = now + milliseconds;
    while (alarm !== null && alarm.due <= end) {
      const { due, ring } = alarm;
      alarm = null;
      now = due;
      ring();
    }
    now = end;
  }

  /** The page has not seen the event. */
  #afterwards(event: () => void): void {
    event();
    document.dispatchEvent(new Event("visibilitychange"));
  }
}

/** What a mouse does. A hidden element is not hit. */
function press(element: HTMLElement): void {
  if (element.offsetParent === null) return;
  const options = { bubbles: true, cancelable: true, detail: 1 };
  element.dispatchEvent(new PointerEvent("pointerdown", options));
  element.dispatchEvent(new MouseEvent("click", options));
}

/** From the home screen of the game that the page has started. `scenario` is a byte string. */
window.playScenario = (scenario) => {
  const game = games[0] as Game;
  const player = new Player(game, new DomHands(game), transcript);
  let message = "";
  try {
    for (const line of linesOf(scenario)) player.play(line);
  } catch (error) {
    message = `${(error as Error).message}\n`;
  }
  return { transcript: lines, message };
};
