// The first page, the pages of sources, and that of a search.

import { brief, counted, h, name, number } from './dom.js';
import {
  documentedShare,
  documentation,
  fullLink,
  glyph,
  kindText,
  link,
  list,
  notes,
  place,
  section,
  table,
} from './parts.js';
import { href, path } from './routes.js';
import { isEmpty, parseQuery } from './search_query.js';
import { findInTexts, findNearNames } from './search_texts.js';
import { viewLooseCommands } from './view_commands.js';

export function viewHome(model) {
  const components = model.ofKind('component').filter((id) => model.domainOf(id) === 'metamodel');
  const roots = model.ofKind('namespace').filter((id) => model.owner[id] < 0);
  return [
    h('h1', { tabindex: '-1' }, name(model.title)),
    counts(model),
    components.map((id) => card(model, id)),
    failures(model),
    roots.length
      ? section(
          'Commands',
          h(
            'p',
            null,
            roots
              .slice(0, 50)
              .map((id) => [link(model, id, model.name(id) || 'All commands'), ' ']),
          ),
        )
      : null,
    viewLooseCommands(model),
    table('Sources', ['File', 'Describes', 'Size'], model.sources, (source) => [
      h('a', { href: path('source', source.domain, source.id) }, name(source.file)),
      DOMAINS[source.domain],
      size(source.bytes),
    ]),
  ];
}

const DOMAINS = { metamodel: 'Interfaces', authentication: 'Schemes', cli: 'Commands' };

function size(bytes) {
  return bytes < 10000 ? `${number(bytes)} B` : `${number(Math.round(bytes / 1000))} kB`;
}

const COUNTED = [
  'package',
  'service',
  'operation',
  'structure',
  'enumeration',
  'scheme',
  'command',
];

/** How many there are of each kind. */
function counts(model) {
  const byKind = new Map();
  for (let id = 0; id < model.size; ++id) {
    if (model.isFound(id)) byKind.set(model.kind[id], (byKind.get(model.kind[id]) ?? 0) + 1);
  }
  const cells = COUNTED.map((kind) => [kind, byKind.get(model.kinds.indexOf(kind)) ?? 0]);
  if (model.resources.size) cells.push(['resource', model.resources.size]);
  return h(
    'ul',
    { class: 'counts' },
    cells
      .filter(([, count]) => count)
      .map(([kind, count]) =>
        h('li', null, h('b', null, number(count)), ' ', counted(count, kind).replace(/^\S+ /, '')),
      ),
  );
}

function card(model, id) {
  const packages = model.sorted(model.children(id, 'package'));
  return h(
    'section',
    { class: 'card' },
    h('h2', null, link(model, id, model.name(id))),
    documentation(model, id),
    table('Packages', ['Name', 'Meaning'], packages, (one) => [
      link(model, one, model.name(one)),
      documentation(model, one, true),
    ]),
    h('p', { class: 'quiet' }, documentedShare(model, id)),
  );
}

function failures(model) {
  if (!model.failed.length) return null;
  return section(
    'Files that do not load',
    model.failed.map(({ file, problems }) =>
      h(
        'div',
        { class: 'note' },
        h('strong', null, name(file)),
        problems.slice(0, 20).map((problem) => h('p', null, brief(problem, 1000))),
      ),
    ),
  );
}

export function viewSource(model, position) {
  const source = model.sources[position];
  const here = [];
  for (let id = 0; id < model.size; ++id) if (model.source[id] === position) here.push(id);
  const hidden = here.filter((id) => !model.isFound(id) && model.fateOf(id) !== 'lost');
  // What is in a shadowed element is shadowed with it.
  const outer = hidden.filter(
    (id) => model.owner[id] < 0 || model.fateOf(model.owner[id]) !== model.fateOf(id),
  );
  const hides = here.length ? shadows(model, position) : [];
  return [
    h(
      'h1',
      { tabindex: '-1' },
      h('span', { class: 'kind source' }, 'source'),
      ' ',
      name(source.file),
    ),
    h(
      'dl',
      { class: 'facts' },
      [
        ['Describes', DOMAINS[source.domain]],
        ['Id', name(source.id)],
        ['Fingerprint', h('code', null, source.fingerprint)],
        ['Size', `${number(source.bytes)} bytes`],
        ['Elements', number(here.length)],
      ].map(([term, value]) => [h('dt', null, term), h('dd', null, value)]),
    ),
    list('Not answered or shadowed', outer, (id) => [
      fullLink(model, id),
      ' ',
      place(model, id),
      notes(model, id),
    ]),
    list('Shadows', hides, (id) => [fullLink(model, id), ' ', place(model, id)]),
    list(
      'Components, namespaces and commands',
      here.filter(
        (id) =>
          ['component', 'namespace', 'command'].includes(model.kindOf(id)) && model.isFound(id),
      ),
      (id) => fullLink(model, id),
    ),
  ];
}

/** What other sources have that this one is answered in place of. */
function shadows(model, position) {
  const ids = [];
  for (let id = 0; id < model.size; ++id) {
    const by = model.by[id];
    if (by < 0 || model.source[id] === position || model.source[by] !== position) continue;
    const owner = model.owner[id];
    if (owner < 0 || model.isFound(owner)) ids.push(id);
  }
  return ids;
}

/** How a hit of a search looks: a link with the kind in front and what it is in after it. */
export function hitText(model, hit) {
  if (hit.resource !== undefined) {
    return {
      kind: 'resource',
      text: hit.resource,
      around: '',
      address: path('resource', hit.resource),
    };
  }
  const full = model.fullName(hit.id);
  const text = model.simpleName(hit.id);
  const around = full === text ? '' : full.slice(0, full.length - text.length - 1);
  return { kind: kindText(model, hit.id), text, around, address: href(model, hit.id) };
}

/** All results of a query, as links. Slower searches are filled in when they are done. */
export function viewSearch(model, index, text) {
  const query = parseQuery(text);
  const { hits, total } = isEmpty(query) ? { hits: [], total: 0 } : index.find(query);
  const item = (hit) => {
    const { kind, text: found, around, address } = hitText(model, hit);
    const excerpt = hit.pattern ? h('div', { class: 'quiet' }, excerptOf(model, hit)) : null;
    return [
      glyph(kind),
      ' ',
      h('a', { href: address, class: 'name' }, name(found)),
      ' ',
      h('small', { class: 'quiet' }, name(around)),
      excerpt,
    ];
  };
  const later = h('div');
  const isOver = () => !later.isConnected;
  const more = async () => {
    const texts = await findInTexts(model, query, 100, isOver);
    const near = hits.length || texts.length ? [] : await findNearNames(model, query, 20, isOver);
    const sections = [
      list('In documentation', texts, item),
      list('Did you mean', near, item),
    ].filter(Boolean);
    later.replaceChildren(...sections);
  };
  setTimeout(more);
  return [
    h('h1', { tabindex: '-1' }, 'Search: ', name(text)),
    h(
      'p',
      { class: 'quiet' },
      hits.length < total
        ? `The best ${number(hits.length)} of ${counted(total, 'result')}`
        : counted(total, 'result'),
    ),
    list('In names', hits, item),
    later,
  ];
}

/** What is around the first place of the pattern. */
export function excerptOf(model, { id, pattern }) {
  const text = model.documentation(id);
  const at = Math.max(0, text.search(pattern));
  const begin = Math.max(0, at - 60);
  return (begin ? '…' : '') + brief(text.slice(begin), 160);
}
