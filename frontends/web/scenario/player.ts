// SPDX-License-Identifier: MIT

/** Plays the lines of a scenario on a game. */

import { ControlIndex, Game, Screen } from "../page/module";
import { Command, commandOf, Key, ScenarioError } from "./scenario";
import { layoutLines, Transcript } from "./transcript";

/** What a learner does, and time that passes. Each function returns when the program has reacted. */
export interface Hands {
  key(key: Key): void;
  /** On the active screen. */
  click(control: ControlIndex): void;
  close(): void;
  front(screen: Screen): void;
  /** Delivers each tick that becomes due, at its instant. */
  wait(milliseconds: number): void;
}

export class Player {
  #lineNumber = 0;

  /** The game has started, and `transcript` has its layouts. */
  constructor(readonly game: Game, readonly hands: Hands, readonly transcript: Transcript) {}

  /** Carries out the next line, a byte string; after the end, does nothing. Throws a ScenarioError that names the
   * line if it is malformed; nothing has happened then. */
  play(line: string): void {
    this.#lineNumber += 1;
    if (this.transcript.hasEnded) return;
    const command = this.#commandOf(line);
    if (command !== null) this.#carryOut(command);
  }

  #commandOf(line: string): Command | null {
    try {
      return commandOf(line);
    } catch (error) {
      if (!(error instanceof ScenarioError)) throw error;
      throw new ScenarioError(`line ${this.#lineNumber}: ${error.message}`);
    }
  }

  #carryOut(command: Command): void {
    const { game, hands, transcript } = this;
    switch (command.kind) {
      case "rnd": return command.numbers.forEach((number) => game.call("giveRandomNumber", number));
      case "key": return hands.key(command.key);
      case "click": return this.#click(command.control);
      case "front": return hands.front(command.screen);
      case "close": return hands.close();
      case "wait": return hands.wait(command.milliseconds);
      case "setVariable": return void game.call("setVariable", command.variable, command.value);
      case "setCounters":
        return command.values.forEach((value, index) => game.call("setCounter", command.array, index + 1, value));
      case "state": return transcript.print(game.ask("queryState"));
      case "layout": return layoutLines(transcript.layout(command.screen)).forEach(transcript.print);
    }
  }

  #click(name: string): void {
    if (this.game.active === null) return;
    const control = this.transcript.layout(this.game.active).controls.findIndex((row) => row.name === name);
    if (control >= 0) this.hands.click(control);
  }
}
