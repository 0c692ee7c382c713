// SPDX-License-Identifier: MIT

/** Starts the game, and says what to do when it cannot start or go on. */

import moduleBytes from "../../../build/web/chiffrolo.wasm.gz";
import { loadFaces } from "./fonts";
import { Module } from "./module";
import { playOffline } from "./offline";
import { Page } from "./page";

const region = document.getElementById("game") as HTMLElement;
const announcer = document.getElementById("announcer") as HTMLElement;
const notice = document.getElementById("notice") as HTMLElement;

async function loadModule(): Promise<Module> {
  const unpacked = new Blob([moduleBytes]).stream().pipeThrough(new DecompressionStream("gzip"));
  return Module.create(await WebAssembly.compile(await new Response(unpacked).arrayBuffer()));
}

/** In place of the game. */
function say(words: string): void {
  const again = document.createElement("button");
  again.textContent = "Recommencer";
  again.addEventListener("click", () => location.reload());
  const sentence = document.createElement("p");
  sentence.textContent = words;
  notice.replaceChildren(sentence, again);
  notice.className = "";
  region.hidden = true;
  region.before(notice);
  again.focus();
}

async function start(): Promise<void> {
  const [module] = await Promise.all([loadModule(), loadFaces()]);
  const page = new Page(module, region, announcer, () => {
    say("Au revoir");
    window.close(); // allowed for a window that a script opened or that has a single entry in its history
  }, (error) => {
    console.error(error);
    say("Chiffrolo s’est arrêté à cause d’une erreur. Tu peux recommencer.");
  });
  region.hidden = false;
  page.start();
  if (region.hidden) return; // the start has failed, and the notice says so
  notice.remove();
  void playOffline();
}

start().catch((error) => {
  console.error(error);
  region.hidden = true;
  notice.className = ""; // its sentence says what to do
});
