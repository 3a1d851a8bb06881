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

const COLUMNS = [
  'kind',
  'fate',
  'name',
  'owner',
  'by',
  'source',
  'line',
  'detail',
  'referenceKind',
  'referenceFrom',
  'referenceTo',
];

const FULL_NAMES =
  /^(component|authentication|package|service|structure|enumeration|namespace|command|.*-list)$/;

/** Which positions have which value, in ascending order. */
function group(values, size) {
  const begin = new Uint32Array(size + 2);
  for (const value of values) if (value >= 0) ++begin[value + 2];
  for (let i = 2; i < begin.length; ++i) begin[i] += begin[i - 1];
  const rows = new Uint32Array(begin[size + 1]);
  values.forEach((value, i) => value >= 0 && (rows[begin[value + 1]++] = i));
  return (value) => rows.subarray(begin[value], begin[value + 1]);
}

class Model {
  /** The documentation of each element or 0; null until it is read. */
  texts = null;

  /** What to call then. */
  waiting = [];

  read(data) {
    Object.assign(this, data);
    for (const column of COLUMNS) this[column] = Int32Array.from(data[column]);
    this.size = this.kind.length;
    this.fullKinds = this.kinds.map((kind) => FULL_NAMES.test(kind));
    for (const column of ['owner', 'by']) this[column].forEach((id, i, all) => (all[i] = id - 1));
    this.inOwner = group(this.owner, this.size);
    this.withName = group(this.name, this.strings.length);
    this.fromElement = group(this.referenceFrom, this.size);
    this.toElement = group(
      this.referenceTo.map((link) => (link % 2 ? link >> 1 : -1)),
      this.size,
    );
    this.resources = this.readResources(data.resources);
  }

  /** By name, in the order of names: what names it, and its models. */
  readResources(triples) {
    const resources = new Map();
    for (let i = 0; i < triples.length; i += 3) {
      const name = this.strings[triples[i]];
      const [annotation, model] = [triples[i + 1], triples[i + 2] - 1];
      if (!resources.has(name)) resources.set(name, { name, users: [], models: [], last: 0 });
      const resource = resources.get(name);
      resource.last = Math.max(resource.last, this.source[annotation]);
      if (model < 0) resource.users.push(this.owner[annotation]);
      else resource.models.push(model);
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

  sourceOf(id) {
    return this.sources[this.source[id]];
  }

  nameOf(id) {
    return this.strings[this.name[id]];
  }

  hasFullName(id) {
    return this.fullKinds[this.kind[id]];
  }

  /** Whether only the last part of its name is its own. Errors have the names of their types. */
  hasDots(id) {
    return this.hasFullName(id) || this.kindOf(id) === 'error';
  }

  simpleName(id) {
    const name = this.nameOf(id);
    return this.hasDots(id) ? name.slice(name.lastIndexOf('.') + 1) || '.' : name;
  }

  /** What comes after the name of the owner. */
  relativeName(id) {
    const full = this.nameOf(id);
    if (this.owner[id] < 0) return full;
    const around = `${this.nameOf(this.owner[id])}.`;
    return (full.startsWith(around) && full.slice(around.length)) || this.simpleName(id);
  }

  /** The name with those of all that it is in. */
  fullName(id) {
    let name = this.nameOf(id);
    while (!this.hasFullName(id) && this.owner[id] >= 0) {
      id = this.owner[id];
      name = `${this.nameOf(id)}.${name}`;
    }
    return name || '.';
  }

  /** What is in it: of these kinds if some are given, and answered if it is itself. */
  children(id, ...kinds) {
    const all = Array.from(this.inOwner(id));
    if (!kinds.length) return all;
    const isWanted = (child) => this.isFound(child) || !this.isFound(id);
    return kinds.flatMap((kind) =>
      all.filter((child) => this.kindOf(child) === kind && isWanted(child)),
    );
  }

  /** The same, in the order of their names. */
  sorted(id, kind) {
    const keyed = this.children(id, kind).map((child) => [this.nameOf(child).toLowerCase(), child]);
    keyed.sort(([a], [b]) => (a < b ? -1 : Number(a > b)));
    return keyed.map(([, child]) => child);
  }

  /** All elements of the kind with that name, the one that is answered first. */
  find(kind, name) {
    return this.named(kind, this.strings.indexOf(name));
  }

  /** The same with the position of the name in `strings`. */
  named(kind, text) {
    const ids = Array.from(this.withName(text));
    return this.foundFirst(ids.filter((id) => this.kindOf(id) === kind));
  }

  /** The same elements, the one that is answered first. */
  foundFirst(ids) {
    return ids.sort((a, b) => this.isFound(b) - this.isFound(a));
  }

  /** All elements for which `isWanted(id)` is true. */
  all(isWanted) {
    const ids = [];
    for (let id = 0; id < this.size; ++id) if (isWanted(id)) ids.push(id);
    return ids;
  }

  /** All elements of a kind that are answered. */
  ofKind(kind) {
    const code = this.kinds.indexOf(kind);
    return this.all((id) => this.kind[id] === code && this.isFound(id));
  }

  /** The answered elements of a kind that are in nothing. */
  roots(kind) {
    return this.ofKind(kind).filter((id) => this.owner[id] < 0);
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
    return this.texts?.[id] || '';
  }

  /** What the element names: of each its kind, and the element or -1 and only a name. */
  referencesFrom(id, kind) {
    return this.listReferences(this.fromElement(id), kind);
  }

  /** What names the element. Of one that is not answered, there may be only its name. */
  referencesTo(id, kind) {
    const positions = Array.from(this.toElement(id));
    const isCalled = this.kindOf(id) === 'operation';
    if (!this.isFound(id) && (this.hasFullName(id) || isCalled)) {
      const name = 2 * this.name[id];
      // Commands name an operation and, by themselves, its service.
      const isMeant = (at) =>
        !isCalled || this.text(this.referenceFrom[at], 0) === this.nameOf(this.owner[id]);
      this.referenceTo.forEach((link, at) => link === name && isMeant(at) && positions.push(at));
    }
    return this.listReferences(positions, kind);
  }

  listReferences(positions, kind) {
    const all = Array.from(positions, (at) => {
      const link = this.referenceTo[at];
      const id = link % 2 ? link >> 1 : -1;
      const name = id < 0 ? this.strings[link >> 1] : this.fullName(id);
      return {
        kind: this.references[this.referenceKind[at]],
        from: this.referenceFrom[at],
        id,
        name,
      };
    });
    return kind ? all.filter((reference) => reference.kind === kind) : all;
  }

  /** The members of an annotation: names with their texts. */
  members(id) {
    const row = this.row(id);
    const members = [];
    for (let i = 0; i < row.length;) {
      const end = i + 2 + (row[i + 1] ? row[i + 1] - 1 : 1);
      const texts = row.slice(i + 2, end).map((text) => this.strings[text]);
      members.push({ name: this.strings[row[i]], texts });
      i = end;
    }
    return members;
  }
}

/** All that the page is about. */
export const model = new Model();
