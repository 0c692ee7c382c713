// SPDX-License-Identifier: MIT

/** The faces that travel with the page, and the widths of their characters. Text is not measured in the browser:
 * engines round differently. Lengths are in pixels of the layout, those of `metrics` in points. */

import table from "../../../build/web/fonts/font_table.json";
import sansBold from "../../../build/web/fonts/sans-bold.woff2";
import sansRegular from "../../../build/web/fonts/sans-regular.woff2";
import script from "../../../build/web/fonts/script.woff2";
import serifBold from "../../../build/web/fonts/serif-bold.woff2";
import type { Font, Metrics } from "./module";
import { pixelsPerPoint, Size } from "./units";

/** As packaging/web_fonts.py writes it, in units of the face. `advances` has the characters of each width. */
export type FontTable = Readonly<Record<string, Readonly<Record<FaceMetric, number>> & {
  readonly advances: Readonly<Record<string, string>>;
}>>;
type FaceMetric = "unitsPerEm" | "ascent" | "descent" | "averageWidth";

/** In ems. */
class Face {
  readonly ascent: number;
  readonly lineHeight: number;
  readonly averageWidth: number;
  readonly #widths = new Map<string, number>();

  constructor(readonly family: string, readonly weight: "normal" | "bold", name: string, readonly file: Uint8Array) {
    const { unitsPerEm, ascent, descent, averageWidth, advances } = table[name] as FontTable[string];
    this.ascent = ascent / unitsPerEm;
    this.lineHeight = (ascent + descent) / unitsPerEm;
    this.averageWidth = averageWidth / unitsPerEm;
    for (const [advance, characters] of Object.entries(advances))
      for (const character of characters) this.#widths.set(character, Number(advance) / unitsPerEm);
  }

  /** A character that the face lacks is drawn in another one, and counted as an average one. */
  width(character: string): number { return this.#widths.get(character) ?? this.averageWidth; }
}

const serif = new Face("Chiffrolo Serif", "bold", "serif-bold", serifBold);
const sans = new Face("Chiffrolo Sans", "normal", "sans-regular", sansRegular);
const sansOfTitles = new Face("Chiffrolo Sans", "bold", "sans-bold", sansBold);
const handwriting = new Face("Chiffrolo Script", "normal", "script", script); // slanted by design

/** By the name that the program asks for, in lower case. All others are sans serif. */
const faces: Readonly<Record<string, Face>> =
  { "times new roman": serif, "times": serif, "brush script mt": handwriting };

function faceOf({ face, style }: Font): Face {
  return faces[face.toLowerCase()] ?? (style & 1 ? sansOfTitles : sans);
}

function em(font: Font): number { return font.size * pixelsPerPoint; }

/** Fails if the browser cannot read one of them. */
export async function loadFaces(): Promise<void> {
  await Promise.all([serif, sans, sansOfTitles, handwriting].map(async ({ family, weight, file }) => {
    document.fonts.add(await new FontFace(family, file, { weight }).load());
  }));
  smallestSize = measuredSize();
}

/** In CSS pixels: browsers have a setting below which no text of the page is. */
let smallestSize = 0;

/** The size that a text of one pixel gets. */
function measuredSize(): number {
  const probe = Object.assign(document.createElement("span"), { textContent: "0".repeat(100) });
  probe.style.cssText = `position: absolute; font: 1px "${sans.family}"; text-rendering: geometricPrecision`;
  document.body.append(probe);
  const { width } = probe.getBoundingClientRect();
  probe.remove();
  return width / (100 * sans.width("0"));
}

/** How many times larger than it shall be the browser makes a text. */
export function enlargement(font: Font, scale: number): number {
  return Math.max(1, smallestSize / (em(font) * scale));
}

/** For the canvas and the style sheet; `scale` is CSS pixels per pixel of the layout. */
export function cssFont(font: Font, scale = 1): string {
  const { family, weight } = faceOf(font);
  return `${weight} ${em(font) * scale}px "${family}"`;
}

export function characterWidth(character: string, font: Font): number {
  return faceOf(font).width(character) * em(font);
}

/** Without kerning, so that digits stand below each other. */
export function textWidth(text: string, font: Font): number {
  const face = faceOf(font);
  let sum = 0;
  for (const character of text) sum += face.width(character);
  return sum * em(font);
}

export function lineHeight(font: Font): number { return faceOf(font).lineHeight * em(font); }

/** Whole pixels above and below the baseline. */
export function captionLineHeight(font: Font): number {
  return Math.ceil(ascent(font)) + Math.ceil(lineHeight(font) - ascent(font));
}

/** From the top of a line to its baseline. */
export function ascent(font: Font): number { return faceOf(font).ascent * em(font); }

export const metrics: Metrics = {
  textWidth: (text, font) => textWidth(text, font) / pixelsPerPoint,
  lineHeight: (font) => lineHeight(font) / pixelsPerPoint,
  averageCharacterWidth: (font) => faceOf(font).averageWidth * font.size,
};

/** The font of a caption, in whole pixels, or the largest smaller one in which the caption, wrapped between words, fits
 * into the room. */
export function captionFont(font: Font, caption: string, room: Size): Font {
  const smallest = 6; // smaller text cannot be read
  for (let size = Math.max(smallest, Math.round(em(font))); ; --size) {
    const candidate = { ...font, size: size / pixelsPerPoint };
    if (size === smallest || fits(candidate, caption, room)) return candidate;
  }
}

function fits(font: Font, caption: string, room: Size): boolean {
  let lines = 1;
  let used = 0;
  for (const word of caption.trim().split(" ")) {
    const width = textWidth(word, font);
    if (width > room.width) return false;
    const continued = used === 0 ? width : used + textWidth(" ", font) + width;
    lines += continued > room.width ? 1 : 0;
    used = continued > room.width ? width : continued;
  }
  return lines * lineHeight(font) <= room.height;
}
