// What the page knows. The structure block is JSON in columns: the value at a position of each
// column belongs to one element, whose number is that position.
//
//   kind, fate     positions in `kinds` and `fates`; the fate is doubled, and odd if the library
//                  made the element itself
//   name           position in `strings`; full names where elements have them, and of namespaces
//                  and commands
//   owner, by      one more than an element, or 0: what it is in, and what is answered in its place
//   source, line   position in `sources`, and the line of the file
//   detail         position in `details`, a row of numbers. Most are positions in `strings`:
//                    structure     type
//                    constant      category, type, and the value if there is one
//                    scheme        id, type, session manager
//                    command       service, operation, formatter
//                    option        short name, field, type, how many values
//                    output-field  title
//                    annotation    of each member its name, then 0 and a text, or one more than the
//                                  number of its texts and the texts
//                  of parameters, results and fields they are a type; types.js reads it
//   reference…     columns of references: kind, element, and a link to what it names
//   resources      triples: name, annotation that has it, one more than the model or 0
//
// A link is odd for an element, and even for the name of something that is not loaded.

const FULL_NAMES = new Set([
  'component',
  'package',
  'service',
  'structure',
  'enumeration',
  'namespace',
  'command',
  'package-list',
  'service-list',
  'operation-list',
]);

/** Counts into rows: which positions have which value, in ascending order. */
function group(values, size) {
  const begin = new Uint32Array(size + 2);
  for (let i = 0; i < values.length; ++i) if (values[i] >= 0) ++begin[values[i] + 2];
  for (let i = 2; i < begin.length; ++i) begin[i] += begin[i - 1];
  const rows = new Uint32Array(begin[size + 1]);
  for (let i = 0; i < values.length; ++i) if (values[i] >= 0) rows[begin[values[i] + 1]++] = i;
  return { begin, rows };
}

export class Model {
  constructor(data) {
    Object.assign(this, {
      title: data.title,
      kinds: data.kinds,
      fates: data.fates,
      referenceKinds: data.references,
      sources: data.sources,
      failed: data.failed,
      strings: data.strings,
      details: data.details,
      size: data.kind.length,
      kind: Uint8Array.from(data.kind),
      fate: Uint8Array.from(data.fate),
      nameOf: Uint32Array.from(data.name),
      by: Int32Array.from(data.by, (one) => one - 1),
      source: Uint32Array.from(data.source),
      line: Uint32Array.from(data.line),
      detail: Uint32Array.from(data.detail),
      referenceKind: Uint8Array.from(data.referenceKind),
      referenceFrom: Uint32Array.from(data.referenceFrom),
      referenceTo: Uint32Array.from(data.referenceTo),
    });
    /** The documentation of each element or 0; null until it is read. */
    this.texts = null;
    this.owner = Int32Array.from(data.owner, (one) => one - 1);
    this.findHomes();
    this.childRows = group(this.owner, this.size);
    const targets = Int32Array.from(this.referenceTo, (link) => (link % 2 ? link >> 1 : -1));
    this.usedBy = group(targets, this.size);
    this.uses = group(this.referenceFrom, this.size);
    this.resources = this.readResources(data.resources);
  }

  /** What is answered although its owner is not is in what is answered in its owner's place. */
  findHomes() {
    for (let id = 0; id < this.size; ++id) {
      const owner = this.owner[id];
      if (owner === id)
        this.owner[id] = -1; // the root namespace
      else if (owner >= 0 && this.isFound(id) && !this.isFound(owner) && this.by[owner] >= 0) {
        this.owner[id] = this.by[owner];
      }
    }
  }

  /** By name, in the order of names: where it is named, and its models. */
  readResources(triples) {
    const resources = new Map();
    for (let i = 0; i < triples.length; i += 3) {
      const name = this.strings[triples[i]];
      if (!resources.has(name)) resources.set(name, { name, users: [], models: [], last: 0 });
      const resource = resources.get(name);
      const annotation = triples[i + 1];
      resource.last = Math.max(resource.last, this.source[annotation]);
      if (triples[i + 2]) resource.models.push(triples[i + 2] - 1);
      else resource.users.push(this.owner[annotation]);
    }
    return new Map([...resources].sort(([a], [b]) => (a < b ? -1 : 1)));
  }

  kindOf(id) {
    return this.kinds[this.kind[id]];
  }

  fateOf(id) {
    return this.fates[this.fate[id] >> 1];
  }

