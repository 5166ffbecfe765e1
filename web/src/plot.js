// Draws numbers as a line in SVG, one step to the right for each.

const WIDTH = 240;
const HEIGHT = 90;
const MARGIN = 6;

function element(name, attributes) {
  const made = document.createElementNS('http://www.w3.org/2000/svg', name);
  for (const [key, value] of Object.entries(attributes)) made.setAttribute(key, value);
  return made;
}

// The points of the line; numbers that are infinite or none interrupt it. A list of lists.
export function pieces(numbers) {
  const finite = numbers.filter(Number.isFinite);
  const low = finite.reduce((a, b) => Math.min(a, b), Infinity);
  const high = finite.reduce((a, b) => Math.max(a, b), -Infinity);
  // Halves, since the difference may be beyond the largest number.
  const height = (high / 2 - low / 2) || 1;
  const step = (WIDTH - 2 * MARGIN) / Math.max(numbers.length - 1, 1);
  const lists = [[]];
  numbers.forEach((number, i) => {
    if (!Number.isFinite(number)) return lists.push([]);
    const share = high === low ? 0.5 : (number / 2 - low / 2) / height;
    lists.at(-1).push([MARGIN + i * step, HEIGHT - MARGIN - share * (HEIGHT - 2 * MARGIN)]);
  });
  return lists.filter((list) => list.length > 0);
}

const round = (number) => Math.round(number * 100) / 100;

export function plot(name, numbers) {
  const box = element('svg', { viewBox: `0 0 ${WIDTH} ${HEIGHT}`, role: 'img', class: 'plot',
    'aria-label': `Plot of ${name}: ${numbers.length} numbers` });
  for (const points of pieces(numbers)) {
    const text = points.map((point) => point.map(round).join(',')).join(' ');
    box.append(element('polyline', { points: text }));
    if (points.length > 60) continue;
    for (const [x, y] of points) box.append(element('circle', { cx: round(x), cy: round(y), r: 2 }));
  }
  return box;
}
