// The calculator: the module of WebAssembly and the little that it needs of its surroundings. It
// runs in a Worker and in node alike.
//   const calculator = new Calculator(await compile(bytes));
//   calculator.processLine("x=1;2*x");  // "\tDefining Scalar : x = 1\n\tScalar : 2\n"

const OK = 0;
const REFERENCE = 3;
const encoder = new TextEncoder();
const decoder = new TextDecoder('utf-8', { ignoreBOM: true });

// What a call gets from the system.
const ENOSYS = 52;

export async function compile(bytes) {
  return WebAssembly.compile(bytes);
}

// What went wrong with an expression: kind, text, and the place in UTF-16 units, as JavaScript
// counts. The library counts bytes.
function placeInUnits(text, position, length) {
  const bytes = encoder.encode(text);
  const units = (end) => decoder.decode(bytes.subarray(0, end)).length;
  const from = units(position);
  return { from, to: units(position + length) };
}

export class Calculator {
  #exports;
  #state = 0;
  #printed = [];
  #answers = [];

  constructor(module) {
    this.#exports = new WebAssembly.Instance(module, this.#imports()).exports;
    this.#exports._initialize();
    this.reset();
  }

  // Starts anew, without a symbol.
  reset() {
    this.#exports.mirlow_free(this.#state);
    this.#state = this.#exports.page_new();
    if (this.#state === 0) throw new Error('Not enough memory');
  }

  get version() {
    return this.#text(this.#exports.mirlow_version());
  }

  // The names of all types and functions, and those of all symbols, in ascending order.
  names() {
    const names = { type: [], function: [], symbol: [] };
    for (const row of this.#text(this.#exports.page_names(this.#state)).split('\n')) {
      const [kind, name] = row.split(' ');
      if (name) names[kind].push(name);
    }
    return names;
  }

  // Carries out the commands of a line and returns what they print. A question takes the next of the
  // answers, or an empty one.
  processLine(line, answers = []) {
    this.#printed = [];
    this.#answers = answers.flatMap((answer) => [...encoder.encode(answer + '\n')]);
    const status = this.#withText(line, (at) => this.#exports.mirlow_process_line(this.#state, at));
    const printed = this.#takePrinted();
    return status === OK ? printed : printed + '\tError : Not enough memory\n';
  }

  // Why the expression fails and where; null when it does not.
  mistake(expression) {
    return this.#withOut((out) => {
      const status = this.#withText(expression, (at) =>
        this.#exports.mirlow_evaluate(this.#state, at, out));
      if (status === OK) {
        this.#exports.mirlow_release(this.#word(out));
        return null;
      }
      const [kind, text, position, length] = this.#words(
        this.#exports.mirlow_last_error(this.#state), 4);
      return { kind, text: this.#text(text), ...placeInUnits(expression, position, length) };
    });
  }

  // A symbol's type and text, and whether it can be plotted; null when no symbol bears the name.
  symbol(name) {
    return this.#withSymbol(name, (value) => {
      // The library says what a reference comes to; a definition calls it a Reference.
      const isReference = this.#exports.mirlow_get_kind(value) === REFERENCE;
      const type = isReference ? 'Reference' : this.#text(this.#exports.mirlow_type(value));
      const text = this.#text(this.#exports.mirlow_text(value));
      return { name, type, text, plots: this.#count(value) > 1 };
    });
  }

  // The elements of a symbol that is a vector of numbers; null of any other.
  numbers(name) {
    return this.#withSymbol(name, (value) => {
      const count = this.#count(value);
      const room = this.#exports.malloc(8 * count || 8);
      if (room === 0) return null;
      const status = this.#exports.mirlow_to_numbers(value, room, count);
      const read = new Float64Array(this.#exports.memory.buffer, room, count);
      const numbers = status === OK ? [...read] : null;
      this.#exports.free(room);
      return numbers;
    });
  }

  #count(value) {
    return this.#withOut((out) =>
      this.#exports.mirlow_count(value, out) === OK ? this.#word(out) : 0);
  }

  #withSymbol(name, use) {
    return this.#withOut((out) => {
      const status = this.#withText(name, (at) => this.#exports.mirlow_get(this.#state, at, out));
      if (status !== OK) return null;
      const value = this.#word(out);
      const result = use(value);
      this.#exports.mirlow_release(value);
      return result;
    });
  }

  // ---- Memory of the module ----

  #word(at) {
    return new DataView(this.#exports.memory.buffer).getUint32(at, true);
  }

  #words(at, count) {
    return Array.from({ length: count }, (_, i) => this.#word(at + 4 * i));
  }

  #bytes(at, length) {
    return new Uint8Array(this.#exports.memory.buffer, at, length);
  }

  // A text of the module's, which ends with a zero byte.
  #text(at) {
    if (at === 0) return '';
    const memory = new Uint8Array(this.#exports.memory.buffer);
    return decoder.decode(memory.subarray(at, memory.indexOf(0, at)));
  }

  // Lends a text to the module. As in every text of C, nothing counts after a zero byte.
  #withText(text, use) {
    const most = 3 * text.length + 1;  // bytes of UTF-8, and the zero byte
    const at = this.#exports.malloc(most);
    if (at === 0) throw new Error('Not enough memory');
    const room = this.#bytes(at, most);
    room[encoder.encodeInto(text, room).written] = 0;
    const result = use(at);
    this.#exports.free(at);
    return result;
  }

  // Lends it a word to write to.
  #withOut(use) {
    const out = this.#exports.malloc(4);
    const result = use(out);
    this.#exports.free(out);
    return result;
  }

  // Pieces may end within a character.
  #takePrinted() {
    const pieces = this.#printed;
    this.#printed = [];
    if (pieces.length === 1) return decoder.decode(pieces[0]);
    const bytes = new Uint8Array(pieces.reduce((sum, piece) => sum + piece.length, 0));
    let at = 0;
    for (const piece of pieces) {
      bytes.set(piece, at);
      at += piece.length;
    }
    return decoder.decode(bytes);
  }

  // ---- What the module asks for ----

  #imports() {
    return {
      page: {
        write: (at, length) => this.#printed.push(this.#bytes(at, length).slice()),
        read: () => this.#answers.shift() ?? -1,
      },
      env: {
        getentropy: (at, length) => {
          crypto.getRandomValues(this.#bytes(at, length));
          return 0;
        },
        emscripten_notify_memory_growth: () => {},
      },
      // No clock and no environment; the end of the process is the end of this calculator.
      wasi_snapshot_preview1: {
        clock_time_get: () => ENOSYS,
        environ_sizes_get: (count, size) => {
          this.#bytes(count, 4).fill(0);
          this.#bytes(size, 4).fill(0);
          return 0;
        },
        environ_get: () => 0,
        proc_exit: (status) => {
          throw new Error(`The module ended with ${status}`);
        },
      },
    };
  }
}
