// A text behind the "#" of an address, and the last one in the storage of the browser.

const KEY = 'mirlow text';

// Null when the address has none, or one that was cut.
export function readAddress(hash) {
  if (hash.length < 2) return null;
  try {
    return decodeURIComponent(hash.slice(1));
  } catch {
    return null;
  }
}

export function writeAddress(text) {
  return `#${encodeURIComponent(text)}`;
}

// Storage may be forbidden or full; then nothing is kept.
export function load() {
  try {
    return localStorage.getItem(KEY);
  } catch {
    return null;
  }
}

export function keep(text) {
  try {
    localStorage.setItem(KEY, text);
  } catch {
    // Nothing depends on it.
  }
}
