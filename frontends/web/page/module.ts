// SPDX-License-Identifier: MIT

/** The program as the page sees it: typed functions around the WebAssembly module. See page_functions.h and
 * module.cpp for units. Texts are copied out of the module's memory at once. */

export const screenNames = [
  "accueil", "addition", "multiplication", "division", "record", "FIN", "FIN2", "Aurevoir",
] as const;
export type Screen = typeof screenNames[number];

/** By row of the layout. */
export type ControlIndex = number;

/** 0xRRGGBB. */
export type Colour = number;

/** `size` is in points. */
export interface Font {
  readonly face: string;
  readonly size: number;
  readonly isBold: boolean;
  readonly isItalic: boolean;
}

// In the order of the enumerations in platform.h.
const frames = ["frameless", "toolWindow"] as const;
const kinds = ["label", "button", "image", "line", "shape", "pictureBox", "timer"] as const;
const pictures = ["none", "arrow", "stop", "farewell"] as const;
export type Picture = typeof pictures[number];

/** In twips, from the top left corner of the content area. */
export interface Place {
  readonly left: number;
  readonly top: number;
  readonly width: number;
  readonly height: number;
}

/** One row of a layout: as `ControlLayout` in platform.h. */
export interface ControlLayout {
  readonly kind: typeof kinds[number];
  readonly name: string;
  readonly place: Place;
  readonly caption: string;
  readonly tooltip: string;
  readonly font: Font;
  readonly foreground: Colour;
  readonly background: Colour;
  readonly isCentred: boolean;
  readonly hasBorder: boolean;
  readonly accessibleName: string;
  readonly picture: Picture;
  readonly isVisible: boolean;
  readonly isEnabled: boolean;
  readonly milliseconds: number;
}

/** As `ScreenLayout` in platform.h. */
export interface ScreenLayout {
  readonly name: Screen;
  readonly caption: string;
  readonly accessibleName: string;
  readonly frame: typeof frames[number];
  readonly font: Font;
  readonly background: Colour;
  readonly controls: readonly ControlLayout[];
}

/** Corners are in points. */
export interface SpokenText {
  readonly words: string;
  readonly left: number;
  readonly top: number;
  readonly right: number;
  readonly bottom: number;
}

/** What the program does: as `Platform` and `Window` in platform.h. Positions and lengths are in points. No function
 * may call the game. */
export interface Effects {
  createWindow(screen: Screen): void;
  destroyWindow(screen: Screen): void;
  activate(screen: Screen): void;
  contentWidth(screen: Screen): number;
  textWidth(text: string, font: Font): number;
  lineHeight(font: Font): number;
  averageCharacterWidth(font: Font): number;
  drawText(screen: Screen, left: number, top: number, text: string, font: Font, colour: Colour): void;
  drawSegment(screen: Screen, corners: Corners, thickness: number, colour: Colour): void;
  drawBox(screen: Screen, corners: Corners, thickness: number, outline: Colour, fill: Colour | null): void;
  drawEllipse(screen: Screen, x: number, y: number, radiusX: number, radiusY: number, thickness: number,
    outline: Colour, fill: Colour | null): void;
  clear(screen: Screen, background: Colour): void;
  setVisible(screen: Screen, control: ControlIndex, isVisible: boolean): void;
  setCaption(screen: Screen, control: ControlIndex, caption: string): void;
  /** The module keeps the timers. It reports those that start while they are stopped, and those that stop. */
  timerStarted(screen: Screen, timer: ControlIndex, milliseconds: number): void;
  timerStopped(screen: Screen, timer: ControlIndex): void;
  /** 64 random bits. */
  randomSeed(): bigint;
  quit(): void;
}

/** Two opposite corners, or the two ends of a segment: x, y, x, y. */
export type Corners = readonly [number, number, number, number];

/** The functions that module.cpp exports. A game is an address. */
interface Exports {
  readonly memory: WebAssembly.Memory;
  _initialize(): void;
  createGame(number: number): number;
  destroyGame(game: number): void;
  start(game: number, now: number): void;
  key(game: number, now: number, code: number, character: number): number;
  click(game: number, now: number, control: ControlIndex): void;
  front(game: number, now: number, screen: number): void;
  close(game: number, now: number): void;
  deliverDueTicks(game: number, now: number): void;
  nextDue(game: number): number;
  minimumContentWidth(): number;
  minimumContentHeight(): number;
  describeLayout(game: number, screen: number): void;
  querySpokenTexts(game: number, screen: number): void;
  takeAnnouncement(game: number): void;
  giveRandomNumber(game: number, number: number): void;
  setVariable(game: number, variable: number, value: number): void;
  setCounter(game: number, array: number, kind: number, value: number): void;
  queryState(game: number): void;
}

/** An instance of the module. It holds any number of games, which are independent of each other. */
export class Program {
  readonly #exports: Exports;
  readonly #games = new Map<number, Game>();
  readonly #decoder = new TextDecoder();

