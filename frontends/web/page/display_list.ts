// SPDX-License-Identifier: MIT

/** The retained picture of a surface: the drawing operations from which it is painted at any scale. Lengths are in
 * pixels of the layout. Operations that are hidden or replaced by a later one are removed, so that the list stays
 * short. */

import { ascent, characterWidth, cssFont, lineHeight, textWidth } from "./fonts";
import type { Colour, Font, Points, Surface } from "./module";
import { Area, contains, css, grown, pixelsPerPoint, united } from "./units";

interface Drawing {
  readonly form: "text" | "segment" | "box" | "ellipse";
  /** The line box of a text; else the corners, of which those of a segment may be in any order. */
  readonly area: Area;
  readonly thickness: number;
  readonly colour: Colour;
  readonly fill: Colour | null;
  readonly text: string;
  readonly font: Font | null;
  /** What it paints on, without antialiased edges. */
  readonly ink: Area;
  /** Equal for the same shape at the same place. */
  readonly key: string;
}

/** A box that has one colour only. */
function isFlat({ form, fill, colour }: Drawing): boolean { return form === "box" && fill === colour; }

/** The same shape at the same place replaces the earlier one: painted over it, the edges of the earlier one would
 * shine through. */
function replaces(later: Drawing, earlier: Drawing): boolean {
  const covers = later.form === "box" && later.fill !== null && contains(later.ink, earlier.ink);
  return covers || later.key === earlier.key;
}

function areaOf(points: Points): Area {
  const [left, top, right, bottom] = points.map((length) => length * pixelsPerPoint) as unknown as Points;
  return { left, top, right, bottom };
}

export class DisplayList implements Surface {
  #drawings: Drawing[] = [];
  #drawn: Area | null = null;

  constructor(private background: Colour) {}

  // ---- What the program draws, in points ---------------------------------------------------------------

  drawText(left: number, top: number, text: string, font: Font, colour: Colour): void {
    if (text.trim() === "") return;
    const corner = areaOf([left, top, left, top]);
    const right = corner.left + textWidth(text, font);
    this.#add("text", { ...corner, right, bottom: corner.top + lineHeight(font) }, 0, colour, null, text, font);
  }

  /** Straight segments are boxes, whose edges are sharp. */
  drawSegment(ends: Points, thickness: number, colour: Colour): void {
    const area = areaOf(ends);
    const isStraight = Math.min(Math.abs(area.right - area.left), Math.abs(area.bottom - area.top)) < 0.5;
    this.#add(isStraight ? "box" : "segment", area, thickness, colour, isStraight ? colour : null);
  }

  drawBox(corners: Points, thickness: number, outline: Colour, fill: Colour | null): void {
    this.#add("box", areaOf(corners), thickness, outline, fill);
  }

  drawEllipse([x, y, radiusX, radiusY]: Points, thickness: number, outline: Colour, fill: Colour | null): void {
    this.#add("ellipse", areaOf([x - radiusX, y - radiusY, x + radiusX, y + radiusY]), thickness, outline, fill);
  }

  clear(background: Colour): void {
    this.background = background;
    this.#drawings = [];
    this.#drawn = null;
  }

  // ---- What the window shows ---------------------------------------------------------------------------

  /** Where something visible was drawn since the last call; null for nowhere. */
  takeDrawn(): Area | null {
    const drawn = this.#drawn;
    this.#drawn = null;
    return drawn;
  }

  /** `ratio` is device pixels per pixel of the layout; the top left corner of the surface is at `left` and `top`, in
   * device pixels of the canvas. */
  paint(context: CanvasRenderingContext2D, ratio: number, left: number, top: number): void {
    context.setTransform(1, 0, 0, 1, 0, 0);
    context.fillStyle = css(this.background);
    context.fillRect(0, 0, context.canvas.width, context.canvas.height);
    for (const drawing of this.#drawings) {
      const scale = drawing.form === "box" ? 1 : ratio;
      context.setTransform(scale, 0, 0, scale, left, top);
      if (drawing.form === "box") paintBox(context, ratio, drawing);
      else if (drawing.font) paintText(context, drawing, drawing.font);
      else paintRound(context, drawing);
    }
  }

  #add(form: Drawing["form"], area: Area, thickness: number, colour: Colour, fill: Colour | null = null, text = "",
    font: Font | null = null): void {
    const { left, top, right, bottom } = area;
    const ink = grown({ left: Math.min(left, right), top: Math.min(top, bottom), right: Math.max(left, right),
      bottom: Math.max(top, bottom) }, thickness / 2);
    const key = [form, left, top, right, bottom, thickness, fill === null, text, font?.face, font?.size].join();
    const added = { form, area, thickness, colour, fill, text, font, ink, key };
    this.#drawings = this.#drawings.filter((earlier) => !replaces(added, earlier));
    this.#drawings.push(added);
    const isErasure = (isFlat(added) || form === "text") && colour === this.background;
    if (!isErasure) this.#drawn = united(this.#drawn, ink);
  }
}

/** Character by character, at the widths that the program counts with. */
function paintText(context: CanvasRenderingContext2D, { area, text, colour }: Drawing, font: Font): void {
  context.font = cssFont(font);
  context.fillStyle = css(colour);
  const baseline = area.top + ascent(font);
  let left = area.left;
  for (const character of text) {
    if (character !== " ") context.fillText(character, left, baseline);
    left += characterWidth(character, font);
  }
}

/** In device pixels: strokes are sharp and equally thick. */
function paintBox(context: CanvasRenderingContext2D, ratio: number, box: Drawing): void {
  const thickness = Math.max(1, Math.round(box.thickness * ratio));
  const first = (pixel: number): number => Math.floor(pixel * ratio - (thickness - 1) / 2);
  const left = first(Math.min(box.area.left, box.area.right));
  const top = first(Math.min(box.area.top, box.area.bottom));
  const width = first(Math.max(box.area.left, box.area.right)) + thickness - left;
  const height = first(Math.max(box.area.top, box.area.bottom)) + thickness - top;
  if (box.fill !== null) {
    context.fillStyle = css(box.fill);
    context.fillRect(left, top, width, height);
  }
  if (isFlat(box)) return;
  context.fillStyle = css(box.colour);
  context.fillRect(left, top, width, thickness);
  context.fillRect(left, top, thickness, height);
  context.fillRect(left, top + height - thickness, width, thickness);
  context.fillRect(left + width - thickness, top, thickness, height);
}

function paintRound(context: CanvasRenderingContext2D, { form, area, thickness, colour, fill }: Drawing): void {
  const { left, top, right, bottom } = area;
  context.beginPath();
  if (form === "segment") {
    context.moveTo(left, top);
    context.lineTo(right, bottom);
  } else {
    context.ellipse((left + right) / 2, (top + bottom) / 2, Math.abs(right - left) / 2, Math.abs(bottom - top) / 2,
      0, 0, 2 * Math.PI);
  }
  if (fill !== null) {
    context.fillStyle = css(fill);
    context.fill();
  }
  context.strokeStyle = css(colour);
  context.lineWidth = thickness;
  context.lineCap = "round";
  context.stroke();
}
