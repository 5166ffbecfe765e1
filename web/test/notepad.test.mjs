// The notepad as its users meet it, in Chromium.
import assert from 'node:assert/strict';
import { existsSync, mkdtempSync, readFileSync, rmSync, writeFileSync } from 'node:fs';
import { tmpdir } from 'node:os';
import { join } from 'node:path';
import { after, afterEach, before, test } from 'node:test';

import { closePage, expectResults, openPage, openText, press, start } from './browser.mjs';

let site;
let page;
before(async () => {
  site = await start();
});
after(() => site.stop());
afterEach(() => closePage(page));

const clear = async () => {
  await page.focus('.cm-content');
  await press(page, 'Control', 'a');
  await press(page, 'Delete');
};
// One row of the table of symbols: its cells.
const readSymbols = () => page.$$eval('#symbols tr', (rows) => rows.map((row) =>
  [...row.cells].map((cell) => cell.firstChild.textContent)));
const waitForSymbol = (name, value) => page.waitForFunction((wanted, text) =>
  [...document.querySelectorAll('#symbols tr')].some((row) =>
    row.cells[0].textContent === wanted && row.cells[2]?.firstChild.textContent === text),
{ timeout: 5000 }, name, value);

test('results stand beside the lines as one types', async () => {
  page = await openPage(site);
  await clear();
  await page.keyboard.type('x=3');
  await expectResults(page, [['x=3', 'Defining Scalar : x = 3']]);
  await page.keyboard.type('\n2*x');
  await expectResults(page, [['x=3', 'Defining Scalar : x = 3'], ['2*x', 'Scalar : 6']]);
});

test('a reference follows a change above it', async () => {
  page = await openText(site, 'a=2\nr&=10*a\nr');
  await expectResults(page, [['a=2', 'Defining Scalar : a = 2'],
    ['r&=10*a', 'Defining Reference : r = 20'], ['r', 'Scalar : 20']]);
  await page.focus('.cm-content');
  await press(page, 'Control', 'Home');
  await press(page, 'End');
  await page.keyboard.type('5');
  await expectResults(page, [['a=25', 'Defining Scalar : a = 25'],
    ['r&=10*a', 'Defining Reference : r = 250'], ['r', 'Scalar : 250']]);
});

test('an error stands below its line, and its place is marked', async () => {
  page = await openText(site, 'x=1\nx+2*width\ny=3*(x');
  await expectResults(page, [['x=1', 'Defining Scalar : x = 1'],
    ['x+2*width', "Error : Unknown symbol 'width'"], ['y=3*(x', "Error : Unterminated '('"]]);
  const marked = await page.$$eval('.mistake', (marks) => marks.map((mark) => mark.textContent));
  assert.equal(marked[0], 'width');
  assert.equal(marked[1], '(');
});

test('each command of a line has its say', async () => {
  page = await openText(site, 'a=1;b=q;a+1 ; // note\n// nothing\n');
  await expectResults(page, [
    ['a=1;b=q;a+1 ; // note', 'Defining Scalar : a = 1', "Error : Unknown symbol 'q'", 'Scalar : 2',
      "Error : Operator '/' is missing its operands"],
    ['// nothing'], ['']]);
});

test('a line that takes more than a second is left out, and the others go on', async () => {
  const late = 'Takes more than a second; left out';
  const large = 'Needs more memory or stack than there is; left out';
  page = await openText(site, 'x=2.5\n!x\n<1>[1/0]\nx+1');
  await expectResults(page, [['x=2.5', 'Defining Scalar : x = 2.5'], ['!x', large],
    ['<1>[1/0]', late], ['x+1', 'Scalar : 3.5']], 15_000);
  // Typing below it takes no second more.
  await page.focus('.cm-content');
  await press(page, 'Control', 'End');
  const began = Date.now();
  await page.keyboard.type('0');
  await expectResults(page, [['x=2.5', 'Defining Scalar : x = 2.5'], ['!x', large],
    ['<1>[1/0]', late], ['x+10', 'Scalar : 12.5']]);
  assert.ok(Date.now() - began < 900);
  // When what is above changes, it is tried again.
  await press(page, 'Control', 'Home');
  await press(page, 'End');
  await press(page, 'Backspace');
  await press(page, 'Backspace');
  await expectResults(page, [['x=2', 'Defining Scalar : x = 2'], ['!x', 'Scalar : 2'],
    ['<1>[1/0]', late], ['x+10', 'Scalar : 12']], 15_000);
});

