// SPDX-License-Identifier: MIT

/** Plays without a page: events go directly to the game, and the clock stands still except while the player waits. */

import { ControlIndex, Game, Module, Screen } from "../page/module";
import { Hands, Player } from "./player";
import { Key } from "./scenario";
import { Transcript } from "./transcript";

class DirectHands implements Hands {
  #now = 0;

  constructor(readonly game: Game) {}

  key({ code, character }: Key): void { this.game.key(this.#now, code, character); }

  click(control: ControlIndex): void { this.game.click(this.#now, control); }

  close(): void { this.game.close(this.#now); }

  front(screen: Screen): void { this.game.front(this.#now, screen); }

  wait(milliseconds: number): void {
    const end = this.#now + milliseconds;
    while (this.game.nextDue() <= end) {
      this.#now = this.game.nextDue();
      this.game.deliverDueTicks(this.#now);
    }
    this.#now = end;
  }
}

/** Starts a game of its own. `print` receives the transcript line by line. */
export function startPlayer(module: Module, print: (line: string) => void): Player {
  const transcript = new Transcript(print);
  const game = module.createGame(transcript);
  transcript.readLayouts(game);
  game.start(0);
  return new Player(game, new DirectHands(game), transcript);
}
