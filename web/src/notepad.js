// An editor whose lines are calculated as one types.
import { closeBrackets, completionKeymap } from '@codemirror/autocomplete';
import { defaultKeymap, history, historyKeymap } from '@codemirror/commands';
import { bracketMatching } from '@codemirror/language';
import { EditorState } from '@codemirror/state';
import { EditorView, drawSelection, keymap, lineNumbers } from '@codemirror/view';

import { learn, mirlow } from './language.js';
import { results, show } from './results.js';

// Allows the style sheets of the editor under the site's Content-Security-Policy.
const nonce = document.querySelector('meta[name="style-nonce"]')?.content ?? '';

const linesOf = (state) => Array.from(state.doc.iterLines());

// Options: parent, text, label, engine; onChange(text), onResults(lines), onDone(report) and numbered
// may be left out.
export class Notepad {
  #options;
  #sheet;
  #plots = [];
  #items = [];

  constructor(options) {
    this.#options = options;
    this.#sheet = options.engine.open({
      onResults: (first, items) => this.#showResults(first, items),
      onDone: (report) => this.#finish(report),
    });
    this.view = new EditorView({ parent: options.parent, state: this.#newState(options.text) });
    this.#run();
  }

  get text() {
    return this.view.state.doc.toString();
  }

  // Another text, which begins a history of its own: of a file, or of an address.
  open(text) {
    this.view.setState(this.#newState(text));
    this.#items = [];
    this.#run();
  }

  // Whose numbers are reported along with the symbols.
  set plots(names) {
    this.#plots = names;
    this.#run();
  }

  // What the line with the cursor has to say.
  get currentItems() {
    const { doc, selection } = this.view.state;
    return this.#items[doc.lineAt(selection.main.head).number - 1] ?? [];
  }

  #newState(text) {
    const { label, numbered, onChange } = this.#options;
    return EditorState.create({
      doc: text,
      extensions: [
        numbered ? lineNumbers() : [],
        history(),
        drawSelection(),
        bracketMatching(),
        closeBrackets(),
        mirlow,
        results,
        EditorView.lineWrapping,
        EditorView.cspNonce.of(nonce),
        EditorView.contentAttributes.of({
          'aria-label': label, spellcheck: 'false', autocapitalize: 'off', autocorrect: 'off',
        }),
        keymap.of([...completionKeymap, ...historyKeymap, ...defaultKeymap]),
        EditorView.updateListener.of((update) => {
          if (!update.docChanged) return;
          this.#run();
          onChange?.(this.text);
        }),
      ],
    });
  }

  #run() {
    const { state, viewport } = this.view;
    const shown = state.doc.lineAt(Math.min(viewport.to, state.doc.length)).number - 1;
    this.#sheet.run(linesOf(state), { plots: this.#plots, shown });
  }

  #showResults(first, items) {
    this.#items.splice(first, items.length, ...items);
    show(this.view, first, items);
  }

  #finish(report) {
    learn(this.view, report.names);
    this.#options.onDone?.(report);
  }
}
