// Plays random sessions with the module, and compares what it prints with what the library printed
// here: the output of tests/model/dialogues_main.cpp on standard input.
//   build/release/tests/dialogues 200000 1 | node web/test/compare.mjs
// Random numbers are others in the module, so a session is played until it asks for one.
import { readFileSync } from 'node:fs';

import { Calculator, compile } from '../src/module.js';
import { root } from './pages.mjs';

const module = await compile(readFileSync(root + 'build/site/mirlow.wasm'));
const calculator = new Calculator(module);
let commands = 0;
let sessions = 0;

function play(session) {
  calculator.reset();
  for (const [line, answers, output] of session) {
    if (line.includes('rand')) return;
    const printed = calculator.processLine(line, answers.split('\n').slice(0, -1));
    if (printed !== output) {
      console.log(`after ${JSON.stringify(session.map(([it]) => it))}\n${line}`);
      console.log(`expected:\n[${output}]\nprinted:\n[${printed}]`);
      process.exit(1);
    }
    commands += line.split(';').length;
  }
}

for (const text of readFileSync(0, 'utf8').split('\x1d').slice(1)) {
  play(text.split('\x1e').slice(1).map((record) => record.split('\x1f')));
  ++sessions;
}
if (commands === 0) throw new Error('No command was compared');
console.log(`${commands} commands of ${sessions} sessions, no difference`);
