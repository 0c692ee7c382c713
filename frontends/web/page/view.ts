// SPDX-License-Identifier: MIT

/** Which part of a screen is shown, and at which scale. The minimum content area fills the room; zoomed in, the screen
 * may be larger than the room, which then shows a part of it and follows what is drawn and what gets the focus. */

import type { Hold } from "./fingers";
import type { ZoomStep } from "./keys";
import { Area, clamp, Size, united } from "./units";

export const largestZoom = 3;
const levels = [1, 1.1, 1.25, 1.5, 1.75, 2, 2.5, largestZoom];

/** The zoom factor after a step. */
export function zoomed(factor: number, step: ZoomStep): number {
  if (step === "normal") return 1;
  const further = levels.filter((level) => (step === "larger" ? level > factor : level < factor));
  return (step === "larger" ? further[0] : further[further.length - 1]) ?? factor;
}

/** Along one axis: the new start of a view of length `shown`, now at `start`, that shows `from` to `to`; or only `from`
 * if both do not fit. */
function startToShow(from: number, to: number, start: number, shown: number): number {
  return Math.min(from, Math.max(start, to - shown));
}

export class View {
  /** The top left corner of the visible part, in pixels of the layout. */
  left = 0;
  top = 0;
  #room: Size = { width: 1, height: 1 };
  #zoom = 1;
  #image: Area | null = null; // became visible since the view last followed
  #revealed: Area | null = null; // the area that was last made visible

  /** In pixels of the layout. */
  constructor(private readonly minimum: Size) {}

  /** CSS pixels per pixel of the layout. */
  get scale(): number { return this.#fitScale * this.#zoom; }

  /** In pixels of the layout. The zoom does not change it. */
  get contentWidth(): number { return Math.max(this.minimum.width, this.#room.width / this.#fitScale); }

  /** `room` is in CSS pixels. */
  arrange(room: Size, zoom: number): void {
    this.#room = { width: Math.max(1, room.width), height: Math.max(1, room.height) };
    this.#zoom = zoom;
    this.#panTo(this.left, this.top);
    if (this.#revealed) this.reveal(this.#revealed);
  }

  goToTopLeft(): void {
    this.#revealed = null;
    this.#panTo(0, 0);
  }

  /** By CSS pixels, as the learner asks for. */
  panBy(x: number, y: number): void {
    this.#revealed = null;
    this.#panTo(this.left + x / this.scale, this.top + y / this.scale);
  }

  /** The fingers keep what they hold, after the zoom has grown by their factor. */
  hold(): Hold {
    const { left, top, scale } = this;
    return (factor, from, to) => {
      this.#revealed = null;
      this.#panTo(left + (from.x - to.x / factor) / scale, top + (from.y - to.y / factor) / scale);
    };
  }

  #panTo(left: number, top: number): void {
    const shown = this.#shown;
    this.left = clamp(left, 0, Math.max(0, this.minimum.width - shown.width));
    this.top = clamp(top, 0, Math.max(0, this.minimum.height - shown.height));
  }

  reveal(area: Area): void {
    const margin = 8;
    const shown = this.#shown;
    this.#revealed = area;
    this.#panTo(startToShow(area.left - margin, area.right + margin, this.left, shown.width),
      startToShow(area.top - margin, area.bottom + margin, this.top, shown.height));
  }

  /** An image became visible there, or none any more. */
  imageChanged(area: Area | null): void { this.#image = area; }

  /** After an event that drew on `drawn`. A tick alone moves the view only if an image became visible: a clock must not
   * move the view away from the answer. */
  follow(drawn: Area | null, cause: "learner" | "tick"): void {
    const image = this.#image;
    this.#image = null;
    if (cause === "tick" && image === null) return;
    const both = united(drawn, image);
    const hasRoom = both !== null && both.right - both.left <= this.#shown.width &&
      both.bottom - both.top <= this.#shown.height;
    const area = hasRoom || drawn === null ? both : drawn;
    if (area) this.reveal(area);
  }

  /** The scale at which the minimum content area just fits. */
  get #fitScale(): number {
    return Math.min(this.#room.width / this.minimum.width, this.#room.height / this.minimum.height);
  }

  get #shown(): Size { return { width: this.#room.width / this.scale, height: this.#room.height / this.scale }; }
}
