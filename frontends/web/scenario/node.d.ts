// SPDX-License-Identifier: MIT

/** What is used of Node.js. */

declare module "node:fs" {
  export function readFileSync(path: string | URL): Uint8Array;
}

declare module "node:process" {
  const process: {
    readonly argv: readonly string[];
    readonly stdin: AsyncIterable<Uint8Array>;
    readonly stdout: {
      write(text: string): boolean;
      on(event: "error", listener: (error: Error & { readonly code?: string }) => void): void;
    };
    readonly stderr: { write(bytes: Uint8Array): boolean };
    exitCode: number;
  };
  export default process;
}
