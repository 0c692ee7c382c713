// SPDX-License-Identifier: MIT

/** The page without network: keeps the files of the site, and answers from them first. A game that is running never
 * notices a new version, because its page is one file and loads nothing later. So each version takes over at once. */

export {}; // a module, so that `self` is its own

declare const self: ServiceWorkerGlobalScope;
/** SHA-256 of the page, in hexadecimal digits. */
declare const pageHash: string;

const page = "index.html";
const others = ["manifest.webmanifest", "icon-192.png"]; // which a browser may read at each start
const folder = self.registration.scope;
const prefix = `chiffrolo ${folder} `; // other folders of the same host have their own caches
const cacheName = prefix + pageHash;

async function download(file: string, cache: RequestCache): Promise<Response> {
  const response = await fetch(new URL(file, folder), { cache });
  if (!response.ok) throw new Error(`${file}: ${response.status}`);
  return response;
}

/** Fails for any other content: a login page of the network, another version. The new response forgets redirections,
 * with which a browser would not accept it. */
async function downloadPage(address: string, cache: RequestCache): Promise<Response> {
  const bytes = await (await download(address, cache)).arrayBuffer();
  const hash = new Uint8Array(await crypto.subtle.digest("SHA-256", bytes));
  const digits = Array.from(hash, (byte) => byte.toString(16).padStart(2, "0")).join("");
  if (digits !== pageHash) throw new Error(`${address}: not this version`);
  return new Response(bytes, { headers: { "Content-Type": "text/html; charset=utf-8" } });
}

/** Everything or nothing is downloaded. The folder comes first, because the browser has just loaded the page from it
 * and need not transfer it again. The second attempt bypasses what the browser keeps, for a server that takes an older
 * file for an unchanged one. */
async function keepFiles(): Promise<void> {
  const contents = await Promise.all([downloadPage("./", "no-cache").catch(() => downloadPage(page, "reload")),
    ...others.map((file) => download(file, "no-cache"))]);
  const cache = await caches.open(cacheName);
  await Promise.all([page, ...others].map((name, index) => cache.put(folder + name, contents[index]!)));
}

async function removeOldCaches(): Promise<void> {
  const names = await caches.keys();
  await Promise.all(names.filter((name) => name.startsWith(prefix) && name !== cacheName)
    .map((name) => caches.delete(name)));
}

/** From the network if the storage has been cleared or cannot be read; then the files are kept again. */
async function answer(event: FetchEvent, name: string): Promise<Response> {
  const kept = await caches.match(folder + name, { cacheName }).catch(() => undefined);
  if (!kept) event.waitUntil(keepFiles().catch(() => {}));
  return kept ?? fetch(event.request);
}

self.addEventListener("install", (event) => event.waitUntil(keepFiles().then(() => self.skipWaiting())));
self.addEventListener("activate", (event) => event.waitUntil(removeOldCaches().catch(() => {})));
self.addEventListener("fetch", (event) => {
  const { origin, pathname } = new URL(event.request.url);
  const address = origin + pathname;
  const name = address === folder ? page : [page, ...others].find((file) => address === folder + file);
  if (name && event.request.method === "GET") event.respondWith(answer(event, name));
});
