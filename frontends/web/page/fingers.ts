// SPDX-License-Identifier: MIT

/** Two fingers zoom, and move what is zoomed; so does one. */

type Position = Readonly<Record<"x" | "y", number>>;

/** `zoom` and `pan` get a factor and a point, and a way, in CSS pixels. */
export function followFingers(region: HTMLElement, zoom: (factor: number, at: Position) => void,
  pan: (way: Position) => void): void {
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
  region.addEventListener("pointerdown", ({ pointerId, pointerType, clientX, clientY }) => {
    if (pointerType === "touch") fingers.set(pointerId, { x: clientX, y: clientY });
  });
  region.addEventListener("pointermove", ({ pointerId, clientX, clientY }) => {
    if (!fingers.has(pointerId)) return;
    const [middleBefore, spreadBefore] = [middle(), spread()];
    fingers.set(pointerId, { x: clientX, y: clientY });
    const at = middle();
    pan({ x: middleBefore.x - at.x, y: middleBefore.y - at.y });
    if (spreadBefore > 0) zoom(spread() / spreadBefore, at);
  });
  for (const end of ["pointerup", "pointercancel"] as const)
    region.addEventListener(end, ({ pointerId }) => void fingers.delete(pointerId));
}
