// SPDX-License-Identifier: MIT

/** The controls of a screen as HTML elements: buttons and images that can be pressed, labels, and decoration. */

import arrow from "../../../assets/fleche.png";
import arrowDrawing from "../../../assets/fleche.svg";
import stop from "../../../assets/arret.png";
import stopDrawing from "../../../assets/arret.svg";
import farewell from "../../../assets/aurevoir.svg";
import { captionFont, captionLineHeight, cssFont, enlargement } from "./fonts";
import type { ControlLayout } from "./module";
import { Area, css, pixelsPerTwip } from "./units";

/** The size as designed, and the sources: the picture of that size, and the one for all others. */
const pictures = {
  arrow: { side: 32, designed: arrow, drawing: arrowDrawing },
  stop: { side: 32, designed: stop, drawing: stopDrawing },
  farewell: { side: 30, designed: farewell, drawing: farewell },
};

const roomForRing = 8; // pixels that the focus ring takes from the width and the height of a button

export class Control {
  readonly element: HTMLElement;
  readonly #picture: HTMLImageElement | null = null;

  constructor(readonly row: ControlLayout) {
    const isPressed = row.kind === "button" || row.kind === "image";
    this.element = document.createElement(isPressed ? "button" : "div");
    this.element.className = row.kind;
    if (row.kind === "button" || row.kind === "label") this.element.textContent = row.caption;
    else if (row.accessibleName !== "") this.element.setAttribute("aria-label", row.accessibleName);
    if (row.kind === "pictureBox") this.element.setAttribute("role", "img");
    if (row.tooltip !== "") this.element.title = row.tooltip;
    if (row.kind === "image") this.element.tabIndex = -1; // never takes the focus
    if (row.picture !== "none")
      this.#picture = this.element.appendChild(Object.assign(new Image(), { alt: "", draggable: false }));
    this.element.hidden = row.visible === "hidden";
  }

  /** In pixels of the layout. */
  get area(): Area {
    const { left, top, width, height } = this.row.place;
    const [right, bottom] = [left + width, top + height];
    return { left: left * pixelsPerTwip, top: top * pixelsPerTwip, right: right * pixelsPerTwip,
      bottom: bottom * pixelsPerTwip };
  }

  /** Places the control at `scale` CSS pixels per pixel of the layout. Both edges lie between device pixels, so that
   * controls that touch in the layout touch on the screen. */
  place(scale: number, pixelRatio: number): void {
    const { left, top, right, bottom } = this.area;
    const edge = (pixel: number): number => Math.round(pixel * scale * pixelRatio) / pixelRatio;
    const stroke = Math.max(1, Math.round(scale * pixelRatio)) / pixelRatio; // one pixel of the layout
    const end = this.row.kind === "line" ? stroke : 0; // a line includes both of its end points
    const { style } = this.element;
    style.left = `${edge(left)}px`;
    style.top = `${edge(top)}px`;
    const enlarged = this.row.caption === "" ? 1 : this.#scaleText(style, scale);
    style.width = `${(edge(right) - edge(left) + end) * enlarged}px`;
    style.height = `${(edge(bottom) - edge(top) + end) * enlarged}px`;
    style.transform = enlarged === 1 ? "" : `scale(${1 / enlarged})`;
    this.#colour(style, stroke * enlarged);
    if (this.#picture) this.#scalePicture(this.#picture, scale, pixelRatio);
  }

  /** Labels and decoration have the colours of the layout; buttons have those of the browser. */
  #colour(style: CSSStyleDeclaration, stroke: number): void {
    const { kind, foreground, background, border, alignment } = this.row;
    if (kind === "button" || kind === "image") return;
    style.color = css(foreground);
    style.background = css(kind === "line" ? foreground : background);
    if (kind === "shape" || border === "thin") style.border = `${stroke}px solid ${css(foreground)}`;
    style.textAlign = alignment === "centred" ? "center" : "left";
  }

  /** Gives the text a font in which it fits, and returns its `enlargement`. */
  #scaleText(style: CSSStyleDeclaration, scale: number): number {
    const { font, kind, border } = this.row;
    const { left, top, right, bottom } = this.area;
    const lost = kind === "button" ? roomForRing : border === "thin" ? 2 : 0;
    const room = { width: right - left - lost, height: bottom - top - lost };
    const fitting = captionFont(font, this.element.textContent ?? "", room);
    style.font = cssFont(fitting, scale);
    const enlarged = enlargement(fitting, scale);
    style.lineHeight = `${captionLineHeight(fitting) * scale * enlarged}px`;
    return enlarged;
  }

  #scalePicture(picture: HTMLImageElement, scale: number, pixelRatio: number): void {
    if (this.row.picture === "none") return;
    const known = pictures[this.row.picture];
    const devicePixels = Math.round(known.side * scale * pixelRatio);
    const source = devicePixels === known.side ? known.designed : known.drawing;
    if (picture.src !== source) picture.src = source;
    picture.style.width = picture.style.height = `${devicePixels / pixelRatio}px`;
  }
}
