// A browser on the built site, for tests.
import assert from 'node:assert/strict';
import { execFileSync } from 'node:child_process';

import puppeteer from 'puppeteer-core';

import { serve } from '../serve.mjs';

function findBrowser() {
  const name = process.env.CHROMIUM ?? 'chromium';
  return execFileSync('/bin/sh', ['-c', 'command -v "$1"', 'sh', name], { encoding: 'utf8' }).trim();
}

export async function start() {
  const { server, address } = await serve(0);
  // Without a sandbox: the only pages are our own, and the sandbox does not start for root.
  const browser = await puppeteer.launch({
    executablePath: findBrowser(), headless: true,
    args: ['--no-sandbox', '--disable-dev-shm-usage', '--disable-gpu', '--disable-lcd-text'],
  });
  return {
    address,
    browser,
    async stop() {
      await browser.close();
      server.close();
      server.closeAllConnections();
    },
  };
}

// A page in a context of its own, with an empty storage. Collects what must not be: errors of
// scripts, messages of the policy, and requests to other hosts.
export async function openPage({ browser, address }, path = '', options = {}) {
  const context = await browser.createBrowserContext();
  const page = await context.newPage();
  await page.setViewport({ width: options.width ?? 1100, height: options.height ?? 720 });
  if (options.dark) {
    await page.emulateMediaFeatures([{ name: 'prefers-color-scheme', value: 'dark' }]);
  }
  page.troubles = [];
  page.on('pageerror', (error) => page.troubles.push(String(error)));
  page.on('console', (message) => {
    if (['error', 'warn'].includes(message.type())) page.troubles.push(message.text());
  });
  page.on('request', (request) => {
    if (!/^(data|blob):/.test(request.url()) && !request.url().startsWith(address)) {
      page.troubles.push(`a request to ${request.url()}`);
    }
  });
  await page.goto(address + path);
  await page.waitForSelector('.cm-content');
  return page;
}

// Closes it and asserts that there was no trouble.
export async function closePage(page) {
  const { troubles } = page;
  await page.browserContext().close();
  assert.deepEqual(troubles, []);
}

// A page whose notepad has that text.
export const openText = (site, text, options) =>
  openPage(site, `#${encodeURIComponent(text)}`, options);

// Presses the last key while the others are held.
export async function press(page, ...keys) {
  const held = keys.slice(0, -1);
  for (const key of held) await page.keyboard.down(key);
  await page.keyboard.press(keys.at(-1));
  for (const key of held) await page.keyboard.up(key);
}

// Waits until the page has not changed for a while.
export const settle = (page) => page.evaluate(() => new Promise((resolve) => {
  const wait = () => setTimeout(resolve, 400);
  let timer = wait();
  new MutationObserver(() => {
    clearTimeout(timer);
    timer = wait();
  }).observe(document.body, { subtree: true, childList: true, characterData: true });
}));

// What stands beside and below each line, by the line's text.
export const readResults = (page) => page.evaluate(() => {
  const rows = [];
  for (const node of document.querySelector('.cm-content').children) {
    if (node.classList.contains('cm-line')) {
      const line = node.cloneNode(true);
      line.querySelectorAll('.results, .cm-widgetBuffer').forEach((it) => it.remove());
      rows.push([line.textContent]);
    }
    const shown = node.matches('.results') ? [node] : node.querySelectorAll('.results');
    for (const box of shown) for (const item of box.children) rows.at(-1).push(item.textContent);
  }
  return rows;
});

// Waits until the results are these.
export async function expectResults(page, expected, timeout = 8000) {
  const end = Date.now() + timeout;
  let found;
  do {
    found = await readResults(page);
    if (JSON.stringify(found) === JSON.stringify(expected)) return;
    await new Promise((resolve) => setTimeout(resolve, 20));
  } while (Date.now() < end);
  throw new Error(`expected ${JSON.stringify(expected)}\n   found ${JSON.stringify(found)}`);
}
