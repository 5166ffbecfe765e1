// Makes a notepad of each dialogue on a page, in its place.
import { Engine } from './engine.js';
import { Notepad } from './notepad.js';

const module = await WebAssembly.compileStreaming(fetch('mirlow.wasm'));
const engine = new Engine(module);
document.querySelectorAll('.dialogue').forEach((dialogue, i) => {
  const lines = [...dialogue.querySelectorAll('.typed')].map((line) => line.textContent);
  dialogue.replaceChildren();
  new Notepad({ parent: dialogue, text: lines.join('\n'), label: `Dialogue ${i + 1}`, engine });
});
document.body.dataset.ready = 'true';
