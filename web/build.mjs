// Builds the site in build/site, where the module already is.
import { createHash } from 'node:crypto';
import { copyFile, mkdir, readFile, writeFile } from 'node:fs/promises';

import { build } from 'esbuild';

import { renderBook } from './book.mjs';

const root = new URL('../', import.meta.url);
const site = new URL('build/site/', root);

const read = (path) => readFile(new URL(path, root), 'utf8');
const write = (path, text) => writeFile(new URL(path, site), text);

const OPTIONS = {
  absWorkingDir: root.pathname,
  outdir: 'build/site',
  bundle: true,
  minify: true,
  format: 'esm',
  target: 'es2022',
  logLevel: 'warning',
};

// The scripts of pages share the editor. The Worker is a script of its own that imports nothing.
async function bundle() {
  await build({
    ...OPTIONS, entryPoints: ['web/src/main.js', 'web/src/book.js'], splitting: true,
    chunkNames: 'shared',
  });
  await build({ ...OPTIONS, entryPoints: ['web/src/worker.js', 'web/src/style.css'] });
}

// The editor brings style sheets of its own, which the page allows by this word. It is made of the
// bundles, so that the same sources make the same site.
async function makeNonce() {
  const hash = createHash('sha256');
  for (const name of ['main.js', 'book.js', 'shared.js']) hash.update(await readFile(new URL(name, site)));
  return hash.digest('base64url').slice(0, 24);
}

function policyWith(nonce) {
  return [
    "default-src 'none'", "script-src 'self' 'wasm-unsafe-eval'", "worker-src 'self'",
    `style-src 'self' 'nonce-${nonce}'`, "img-src 'self'", "connect-src 'self'", "base-uri 'none'",
    "form-action 'none'",
  ].join('; ');
}

// Each page is the frame with a title, a script and a body.
async function writePages(policy, nonce) {
  const frame = await read('web/src/frame.html');
  const fill = (values) => frame.replace(/\{\{(\w+)\}\}/g, (_, key) => values[key] ?? '');
  const pages = [
    { file: 'index.html', title: 'A page to calculate on', script: 'main.js', kind: 'desk',
      body: await read('web/src/notepad.html') },
    { file: 'tutorial.html', title: 'Ten minutes with mirlow', script: 'book.js', kind: 'book',
      body: renderBook(await read('docs/tutorial.md')) },
    { file: 'language.html', title: 'The language', script: 'book.js', kind: 'book',
      body: renderBook(await read('docs/language.md')) },
  ];
  for (const page of pages) {
    const here = { 'index.html': 'home', 'tutorial.html': 'tutorial', 'language.html': 'language' };
    const current = { [here[page.file]]: 'aria-current="page"' };
    await write(page.file, fill({ ...page, ...current, policy, nonce }));
  }
}

await mkdir(site, { recursive: true });
await copyFile(new URL('web/src/icon.svg', root), new URL('icon.svg', site));
await bundle();
const nonce = await makeNonce();
const policy = policyWith(nonce);
await write('policy.txt', `${policy}; frame-ancestors 'none'\n`);
await writePages(policy, nonce);
