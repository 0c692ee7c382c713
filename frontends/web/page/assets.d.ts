// SPDX-License-Identifier: MIT

// What the bundler makes of files that are not TypeScript: their bytes, or a data URL.

declare module "*.gz" { const bytes: Uint8Array; export default bytes; }
declare module "*.woff2" { const bytes: Uint8Array; export default bytes; }
declare module "*.png" { const address: string; export default address; }
declare module "*.svg" { const address: string; export default address; }
declare module "*/font_table.json" { const table: import("./fonts").FontTable; export default table; }

/** TypeScript 4.8 does not declare it. */
declare class DecompressionStream implements ReadableWritablePair<Uint8Array, Uint8Array> {
  constructor(format: "gzip");
  readonly readable: ReadableStream<Uint8Array>;
  readonly writable: WritableStream<Uint8Array>;
}
