// Searches that take longer than a key stroke may: in documentation, and for names that are nearly
// the same. They run in slices, so that the page responds meanwhile.

import { model } from './model.js';

const SLICE_MILLISECONDS = 8;

/** Calls `look(id)` for every element that may be meant until it returns true or all is over. */
async function inSlices(query, isOver, look) {
  let end = performance.now() + SLICE_MILLISECONDS;
  for (let id = 0; id < model.size; ++id) {
    if (id % 64 === 0 && performance.now() > end) {
      await new Promise((resolve) => setTimeout(resolve));
      if (isOver()) return;
      end = performance.now() + SLICE_MILLISECONDS;
    }
    const isWanted = model.isFound(id) && (!query.kind || model.kindOf(id) === query.kind);
    if (isWanted && look(id)) return;
  }
}

/** Elements whose documentation has all the terms, at most `limit`. */
export async function findInTexts(query, limit, isOver) {
  const hits = [];
  if (!model.texts || !query.terms.length || query.isOfTypes) return hits;
  const escaped = query.terms.map((term) => term.replace(/[.*+?^${}()|[\]\\]/g, '\\$&'));
  const patterns = escaped.map((term) => new RegExp(term, 'iu'));
  await inSlices(query, isOver, (id) => {
    const text = model.texts[id];
    if (text && patterns.every((pattern) => pattern.test(text)))
      hits.push({ id, pattern: patterns[0] });
    return hits.length >= limit;
  });
  return hits;
}

/** Elements with names that may be meant, nearest first. */
export async function findNearNames(query, limit, isOver) {
  const term = query.terms.at(-1) ?? '';
  const most = Math.min(3, Math.floor(term.length / 3));
  const near = [];
  const distances = new Map();
  if (!most) return near;
  await inSlices(query, isOver, (id) => {
    if (!query.kind && !model.hasFullName(id) && model.kindOf(id) !== 'operation') return;
    const name = model.simpleName(id).toLowerCase();
    if (!distances.has(name)) distances.set(name, distance(name, term, most));
    if (distances.get(name) <= most) near.push({ id, distance: distances.get(name) });
  });
  return near.sort((a, b) => a.distance - b.distance).slice(0, limit);
}

/** How many letters must be changed, or more than `limit`. */
function distance(a, b, limit) {
  if (Math.abs(a.length - b.length) > limit) return limit + 1;
  let before = [];
  let row = Array.from({ length: b.length + 1 }, (_, i) => i);
  for (let i = 1; i <= a.length && Math.min(...row) <= limit; ++i) {
    const next = [i];
    for (let j = 1; j <= b.length; ++j) {
      const changed = row[j - 1] + (a[i - 1] === b[j - 1] ? 0 : 1);
      const isSwap = j > 1 && a[i - 1] === b[j - 2] && a[i - 2] === b[j - 1];
      next[j] = Math.min(
        row[j] + 1,
        next[j - 1] + 1,
        changed,
        isSwap ? before[j - 2] + 1 : changed,
      );
    }
    [before, row] = [row, next];
  }
  return row[b.length];
}
