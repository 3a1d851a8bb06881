// Search in names. All names are one text in lower case, a line for each, so that a query is a few
// passes over one string. Nothing computes distances between names unless nothing else is found.

import { model } from './model.js';
import { namedPages } from './routes.js';
import { KINDS } from './search_query.js';
import { typeText } from './types.js';

const FIRST_PART = KINDS.indexOf('parameter');

/** How well a name matches; each has a bucket for pages and one for parts. */
const EXACT = 0;
const PREFIX = 1;
const WORD = 2;
const WITHIN = 3;
const AROUND = 4;

/** Of each bucket no more are shown. */
const BUCKET_SIZE = 200;

/** The first letters of the words of a name. */
function initials(name) {
  const words = name.split(/[^\p{L}\p{N}]+|(?<=\p{Ll})(?=\p{Lu})/u);
  return words
    .map((word) => word.slice(0, 1))
    .join('')
    .toLowerCase();
}

const LETTER = /[\p{L}\p{N}]/u;

/** Whether a word at the position or after it begins with the term. */
function hasWord(text, term, begin) {
  let at = text.indexOf(term, begin);
  while (at > 0 && LETTER.test(text[at - 1])) at = text.indexOf(term, at + 1);
  return at >= 0;
}

/** Texts as lines of one text: where each begins, and where the last one ends. */
class Lines {
  starts = [1];
  texts = [];

  add(text) {
    this.texts.push(text);
    this.starts.push(this.starts.at(-1) + text.length + 1);
  }

  finish() {
    this.text = `\n${this.texts.join('\n')}\n`;
    this.starts = Uint32Array.from(this.starts);
    this.texts = null;
  }

  lineAt(position) {
    return this.text.slice(this.starts[position], this.starts[position + 1] - 1);
  }
}

class SearchIndex {
  names = new Lines();
  letters = new Lines();

  constructor() {
    const ranks = model.kinds.map((kind) => KINDS.indexOf(kind));
    const isKept = (id) => model.isFound(id) || model.fateOf(id) === 'shadowed';
    this.ids = model.all((id) => ranks[model.kind[id]] >= 0 && isKept(id));
    this.isPart = this.ids.map((id) => (ranks[model.kind[id]] >= FIRST_PART ? 1 : 0));
    // A name is prepared once, however many elements have it.
    const prepared = new Map();
    const simple = [];
    for (const id of this.ids) {
      const isDotted = model.hasDots(id);
      const key = isDotted ? model.name[id] : -model.name[id];
      if (!prepared.has(key)) {
        const name = model.nameOf(id).slice(0, 1000).replaceAll('\n', ' ');
        const lower = name.toLowerCase();
        const dot = isDotted ? lower.lastIndexOf('.') + 1 : 0;
        prepared.set(key, [lower, dot, initials(name.slice(dot))]);
      }
      const [lower, dot, letters] = prepared.get(key);
      simple.push(this.names.starts.at(-1) + dot);
      this.names.add(lower);
      this.letters.add(letters);
    }
    this.simple = Uint32Array.from(simple);
    this.names.finish();
    this.letters.finish();
    this.named = namedPages();
  }

  /** The best hits of a query, and how many there are: `{ hits: [{ id } or { named }], total }`. */
  find(query) {
    this.buckets = Array.from({ length: 2 * AROUND + 2 }, () => []);
    this.total = 0;
    this.owner = null;
    this.joined = query.terms.join('.');
    if (query.isEmpty) return { hits: [], total: 0 };
    if (query.isOfTypes) this.findByTypes(query);
    else if (query.terms.length) this.findByTerms(query);
    else
      this.ids.forEach(
        (id, entry) => this.isOf(query, id) && this.keep(this.isPart[entry], { id }),
      );
    if (!query.isOfTypes) this.findNamed(query);
    return { hits: this.buckets.flat(), total: this.total };
  }

  isOf(query, id) {
    return !query.kind || model.kindOf(id) === query.kind;
  }

  keep(bucket, hit) {
    ++this.total;
    if (this.buckets[bucket].length < BUCKET_SIZE) this.buckets[bucket].push(hit);
  }

