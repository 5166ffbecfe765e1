// The server of the site: its files, its headers, and nothing else.
import assert from 'node:assert/strict';
import { request } from 'node:http';
import { after, before, test } from 'node:test';

import { serve } from '../serve.mjs';

let site;
before(async () => {
  site = await serve(0);
});
after(() => site.server.close());

// Not fetch, which tidies a path up before it is asked for.
const ask = (path) => new Promise((resolve, reject) => {
  const { port } = site.server.address();
  request({ port, path, host: '127.0.0.1', agent: false }, (answer) => {
    answer.resume();
    answer.on('end', () => resolve(answer));
  }).on('error', reject).end();
});

test('pages, scripts and the module have their types', async () => {
  const rows = [
    ['/', 'text/html; charset=utf-8'],
    ['/?', 'text/html; charset=utf-8'],
    ['/tutorial.html', 'text/html; charset=utf-8'],
    ['/worker.js', 'text/javascript'],
    ['/mirlow.wasm', 'application/wasm'],
  ];
  for (const [path, type] of rows) {
    const { statusCode, headers } = await ask(path);
    assert.deepEqual([statusCode, headers['content-type']], [200, type], path);
  }
});

test('the policy forbids all but what is ours', async () => {
  const policy = (await ask('/')).headers['content-security-policy'];
  assert.match(policy, /^default-src 'none'; /);
  assert.doesNotMatch(policy, /unsafe-inline|'unsafe-eval'|https?:|\*/);
});

test('nothing else is there', async () => {
  for (const path of ['/missing.html', '/../README.md', '/..%2f..%2fREADME.md', '//etc/passwd',
    '/.npmrc', '/%', '/tutorial.html/..']) {
    assert.equal((await ask(path)).statusCode, 404, path);
  }
});
