// The first page, and the pages of sources.

import { counted, h, inSteps, longText, name, number } from './dom.js';
import { model } from './model.js';
import {
  CONTENTS,
  documentation,
  documentedShare,
  fullLink,
  link,
  list,
  notes,
  overview,
  place,
  plainLink,
  section,
  sourceLink,
  table,
  title,
  words,
} from './parts.js';
import { KINDS } from './search_query.js';
import { packages } from './view_interfaces.js';
import { schemes } from './view_schemes.js';

const TOP_KINDS = new Set(['component', 'authentication', 'namespace', 'command']);
const DOMAINS = { metamodel: 'Interfaces', authentication: 'Schemes', cli: 'Commands' };

export function viewHome() {
  const roots = model.roots('namespace');
  const inRoot = (kind) => roots.flatMap((id) => (model.nameOf(id) ? [] : model.sorted(id, kind)));
  const namespaces = [...roots.filter((id) => model.nameOf(id)), ...inRoot('namespace')];
  const card = (id) =>
    h(
      'section.card',
      h('h2', link(id, model.nameOf(id))),
      documentation(id),
      packages(id),
      h('p.quiet', documentedShare(id)),
    );
  return [
    h('h1', { tabindex: '-1' }, name(model.title)),
    counts(),
    problems('Files that do not load', model.failed),
    problems('Files that load in part', model.partial),
    inSteps(h('div'), model.ofKind('component'), card, paragraph),
    table('Authentication', model.ofKind('authentication'), {
      Component: (id) => link(id, model.nameOf(id)),
      Schemes: (id) => schemes(model.children(id, 'scheme')),
    }),
    overview('Commands', namespaces, words, CONTENTS),
    overview('Commands in no namespace', [...inRoot('command'), ...model.roots('command')], words),
    table('Sources', model.sources, {
      File: (source) => sourceLink(source),
      Describes: (source) => DOMAINS[source.domain],
      Size: (source) => `${number(Math.ceil(source.bytes / 1000))} kB`,
      MD5: (source) => h('code.name', source.fingerprint),
    }),
  ];
}

function paragraph(rest) {
  return h('p', rest);
}

/** Files with their messages, which begin with the name of the file. */
function problems(heading, files) {
  const message = (line, file) => longText(line.slice(file.length + 1).trimStart());
  const note = ({ file, problems: lines }) =>
    h(
      'div.note',
      h('b', name(file)),
      lines.map((line) => h('p', { dir: 'auto' }, message(line, file))),
    );
  return files.length > 0 && section(heading, inSteps(h('div'), files, note, paragraph));
}

/** How many there are of each kind. */
function counts() {
  const kinds = KINDS.slice(KINDS.indexOf('package'), KINDS.indexOf('namespace'));
  const all = kinds.map((kind) => [model.ofKind(kind).length, kind]);
  all.push([model.resources.size, 'resource']);
  const item = ([count, kind]) =>
    h('li', h('b', number(count)), counted(count, kind).slice(number(count).length));
  return h('ul.counts', all.filter(([count]) => count).map(item));
}

export function viewSource(position) {
  const source = model.sources[position];
  const here = model.all((id) => model.source[id] === position);
  const isOuter = (id) => model.owner[id] < 0 || model.fateOf(model.owner[id]) !== model.fateOf(id);
  const hidden = here.filter(
    (id) => !model.isFound(id) && model.fateOf(id) !== 'lost' && isOuter(id),
  );
  const isHere = (id) => id >= 0 && model.source[id] === position;
  const others = model.all((id) => isHere(model.by[id]) && !isHere(id) && isOuter(id));
  // What is answered although the element that the file has it in is not.
  const isTop = (id) => TOP_KINDS.has(model.kindOf(id)) || !isHere(model.owner[id]);
  const top = here.filter((id) => model.isFound(id) && !model.isImplied(id) && isTop(id));
  const facts = {
    Describes: DOMAINS[source.domain],
    Id: name(source.id),
    'MD5 of the file': h('code', source.fingerprint),
    Size: `${number(source.bytes)} bytes`,
  };
  return [
    title('source', source.file),
    h(
      'dl.facts',
      Object.entries(facts).map(([term, value]) => [h('dt', term), h('dd', value)]),
    ),
    list('Not answered or shadowed', hidden, (id) => [plainLink(id), ' ', place(id), notes(id)]),
    list('Shadows', others, (id) => [plainLink(id), ' ', place(id)]),
    list('Contents', top, fullLink),
  ];
}
