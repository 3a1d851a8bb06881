// Search in names. All names are one text in lower case, a line for each, so that a query is a few
// passes over one string. Nothing computes distances between names unless nothing else is found.

import { typeText } from './types.js';

/** What can be found, pages before parts of pages. */
const KINDS = [
  'component',
  'package',
  'service',
  'operation',
  'structure',
  'enumeration',
  'scheme',
  'namespace',
  'command',
  'parameter',
  'field',
  'value',
  'constant',
  'option',
];
const FIRST_PART = KINDS.indexOf('parameter');

/** How well a name matches; each has a bucket for pages and one for parts. */
const EXACT = 0;
const PREFIX = 1;
const WORD = 2;
const WITHIN = 3;
const AROUND = 4;
const BUCKETS = 10;

/** Of each bucket no more are shown. */
const BUCKET_SIZE = 200;

/** The first letters of the words of a name. */
export function initials(name) {
  return name
    .split(/[^\p{L}\p{N}]+|(?<=\p{Ll})(?=\p{Lu})/u)
    .map((word) => word.slice(0, 1))
    .join('')
    .toLowerCase();
}

export class SearchIndex {
  constructor(model) {
    this.model = model;
    const codes = new Map(KINDS.map((kind, position) => [model.kinds.indexOf(kind), position]));
    const ids = [];
    const names = [];
    const starts = [];
    const simple = [];
    const letters = [];
    const letterStarts = [];
    let length = 0;
    let letterLength = 0;
    // A name is prepared once, however many elements have it.
    const prepared = new Map();
    for (let id = 0; id < model.size; ++id) {
      const isKept = model.isFound(id) || model.fateOf(id) === 'shadowed';
      if (!isKept || !codes.has(model.kind[id])) continue;
      const isFull = model.hasFullName(id);
      const key = model.nameOf[id] * 2 + (isFull ? 1 : 0);
      let entry = prepared.get(key);
      if (!entry) {
        const name = model.name(id).slice(0, 1000).replaceAll('\n', ' ');
        const lower = name.toLowerCase();
        const dot = isFull ? lower.lastIndexOf('.') + 1 : 0;
        entry = {
          lower,
          dot,
          letters: initials(name.slice(isFull ? name.lastIndexOf('.') + 1 : 0)),
        };
        prepared.set(key, entry);
      }
      ids.push(id);
      names.push(entry.lower);
      starts.push(length);
      simple.push(length + entry.dot);
      length += entry.lower.length + 1;
      letters.push(entry.letters);
      letterStarts.push(letterLength);
      letterLength += entry.letters.length + 1;
    }
    this.ids = Uint32Array.from(ids);
    this.isPart = Uint8Array.from(ids, (id) => (codes.get(model.kind[id]) >= FIRST_PART ? 1 : 0));
    this.names = names.join('\n') + '\n';
    this.starts = Uint32Array.from([...starts, length]);
    this.simple = Uint32Array.from(simple);
    this.letters = letters.join('\n') + '\n';
    this.letterStarts = Uint32Array.from([...letterStarts, letterLength]);
    this.resourceNames = [...model.resources.keys()];
  }

  /** The best hits of a query, and how many there are: `{ hits: [{ id } or { resource }], total }`. */
  find(query) {
    const found = { buckets: Array.from({ length: BUCKETS }, () => []), total: 0, seen: new Set() };
    if (query.takes.length || query.returns.length) this.findByTypes(query, found);
    else if (query.terms.length) this.findByTerms(query, found);
    else if (query.kinds) this.findByKinds(query, found);
    this.findResources(query, found);
    return { hits: found.buckets.flat(), total: found.total };
  }

  wanted(query) {
    if (!query.kinds) return null;
    return new Set(query.kinds.map((kind) => this.model.kinds.indexOf(kind)));
  }

  keep(found, bucket, hit) {
    ++found.total;
    if (found.buckets[bucket].length < BUCKET_SIZE) found.buckets[bucket].push(hit);
  }

  findByTerms(query, found) {
    const kinds = this.wanted(query);
    const { terms } = query;
    for (const term of terms) {
      const others = terms.filter((other) => other !== term);
      const take = (entry, score) => {
        const id = this.ids[entry];
        if (kinds && !kinds.has(this.model.kind[id])) return;
        if (terms.length > 1) {
          if (found.seen.has(id)) return;
          const full = this.model.fullName(id).toLowerCase();
          if (!others.every((other) => full.includes(other))) return;
          found.seen.add(id);
          if (full.endsWith(terms.join('.'))) score = EXACT;
        }
        this.keep(found, score * 2 + this.isPart[entry], { id });
      };
      this.scanNames(term, take);
      if (terms.length === 1) this.scanInitials(term, take);
    }
  }

