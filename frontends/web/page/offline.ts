// SPDX-License-Identifier: MIT

/** Lets the browser keep and install the site. Does nothing for a file on a disk, a page under another name or over
 * plain HTTP, and where the browser may store nothing: what cannot work would leave errors on the console. */
export async function playOffline(): Promise<void> {
  const isSite = isSecureContext && origin.startsWith("http") && /\/(index\.html)?$/.test(location.pathname);
  if (!isSite || !navigator.cookieEnabled || !navigator.serviceWorker) return;
  const link = document.createElement("link");
  document.head.append(Object.assign(link, { rel: "manifest", href: "manifest.webmanifest" }));
  await navigator.serviceWorker.register("service-worker.js").catch(() => {}); // without room, play needs the network
}
