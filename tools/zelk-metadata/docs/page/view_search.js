// Results of searches, and the page with all of them.

import { counted, h, name, number, quiet } from './dom.js';
import { glyph, kindText, later, list, title } from './parts.js';
import { href } from './routes.js';
import { parseQuery } from './search_query.js';
import { findInTexts, findNearNames } from './search_texts.js';

/** What is shown of a hit: its kind, its name, what it is in or where its text matches. */
export function describe(model, { id, named, pattern }) {
  if (named) return { ...named, around: named.name.slice(0, -named.text.length - 1) };
  const full = model.fullName(id);
  const text = pattern ? full.split('.').slice(-2).join('.') : model.simpleName(id);
  const around = pattern ? excerpt(model, id, pattern) : full.slice(0, -text.length - 1);
  return { kind: kindText(model, id), text, around, address: href(model, id) };
}

/** The number of the hits comes after it. */
export function textsHeading(hits, limit) {
  return 'In documentation' + (hits.length < limit ? '' : ', the first');
}

/** What is around the first place of the pattern. */
function excerpt(model, id, pattern) {
  const text = model.documentation(id);
  const begin = Math.max(0, text.search(pattern) - 60);
  return (begin ? '…' : '') + text.slice(begin, begin + 160);
}

/** Slower searches are filled in when they are done. */
export function viewSearch(model, index, text = '') {
  const query = parseQuery(text);
  const { hits, total } = index.find(query);
  const item = (hit) => {
    const { kind, text: found, around, address } = describe(model, hit);
    return [
      glyph(kind),
      ' ',
      h('a', { href: address }, name(found)),
      ' ',
      around && quiet(name(around)),
    ];
  };
  const rest = h('div');
  const isOver = () => false;
  later(model, rest, async () => {
    const texts = await findInTexts(model, query, 100, isOver);
    rest.append(list(textsHeading(texts, 100), texts, item) || '');
    if (hits.length + texts.length) return;
    rest.append(list('Did you mean', await findNearNames(model, query, 20, isOver), item) || '');
  });
  const best = hits.length < total && `, of which the best ${number(hits.length)} are shown`;
  return [
    title('search', text),
    h('p.quiet', { role: 'status' }, counted(total, 'name'), best),
    list('In names', hits, item),
    rest,
  ];
}
