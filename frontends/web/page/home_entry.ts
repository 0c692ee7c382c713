// SPDX-License-Identifier: MIT

/** The browser's "back": on any screen but the home screen it closes that screen, because there is an entry of the
 * history for it; on the home screen it leaves the page. */
export class HomeEntry {
  /** A window that shows only the page has no button for it, and may close itself only while it has a single entry. */
  readonly #isOffered = matchMedia("(display-mode: browser)").matches || history.length > 1;
  #isAway = false;
  #isGoingBack = false; // by this program; the event comes later

  constructor(private readonly close: () => void) {
    window.addEventListener("popstate", () => this.#entryChanged());
  }

  /** Call it after each event. */
  follow(isAway: boolean): void {
    this.#isAway = isAway && this.#isOffered;
    this.#correctEntry();
  }

  #entryChanged(): void {
    const wasOwn = this.#isGoingBack;
    this.#isGoingBack = false;
    if (!wasOwn && this.#isAway && !isAwayEntry()) this.close();
    this.#correctEntry();
  }

  #correctEntry(): void {
    if (this.#isGoingBack || this.#isAway === isAwayEntry()) return;
    if (this.#isAway) return history.pushState("away", "");
    this.#isGoingBack = true;
    history.back();
  }
}

function isAwayEntry(): boolean { return history.state === "away"; }