test('a symbol whose value takes too long or too much costs the panel alone', async () => {
  page = await openText(site, 'x=1\nr&=<1>[1/x]\nx=0\n7');
  await expectResults(page, [['x=1', 'Defining Scalar : x = 1'],
    ['r&=<1>[1/x]', 'Defining Reference : r = 1'], ['x=0', 'Defining Scalar : x = 0'],
    ['7', 'Scalar : 7']]);
  await page.waitForFunction(() => document.querySelector('#symbols-note').textContent !== '');
  await closePage(page);
  page = await openText(site, 'x=2\nr&=!x\nx=2.5\nx+1');
  await expectResults(page, [['x=2', 'Defining Scalar : x = 2'],
    ['r&=!x', 'Defining Reference : r = 2'], ['x=2.5', 'Defining Scalar : x = 2.5'],
    ['x+1', 'Scalar : 3.5']]);
  await page.waitForFunction(() => document.querySelector('#symbols-note').textContent !== '');
});

test('symbols are listed, and those that change flash', async () => {
  page = await openText(site, 'a=2\nr&=10*a\nb=7');
  await waitForSymbol('r', '20');
  assert.deepEqual(await readSymbols(), [['_', 'Scalar', '7'], ['a', 'Scalar', '2'],
    ['b', 'Scalar', '7'], ['r', 'Reference', '20']]);
  await page.focus('.cm-content');
  await press(page, 'Control', 'Home');
  await press(page, 'End');
  await page.keyboard.type('0');
  await waitForSymbol('r', '200');
  const changed = await page.$$eval('#symbols .changed th', (names) =>
    names.map((name) => name.textContent));
  assert.deepEqual(changed, ['a', 'r']);
});

test('a vector of numbers is plotted on request, and the plot follows', async () => {
  page = await openText(site, 'v=<1, 4, 2>\nn=<<1>, <2>>');
  await waitForSymbol('v', '<1, 4, 2>');
  await page.click('button[aria-label="Plot v"]');
  await page.waitForSelector('.plot');
  // From the left to the right edge, the lowest number below and the highest above.
  const points = await page.$eval('.plot polyline', (line) => line.getAttribute('points'));
  assert.equal(points, '6,84 120,6 234,58');
  assert.equal(await page.$$eval('.plot', (plots) => plots.length), 1);
  await page.click('button[aria-label="Plot v"]');
  await page.waitForFunction(() => !document.querySelector('.plot'));
});

test('symbols and functions are completed', async () => {
  page = await openText(site, 'height=3\n');
  await expectResults(page, [['height=3', 'Defining Scalar : height = 3'], ['']]);
  await waitForSymbol('height', '3');
  await page.focus('.cm-content');
  await press(page, 'Control', 'End');
  await page.keyboard.type('round_u');
  await page.waitForSelector('.cm-tooltip-autocomplete [aria-selected]');
  await new Promise((resolve) => setTimeout(resolve, 150)); // keys are let pass for a moment
  await press(page, 'Enter');
  await page.keyboard.type('heig');
  await page.waitForSelector('.cm-tooltip-autocomplete [aria-selected]');
  await new Promise((resolve) => setTimeout(resolve, 150));
  await press(page, 'Enter');
  await page.keyboard.type('/2)');
  await expectResults(page, [['height=3', 'Defining Scalar : height = 3'],
    ['round_up(height/2)', 'Scalar : 2']]);
});

