// SPDX-License-Identifier: MIT

/** Pixels of the layout: 96 per inch. A scale is CSS pixels per pixel of the layout. */
export const pixelsPerPoint = 96 / 72;
export const pixelsPerTwip = pixelsPerPoint / 20;

export type Size = Readonly<Record<"width" | "height", number>>;

/** `right` and `bottom` are past the last pixel. */
export type Area = Readonly<Record<"left" | "top" | "right" | "bottom", number>>;

export function united(one: Area | null, other: Area | null): Area | null {
  if (one === null || other === null) return one ?? other;
  return { left: Math.min(one.left, other.left), top: Math.min(one.top, other.top),
    right: Math.max(one.right, other.right), bottom: Math.max(one.bottom, other.bottom) };
}

export function contains(outer: Area, inner: Area): boolean {
  return outer.left <= inner.left && outer.top <= inner.top && outer.right >= inner.right &&
    outer.bottom >= inner.bottom;
}

export function grown({ left, top, right, bottom }: Area, margin: number): Area {
  return { left: left - margin, top: top - margin, right: right + margin, bottom: bottom + margin };
}

export function clamp(value: number, lowest: number, highest: number): number {
  return Math.max(lowest, Math.min(value, highest));
}

/** For the style sheet and the canvas. */
export function css(colour: number): string { return "#" + colour.toString(16).padStart(6, "0"); }
