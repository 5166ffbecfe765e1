// The page with one notepad.
import { keep, load, readAddress, writeAddress } from './address.js';
import { Engine } from './engine.js';
import { onFile, save } from './files.js';
import { Notepad } from './notepad.js';
import { Panel } from './panel.js';

const EXAMPLE = `// A change shows in every line at once
width=3
height=4
area&=width*height
2*area
heights=<3, 1, 4, 1, 5>
heights*height
`;

const at = (id) => document.getElementById(id);

// Says the result of the line with the cursor to screen readers, once typing rests.
function announceAfter(milliseconds) {
  let timer = 0;
  return (items) => {
    clearTimeout(timer);
    timer = setTimeout(() => {
      at('status').textContent = items.map(({ text }) => text).join('; ');
    }, milliseconds);
  };
}

async function share(text) {
  history.replaceState(null, '', writeAddress(text));
  try {
    await navigator.clipboard.writeText(location.href);
    at('status').textContent = 'The address is copied and has the text in it';
  } catch {
    at('status').textContent = 'The address has the text in it';
  }
}

const module = await WebAssembly.compileStreaming(fetch('mirlow.wasm'));
const announce = announceAfter(500);
const panel = new Panel({
  body: at('symbols'),
  note: at('symbols-note'),
  onPlots: (names) => {
    notepad.plots = names;
  },
});
const notepad = new Notepad({
  parent: at('editor'),
  label: 'Notepad, one calculation on each line',
  text: readAddress(location.hash) ?? load() ?? EXAMPLE,
  engine: new Engine(module),
  numbered: true,
  onChange: keep,
  onDone: (report) => {
    panel.show(report);
    announce(notepad.currentItems);
  },
});

addEventListener('hashchange', () => {
  const text = readAddress(location.hash);
  if (text !== null && text !== notepad.text) notepad.open(text);
});
onFile(at('file'), (text) => {
  notepad.open(text.replace(/\r\n?/g, '\n'));
  keep(notepad.text);
});
at('open').addEventListener('click', () => at('file').click());
at('save').addEventListener('click', () => save(notepad.text, 'page.mirlow'));
at('share').addEventListener('click', () => share(notepad.text));
notepad.view.focus();
