// Bundles the front end: node web/build.mjs --out DIR writes index.html, app.js, app.css, editor.js and each
// of them compressed. The editor is fetched by the page when it shows code, so it does not count in the first load.
import { mkdir, readFile, writeFile } from "node:fs/promises";
import { dirname, join } from "node:path";
import { fileURLToPath } from "node:url";
import { gzipSync } from "node:zlib";
import { build } from "esbuild";

const at = process.argv.indexOf("--out");
const out = at > 0 ? process.argv[at + 1] : undefined;
if (!out) {
  console.error("usage: node web/build.mjs --out DIR");
  process.exit(2);
}
const here = dirname(fileURLToPath(import.meta.url));

async function Bundle(entry, format = "iife") {
  const result = await build({
    entryPoints: [join(here, entry)],
    bundle: true,
    minify: true,
    write: false,
    format,
    target: ["chrome114", "firefox125", "safari17"],
    // The libraries' notices stay, at the end of the file.
    legalComments: "eof",
    logLevel: "warning",
  });
  return result.outputFiles[0].contents;
}

const files = {
  "index.html": Buffer.from((await readFile(join(here, "index.html"), "utf8")).replace(/\n\s*/g, "\n")),
  "app.js": await Bundle("src/app.ts"),
  "app.css": await Bundle("app.css"),
  "editor.js": await Bundle("src/editor.ts", "esm"),
};

await mkdir(out, { recursive: true });
let total = 0;
let later = 0;
for (const [name, bytes] of Object.entries(files)) {
  const packed = gzipSync(bytes, { level: 9 });
  // The header's tenth byte names the operating system; 255 is "unknown", the same everywhere.
  packed[9] = 255;
  if (name === "editor.js") later += packed.length;
  else total += packed.length;
  await writeFile(join(out, name), bytes);
  await writeFile(join(out, `${name}.gz`), packed);
}
console.log(`front end: ${total} bytes compressed, and ${later} for the code editor`);
