// Serves build/site on this machine alone, with the policy that any other server should send too.
//   node web/serve.mjs [PORT]     the next free one from there on
import { readFile } from 'node:fs/promises';
import { createServer } from 'node:http';
import { extname } from 'node:path';
import { pathToFileURL } from 'node:url';

const site = new URL('../build/site/', import.meta.url);
const TYPES = {
  '.css': 'text/css', '.html': 'text/html; charset=utf-8', '.js': 'text/javascript',
  '.svg': 'image/svg+xml', '.wasm': 'application/wasm',
};

// Names of files in one folder; nothing leads out of it.
const NAME = /^\/([a-z]+\.[a-z]+)?(\?|$)/;

async function answer(request, response) {
  try {
    const [, path = 'index.html'] = NAME.exec(request.url);
    const body = await readFile(new URL(path, site));
    const policy = await readFile(new URL('policy.txt', site), 'utf8');
    response.writeHead(200, {
      'Content-Type': TYPES[extname(path)] ?? 'text/plain',
      'Content-Security-Policy': policy.trim(),
      'X-Content-Type-Options': 'nosniff',
      'Referrer-Policy': 'no-referrer',
    });
    response.end(body);
  } catch {
    response.writeHead(404).end('Not found\n');
  }
}

// The server and its address. A port of 0 is any free one.
export function serve(port) {
  return new Promise((resolve, reject) => {
    const server = createServer(answer);
    server.once('error', (error) =>
      error.code === 'EADDRINUSE' ? resolve(serve(port + 1)) : reject(error));
    server.listen(port, '127.0.0.1', () =>
      resolve({ server, address: `http://127.0.0.1:${server.address().port}/` }));
  });
}

if (import.meta.url === pathToFileURL(process.argv[1]).href) {
  const { address } = await serve(Number(process.argv[2] ?? 8000));
  console.log(address);
}
