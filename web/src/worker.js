// Calculates sheets, away from the page, which ends this Worker when a line takes too long. Messages:
//   in:  { module }                                 once, before all others
//        { lines, skipped, careful, shown, symbols, plots }  a sheet; see engine.js
//   out: { ready }
//        { begins }                                 only from the line `careful` on
//        { first, results }                         of some lines
//        { symbols, names, plots, tooMuch }         the sheet is done; too much for its symbols
import { Calculator } from './module.js';
import { calculateLine, shorten } from './sheet.js';

const MOST_MILLISECONDS = 100;  // between two messages, unless one line takes longer
const MOST_SYMBOLS = 300;
const MOST_CHARACTERS = 10_000;
const MOST_CHARACTERS_OF_A_SYMBOL = 200;

let module;
let calculator;

const leftOut = (line, why) =>
  [{ kind: 'skipped', text: `${why}; left out`, from: 0, to: line.length }];
const TOO_LONG = 'Takes more than a second';
const TOO_MUCH = 'Needs more memory or stack than there is';

const shortened = (items) =>
  items.map((item) => ({ ...item, text: shorten(item.text, MOST_CHARACTERS) }));

// The module is not to be relied on after an exception. It is made anew, and given the lines again
// that it has carried out.
function recover(lines, isLeftOut) {
  calculator = new Calculator(module);
  for (const line of lines) if (!isLeftOut(line)) calculator.processLine(line.text);
}

function calculate({ lines, skipped, careful, shown }) {
  const reasons = new Map(skipped.map((i) => [i, TOO_LONG]));
  const numbered = lines.map((text, i) => ({ text, i }));
  let results = [];
  let last = performance.now();
  const send = (next) => {
    postMessage({ first: next - results.length, results });
    results = [];
    last = performance.now();
  };
  const itemsOf = ({ text, i }) => {
    if (reasons.has(i)) return leftOut(text, reasons.get(i));
    try {
      return shortened(calculateLine(calculator, text));
    } catch {
      reasons.set(i, TOO_MUCH);
      recover(numbered.slice(0, i), (line) => reasons.has(line.i));
      return leftOut(text, TOO_MUCH);
    }
  };
  for (const line of numbered) {
    if (line.i >= careful) postMessage({ begins: line.i });
    results.push(itemsOf(line));
    const isLate = performance.now() - last > MOST_MILLISECONDS;
    if (isLate || line.i === shown) send(line.i + 1);
  }
  send(lines.length);
}

function describeSymbols(names) {
  return names.slice(0, MOST_SYMBOLS).map((name) => {
    const symbol = calculator.symbol(name);
    return { ...symbol, text: shorten(symbol.text, MOST_CHARACTERS_OF_A_SYMBOL) };
  });
}

function describe({ symbols, plots }) {
  const names = calculator.names();
  try {
    return {
      names,
      symbols: symbols ? describeSymbols(names.symbol) : [],
      plots: Object.fromEntries(plots.map((name) => [name, calculator.numbers(name)])),
      tooMuch: !symbols,
    };
  } catch {
    calculator = new Calculator(module);
    return { names, symbols: [], plots: {}, tooMuch: true };
  }
}

function run(job) {
  calculator.reset();
  calculate(job);
  postMessage(describe(job));
}

onmessage = ({ data }) => {
  if (!data.module) return run(data);
  module = data.module;
  calculator = new Calculator(module);
  postMessage({ ready: true });
};