test('functions and types have their colours from the start', async () => {
  page = await openText(site, 'v:Vector\nmin(1, 2)');
  await page.waitForSelector('.tok-function');
  assert.equal(await page.$eval('.tok-function', (it) => it.textContent), 'min');
  assert.equal(await page.$eval('.tok-type', (it) => it.textContent), 'Vector');
});

test('what is typed can be undone', async () => {
  page = await openText(site, '1+1');
  await expectResults(page, [['1+1', 'Scalar : 2']]);
  await page.focus('.cm-content');
  await press(page, 'Control', 'End');
  await page.keyboard.type('0');
  await expectResults(page, [['1+10', 'Scalar : 11']]);
  await press(page, 'Control', 'z');
  await expectResults(page, [['1+1', 'Scalar : 2']]);
});

test('the address has the text, whatever is in it', async () => {
  const text = 'x=1 // 100%, "ä" & <tag> #\n?x';
  page = await openPage(site);
  await clear();
  await page.keyboard.sendCharacter(text);
  await page.click('#share');
  await page.waitForFunction(() => location.hash.length > 1);
  const address = page.url();
  await closePage(page);
  page = await openPage(site, address.slice(site.address.length));
  await expectResults(page, [['x=1 // 100%, "ä" & <tag> #',
    "Error : No match for operator 'Scalar /' in :\n\t        \t1 /"],
  ['?x', "Error : Unknown symbol 'x'"]]);
});

test('the last text is there again', async () => {
  page = await openPage(site);
  await clear();
  await page.keyboard.type('6*7');
  await expectResults(page, [['6*7', 'Scalar : 42']]);
  await page.reload();
  await page.waitForSelector('.cm-content');
  await expectResults(page, [['6*7', 'Scalar : 42']]);
});

test('everything can be done with the keyboard', async () => {
  page = await openText(site, 'v=<1, 2>');
  await waitForSymbol('v', '<1, 2>');
  await page.evaluate(() => document.activeElement.blur());
  const reached = [];
  for (let i = 0; i < 12; ++i) {
    await press(page, 'Tab');
    reached.push(await page.evaluate(() => document.activeElement.getAttribute('aria-label') ??
      document.activeElement.textContent));
  }
  for (const name of ['mirlow', 'Open', 'Save', 'Share', 'Notepad, one calculation on each line',
    'Plot v']) {
    assert.ok(reached.includes(name), `${name} is not among ${reached}`);
  }
});

test('a text is saved to a file and opened from one', async () => {
  const folder = mkdtempSync(join(tmpdir(), 'mirlow-'));
  page = await openText(site, 'x=1\n// ä\n2*x');
  const session = await page.createCDPSession();
  await session.send('Browser.setDownloadBehavior',
    { behavior: 'allow', downloadPath: folder, browserContextId: page.browserContext().id });
  await page.click('#save');
  const path = join(folder, 'page.mirlow');
  for (let i = 0; i < 100 && !existsSync(path); ++i) {
    await new Promise((resolve) => setTimeout(resolve, 50));
  }
  assert.equal(readFileSync(path, 'utf8'), 'x=1\n// ä\n2*x');

  writeFileSync(join(folder, 'other.mirlow'), 'y=5\r\ny*y\r\n');
  const input = await page.$('#file');
  await input.uploadFile(join(folder, 'other.mirlow'));
  await expectResults(page, [['y=5', 'Defining Scalar : y = 5'], ['y*y', 'Scalar : 25'], ['']]);
  rmSync(folder, { recursive: true });
});

test('another address in the same page is another text', async () => {
  page = await openText(site, '1+1');
  await expectResults(page, [['1+1', 'Scalar : 2']]);
  await page.evaluate(() => {
    location.hash = '#2%2B2';
  });
  await expectResults(page, [['2+2', 'Scalar : 4']]);
});

test('an address that was cut is let pass', async () => {
  page = await openPage(site, '#1%2B1%');
  await page.waitForSelector('.result');
});
