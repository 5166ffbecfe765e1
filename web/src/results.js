// What the lines have to say, as decorations of the editor: one short value beside its line, all
// else below it, and a mark where a mistake is. Until a line has been calculated again, what it said
// last stays and moves along with it.
import { StateEffect, StateField } from '@codemirror/state';
import { Decoration, EditorView, WidgetType } from '@codemirror/view';

// { first, results }: the items of lines, from the line with that index on.
const showResults = StateEffect.define();

const MOST_BESIDE = 48;  // characters

class ItemsWidget extends WidgetType {
  constructor(items, isBeside) {
    super();
    this.items = items;
    this.isBeside = isBeside;
    this.key = items.map((item) => item.kind + item.text).join('\n');
  }

  eq(other) {
    return other.key === this.key && other.isBeside === this.isBeside;
  }

  toDOM() {
    const box = document.createElement(this.isBeside ? 'span' : 'div');
    box.className = this.isBeside ? 'results beside' : 'results below';
    for (const { kind, text } of this.items) {
      const item = document.createElement(this.isBeside ? 'span' : 'div');
      item.className = `result ${kind}`;
      item.textContent = text;
      box.append(item);
    }
    return box;
  }

  ignoreEvent() {
    return true;
  }
}

function fitsBeside(items) {
  if (items.length !== 1) return false;
  const [{ kind, text }] = items;
  return kind === 'value' && text.length <= MOST_BESIDE && !text.includes('\n');
}

function decorate(line, items) {
  if (items.length === 0) return [];
  const isBeside = fitsBeside(items);
  const widget = Decoration.widget({
    widget: new ItemsWidget(items, isBeside), side: 1, block: !isBeside,
  }).range(line.to);
  const marks = items
    .filter(({ kind, from, to }) => kind === 'error' && from < to && to <= line.length)
    .map(({ from, to }) => mistake.range(line.from + from, line.from + to));
  return [...marks, widget];
}

const mistake = Decoration.mark({ class: 'mistake' });

function update(shown, { first, results }, doc) {
  if (first >= doc.lines || results.length === 0) return shown;
  const last = Math.min(first + results.length, doc.lines);
  const from = doc.line(first + 1).from;
  const to = doc.line(last).to;
  const add = [];
  for (let i = first; i < last; ++i) add.push(...decorate(doc.line(i + 1), results[i - first]));
  // What stood there goes: all that begins within these lines.
  return shown.update({
    filterFrom: from, filterTo: to, filter: (begin) => begin < from || begin > to, add, sort: true,
  });
}

const shownResults = StateField.define({
  create: () => Decoration.none,
  update(shown, transaction) {
    let next = shown.map(transaction.changes);
    for (const effect of transaction.effects) {
      if (effect.is(showResults)) next = update(next, effect.value, transaction.state.doc);
    }
    return next;
  },
  provide: (field) => EditorView.decorations.from(field),
});

export const results = [shownResults];

export function show(view, first, items) {
  view.dispatch({ effects: showResults.of({ first, results: items }) });
}
