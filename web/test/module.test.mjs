// The module prints what the program prints: every dialogue, every example, and some extremes.
import assert from 'node:assert/strict';
import { readFileSync } from 'node:fs';
import test from 'node:test';
import { gzipSync } from 'node:zlib';

import { Calculator, compile } from '../src/module.js';
import { allPages, allScripts, root } from './pages.mjs';

const bytes = readFileSync(process.env.MIRLOW_MODULE ?? root + 'build/site/mirlow.wasm');
const module = await compile(bytes);

test('the module takes less than 120 KB compressed', () => {
  assert.ok(gzipSync(bytes, { level: 9 }).length < 120 * 1024);
});

test('it asks for nothing but what the page gives', () => {
  const wanted = WebAssembly.Module.imports(module).map(({ name }) => name).sort();
  assert.deepEqual(wanted, ['clock_time_get', 'emscripten_notify_memory_growth', 'environ_get',
    'environ_sizes_get', 'getentropy', 'proc_exit', 'read', 'write']);
});

test('every dialogue', () => {
  const pages = allPages();
  assert.ok(pages.length > 100, `only ${pages.length} dialogues`);
  for (const page of pages) {
    const calculator = new Calculator(module);
    // What never returns, and what ends a process, is tested in the browser.
    const turns = page.ending ? page.turns.slice(0, -1) : page.turns;
    for (const turn of turns) {
      assert.equal(calculator.processLine(turn.line, turn.answers), turn.output,
        `${page.name}: ${turn.line}`);
    }
  }
});

test('every script of the examples', () => {
  const scripts = allScripts();
  assert.ok(scripts.length > 5);
  for (const script of scripts) {
    const calculator = new Calculator(module);
    const printed = script.lines.map((line) => calculator.processLine(line)).join('');
    assert.equal(printed, script.output, script.name);
  }
});

test('numbers at both ends of the range', () => {
  const calculator = new Calculator(module);
  const rows = [
    ['1e400', '\tScalar : 1.79769313486232e+308\n'],
    ['1e308*10', '\tScalar : inf+\n'],
    ['0-1/0', '\tScalar : inf-\n'],
    ['0/0', '\tScalar : nan\n'],
    ['1/3', '\tScalar : 0.333333333333333\n'],
    ['1/1e15', '\tScalar : 1e-15\n'],
  ];
  for (const [line, printed] of rows) assert.equal(calculator.processLine(line), printed);
});

test('a million levels of brackets, calls and signs are a value', () => {
  const calculator = new Calculator(module);
  const deep = 1_000_000;
  const rows = [
    '('.repeat(deep) + '7' + ')'.repeat(deep),
    'min('.repeat(deep) + '7' + ',8)'.repeat(deep),
    '-('.repeat(deep) + '7' + ')'.repeat(deep),
  ];
  for (const line of rows) assert.equal(calculator.processLine(line), '\tScalar : 7\n');
});

test('vectors nest to a value or to one error, and the next line works', () => {
  const calculator = new Calculator(module);
  for (const deep of [100, 1000, 10_000, 100_000, 1_000_000]) {
    const vector = '<'.repeat(deep) + '7' + '>'.repeat(deep);
    assert.equal(calculator.processLine('v=' + vector).length, 'v='.length + vector.length +
      '\tDefining Vector :  = \n'.length - 1);
    const sum = calculator.processLine('w=v+v');
    const doubled = '<'.repeat(deep) + '14' + '>'.repeat(deep);
    if (sum !== `\tDefining Vector : w = ${doubled}\n`) {
      assert.match(sum, /^\tError : Expression is nested too deeply\n[^\n]*\n?$/);
    }
    assert.equal(calculator.processLine('1+1'), '\tScalar : 2\n');
  }
});

test('brackets that nobody closes are one error', () => {
  const calculator = new Calculator(module);
  const printed = calculator.processLine('('.repeat(1_000_000));
  assert.equal(printed.match(/Error : /g).length, 1);
});

test('a mistake has its place, in units of JavaScript', () => {
  const calculator = new Calculator(module);
  const place = ({ from, to }) => [from, to];
  assert.deepEqual(place(calculator.mistake('2*width')), [2, 7]);
  assert.deepEqual(place(calculator.mistake('2*\u00e4\u00e4')), [2, 4]);
  assert.equal(calculator.mistake('2*3'), null);
});

test('symbols have a type, a text and numbers', () => {
  const calculator = new Calculator(module);
  calculator.processLine('a=2;v=<1, 2.5>;r&=a*v;n=<<1>>');
  assert.deepEqual(calculator.names().symbol, ['_', 'a', 'n', 'r', 'v']);
  assert.deepEqual(calculator.symbol('r'), { name: 'r', type: 'Reference', text: '<2, 5>',
    plots: true });
  assert.deepEqual(calculator.numbers('r'), [2, 5]);
  assert.equal(calculator.numbers('n'), null);
  assert.equal(calculator.numbers('a'), null);
  assert.equal(calculator.symbol('missing'), null);
  calculator.reset();
  assert.deepEqual(calculator.names().symbol, ['_']);
});

test('types and functions are those of the registries', () => {
  const names = new Calculator(module).names();
  assert.deepEqual(names.type, ['Reference', 'Scalar', 'Symbol', 'Vector']);
  assert.deepEqual(names.function, ['max', 'min', 'rand', 'round', 'round_down', 'round_up']);
});