  /** Calls `take(entry, score)` once for every name that the term is in. */
  scanNames(term, take) {
    const { names, starts, simple } = this;
    let entry = 0;
    let best = -1;
    for (let at = names.indexOf(term); at >= 0; at = names.indexOf(term, at + 1)) {
      if (at >= starts[entry + 1]) {
        if (best >= 0) take(entry, best);
        best = -1;
        entry = this.entryAt(at, entry + 1);
      }
      const score = this.scoreAt(at, term.length, simple[entry], starts[entry + 1] - 1);
      if (best < 0 || score < best) best = score;
      // Nothing better follows in this name.
      if (best <= PREFIX) at = starts[entry + 1] - 2;
    }
    if (best >= 0) take(entry, best);
  }

  /** The entry that the position is in, `from` or a later one. */
  entryAt(at, from) {
    const { starts } = this;
    let low = from;
    let step = 1;
    while (low + step < starts.length - 1 && starts[low + step] <= at) {
      low += step;
      step *= 2;
    }
    for (; step >= 1; step /= 2) {
      if (low + step < starts.length - 1 && starts[low + step] <= at) low += step;
    }
    return low;
  }

  scoreAt(at, length, simple, end) {
    if (at === simple) return length === end - simple ? EXACT : PREFIX;
    if (at < simple) return AROUND;
    const before = this.names.charCodeAt(at - 1);
    const isLetter =
      (before >= 97 && before <= 122) || (before >= 48 && before <= 57) || before > 127;
    return isLetter ? WITHIN : WORD;
  }

  /** Names of two words or more whose initials begin with the term. */
  scanInitials(term, take) {
    if (term.length < 2 || this.letters.length === 0) return;
    const { letters, letterStarts, names, starts, simple } = this;
    let entry = 0;
    const start = letters.startsWith(term) ? 0 : letters.indexOf('\n' + term);
    for (let at = start; at >= 0; at = letters.indexOf('\n' + term, at + 1)) {
      const begin = letters.charCodeAt(at) === 10 ? at + 1 : at;
      while (letterStarts[entry] < begin) ++entry;
      const isNamed =
        names.startsWith(term, simple[entry]) ||
        names.slice(starts[entry], starts[entry + 1]).includes(term);
      if (isNamed) continue;
      const isWhole = letterStarts[entry + 1] - 1 - begin === term.length;
      take(entry, isWhole ? PREFIX : WORD);
    }
  }

  findByKinds(query, found) {
    const kinds = this.wanted(query);
    for (let entry = 0; entry < this.ids.length; ++entry) {
      const id = this.ids[entry];
      if (kinds.has(this.model.kind[id])) this.keep(found, this.isPart[entry], { id });
    }
  }

  /** Operations by the types of their parameters and results. */
  findByTypes(query, found) {
    const { model } = this;
    const having = (kind, word) => {
      const matches = new Map();
      const isMatch = (detail) => {
        if (!matches.has(detail))
          matches.set(detail, typeText(model, model.details[detail]).toLowerCase().includes(word));
        return matches.get(detail);
      };
      const code = model.kinds.indexOf(kind);
      const owners = new Set();
      for (let id = 0; id < model.size; ++id) {
        if (model.kind[id] === code && model.isFound(id) && isMatch(model.detail[id]))
          owners.add(model.owner[id]);
      }
      return owners;
    };
    const sets = [
      ...query.takes.map((word) => having('parameter', word)),
      ...query.returns.map((word) => having('result', word)),
    ];
    for (const id of sets[0]) {
      if (!sets.every((set) => set.has(id))) continue;
      const full = query.terms.length ? model.fullName(id).toLowerCase() : '';
      if (query.terms.every((term) => full.includes(term))) this.keep(found, 0, { id });
    }
  }

  /** Resources are only names. */
  findResources(query, found) {
    const isWanted = !query.kinds || query.kinds.includes('resource');
    if (!isWanted || query.takes.length || query.returns.length) return;
    for (const resource of this.resourceNames) {
      const lower = resource.toLowerCase();
      if (!query.terms.every((term) => lower.includes(term))) continue;
      const simple = lower.slice(lower.lastIndexOf('.') + 1);
      const isExact = query.terms.length === 1 && simple === query.terms[0];
      this.keep(found, isExact ? 1 : WITHIN * 2, { resource });
    }
  }
}

/** How many letters must be changed, up to `limit`; more than that otherwise. */
export function distance(a, b, limit) {
  if (Math.abs(a.length - b.length) > limit) return limit + 1;
  let before = null;
  let row = Array.from({ length: b.length + 1 }, (_, i) => i);
  for (let i = 1; i <= a.length; ++i) {
    const next = [i];
    let least = i;
    for (let j = 1; j <= b.length; ++j) {
      const same = a[i - 1] === b[j - 1];
      next[j] = Math.min(row[j] + 1, next[j - 1] + 1, row[j - 1] + (same ? 0 : 1));
      const isSwap = i > 1 && j > 1 && a[i - 1] === b[j - 2] && a[i - 2] === b[j - 1];
      if (isSwap) next[j] = Math.min(next[j], before[j - 2] + 1);
      least = Math.min(least, next[j]);
    }
    if (least > limit) return limit + 1;
    before = row;
    row = next;
  }
  return row[b.length];
}