  findByTerms(query) {
    const { terms } = query;
    const seen = new Set();
    for (const term of terms) {
      const take = (entry, score) => {
        const id = this.ids[entry];
        if (!this.isOf(query, id)) return;
        if (terms.length > 1) {
          if (seen.has(id)) return;
          score = this.scoreOfAll(entry, terms, score);
          if (score > AROUND) return;
          seen.add(id);
        }
        this.keep(score * 2 + this.isPart[entry], { id });
      };
      this.scanNames(term, take);
      if (terms.length === 1) this.scanInitials(term, take);
    }
  }

  /** Best if the last two names have all the terms; above AROUND if one is missing. */
  scoreOfAll(entry, terms, score) {
    const id = this.ids[entry];
    const name = this.names.lineAt(entry);
    const owner = model.hasFullName(id) ? -1 : model.owner[id];
    // Names that follow each other are mostly in the same thing.
    if (owner !== this.owner) {
      this.owner = owner;
      this.around = owner < 0 ? '' : model.fullName(owner).toLowerCase() + '.';
      this.missing = terms.filter((term) => !this.around.includes(term));
    }
    if (!this.missing.every((term) => name.includes(term))) return AROUND + 1;
    const full = this.around + name;
    if (full.endsWith(this.joined)) return EXACT;
    const begin = full.lastIndexOf('.', full.lastIndexOf('.') - 1) + 1;
    const isNear = terms.every((term) => hasWord(full, term, begin));
    return isNear ? score : AROUND;
  }

  /** Calls `take(entry, score)` once for every name that the term is in. */
  scanNames(term, take) {
    const { text, starts } = this.names;
    let best = AROUND + 1;
    let entry = 0;
    for (let at = text.indexOf(term); at >= 0; at = text.indexOf(term, at + 1)) {
      if (at >= starts[entry + 1]) {
        if (best <= AROUND) take(entry, best);
        best = AROUND + 1;
        while (starts[entry + 1] <= at) ++entry;
      }
      best = Math.min(best, this.scoreAt(at, term.length, entry));
      // Nothing better follows in this name.
      if (best <= PREFIX) at = starts[entry + 1] - 2;
    }
    if (best <= AROUND) take(entry, best);
  }

  scoreAt(at, length, entry) {
    const begin = this.simple[entry];
    if (at < begin) return AROUND;
    if (at === begin) return at + length === this.names.starts[entry + 1] - 1 ? EXACT : PREFIX;
    return LETTER.test(this.names.text[at - 1]) ? WITHIN : WORD;
  }

  /** Names of which only the initials begin with the term. */
  scanInitials(term, take) {
    const { text, starts } = this.letters;
    if (term.length < 2) return;
    let entry = 0;
    const line = '\n' + term;
    for (let at = text.indexOf(line); at >= 0; at = text.indexOf(line, at + 1)) {
      while (starts[entry] <= at) ++entry;
      const isWhole = starts[entry + 1] - starts[entry] === term.length + 1;
      if (!this.names.lineAt(entry).includes(term)) take(entry, isWhole ? PREFIX : WORD);
    }
  }

  /** Operations by the types of their parameters and results. */
  findByTypes(query) {
    const owners = (kind) => (word) => {
      const matches = new Map();
      const isMatch = (detail) => {
        const text = () => typeText(model.details[detail]).toLowerCase();
        if (!matches.has(detail)) matches.set(detail, text().includes(word));
        return matches.get(detail);
      };
      const ids = model.ofKind(kind).filter((id) => isMatch(model.detail[id]));
      return new Set(ids.map((id) => model.owner[id]));
    };
    const sets = [...query.takes.map(owners('parameter')), ...query.returns.map(owners('result'))];
    for (const id of sets[0]) {
      const full = model.fullName(id).toLowerCase();
      const isHit =
        sets.every((set) => set.has(id)) && query.terms.every((term) => full.includes(term));
      if (isHit) this.keep(0, { id });
    }
  }

  /** Resources and sources, which are not elements. */
  findNamed({ kind, terms }) {
    for (const named of this.named) {
      const lower = named.name.toLowerCase();
      const isMatch = (term) => lower.includes(term) || named.fingerprint?.startsWith(term);
      if ((kind && kind !== named.kind) || !terms.every(isMatch)) continue;
      this.keep((lower.endsWith('.' + this.joined) ? PREFIX : WITHIN) * 2, { named });
    }
  }
}

let index = null;

/** The index of all names, which is made when it is first needed. */
export function nameIndex() {
  return (index ??= new SearchIndex());
}
