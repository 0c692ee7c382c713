// SPDX-License-Identifier: MIT

/** Two fingers zoom, and move what is zoomed; so does one. */

export type Position = Readonly<Record<"x" | "y", number>>;

/** What fingers do to what they hold: the factor by which two of them have spread, and where their middle was and is,
 * in CSS pixels. */
export type Hold = (factor: number, from: Position, to: Position) => void;

/** `hold` is called when a finger comes or goes. What it returns is called when the fingers move. */
export function followFingers(region: HTMLElement, hold: () => Hold): void {
  const fingers = new Map<number, Position>();
  const middle = (): Position => {
    const all = [...fingers.values()];
    const mean = (axis: "x" | "y"): number => all.reduce((sum, finger) => sum + finger[axis], 0) / all.length;
    return { x: mean("x"), y: mean("y") };
  };
  const spread = (): number => {
    const [one, other] = [...fingers.values()];
    return one && other ? Math.hypot(one.x - other.x, one.y - other.y) : 0;
  };
  let [held, from, spreadBefore] = [hold(), middle(), 0];
  const holdAgain = (): void => { [held, from, spreadBefore] = [hold(), middle(), spread()]; };
  region.addEventListener("pointerdown", ({ pointerId, pointerType, isPrimary, clientX, clientY }) => {
    if (pointerType !== "touch") return;
    if (isPrimary) fingers.clear(); // no other finger is down
    fingers.set(pointerId, { x: clientX, y: clientY });
    holdAgain();
  });
  region.addEventListener("pointermove", ({ pointerId, clientX, clientY }) => {
    if (!fingers.has(pointerId)) return;
    fingers.set(pointerId, { x: clientX, y: clientY });
    held(spreadBefore > 0 ? spread() / spreadBefore : 1, from, middle());
  });
  for (const end of ["pointerup", "pointercancel"] as const)
    document.addEventListener(end, ({ pointerId }) => { if (fingers.delete(pointerId)) holdAgain(); });
}
