// SPDX-License-Identifier: MIT

/** Plays many scenarios at once, each on a game of its own, all in one instance of the module: one line of each in
 * turn. Reads a JSON list of scenarios; prints a JSON list of transcripts, each a list of lines, with the message about
 * a malformed line. Scenarios and messages are byte strings.
 * Usage: interleaved MODULE */

import { readFileSync } from "node:fs";
import process from "node:process";

import { Module } from "../../frontends/web/page/module";
import { startPlayer } from "../../frontends/web/scenario/direct";
import { byteString, linesOf, ScenarioError } from "../../frontends/web/scenario/scenario";

/** Playing has stopped when there are no lines left. */
class Session {
  readonly transcript: string[] = [];
  message = "";
  readonly #player;

  constructor(module: Module, private lines: readonly string[]) {
    this.#player = startPlayer(module, (line) => this.transcript.push(line));
  }

  /** False if there is none. */
  playNextLine(): boolean {
    const [line, ...others] = this.lines;
    if (line === undefined) return false;
    this.lines = others;
    try {
      this.#player.play(line);
    } catch (error) {
      if (!(error instanceof ScenarioError)) throw error;
      this.message = `${error.message}\n`;
      this.lines = [];
    }
    return true;
  }
}

let input = "";
for await (const chunk of process.stdin) input += byteString(chunk);
const module = await Module.create(new WebAssembly.Module(readFileSync(process.argv[2] ?? "")));
const scenarios = JSON.parse(input) as readonly string[]; // in ASCII, as Python writes it
const sessions = scenarios.map((scenario) => new Session(module, linesOf(scenario)));
for (let playing = sessions; playing.length > 0;) playing = playing.filter((session) => session.playNextLine());
process.stdout.write(JSON.stringify(sessions.map(({ transcript, message }) => ({ transcript, message }))));
