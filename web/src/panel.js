// The table of symbols: name, type and value of each, and a plot of a vector of numbers when asked.
// Rows whose value has changed flash.
import { plot } from './plot.js';

export class Panel {
  #body;
  #note;
  #onPlots;
  #shown = new Map();  // name to what its row showed
  #plots = new Set();

  // onPlots(names) is called when another set of plots is wanted.
  constructor({ body, note, onPlots }) {
    this.#body = body;
    this.#note = note;
    this.#onPlots = onPlots;
  }

  show({ symbols, names, plots, tooMuch }) {
    const hasFocus = document.activeElement?.dataset?.plots;
    const before = this.#shown;
    this.#shown = new Map(symbols.map(({ name, type, text }) => [name, `${type} ${text}`]));
    this.#body.replaceChildren(...symbols.flatMap((symbol) =>
      this.#rows(symbol, plots[symbol.name], before)));
    if (hasFocus) this.#buttonOf(hasFocus)?.focus();
    this.#note.textContent = this.#noteOn(names.symbol.length - symbols.length, tooMuch);
  }

  #noteOn(left, tooMuch) {
    if (tooMuch) return 'The values of the symbols take too long or too much memory.';
    return left > 0 ? `and ${left} more symbols` : '';
  }

  #buttonOf(name) {
    return [...this.#body.querySelectorAll('button')].find((it) => it.dataset.plots === name);
  }

  #rows(symbol, numbers, before) {
    const row = document.createElement('tr');
    const value = `${symbol.type} ${symbol.text}`;
    if (before.size > 0 && before.get(symbol.name) !== value) row.className = 'changed';
    const name = document.createElement('th');
    name.scope = 'row';
    name.textContent = symbol.name;
    const text = this.#cell(symbol.text);
    if (symbol.plots) text.append(' ', this.#button(symbol.name));
    row.append(name, this.#cell(symbol.type), text);
    return numbers ? [row, this.#plotRow(symbol.name, numbers)] : [row];
  }

  #cell(text) {
    const cell = document.createElement('td');
    cell.textContent = text;
    return cell;
  }

  #button(name) {
    const button = document.createElement('button');
    button.type = 'button';
    button.textContent = 'Plot';
    button.dataset.plots = name;
    button.setAttribute('aria-label', `Plot ${name}`);
    button.setAttribute('aria-pressed', this.#plots.has(name));
    button.addEventListener('click', () => {
      if (!this.#plots.delete(name)) this.#plots.add(name);
      this.#onPlots([...this.#plots]);
    });
    return button;
  }

  #plotRow(name, numbers) {
    const row = document.createElement('tr');
    const cell = document.createElement('td');
    cell.colSpan = 3;
    cell.append(plot(name, numbers));
    row.append(cell);
    return row;
  }
}
