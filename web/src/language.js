// Colours and completion, by the names that the calculator itself has for types, functions and
// symbols.
import { autocompletion } from '@codemirror/autocomplete';
import { HighlightStyle, StreamLanguage, syntaxHighlighting } from '@codemirror/language';
import { tags } from '@lezer/highlight';

// What the calculator knew when it was last asked.
export const known = { type: [], function: [], symbol: [] };

const beginsCommand = (stream) => stream.pos === 0 || stream.string[stream.pos - 1] === ';';

// Digits with at most one full stop, then perhaps an exponent, which has no sign.
const NUMBER = /^(\d+\.?\d*|\.\d+)(e\d+)?(?![a-zA-Z0-9])/;

function wordStyle(word, stream) {
  if (known.function.includes(word) && /^ *\(/.test(stream.string.slice(stream.pos))) {
    return 'keyword';
  }
  const before = stream.string.slice(0, stream.start).split(';').at(-1);
  if (known.type.includes(word) && /:\s*$/.test(before)) return 'typeName';
  return 'variableName';
}

function nextToken(stream) {
  if (stream.eatSpace()) return null;
  if (beginsCommand(stream)) {
    if (stream.match(/^\/\/[^;]*/)) return 'comment';
    if (stream.match(/^[~?]/)) return 'controlOperator';
  }
  if (stream.match(NUMBER)) return 'number';
  const word = stream.match(/^[a-zA-Z0-9_]+/);
  if (word) return wordStyle(word[0], stream);
  return /[-+*/^!&=:]/.test(stream.next()) ? 'operator' : null;
}

const style = HighlightStyle.define([
  { tag: tags.comment, class: 'tok-comment' },
  { tag: tags.controlOperator, class: 'tok-command' },
  { tag: tags.number, class: 'tok-number' },
  { tag: tags.keyword, class: 'tok-function' },
  { tag: tags.typeName, class: 'tok-type' },
  { tag: tags.operator, class: 'tok-operator' },
]);

function complete(context) {
  const word = context.matchBefore(/[a-zA-Z0-9_]+/);
  if (!word && !context.explicit) return null;
  const from = word ? word.from : context.pos;
  if (/^\d/.test(word?.text ?? '') && !context.explicit) return null;
  const line = context.state.doc.lineAt(from);
  const before = line.text.slice(0, from - line.from).split(';').at(-1);
  if (/:\s*$/.test(before)) {
    return { from, options: known.type.map((label) => ({ label, type: 'type' })) };
  }
  return {
    from,
    options: [
      ...known.symbol.map((label) => ({ label, type: 'variable' })),
      ...known.function.map((label) => ({ label, type: 'function', apply: `${label}(` })),
    ],
  };
}

export const mirlow = [
  StreamLanguage.define({ name: 'mirlow', token: nextToken }),
  syntaxHighlighting(style),
  autocompletion({ override: [complete], icons: false }),
];
