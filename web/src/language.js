// Colours and completion, by the names that the calculator itself has for types, functions and
// symbols. The language has no tokens that go beyond a line, so only what is in view is coloured.
import { autocompletion } from '@codemirror/autocomplete';
import { StateEffect } from '@codemirror/state';
import { Decoration, ViewPlugin } from '@codemirror/view';

// What the calculator knew when it was last asked.
export const known = { type: [], function: [], symbol: [] };

const recolour = StateEffect.define();
const learned = new WeakSet();  // the editors that have been

// Takes what the calculator knows now. Only symbols come and go later, and they have no colour: an
// editor is coloured again the first time.
export function learn(view, names) {
  Object.assign(known, names);
  if (learned.has(view)) return;
  learned.add(view);
  view.dispatch({ effects: recolour.of(null) });
}

// In a command; digits have at most one full stop, then perhaps an exponent, which has no sign.
const TOKENS = /(\d+\.?\d*|\.\d+)(e\d+)?(?![a-zA-Z0-9])|[a-zA-Z0-9_]+|[-+*/^!&=:]|^[~?]/g;

function kindOf(token, before, after) {
  if (/^[~?]/.test(token)) return 'command';
  if (/^[-+*/^!&=:]/.test(token)) return 'operator';
  if (known.type.includes(token) && /:\s*$/.test(before)) return 'type';
  if (known.function.includes(token) && /^ *\(/.test(after)) return 'function';
  return /^(\d+\.?\d*|\.\d+)(e\d+)?$/.test(token) ? 'number' : '';
}

// The coloured stretches of a line: { from, to, kind }.
export function colour(line) {
  const found = [];
  let start = 0;
  for (const command of line.split(';')) {
    if (command.startsWith('//')) {
      found.push({ from: start, to: start + command.length, kind: 'comment' });
    } else {
      for (const { 0: token, index } of command.matchAll(TOKENS)) {
        const end = index + token.length;
        const kind = kindOf(token, command.slice(0, index), command.slice(end));
        if (kind) found.push({ from: start + index, to: start + end, kind });
      }
    }
    start += command.length + 1;
  }
  return found;
}

// Colours of a line that is longer cost more than they are worth.
const MOST_CHARACTERS = 10_000;

const marks = Object.fromEntries(['comment', 'command', 'number', 'function', 'type', 'operator']
  .map((kind) => [kind, Decoration.mark({ class: `tok-${kind}` })]));

function colourView(view) {
  const ranges = [];
  for (const { from, to } of view.visibleRanges) {
    for (let line = view.state.doc.lineAt(from); ; line = view.state.doc.line(line.number + 1)) {
      const coloured = line.length > MOST_CHARACTERS ? [] : colour(line.text);
      for (const it of coloured) {
        ranges.push(marks[it.kind].range(line.from + it.from, line.from + it.to));
      }
      if (line.to >= to) break;
    }
  }
  return Decoration.set(ranges, true);
}

const colours = ViewPlugin.define((view) => ({
  decorations: colourView(view),
  update(update) {
    const hasLearned = update.transactions.some(({ effects }) =>
      effects.some((effect) => effect.is(recolour)));
    if (update.docChanged || update.viewportChanged || hasLearned) this.decorations = colourView(update.view);
  },
}), { decorations: (plugin) => plugin.decorations });

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

export const mirlow = [colours, autocompletion({ override: [complete], icons: false })];
