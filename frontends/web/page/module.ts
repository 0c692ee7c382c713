// SPDX-License-Identifier: MIT

/** The program as the page sees it: typed functions around the WebAssembly module. Units are those of
 * page_functions.h and module.cpp. */

/** In the order of `ScreenName` in platform.h. */
export const screenNames = [
  "accueil", "addition", "multiplication", "division", "record", "FIN", "FIN2", "Aurevoir",
] as const;
export type Screen = typeof screenNames[number];

/** By row of the layout. */
export type ControlIndex = number;

/** 0xRRGGBB. */
export type Colour = number;

/** `size` is in points; `style` is 1 for bold plus 2 for italic. */
export interface Font {
  readonly face: string;
  readonly size: number;
  readonly style: number;
}

/** One row of a layout: as `ControlLayout` in platform.h. The place is in twips. */
export interface ControlLayout extends Readonly<Record<"name" | "caption" | "tooltip" | "accessibleName", string>>,
  Readonly<Record<"foreground" | "background", Colour>> {
  readonly kind: "label" | "button" | "image" | "line" | "shape" | "pictureBox" | "timer";
  readonly place: Readonly<Record<"left" | "top" | "width" | "height", number>>;
  readonly font: Font;
  readonly alignment: "left" | "centred";
  readonly border: "none" | "thin";
  readonly picture: "none" | "arrow" | "stop" | "farewell";
  readonly visible: "hidden" | "visible";
  readonly enabled: "off" | "on";
  readonly interval: number; // milliseconds
}

/** As `ScreenLayout` in platform.h. */
export interface ScreenLayout {
  readonly name: Screen;
  readonly caption: string;
  readonly accessibleName: string;
  readonly frame: "frameless" | "toolWindow";
  readonly font: Font;
  readonly background: Colour;
  readonly controls: readonly ControlLayout[];
  readonly typing: "none" | "answer";
  readonly closing: "showsHome" | "endsProgram" | "endsChallenge";
}

/** Two points: corners, the ends of a segment, or the centre and the radii of an ellipse. */
export type Points = readonly [number, number, number, number];

/** The drawing functions of `Window` in platform.h. */
export interface Surface {
  drawText(left: number, top: number, text: string, font: Font, colour: Colour): void;
  drawSegment(ends: Points, thickness: number, colour: Colour): void;
  drawBox(corners: Points, thickness: number, outline: Colour, fill: Colour | null): void;
  drawEllipse(centreAndRadii: Points, thickness: number, outline: Colour, fill: Colour | null): void;
  clear(background: Colour): void;
}

/** The other functions of `Window` in platform.h. The module keeps the timers: it reports those that start while they
 * are stopped, and those that stop. */
export interface Window {
  readonly surface: Surface;
  activate(): void;
  contentWidth(): number;
  setVisible(image: ControlIndex, isVisible: boolean): void;
  setCaption(label: ControlIndex, caption: string): void;
  timerStarted(timer: ControlIndex, milliseconds: number): void;
  timerStopped(timer: ControlIndex): void;
  destroy(): void;
}

/** In points. */
export interface Metrics {
  textWidth(text: string, font: Font): number;
  lineHeight(font: Font): number;
  averageCharacterWidth(font: Font): number;
}

/** As `Platform` in platform.h. Neither this nor a window may call the game, except for queries of layouts. */
export interface Platform {
  readonly metrics: Metrics;
  createWindow(screen: Screen): Window;
  /** 64 random bits. */
  randomSeed(): bigint;
  quit(): void;
}

type GameFunction = "destroyGame" | "start" | "key" | "click" | "front" | "close" | "deliverDueTicks" | "nextDue" |
  "minimumContentWidth" | "minimumContentHeight" | "queryLayout" | "querySpokenTexts" | "takeAnnouncement" |
  "giveRandomNumber" | "setVariable" | "setCounter" | "queryState";
export type PageFunctions = Record<string, (...values: never[]) => number | bigint | void>;
type Exports = { readonly memory: WebAssembly.Memory } &
  Readonly<Record<"_initialize" | "createGame" | GameFunction, (...values: number[]) => number>>;

/** The module in memory. It holds any number of games, which are independent of each other. */
export class Module {
  readonly #games: Game[] = [];
  #exports!: Exports;

  private constructor() {}

