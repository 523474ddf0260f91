// SPDX-License-Identifier: MIT
//
// Bundles the page: build.mjs MADE PACKAGES OUTPUT, of the folder with vaprix_page.wasm and catalogue.json and the one
// where npm has installed.
import { copyFileSync, mkdirSync, readFileSync, rmSync, writeFileSync } from "node:fs";
import { createRequire } from "node:module";
import { dirname, resolve } from "node:path";
import { fileURLToPath } from "node:url";

const page = resolve(dirname(fileURLToPath(import.meta.url)), "page");
const [made, packages, output] = process.argv.slice(2).map((folder) => resolve(folder));
const { build } = createRequire(`${packages}/package.json`)("esbuild");

rmSync(output, { recursive: true, force: true });
mkdirSync(output, { recursive: true });
const options = { bundle: true, minify: true, target: "es2020", logLevel: "warning", legalComments: "eof" };
const { metafile } = await build({
    ...options,
    metafile: true,
    entryPoints: [`${page}/main.js`],
    outfile: `${output}/vaprix.js`,
    format: "iife",
    nodePaths: [`${packages}/node_modules`],
    loader: { ".wasm": "binary" },
    alias: { "vaprix.wasm": `${made}/vaprix_page.wasm`, "catalogue.json": `${made}/catalogue.json` },
});
await build({ ...options, entryPoints: [`${page}/style.css`], outfile: `${output}/vaprix.css` });
copyFileSync(`${page}/index.html`, `${output}/index.html`);

// The licences of all that is in the bundle.
const bundled = new Set(Object.keys(metafile.inputs).map((file) => /node_modules\/([^/]+)/.exec(file)?.[1]).filter(Boolean));
const licences = [["VAPRIX", resolve(page, "../../../LICENSE")], ...[...bundled].sort()
    .map((name) => [name, `${packages}/node_modules/${name}/LICENSE`])];
writeFileSync(`${output}/LICENSES.txt`, licences.map(([name, file]) => `${name}\n\n${readFileSync(file, "utf8")}`).join("\n\n"));
