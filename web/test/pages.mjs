// Reads dialogues as tests/transcripts/page.h describes them: what is typed, and what is printed.
import { webcrypto } from 'node:crypto';
import { readFileSync, readdirSync } from 'node:fs';

// Node 18 has it under this name alone.
globalThis.crypto ??= webcrypto;

export const root = new URL('../../', import.meta.url).pathname;

// A page is { name, turns: [{ line, answers, output }], ending }; what a question prints and what
// comes after the answer are one output.
export function readPage(name, text) {
  const page = { name, turns: [], ending: '' };
  for (const line of text.split('\n').slice(0, -1)) {
    const turn = page.turns.at(-1);
    if (!turn && (line === '' || line.startsWith('#'))) continue;
    if (line === '>' || line.startsWith('> ')) {
      page.turns.push({ line: line.slice(2), answers: [], output: '' });
    } else if (line === '<' || line.startsWith('< ')) {
      turn.answers.push(line.slice(2));
      turn.output = turn.output.slice(0, -1);
    } else if (line === '(dies)' || line === '(never returns)') {
      page.ending = line;
    } else {
      turn.output += line + '\n';
    }
  }
  return page;
}

// The dialogues of a Markdown text, each a page of its own.
export function readMarkdown(name, text) {
  const blocks = text.matchAll(/^```mirlow\n([^]*?)^```$/gm);
  return [...blocks].map(([, block], i) => readPage(`${name}, dialogue ${i + 1}`, block));
}

function filesBelow(folder) {
  return readdirSync(root + folder, { recursive: true })
    .filter((name) => name.endsWith('.txt') && name !== 'CMakeLists.txt')
    .map((name) => `${folder}/${name}`);
}

export function allPages() {
  const read = (name) => readFileSync(root + name, 'utf8');
  const books = ['README.md', ...readdirSync(root + 'docs').filter((name) => name.endsWith('.md'))
    .map((name) => `docs/${name}`)];
  return [
    ...filesBelow('tests/transcripts').map((name) => readPage(name, read(name))),
    ...books.flatMap((name) => readMarkdown(name, read(name))),
  ];
}

export function allScripts() {
  const folder = root + 'examples/scripts/';
  return readdirSync(folder).filter((name) => name.endsWith('.mirlow')).map((name) => ({
    name,
    lines: readFileSync(folder + name, 'utf8').split('\n').filter((line) => line !== ''),
    output: readFileSync(folder + name.replace('.mirlow', '.expected'), 'utf8'),
  }));
}
