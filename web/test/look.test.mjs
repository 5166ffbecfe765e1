// How the pages look and sound: light and dark, wide and narrow, and to who does not see them. The
// pictures are in build/web-pictures; docs/pictures/notepad.png is notepad-light.png.
import assert from 'node:assert/strict';
import { mkdirSync, readFileSync } from 'node:fs';
import { createRequire } from 'node:module';
import { after, before, test } from 'node:test';

import { closePage, expectResults, openPage, openText, settle, start } from './browser.mjs';
import { root } from './pages.mjs';

const axe = readFileSync(createRequire(import.meta.url).resolve('axe-core/axe.min.js'), 'utf8');
const pictures = `${root}build/web-pictures`;

const TEXT = `// A triangle, and what it needs of paint
a=3;b=4
area&=a*b/2
litres&=round_up(area/5)
2*area
heights=<3, 1, 4, 1, 5, 9, 2, 6>
heights*heigth
heights/2
`;

let site;
before(async () => {
  mkdirSync(pictures, { recursive: true });
  site = await start();
});
after(() => site.stop());

const openExample = async (options) => {
  const page = await openText(site, TEXT, options);
  await page.waitForSelector('button[aria-label="Plot heights"]');
  await page.click('button[aria-label="Plot heights"]');
  await page.waitForSelector('.plot');
  return page;
};

// What axe finds wrong, a line for each.
async function listProblems(page) {
  // As the tools of the browser do, past the policy of the page.
  await page.evaluate(axe);
  const { violations } = await page.evaluate(() => globalThis.axe.run());
  return violations.flatMap(({ id, nodes }) => nodes.map(({ target, failureSummary }) =>
    `${id}: ${target}: ${failureSummary}`));
}

// Relative luminance of the ground that a page shows, from 0 to 255.
const groundOf = (page) => page.evaluate(() => {
  const parts = getComputedStyle(document.body).backgroundColor.match(/\d+/g).map(Number);
  return (parts[0] + parts[1] + parts[2]) / 3;
});

const widthOf = (page) => page.evaluate(() => document.documentElement.scrollWidth);

for (const [name, options] of [
  ['light', { width: 1000, height: 560 }],
  ['dark', { width: 1000, height: 560, dark: true }],
  ['narrow', { width: 360, height: 740 }],
]) {
  test(`the notepad, ${name}`, async () => {
    const page = await openExample(options);
    assert.equal(await groundOf(page) < 60, name === 'dark');
    // Nothing stands out to the right.
    assert.equal(await widthOf(page), options.width);
    assert.deepEqual(await listProblems(page), []);
    await page.screenshot({ path: `${pictures}/notepad-${name}.png` });
    await closePage(page);
  });
}

test('on a narrow page the symbols stand below the notepad', async () => {
  const page = await openExample({ width: 360, height: 740 });
  const [editor, symbols] = await page.$$eval('#editor, aside', (parts) =>
    parts.map((part) => part.getBoundingClientRect().toJSON()));
  assert.ok(symbols.top >= editor.bottom);
  assert.ok(editor.width > 330);
  await closePage(page);
});

for (const file of ['tutorial.html', 'language.html']) {
  test(`${file}, wide, narrow and dark`, async () => {
    for (const options of [{ width: 1000 }, { width: 360 }, { width: 1000, dark: true }]) {
      const page = await openPage(site, file, options);
      await page.waitForSelector('body[data-ready]');
      await settle(page);
      assert.equal(await widthOf(page), options.width);
      assert.deepEqual(await listProblems(page), []);
      const look = options.dark ? 'dark' : options.width;
      await page.screenshot({ path: `${pictures}/${file.replace('.html', '')}-${look}.png` });
      await closePage(page);
    }
  });
}

test('what the line with the cursor says is announced', async () => {
  const page = await openText(site, '6*7');
  await expectResults(page, [['6*7', 'Scalar : 42']]);
  await page.waitForFunction(() =>
    document.querySelector('[role=status]').textContent === 'Scalar : 42');
  await closePage(page);
});
