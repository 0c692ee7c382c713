// SPDX-License-Identifier: MIT

/** Plays the scenario on standard input with the module beside this file, and prints every effect that the program
 * has. Exit status 2 means a malformed line, which standard error names by its number. */

import { readFileSync } from "node:fs";
import process from "node:process";

import { Module } from "../page/module";
import { startPlayer } from "./direct";
import { byteString, bytesOf, linesOf, ScenarioError } from "./scenario";

const flushedLength = 65536;
let unwritten = "";

function flush(): void {
  process.stdout.write(unwritten);
  unwritten = "";
}

function print(line: string): void {
  unwritten += `${line}\n`;
  if (unwritten.length > flushedLength) flush();
}

// The reader may close the pipe before it has read everything.
process.stdout.on("error", (error) => {
  if (error.code !== "EPIPE") throw error;
});

let scenario = "";
for await (const chunk of process.stdin) scenario += byteString(chunk);
try {
  const compiled = new WebAssembly.Module(readFileSync(new URL("chiffrolo.wasm", import.meta.url)));
  const player = startPlayer(await Module.create(compiled), print);
  for (const line of linesOf(scenario)) player.play(line);
} catch (error) {
  if (!(error instanceof ScenarioError)) throw error;
  flush();
  process.stderr.write(bytesOf(`${error.message}\n`));
  process.exitCode = 2; // not `exit`, which might lose output that is still unwritten
} finally {
  flush();
}
