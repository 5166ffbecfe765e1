// Has sheets calculated by a Worker. The Worker is stopped and started anew when a line takes longer
// than a second; then the line is found and left out until it, or a line above it, changes.
//   const engine = new Engine(module);
//   const sheet = engine.open({ onResults(first, results), onDone(report) });
//   sheet.run(['x=1', '2*x']);
// Of several texts that a sheet is given while the Worker is busy, only the last one counts.

const PATIENCE = 1000;  // milliseconds

export class Sheet {
  lines = [];
  plots = [];
  shown = 0;  // the last line in view: results are sent as soon as it has its own
  stuck = [];  // texts from the first line to one that takes too long
  slowSymbols = false;
  known = 0;  // lines whose results have come
  begun = -1;  // the line that is under way, if that is known
  careful = Infinity;  // from this line on, each one is announced

  constructor(engine, listener) {
    this.engine = engine;
    this.listener = listener;
  }

  run(lines, { plots = [], shown = 0 } = {}) {
    this.lines = lines;
    this.plots = plots;
    this.shown = shown;
    this.engine.ask(this);
  }

  // Which lines are left out: those that took too long with the same lines above.
  skipped() {
    this.stuck = this.stuck.filter((stuck) => stuck.every((line, i) => line === this.lines[i]));
    return this.stuck.map((stuck) => stuck.length - 1);
  }
}

export class Engine {
  #module;
  #worker = null;
  #ready = false;
  #waiting = new Set();
  #active = null;
  #timer = 0;

  constructor(module) {
    this.#module = module;
    this.#start();
  }

  open(listener) {
    return new Sheet(this, listener);
  }

  ask(sheet) {
    this.#waiting.add(sheet);
    this.#next();
  }

  #start() {
    this.#ready = false;
    this.#worker = new Worker('worker.js');
    this.#worker.onmessage = ({ data }) => this.#hear(data);
    this.#worker.postMessage({ module: this.#module });
  }

  #next() {
    if (!this.#ready || this.#active || this.#waiting.size === 0) return;
    const [sheet] = this.#waiting;
    this.#waiting.delete(sheet);
    this.#active = sheet;
    this.#active.known = 0;
    this.#active.begun = -1;
    this.#active.sent = sheet.lines;  // while the sheet may get others
    this.#worker.postMessage({
      lines: sheet.lines,
      skipped: sheet.skipped(),
      careful: sheet.careful,
      shown: sheet.shown,
      symbols: !sheet.slowSymbols,
      plots: sheet.slowSymbols ? [] : sheet.plots,
    });
    this.#wait();
  }

  #wait() {
    clearTimeout(this.#timer);
    this.#timer = setTimeout(() => this.#giveUp(), PATIENCE);
  }

  #hear(message) {
    if (message.ready) {
      this.#ready = true;
      return this.#next();
    }
    const sheet = this.#active;
    this.#wait();
    if ('begins' in message) {
      sheet.begun = message.begins;
    } else if (message.results) {
      sheet.known = message.first + message.results.length;
      if (this.#isCurrent(sheet)) sheet.listener.onResults(message.first, message.results);
    } else {
      clearTimeout(this.#timer);
      this.#active = null;
      sheet.careful = Infinity;
      if (this.#isCurrent(sheet)) sheet.listener.onDone(message);
      if (this.#isCurrent(sheet)) sheet.slowSymbols = false;
      this.#next();
    }
  }

  // Results of a text that has changed since are of no use.
  #isCurrent(sheet) {
    return !this.#waiting.has(sheet);
  }

  #giveUp() {
    const sheet = this.#active;
    this.#worker.terminate();
    this.#active = null;
    if (sheet.known === sheet.sent.length) {
      sheet.slowSymbols = true;
    } else if (sheet.begun >= 0) {
      sheet.stuck.push(sheet.sent.slice(0, sheet.begun + 1));
      sheet.careful = sheet.begun + 1;
    } else {
      sheet.careful = sheet.known;
    }
    this.#waiting.add(sheet);
    this.#start();
  }
}
