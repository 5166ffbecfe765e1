// The colours of lines.
import assert from 'node:assert/strict';
import test from 'node:test';

import { colour, known } from '../src/language.js';

known.type = ['Scalar', 'Vector'];
known.function = ['round_up', 'min'];

// Each coloured stretch as "kind text".
const kinds = (line) => colour(line).map(({ from, to, kind }) => `${kind} ${line.slice(from, to)}`);

test('what a line holds is told apart', () => {
  const rows = [
    ['x=1.5e3', ['operator =', 'number 1.5e3']],
    ['.5+2.', ['number .5', 'operator +', 'number 2.']],
    ['x1', []],                                            // a name, with a digit
    ['1x', []],                                            // neither a number nor a known name
    ['round_up (2)', ['function round_up', 'number 2']],
    ['min=2', ['operator =', 'number 2']],                 // a symbol of that name
    ['v:Vector', ['operator :', 'type Vector']],
    ['Vector', []],                                        // a symbol of that name
    ['~x', ['command ~']],
    ['a;?b', ['command ?']],
    ['a ~b', []],
    ['// 1;2', ['comment // 1', 'number 2']],              // a comment ends with its command
    ['1 // 2', ['number 1', 'operator /', 'operator /', 'number 2']],
  ];
  for (const [line, expected] of rows) assert.deepEqual(kinds(line), expected, line);
});