  static async create(compiled: WebAssembly.Module): Promise<Module> {
    const module = new Module();
    const memory = (): WebAssembly.Memory => module.#exports.memory;
    const instance = await WebAssembly.instantiate(compiled, { page: pageFunctions(module.#games, memory) });
    module.#exports = instance.exports as Exports;
    module.#exports._initialize();
    return module;
  }

  /** Creates a game; `Game.start` shows its first screen. */
  createGame(platform: Platform): Game {
    const address = this.#exports.createGame(this.#games.length);
    const game = new Game(platform, (name, ...values) => this.#exports[name](address, ...values));
    this.#games.push(game);
    return game;
  }
}

/** One run of the program. `now` is in milliseconds of a monotonic clock. No function may be called while another one
 * runs. Each throws WebAssembly.RuntimeError if the module traps. */
export class Game {
  /** Null while no screen is active. */
  active: Screen | null = null;
  readonly windows: Window[] = []; // by screen; those of unloaded screens are destroyed
  answer = ""; // to the query that runs

  /** Only `Module` creates games. */
  constructor(readonly platform: Platform, readonly call: (name: GameFunction, ...values: number[]) => number) {}

  start(now: number): void { this.call("start", now); }

  /** `character` is the code point that the key types, 0 for none. */
  key(now: number, code: number, character: number): void { this.call("key", now, code, character); }

  click(now: number, control: ControlIndex): void { this.call("click", now, control); }

  front(now: number, screen: Screen): void { this.call("front", now, screenNames.indexOf(screen)); }

  close(now: number): void { this.call("close", now); }

  /** In the order in which they are due. */
  deliverDueTicks(now: number): void { this.call("deliverDueTicks", now); }

  /** When the next tick is due; Infinity if no timer is running. */
  nextDue(): number { return this.call("nextDue"); }

  layout(screen: Screen): ScreenLayout {
    const answer = JSON.parse(this.ask("queryLayout", screenNames.indexOf(screen))) as ScreenLayout;
    return { ...answer, name: screen };
  }

  /** The words of the texts that are visible on the surface, in reading order; labels are not included. */
  spokenTexts(screen: Screen): readonly string[] {
    return this.ask("querySpokenTexts", screenNames.indexOf(screen)).split("\n").filter((words) => words !== "");
  }

  /** What a screen reader announces: what has changed on the active screen since the last call. May be empty. */
  takeAnnouncement(): string { return this.ask("takeAnnouncement"); }

  /** In twips. */
  minimumContentSize(): { width: number; height: number } {
    return { width: this.call("minimumContentWidth"), height: this.call("minimumContentHeight") };
  }

  /** The game cannot be used afterwards. */
  destroy(): void { this.call("destroyGame"); }

  /** The answer to a query of module.cpp. */
  ask(query: GameFunction, ...values: number[]): string {
    this.call(query, ...values);
    return this.answer;
  }
}

/** What the module imports: passes each call to the platform or the window of its game. */
export function pageFunctions(games: readonly Game[], memory: () => WebAssembly.Memory): PageFunctions {
  type N = number;
  const game = (number: N): Game => games[number] as Game;
  const window = (number: N, screen: N): Window => game(number).windows[screen] as Window;
  const surface = (number: N, screen: N): Surface => window(number, screen).surface;
  const metrics = (number: N): Metrics => game(number).platform.metrics;
  const decoder = new TextDecoder("utf-8", { ignoreBOM: true });
  const text = (address: N, length: N): string => decoder.decode(new Uint8Array(memory().buffer, address, length));
  const font = (face: N, length: N, size: N, style: N): Font => ({ face: text(face, length), size, style });
  const filling = (fill: N): Colour | null => (fill < 0 ? null : fill);
  return {
    createWindow: (g: N, s: N) => void (game(g).windows[s] = game(g).platform.createWindow(screenNames[s] as Screen)),
    destroyWindow: (g: N, s: N) => {
      if (game(g).active === screenNames[s]) game(g).active = null;
      window(g, s).destroy();
    },
    activate: (g: N, s: N) => {
      game(g).active = screenNames[s] as Screen;
      window(g, s).activate();
    },
    contentWidth: (g: N, s: N) => window(g, s).contentWidth(),
    textWidth: (g: N, at: N, length: N, face: N, faceLength: N, size: N, style: N) =>
      metrics(g).textWidth(text(at, length), font(face, faceLength, size, style)),
    lineHeight: (g: N, face: N, faceLength: N, size: N, style: N) =>
      metrics(g).lineHeight(font(face, faceLength, size, style)),
    averageCharacterWidth: (g: N, face: N, faceLength: N, size: N, style: N) =>
      metrics(g).averageCharacterWidth(font(face, faceLength, size, style)),
    drawText: (g: N, s: N, left: N, top: N, at: N, length: N, face: N, faceLength: N, size: N, style: N, colour: N) =>
      surface(g, s).drawText(left, top, text(at, length), font(face, faceLength, size, style), colour),
    drawSegment: (g: N, s: N, x1: N, y1: N, x2: N, y2: N, thickness: N, colour: N) =>
      surface(g, s).drawSegment([x1, y1, x2, y2], thickness, colour),
    drawBox: (g: N, s: N, x1: N, y1: N, x2: N, y2: N, thickness: N, outline: N, fill: N) =>
      surface(g, s).drawBox([x1, y1, x2, y2], thickness, outline, filling(fill)),
    drawEllipse: (g: N, s: N, x: N, y: N, radiusX: N, radiusY: N, thickness: N, outline: N, fill: N) =>
      surface(g, s).drawEllipse([x, y, radiusX, radiusY], thickness, outline, filling(fill)),
    clear: (g: N, s: N, background: N) => surface(g, s).clear(background),
    setVisible: (g: N, s: N, image: N, isVisible: N) => window(g, s).setVisible(image, isVisible !== 0),
    setCaption: (g: N, s: N, label: N, at: N, length: N) => window(g, s).setCaption(label, text(at, length)),
    timerStarted: (g: N, s: N, timer: N, milliseconds: N) => window(g, s).timerStarted(timer, milliseconds),
    timerStopped: (g: N, s: N, timer: N) => window(g, s).timerStopped(timer),
    randomSeed: (g: N) => game(g).platform.randomSeed(),
    quit: (g: N) => game(g).platform.quit(),
    answer: (g: N, at: N, length: N) => void (game(g).answer = text(at, length)),
  };
}