  constructor(module: WebAssembly.Module) {
    const instance = new WebAssembly.Instance(module, { page: this.#imports() });
    this.#exports = instance.exports as unknown as Exports;
    this.#exports._initialize();
  }

  /** Creates a game; `Game.start` shows its first screen. */
  createGame(effects: Effects): Game {
    const number = this.#games.size;
    const game = new Game(this.#exports, this.#exports.createGame(number), effects);
    this.#games.set(number, game);
    return game;
  }

  #text(address: number, length: number): string {
    return this.#decoder.decode(new Uint8Array(this.#exports.memory.buffer, address, length));
  }

  #font(address: number, length: number, size: number, style: number): Font {
    return { face: this.#text(address, length), size, isBold: (style & 1) !== 0, isItalic: (style & 2) !== 0 };
  }

  #imports(): Record<string, (...values: never[]) => number | bigint | void> {
    type N = number;
    const game = (number: N): Game => this.#games.get(number) as Game;
    const effects = (number: N): Effects => game(number).effects;
    const screenOf = (index: N): Screen => screenNames[index] as Screen;
    const colourOf = (fill: N): Colour | null => (fill < 0 ? null : fill);
    const text = this.#text.bind(this);
    const font = this.#font.bind(this);
    return {
      createWindow: (g: N, screen: N) => effects(g).createWindow(screenOf(screen)),
      destroyWindow: (g: N, screen: N) => effects(g).destroyWindow(screenOf(screen)),
      activate: (g: N, screen: N) => game(g).activate(screenOf(screen)),
      contentWidth: (g: N, screen: N) => effects(g).contentWidth(screenOf(screen)),
      textWidth: (g: N, at: N, length: N, face: N, faceLength: N, size: N, style: N) =>
        effects(g).textWidth(text(at, length), font(face, faceLength, size, style)),
      lineHeight: (g: N, face: N, faceLength: N, size: N, style: N) =>
        effects(g).lineHeight(font(face, faceLength, size, style)),
      averageCharacterWidth: (g: N, face: N, faceLength: N, size: N, style: N) =>
        effects(g).averageCharacterWidth(font(face, faceLength, size, style)),
      drawText: (g: N, screen: N, left: N, top: N, at: N, length: N, face: N, faceLength: N, size: N, style: N,
        colour: N) =>
        effects(g).drawText(screenOf(screen), left, top, text(at, length), font(face, faceLength, size, style),
          colour),
      drawSegment: (g: N, screen: N, x1: N, y1: N, x2: N, y2: N, thickness: N, colour: N) =>
        effects(g).drawSegment(screenOf(screen), [x1, y1, x2, y2], thickness, colour),
      drawBox: (g: N, screen: N, x1: N, y1: N, x2: N, y2: N, thickness: N, outline: N, fill: N) =>
        effects(g).drawBox(screenOf(screen), [x1, y1, x2, y2], thickness, outline, colourOf(fill)),
      drawEllipse: (g: N, screen: N, x: N, y: N, radiusX: N, radiusY: N, thickness: N, outline: N, fill: N) =>
        effects(g).drawEllipse(screenOf(screen), x, y, radiusX, radiusY, thickness, outline, colourOf(fill)),
      clear: (g: N, screen: N, background: N) => effects(g).clear(screenOf(screen), background),
      setVisible: (g: N, screen: N, control: N, isVisible: N) =>
        effects(g).setVisible(screenOf(screen), control, isVisible !== 0),
      setCaption: (g: N, screen: N, control: N, at: N, length: N) =>
        effects(g).setCaption(screenOf(screen), control, text(at, length)),
      timerStarted: (g: N, screen: N, timer: N, milliseconds: N) =>
        effects(g).timerStarted(screenOf(screen), timer, milliseconds),
      timerStopped: (g: N, screen: N, timer: N) => effects(g).timerStopped(screenOf(screen), timer),
      randomSeed: (g: N) => effects(g).randomSeed(),
      quit: (g: N) => effects(g).quit(),
      layoutScreen: (g: N, caption: N, captionLength: N, accessibleName: N, accessibleNameLength: N, frame: N,
        face: N, faceLength: N, size: N, style: N, background: N) =>
        game(g).answers.screens.push({
          caption: text(caption, captionLength),
          accessibleName: text(accessibleName, accessibleNameLength),
          frame: frames[frame] ?? "frameless",
          font: font(face, faceLength, size, style),
          background,
        }),
      layoutControl: (g: N, kind: N, name: N, nameLength: N, left: N, top: N, width: N, height: N, caption: N,
        captionLength: N, tooltip: N, tooltipLength: N, face: N, faceLength: N, size: N, style: N, foreground: N,
        background: N, alignment: N, border: N, accessibleName: N, accessibleNameLength: N, picture: N,
        isVisible: N, isEnabled: N, milliseconds: N) =>
        game(g).answers.controls.push({
          kind: kinds[kind] ?? "timer",
          name: text(name, nameLength),
          place: { left, top, width, height },
          caption: text(caption, captionLength),
          tooltip: text(tooltip, tooltipLength),
          font: font(face, faceLength, size, style),
          foreground,
          background,
          isCentred: alignment !== 0,
          hasBorder: border !== 0,
          accessibleName: text(accessibleName, accessibleNameLength),
          picture: pictures[picture] ?? "none",
          isVisible: isVisible !== 0,
          isEnabled: isEnabled !== 0,
          milliseconds,
        }),
      spokenText: (g: N, at: N, length: N, left: N, top: N, right: N, bottom: N) =>
        game(g).answers.spoken.push({ words: text(at, length), left, top, right, bottom }),
      announcement: (g: N, at: N, length: N) => game(g).answers.lines.push(text(at, length)),
      state: (g: N, at: N, length: N) => game(g).answers.lines.push(text(at, length)),
    };
  }
}

/** What the module has answered to the query that runs. */
class Answers {
  readonly screens: Omit<ScreenLayout, "name" | "controls">[] = [];
  readonly controls: ControlLayout[] = [];
  readonly spoken: SpokenText[] = [];
  readonly lines: string[] = [];
}

/** One run of the program. `now` is in milliseconds of a monotonic clock. No function may be called while another
 * one runs, nor by an effect. Each throws WebAssembly.RuntimeError if the module traps. */
export class Game {
  answers = new Answers();
  readonly #exports: Exports;
  readonly #address: number;
  #active: Screen | null = null;

