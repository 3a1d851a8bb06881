// Searches that take longer than a key stroke may: in documentation, and for names that are nearly
// the same. They run in slices, so that the page answers meanwhile.

import { distance } from './search_index.js';

const SLICE_MILLISECONDS = 8;

/** Lets the page do something else. */
function pause() {
  return new Promise((resolve) => setTimeout(resolve));
}

/** Calls `look(i)` for every number below the size, until it returns true or the search is over. */
async function inSlices(size, isOver, look) {
  let end = performance.now() + SLICE_MILLISECONDS;
  for (let i = 0; i < size; ++i) {
    if (i % 64 === 0 && performance.now() > end) {
      await pause();
      if (isOver()) return;
      end = performance.now() + SLICE_MILLISECONDS;
    }
    if (look(i)) return;
  }
}

/** Elements whose documentation has all the terms, at most `limit`. */
export async function findInTexts(model, query, limit, isOver) {
  const hits = [];
  if (!model.texts || !query.terms.length || query.takes.length || query.returns.length)
    return hits;
  const codes = query.kinds && new Set(query.kinds.map((kind) => model.kinds.indexOf(kind)));
  const escaped = query.terms.map((term) => term.replace(/[.*+?^${}()|[\]\\]/g, '\\$&'));
  const patterns = escaped.map((term) => new RegExp(term, 'iu'));
  await inSlices(model.size, isOver, (id) => {
    const text = model.texts[id];
    if (!text || (codes && !codes.has(model.kind[id])) || !model.isFound(id)) return false;
    if (patterns.every((pattern) => pattern.test(text))) hits.push({ id, pattern: patterns[0] });
    return hits.length >= limit;
  });
  return hits;
}

/** Elements with names that may be meant, nearest first. */
export async function findNearNames(model, query, limit, isOver) {
  const term = query.terms.at(-1) ?? '';
  const most = Math.min(3, Math.floor(term.length / 3));
  if (!most) return [];
  const near = [];
  const distances = new Map();
  await inSlices(model.size, isOver, (id) => {
    if (!model.isFound(id)) return false;
    const kind = model.kindOf(id);
    if (query.kinds ? !query.kinds.includes(kind) : !model.hasFullName(id) && kind !== 'operation')
      return false;
    const name = model.simpleName(id).toLowerCase();
    if (!distances.has(name)) distances.set(name, distance(name, term, most));
    if (distances.get(name) <= most) near.push({ id, distance: distances.get(name) });
    return false;
  });
  return near.sort((a, b) => a.distance - b.distance).slice(0, limit);
}
