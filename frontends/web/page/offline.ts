// SPDX-License-Identifier: MIT

/** Lets the browser keep and install the site. Does nothing for a file on a disk, a page under another name or over plain
 * HTTP, and where the learner's browser stores nothing: what cannot work would leave errors on the console. */
export async function playOffline(): Promise<void> {
  const isSite = isSecureContext && origin.startsWith("http") && /\/(index\.html)?$/.test(location.pathname);
  if (!isSite || !navigator.cookieEnabled || !navigator.serviceWorker) return;
  document.head.append(Object.assign(document.createElement("link"), { rel: "manifest", href: "manifest.webmanifest" }));
  await navigator.serviceWorker.register("service-worker.js").catch(() => {}); // without room, play needs the network
}
