// The pages of the book: each dialogue is a notepad, which shows what the text says that it prints.
import assert from 'node:assert/strict';
import { readFileSync } from 'node:fs';
import { after, before, test } from 'node:test';

import { closePage, openPage, start } from './browser.mjs';
import { readMarkdown, root } from './pages.mjs';

let site;
before(async () => {
  site = await start();
});
after(() => site.stop());

// What the results of a notepad say must be, from the dialogue of the text. An error that takes two
// lines is one result.
function expectedOf({ turns }) {
  return turns.map(({ line, output }) => [line, output]);
}

// Of each notepad on the page, the lines and what they print, as in the program.
const readNotepads = (page) => page.$$eval('.dialogue .cm-content', (notepads) =>
  notepads.map((content) => {
    const rows = [];
    for (const node of content.children) {
      if (node.classList.contains('cm-line')) {
        const line = node.cloneNode(true);
        line.querySelectorAll('.results, .cm-widgetBuffer').forEach((it) => it.remove());
        rows.push([line.textContent, '']);
      }
      const shown = node.matches('.results') ? [node] : node.querySelectorAll('.results');
      for (const box of shown) {
        for (const item of box.children) rows.at(-1)[1] += `\t${item.textContent}\n`;
      }
    }
    return rows;
  }));

for (const name of ['tutorial', 'language']) {
  test(`the dialogues of ${name}.html`, async () => {
    const dialogues = readMarkdown(name, readFileSync(`${root}docs/${name}.md`, 'utf8'))
      .filter(({ turns, ending }) => !ending && turns.every(({ answers }) => answers.length === 0));
    assert.ok(dialogues.length > 5);
    // So high that the editors, which draw only what is in view, draw everything.
    const page = await openPage(site, `${name}.html`, { height: 30_000 });
    await page.waitForSelector('body[data-ready]');
    await page.waitForFunction((count) => {
      const notepads = [...document.querySelectorAll('.dialogue')];
      return notepads.length === count && notepads.every((it) => it.querySelector('.result'));
    }, { timeout: 20_000 }, dialogues.length);
    const shown = await readNotepads(page);
    dialogues.forEach((dialogue, i) => {
      assert.deepEqual(shown[i], expectedOf(dialogue), `dialogue ${i + 1}`);
    });
    // Functions have their colour in each.
    const coloured = await page.$$eval('.dialogue', (notepads) => notepads
      .map((it) => it.querySelectorAll('.tok-function').length));
    const calls = dialogues.map(({ turns }) => turns.flatMap(({ line }) =>
      line.match(/\b(max|min|rand|round|round_down|round_up) *\(/g) ?? []).length);
    assert.deepEqual(coloured, calls);
    await closePage(page);
  });
}

test('a dialogue can be changed in its place', async () => {
  const page = await openPage(site, 'tutorial.html');
  await page.waitForSelector('.dialogue .result');
  await page.focus('.dialogue .cm-content');
  await page.keyboard.down('Control');
  await page.keyboard.press('Home');
  await page.keyboard.up('Control');
  await page.keyboard.type('40+');
  await page.waitForFunction(() =>
    document.querySelector('.dialogue .result').textContent === 'Scalar : 43');
  await closePage(page);
});

test('links lead to pages of the site', async () => {
  const page = await openPage(site, 'tutorial.html');
  const links = await page.$$eval('a', (all) => all.map((link) => link.href));
  assert.ok(links.length > 3);
  for (const link of links) {
    const answer = await fetch(link);
    assert.equal(answer.status, 200, link);
    const [, part] = link.split('#');
    if (part) assert.ok((await answer.text()).includes(`id="${part}"`), link);
  }
  await closePage(page);
});
