// SPDX-License-Identifier: MIT

/** Prints a JSON list of numbers as a transcript prints them. Reads the list. */

import process from "node:process";

import { byteString } from "../../frontends/web/scenario/scenario";
import { general } from "../../frontends/web/scenario/transcript";

let input = "";
for await (const chunk of process.stdin) input += byteString(chunk);
process.stdout.write(JSON.stringify((JSON.parse(input) as readonly number[]).map(general)));