  /** Only `Program` creates games. */
  constructor(exports: Exports, address: number, readonly effects: Effects) {
    this.#exports = exports;
    this.#address = address;
  }

  /** The screen that was activated last; null before `start`. */
  get active(): Screen | null {
    return this.#active;
  }

  /** The module has activated a screen. */
  activate(screen: Screen): void {
    this.#active = screen;
    this.effects.activate(screen);
  }

  start(now: number): void {
    this.#exports.start(this.#address, now);
  }

  /** `character` is the code point that the key types, 0 for none. True if another screen has become active. */
  key(now: number, code: number, character: number): boolean {
    return this.#exports.key(this.#address, now, code, character) !== 0;
  }

  click(now: number, control: ControlIndex): void {
    this.#exports.click(this.#address, now, control);
  }

  front(now: number, screen: Screen): void {
    this.#exports.front(this.#address, now, screenNames.indexOf(screen));
  }

  close(now: number): void {
    this.#exports.close(this.#address, now);
  }

  /** In the order in which they are due. */
  deliverDueTicks(now: number): void {
    this.#exports.deliverDueTicks(this.#address, now);
  }

  /** When the next tick is due; Infinity if no timer is running. */
  nextDue(): number {
    return this.#exports.nextDue(this.#address);
  }

  /** In twips. */
  minimumContentSize(): { width: number; height: number } {
    return { width: this.#exports.minimumContentWidth(), height: this.#exports.minimumContentHeight() };
  }

  layout(screen: Screen): ScreenLayout {
    const { screens, controls } = this.#ask(() =>
      this.#exports.describeLayout(this.#address, screenNames.indexOf(screen)));
    return { ...(screens[0] as typeof screens[number]), name: screen, controls };
  }

  /** The texts that are visible on the surface, in reading order; labels are not included. */
  spokenTexts(screen: Screen): readonly SpokenText[] {
    return this.#ask(() => this.#exports.querySpokenTexts(this.#address, screenNames.indexOf(screen))).spoken;
  }

  /** What a screen reader announces: what has changed on the active screen since the last call. May be empty. */
  takeAnnouncement(): string {
    return this.#ask(() => this.#exports.takeAnnouncement(this.#address)).lines.join("");
  }

  // ---- For the tools that play scenarios ---------------------------------------------------------------

  /** A number in [0, 1), which the program draws after those that were given before. */
  giveRandomNumber(number: number): void {
    this.#exports.giveRandomNumber(this.#address, number);
  }

  /** `variable` is a row of `assignableVariables` in shared_variables.h. */
  setVariable(variable: number, value: number): void {
    this.#exports.setVariable(this.#address, variable, value);
  }

  /** `array` is a row of `counterArrays` in shared_variables.h, `kind` is 1 to 4. */
  setCounter(array: number, kind: number, value: number): void {
    this.#exports.setCounter(this.#address, array, kind, value);
  }

  /** The line that the command `state` of a scenario prints. */
  state(): string {
    return this.#ask(() => this.#exports.queryState(this.#address)).lines.join("");
  }

  /** The game cannot be used afterwards. */
  destroy(): void {
    this.#exports.destroyGame(this.#address);
  }

  #ask(query: () => void): Answers {
    this.answers = new Answers();
    query();
    return this.answers;
  }
}
