// The first page, and the pages of sources.

import { counted, h, name, number } from './dom.js';
import {
  documentation,
  documentedShare,
  fullLink,
  link,
  list,
  notes,
  overview,
  place,
  section,
  sourceLink,
  table,
  title,
  words,
} from './parts.js';
import { KINDS } from './search_query.js';
import { packages } from './view_interfaces.js';

const DOMAINS = { metamodel: 'Interfaces', authentication: 'Schemes', cli: 'Commands' };

export function viewHome(model) {
  const top = model
    .roots('namespace')
    .flatMap((id) => (model.nameOf(id) ? [id] : model.sorted(id, 'namespace')));
  const card = (id) =>
    h(
      'section.card',
      h('h2', link(model, id, model.nameOf(id))),
      documentation(model, id),
      packages(model, id),
      h('p.quiet', documentedShare(model, id)),
    );
  const failure = ({ file, problems }) =>
    h(
      'div.note',
      h('b', name(file)),
      problems.slice(0, 20).map((problem) => h('p', name(problem))),
    );
  return [
    h('h1', { tabindex: '-1' }, name(model.title)),
    counts(model),
    model.failed.length > 0 && section('Files that do not load', model.failed.map(failure)),
    model.components('metamodel').map(card),
    overview(model, 'Commands', top, (id) => words(model, id)),
    overview(model, 'Commands in no namespace', model.roots('command')),
    table('Sources', ['File', 'Describes', 'Size'], model.sources, (source) => [
      sourceLink(source),
      DOMAINS[source.domain],
      `${number(Math.ceil(source.bytes / 1000))} kB`,
    ]),
  ];
}

/** How many there are of each kind. */
function counts(model) {
  const all = KINDS.slice(1, KINDS.indexOf('namespace')).map((kind) => [
    model.ofKind(kind).length,
    kind,
  ]);
  all.push([model.resources.size, 'resource']);
  const item = ([count, kind]) =>
    h('li', h('b', number(count)), counted(count, kind).slice(number(count).length));
  return h('ul.counts', all.filter(([count]) => count).map(item));
}

export function viewSource(model, position) {
  const source = model.sources[position];
  const here = model.all((id) => model.source[id] === position);
  const isOuter = (id) => model.owner[id] < 0 || model.fateOf(model.owner[id]) !== model.fateOf(id);
  const hidden = here.filter(
    (id) => !model.isFound(id) && model.fateOf(id) !== 'lost' && isOuter(id),
  );
  const isHere = (id) => id >= 0 && model.source[id] === position;
  const others = model.all((id) => isHere(model.by[id]) && !isHere(id) && isOuter(id));
  const top = here.filter(
    (id) => /^(component|namespace|command)$/.test(model.kindOf(id)) && model.isFound(id),
  );
  const facts = [
    ['Describes', DOMAINS[source.domain]],
    ['Id', name(source.id)],
    ['MD5 of the file', h('code', source.fingerprint)],
    ['Size', `${number(source.bytes)} bytes`],
  ];
  return [
    title('source', source.file),
    h(
      'dl.facts',
      facts.map(([term, value]) => [h('dt', term), h('dd', value)]),
    ),
    list('Not answered or shadowed', hidden, (id) => [
      fullLink(model, id),
      ' ',
      place(model, id),
      notes(model, id),
    ]),
    list('Shadows', others, (id) => [fullLink(model, id), ' ', place(model, id)]),
    list('Contents', top, (id) => fullLink(model, id)),
  ];
}
