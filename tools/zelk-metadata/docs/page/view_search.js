// Results of searches, and the page with all of them.

import { counted, h, name, number, quiet } from './dom.js';
import { model } from './model.js';
import { glyph, kindText, later, list, mark, title } from './parts.js';
import { href } from './routes.js';
import { nameIndex } from './search_index.js';
import { parseQuery } from './search_query.js';
import { findInTexts, findNearNames } from './search_texts.js';

/** What is shown of a hit: its kind, its name, what it is in or where its text matches. */
export function describe({ id, named, pattern }) {
  if (named) return { ...named, around: named.name.slice(0, -named.text.length - 1) };
  const full = model.fullName(id);
  const text = pattern ? full.split('.').slice(-2).join('.') : model.simpleName(id);
  const around = model.hasFullName(id)
    ? full.slice(0, -text.length - 1)
    : model.fullName(model.owner[id]);
  return {
    kind: kindText(id),
    text,
    around: pattern ? excerpt(id, pattern) : around,
    address: href(id),
  };
}

/** The number of the hits comes after it. */
export function textsHeading(hits, limit) {
  return 'In documentation' + (hits.length < limit ? '' : ', the first');
}

/** The words around the first place of the pattern, and what follows. */
function excerpt(id, pattern) {
  const text = model.documentation(id);
  const at = text.search(pattern);
  const begin = at > 60 ? Math.min(at, text.indexOf(' ', at - 60) + 1 || at) : 0;
  return (begin ? '…' : '') + text.slice(begin);
}

/** Slower searches are filled in when they are done. */
export function viewSearch(text = '') {
  const query = parseQuery(text);
  const { hits, total } = nameIndex().find(query);
  const item = (hit) => {
    const { kind, text: found, around, address } = describe(hit);
    return [
      glyph(kind),
      ' ',
      h('a', { href: address }, name(found)),
      ' ',
      around && quiet(name(around)),
      hit.id >= 0 && mark(hit.id),
    ];
  };
  const rest = h('div');
  const isOver = () => false;
  later(rest, async () => {
    const texts = await findInTexts(query, 100, isOver);
    rest.append(list(textsHeading(texts, 100), texts, item) || '');
    if (hits.length + texts.length) return;
    rest.append(list('Did you mean', await findNearNames(query, 20, isOver), item) || '');
  });
  const best = hits.length < total && `, of which the best ${number(hits.length)} are shown`;
  return [
    title('search', text),
    h('p.quiet', { role: 'status' }, counted(total, 'name'), best),
    list('In names', hits, item),
    rest,
  ];
}
