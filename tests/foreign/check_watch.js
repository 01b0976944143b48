// Looks at what `tavrinctl watch --json` has printed of the foreign server.
"use strict";
const assert = require("assert");
const fs = require("fs");

const lines = fs.readFileSync(process.argv[2], "utf8").split("\n").filter(Boolean).map((line) => JSON.parse(line));
const of = (item) => lines.filter((line) => line.item === item);
console.log(lines.length, "lines");
assert(of("Labor/Programm").length >= 5, "a counter that changes five times a second");
assert.strictEqual(of("Labor/Programm").at(-1).quality, 192);
assert.strictEqual(String(of("Labor/Probe.Trübung.Wert")[0].value), "2.5");
assert.strictEqual(of("Labor/Klemme_1").at(-1).quality, 4, "an item that the server does not have");
