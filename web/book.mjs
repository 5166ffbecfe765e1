// A page of docs/ as HTML. A dialogue stands there as it does in the text; where scripts run, it is
// made a notepad. One in which questions are answered, or which never ends, stays as it is.
import { Marked } from 'marked';

const escape = (text) => text.replace(/[&<>"]/g, (c) => `&#${c.charCodeAt(0)};`);

const IS_STILL = /^<( |$)|^\((dies|never returns)\)$/m;

// In a dialogue, what is typed is told from what is printed.
function renderDialogue(text) {
  const lines = text.split('\n').map((line) => {
    if (/^>( |$)/.test(line)) return `&#62; <span class="typed">${escape(line.slice(2))}</span>`;
    return escape(line);
  });
  const pre = `<pre tabindex="0">${lines.join('\n')}</pre>`;
  return IS_STILL.test(text) ? `${pre}\n` : `<div class="dialogue">${pre}</div>\n`;
}

// As in the addresses of headings elsewhere: small letters, with hyphens for blanks.
const slug = (text) => text.toLowerCase().replace(/[^\w\- ]/g, '').replace(/ /g, '-');

// Pages of this site are linked to; of all others there is only the name.
const PAGES = { 'tutorial.md': 'tutorial.html', 'language.md': 'language.html' };

export function renderBook(text) {
  const marked = new Marked({
    renderer: {
      code({ text: code, lang }) {
        if (lang === 'mirlow') return renderDialogue(code);
        return `<pre tabindex="0"><code>${escape(code)}</code></pre>\n`;
      },
      heading({ tokens, depth, text: title }) {
        const content = this.parser.parseInline(tokens);
        return `<h${depth} id="${escape(slug(title))}">${content}</h${depth}>\n`;
      },
      // A header without a word is none.
      tablecell({ header, tokens }) {
        const tag = header && tokens.length > 0 ? 'th' : 'td';
        return `<${tag}>${this.parser.parseInline(tokens)}</${tag}>`;
      },
      link({ href, tokens }) {
        const content = this.parser.parseInline(tokens);
        const [file, part] = href.split('#');
        const page = file === '' ? '' : PAGES[file];
        if (page === undefined) return content;
        return `<a href="${page}${part ? '#' + escape(part) : ''}">${content}</a>`;
      },
    },
  });
  return `<article>\n${marked.parse(text)}</article>\n`;
}
