// From the key to the results of a page of 1,000 lines, beside the time that the program takes for
// the same script; the program is MIRLOW_PROGRAM, or that of a release build if there is one.
import assert from 'node:assert/strict';
import { spawnSync } from 'node:child_process';
import { existsSync, mkdtempSync, rmSync, writeFileSync } from 'node:fs';
import { tmpdir } from 'node:os';
import { join } from 'node:path';
import { after, before, test } from 'node:test';

import { closePage, openPage, openText, press, settle, start } from './browser.mjs';
import { root } from './pages.mjs';

const program = process.env.MIRLOW_PROGRAM ?? `${root}build/release/mirlow`;

// Values, references that follow each other, vectors and errors; all of it depends on line 1.
function makeLines() {
  const lines = ['x0=1'];
  while (lines.length < 1000) {
    const i = lines.length;
    lines.push([`x${i}=x0+${i}`, `r${i}&=2*x${i - 1}`, `<x0, ${i}>*r${i - 1}`, `(x0+${i}`][(i - 1) % 4]);
  }
  return lines;
}

const smallest = (numbers) => numbers.reduce((a, b) => Math.min(a, b));

function timeProgram(lines) {
  const folder = mkdtempSync(join(tmpdir(), 'mirlow-'));
  const script = join(folder, 'script');
  writeFileSync(script, lines.join('\n') + '\n');
  const times = Array.from({ length: 10 }, () => {
    const began = performance.now();
    assert.equal(spawnSync(program, [script], { cwd: folder }).status, 0);
    return performance.now() - began;
  });
  rmSync(folder, { recursive: true });
  return smallest(times);
}

// The milliseconds from a key to a result on the page.
async function timeKey(page, key, expected) {
  await page.evaluate((wanted) => {
    globalThis.took = new Promise((resolve) => {
      let began = 0;
      addEventListener('keydown', () => {
        began = performance.now();
      }, { capture: true, once: true });
      const observer = new MutationObserver(() => {
        const results = [...document.querySelectorAll('.result')];
        if (!results.some((it) => it.textContent === wanted)) return;
        observer.disconnect();
        resolve(performance.now() - began);
      });
      observer.observe(document.querySelector('.cm-content'),
        { subtree: true, childList: true, characterData: true });
    });
  }, expected);
  await page.keyboard.press(key);
  return page.evaluate(() => globalThis.took);
}

let site;
before(async () => {
  site = await start();
});
after(() => site.stop());

// The times are told, and not judged: machines are noisy.
for (const [name, way, first, second] of [
  ['first', ['Control', 'Home'], 'Defining Scalar : x1 = 11', 'Defining Scalar : x1 = 2'],
  ['last', ['Control', 'End'], 'Scalar : 10', 'Scalar : 1'],
]) {
  test(`a key in the ${name} of 1,000 lines shows its result, and how soon`, async (context) => {
    const lines = [...makeLines().slice(0, 999), 'x0'];
    const page = await openText(site, lines.join('\n'));
    await page.focus('.cm-content');
    await press(page, ...way);
    await press(page, 'End');
    await settle(page);
    if (name === 'last') {
      await page.keyboard.type('*1');
      await settle(page);
    }
    const times = [];
    for (let i = 0; i < 15; ++i) {
      times.push(await timeKey(page, '0', first));
      await timeKey(page, 'Backspace', second);
    }
    await closePage(page);
    const milliseconds = smallest(times);
    const ratio = existsSync(program) ? milliseconds / timeProgram(lines) : Infinity;
    context.diagnostic(`from key to result: ${milliseconds.toFixed(1)} ms`);
    context.diagnostic(`that is ${ratio.toFixed(1)} times what the program takes for the script`);
  });
}

test('a page of 100,000 lines is calculated, and the page stays awake', async () => {
  const page = await openPage(site);
  const text = 'x=1\n' + 'x=x+1\n'.repeat(100_000) + '2*x';
  await page.evaluate((value) => {
    const file = new File([value], 'long.mirlow');
    const transfer = new DataTransfer();
    transfer.items.add(file);
    document.dispatchEvent(new DragEvent('drop', { dataTransfer: transfer, cancelable: true }));
  }, text);
  await page.waitForFunction(() =>
    [...document.querySelectorAll('#symbols tr')].some((row) =>
      row.textContent.includes('100001')), { timeout: 20_000 });
  await closePage(page);
});
