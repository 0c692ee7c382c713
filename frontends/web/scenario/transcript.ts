// SPDX-License-Identifier: MIT

/** The transcript of a game: a line for each effect of the program, with the simple measures of the recording front
 * end, so that it is the same on every machine. */

import {
  Colour, ControlIndex, ControlLayout, Font, Game, Metrics, Platform, Points, Screen, ScreenLayout, screenNames,
  Surface, Window,
} from "../page/module";

/** As C's %g prints 0 and numbers from 0.0001 to 999,999: six significant digits, and exact ties to the even digit. */
function general(number: number): string {
  // Sixty digits are enough to tell a tie from any other single-precision number.
  const isTieAfterEven = /^-?\d\.\d{4}[02468]50*e/.test(number.toExponential(60));
  return String(Number(isTieAfterEven ? number.toExponential(6).replace("5e", "0e") : number.toExponential(5)));
}

const quoted = (text: string): string => `"${text}"`;
const colourText = (colour: Colour): string => `#${colour.toString(16).padStart(6, "0")}`;
const fillText = (fill: Colour | null): string => (fill === null ? "-" : colourText(fill));
const generals = (...numbers: readonly number[]): string => numbers.map(general).join(" ");

/** In points. The average character, in any face, is as wide as any character that is not blank. */
function characterWidth(font: Font): number {
  return Math.fround(font.size + 1) / 2;
}

const measures: Metrics = {
  textWidth: (text, font) => {
    const blanks = text.split(" ").length - 1;
    return Math.fround(([...text].length - blanks / 2) * characterWidth(font));
  },
  lineHeight: (font) => Math.fround(font.size * 1.25),
  averageCharacterWidth: characterWidth,
};

/** Prints nothing of the windows that are destroyed after the end. */
export class Transcript implements Platform {
  readonly metrics = measures;
  #hasEnded = false;
  readonly #layouts = new Map<Screen, ScreenLayout>();

  /** `print` receives each line, without its line end. */
  constructor(readonly print: (line: string) => void) {}

  get hasEnded(): boolean { return this.#hasEnded; }

  /** Call it once, before the game starts. */
  readLayouts(game: Game): void {
    for (const screen of screenNames) this.#layouts.set(screen, game.layout(screen));
  }

  layout(screen: Screen): ScreenLayout { return this.#layouts.get(screen) as ScreenLayout; }

  createWindow(screen: Screen): Window {
    this.print(`load ${screen}`);
    return new TranscriptWindow(this, this.layout(screen));
  }

  quit(): void {
    this.#hasEnded = true;
    this.print("end");
  }

  /** The same in every game. */
  randomSeed(): bigint { return 0n; }
}

class TranscriptWindow implements Window, Surface {
  readonly surface = this;

  constructor(private readonly transcript: Transcript, private readonly layout: ScreenLayout) {}

  activate(): void { this.transcript.print(`activate ${this.layout.name}`); }
  destroy(): void {
    if (!this.transcript.hasEnded) this.transcript.print(`unload ${this.layout.name}`);
  }
  contentWidth(): number { return 960; }

  drawText(left: number, top: number, text: string, font: Font, colour: Colour): void {
    this.#print("text", generals(left, top), quoted(font.face), general(font.size), colourText(colour), quoted(text));
  }
  drawSegment(ends: Points, thickness: number, colour: Colour): void {
    this.#print("segment", generals(...ends), thickness, colourText(colour));
  }
  drawBox(corners: Points, thickness: number, outline: Colour, fill: Colour | null): void {
    this.#print("box", generals(...corners), thickness, colourText(outline), fillText(fill));
  }
  drawEllipse(centreAndRadii: Points, thickness: number, outline: Colour, fill: Colour | null): void {
    this.#print("ellipse", generals(...centreAndRadii), thickness, colourText(outline), fillText(fill));
  }
  clear(): void { this.#print("clear"); }

  setVisible(image: ControlIndex, isVisible: boolean): void {
    this.#print(isVisible ? "show" : "hide", this.#nameOf(image));
  }
  setCaption(label: ControlIndex, caption: string): void {
    this.#print("caption", this.#nameOf(label), quoted(caption));
  }
  timerStarted(timer: ControlIndex, milliseconds: number): void {
    this.#print("timer", this.#nameOf(timer), "on", milliseconds);
  }
  timerStopped(timer: ControlIndex): void { this.#print("timer", this.#nameOf(timer), "off"); }

  #nameOf(control: ControlIndex): string { return this.layout.controls[control]?.name ?? ""; }

  #print(...words: readonly (string | number)[]): void {
    this.transcript.print([this.layout.name, ...words].join(" "));
  }
}

// ---- Layouts ---------------------------------------------------------------------------------------------

/** A line for the screen, then one for each of its controls. */
export function layoutLines({ name, caption, frame, font, background, controls }: ScreenLayout): readonly string[] {
  const screen = ["screen", quoted(caption), frame, fontText(font), colourText(background)];
  const rows = [screen, ...controls.map((row) => [row.kind, row.name, ...properties(row)])];
  return rows.map((words) => ["layout", name, ...words].join(" "));
}

function fontText({ face, size, style }: Font): string {
  return `${quoted(face)} ${general(size)} ${style & 2 ? "italic" : style & 1 ? "bold" : "regular"}`;
}

/** What follows the name of the control. */
function properties(row: ControlLayout): readonly (string | number)[] {
  const { left, top, width, height } = row.place;
  const place = [left, top, width, height].join(" ");
  const foreground = colourText(row.foreground);
  const background = colourText(row.background);
  switch (row.kind) {
    case "label":
      return [place, quoted(row.caption), fontText(row.font), foreground, background,
        row.alignment, row.border];
    case "button": return [place, quoted(row.caption), fontText(row.font), quoted(row.tooltip)];
    case "image": return [place, row.picture, row.visible];
    case "line": return [place, foreground];
    case "shape": return [place, foreground, background];
    case "pictureBox": return [place, row.picture, background];
    case "timer": return [row.enabled, row.interval];
  }
}
