// A sheet is the text of a notepad, calculated line by line from the first one on. What a line has to
// say is a list of items: { kind: 'value' | 'warning' | 'error' | 'skipped', text, from, to }. The
// place is that of the command which said it, or of what is wrong in it, in units of the line.

// As in the program: ";" separates commands wherever it stands, and nothing is said of empty ones and
// of comments.
export function splitCommands(line) {
  const commands = [];
  let from = 0;
  for (const text of line.split(';')) {
    if (text !== '' && !text.startsWith('//')) commands.push({ text, from });
    from += text.length + 1;
  }
  return commands;
}

// Where the expression of a command begins; -1 when the command has none to find a mistake in.
function expressionStart(command) {
  const equals = command.indexOf('=');
  // A bad name is reported before the expression is looked at.
  if (equals >= 0) return /^ *[a-zA-Z0-9]+ *$/.test(command.slice(0, equals)) ? equals + 1 : -1;
  return /^[~?]|:/.test(command) ? -1 : 0;
}

const trimmed = (printed) => printed.replace(/^\t/, '').replace(/\n$/, '');

function kindOf(printed) {
  const word = /^\t(Error|Warning) : /.exec(printed);
  return word ? word[1].toLowerCase() : 'value';
}

function placeOf(calculator, command, printed) {
  const whole = { from: 0, to: command.length };
  const start = expressionStart(command);
  if (start < 0) return whole;
  const mistake = calculator.mistake(command.slice(start));
  if (!mistake || mistake.from === mistake.to || !printed.startsWith(mistake.text)) return whole;
  return { from: start + mistake.from, to: start + mistake.to };
}

export function calculateLine(calculator, line) {
  const items = [];
  for (const { text, from } of splitCommands(line)) {
    const printed = calculator.processLine(text);
    if (printed === '') continue;
    const kind = kindOf(printed);
    const place = kind === 'error' ? placeOf(calculator, text, printed)
      : { from: 0, to: text.length };
    items.push({ kind, text: trimmed(printed), from: from + place.from, to: from + place.to });
  }
  return items;
}

// A long text is shown in part.
export function shorten(text, most) {
  if (text.length <= most) return text;
  return `${text.slice(0, most)} … and ${text.length - most} more characters`;
}
