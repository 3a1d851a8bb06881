// Types as texts and links. A type is a row of links, outermost first: even for words, odd for
// definitions. In front of a name that is not loaded is an empty word.

import { model } from './model.js';

/** How many types each generic type is made of. */
const PARTS = { __proto__: null, LIST: 1, SET: 1, OPTIONAL: 1, MAP: 2 };

/** More is not shown: types may nest to any depth. */
const LONGEST = 400;

/** The pieces of a type: texts, and definitions with their `id`, which is -1 if it is not loaded. */
export function typePieces(row) {
  const pieces = [];
  // How many types each generic type still needs.
  const open = [];
  for (let i = 0; i < row.length && pieces.length < LONGEST; ++i) {
    const link = row[i];
    const word = model.strings[link >> 1];
    if (link % 2) pieces.push({ id: link >> 1, text: model.simpleName(link >> 1) });
    else if (word === '') pieces.push({ id: -1, text: model.strings[row[++i] >> 1] });
    else pieces.push({ text: word });
    if (PARTS[word] && !(link % 2)) {
      open.push(PARTS[word]);
      pieces.push({ text: '<' });
      continue;
    }
    while (open.length && --open[open.length - 1] === 0) {
      open.pop();
      pieces.push({ text: '>' });
    }
    if (open.length) pieces.push({ text: ', ' });
  }
  return open.length ? [...pieces, { text: '…' }] : pieces;
}

export function typeText(row) {
  return typePieces(row)
    .map((piece) => piece.text)
    .join('');
}