  /** Whether lookups of its name return it. */
  isFound(id) {
    return this.fate[id] < 2;
  }

  isImplied(id) {
    return this.fate[id] % 2 === 1;
  }

  domainOf(id) {
    return this.sources[this.source[id]].domain;
  }

  name(id) {
    return this.strings[this.nameOf[id]];
  }

  hasFullName(id) {
    return FULL_NAMES.has(this.kindOf(id));
  }

  simpleName(id) {
    const name = this.name(id);
    if (!this.hasFullName(id)) return name;
    return name.slice(name.lastIndexOf('.') + 1) || '.';
  }

  /** The name with those of all that it is in. */
  fullName(id) {
    const names = [];
    for (let step = id; step >= 0; step = this.owner[step]) {
      names.unshift(this.name(step));
      if (this.hasFullName(step)) break;
    }
    return names.join('.') || '.';
  }

  /** What is in it, whatever its fate; with a kind, what of that kind is answered. */
  children(id, kind) {
    const { begin, rows } = this.childRows;
    const all = Array.from(rows.subarray(begin[id], begin[id + 1]));
    if (!kind) return all;
    const code = this.kinds.indexOf(kind);
    // Parts of what is not answered are not answered either, but they are shown on its page.
    const isWanted = (child) => this.isFound(child) || !this.isFound(id);
    return all.filter((child) => this.kind[child] === code && isWanted(child));
  }

  /** In the order of their names. */
  sorted(ids) {
    const keys = new Map(ids.map((id) => [id, this.simpleName(id).toLowerCase()]));
    return ids.sort((a, b) =>
      keys.get(a) < keys.get(b) ? -1 : keys.get(a) > keys.get(b) ? 1 : a - b,
    );
  }

  /** All elements of the kind with that name, the one that is answered first. */
  find(kind, name, domain) {
    const text = this.strings.indexOf(name);
    const code = this.kinds.indexOf(kind);
    const ids = [];
    if (text < 0) return ids;
    for (let id = this.nameOf.indexOf(text); id >= 0; id = this.nameOf.indexOf(text, id + 1)) {
      if (this.kind[id] !== code || (domain && this.domainOf(id) !== domain)) continue;
      if (this.isFound(id)) ids.unshift(id);
      else ids.push(id);
    }
    return ids;
  }

  /** All elements of a kind that are answered. */
  ofKind(kind) {
    const code = this.kinds.indexOf(kind);
    const ids = [];
    for (let id = 0; id < this.size; ++id) {
      if (this.kind[id] === code && this.isFound(id)) ids.push(id);
    }
    return ids;
  }

  /** The numbers of its detail. */
  row(id) {
    return this.details[this.detail[id]];
  }

  /** A text of its detail; empty for one that it has not. */
  text(id, position) {
    return this.strings[this.row(id)[position]] ?? '';
  }

  documentation(id) {
    return (this.texts && this.texts[id]) || '';
  }

  reference(position) {
    const link = this.referenceTo[position];
    return {
      kind: this.referenceKinds[this.referenceKind[position]],
      from: this.referenceFrom[position],
      ...this.link(link),
    };
  }

  /** What a link leads to: an element, or -1 and only a name. */
  link(link) {
    const id = link % 2 ? link >> 1 : -1;
    return { id, name: id < 0 ? this.strings[link >> 1] : this.fullName(id) };
  }

  /** What the element names. */
  referencesFrom(id, kind) {
    return this.referencesIn(this.uses, id, kind);
  }

  /** What names the element. */
  referencesTo(id, kind) {
    return this.referencesIn(this.usedBy, id, kind);
  }

  referencesIn({ begin, rows }, id, kind) {
    const code = this.referenceKinds.indexOf(kind);
    const found = [];
    for (let i = begin[id]; i < begin[id + 1]; ++i) {
      if (!kind || this.referenceKind[rows[i]] === code) found.push(this.reference(rows[i]));
    }
    return found;
  }

  /** The members of an annotation: names with their texts. */
  members(id) {
    const row = this.row(id);
    const members = [];
    for (let i = 0; i < row.length;) {
      const name = this.strings[row[i]];
      const count = Math.max(row[i + 1] - 1, row[i + 1] ? 0 : 1);
      i += 2;
      members.push({ name, texts: row.slice(i, i + count).map((text) => this.strings[text]) });
      i += count;
    }
    return members;
  }
}
