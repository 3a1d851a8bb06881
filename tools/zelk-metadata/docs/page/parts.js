// What pages are made of: links, types, places, tables, notes.

import { action, counted, h, inSteps, longText, name, number, quiet, shown } from './dom.js';
import { model } from './model.js';
import { href, pageOf, pagePath, parseAddress, partId, path } from './routes.js';
import { typePieces } from './types.js';

export function kindText(id) {
  return model.kindOf(id).replace('-list', '').replace('-', ' ');
}

/** The full name of a command or a namespace as people type it. */
export function words(id) {
  return model.nameOf(id).replaceAll('.', ' ') || 'All commands';
}

/** Of kinds that begin as others do. */
const LETTERS = { command: 'Cm', constant: 'Cn', option: 'On', parameter: 'Pr', result: 'Rs' };

/** Two letters in a colour; the word is there for those who do not see them. */
export function glyph(kind) {
  const letters = LETTERS[kind] ?? kind[0].toUpperCase() + kind[1];
  return h(
    `span.glyph.${kind}`,
    { title: kind },
    h('span', { 'aria-hidden': 'true' }, letters),
    h('span.sr', `${kind} `),
  );
}

export function link(id, text = model.simpleName(id)) {
  return h('a', { href: href(id) }, name(text));
}

/** The link with the full name and the kind in front. */
export function plainLink(id) {
  return [glyph(kindText(id)), ' ', link(id, model.fullName(id))];
}

/** The same, and what becomes of it. */
export function fullLink(id) {
  return [plainLink(id), mark(id)];
}

export function resourceLink(text) {
  return h('a', { href: path('resource', text) }, name(text));
}

export function sourceLink(source, text = source.file) {
  return h('a', { href: path('source', source.domain, source.id) }, name(text));
}

export function typeOf(id) {
  const pieces = typePieces(model.row(id)).map((piece) => {
    if (piece.text === '<') return ['<', h('wbr')];
    if (piece.id >= 0) return link(piece.id, piece.text);
    if (piece.id !== -1) return shown(piece.text);
    return unansweredLink(NAMED.type, [piece.text], piece.text) ?? missingType(piece.text);
  });
  return h('code', pieces);
}

/** In a type there is little room, so that the words are only shown where the pointer is. */
function missingType(text) {
  const words = 'not in these files';
  return h('span.quiet', { title: words }, name(text), h('span.sr', ` (${words})`));
}

/** The kinds of elements that references mean. Others mean parts of something that is answered. */
const NAMED = {
  __proto__: null,
  type: ['structure', 'enumeration'],
  error: ['structure'],
  output: ['structure'],
  manager: ['service'],
  service: ['service'],
  operation: ['operation'],
  authentication: ['component'],
  'package-list': ['package'],
  'service-list': ['service'],
  'operation-list': ['operation'],
};

let unanswered = null;

/**
 * A link to an element of interfaces that is not answered, which has one of the kinds and these
 * names in its address; the first one of several.
 */
function unansweredLink(kinds, names, label) {
  const isWanted = (id) =>
    !model.isFound(id) && pageOf(id) === id && model.sourceOf(id).domain === 'metamodel';
  const all = () => model.all(isWanted).reverse();
  unanswered ??= new Map(all().map((id) => [pagePath(id), id]));
  const ids = kinds.map((kind) => unanswered.get(path(kind, ...names)));
  const id = ids.find((one) => one >= 0);
  return id >= 0 ? [link(id, label), quiet(' (not answered)')] : null;
}

/** The names in the address of what the reference means. */
function namesOf({ from, name: text }) {
  if (model.kindOf(from) !== 'operation-list') return [text];
  const dot = text.lastIndexOf('.');
  return [text.slice(0, dot), text.slice(dot + 1)];
}

/** What is named: a link, or the name of something that is not loaded. */
export function target(reference, label = reference.name, names = namesOf(reference)) {
  const { kind, from, id, name: text } = reference;
  if (id >= 0) return link(id, label);
  const kinds = NAMED[kind === 'listed' ? model.kindOf(from) : kind] ?? [];
  return unansweredLink(kinds, names, label) ?? notLoaded(text);
}

export function notLoaded(text) {
  return quiet(name(text), ' (not in these files)');
}

/** What the element refers to, as `target` shows it; only the text if there is no such reference. */
export function referred(id, kind, text = '', label = text || undefined, names) {
  const [reference] = model.referencesFrom(id, kind);
  return reference ? target(reference, label, names) : text && name(text);
}

/** Fills in the element once the documentation is read. */
export function later(element, fill) {
  if (model.texts) fill();
  else model.waiting.push(fill);
  return element;
}

export function documentation(id) {
  const element = h('div.doc', { dir: 'auto' });
  return later(element, () => {
    const parts = model
      .documentation(id)
      .split(/\n\s*\n/)
      .filter(Boolean);
    element.replaceChildren(...parts.map((part) => h('p', longText(part))));
  });
}

/** Its first sentence. */
function summary(id) {
  const element = h('span.doc', { dir: 'auto' });
  return later(element, () => {
    element.textContent = shown(model.documentation(id).split(/(?<=[.!?])\s|\n/, 1)[0], 300);
  });
}

/** The share of elements with documentation in an answered element. */
export function documentedShare(root) {
  const element = h('span.doc');
  return later(element, () => {
    const all = [root];
    for (const id of all) {
      for (const child of model.children(id)) {
        if (model.isFound(child) && model.kindOf(child) !== 'annotation') all.push(child);
      }
    }
    const documented = all.filter((id) => model.documentation(id)).length;
    const percent = Math.floor((100 * documented) / all.length);
    element.textContent = `${percent} % of ${counted(all.length, 'element')} documented`;
  });
}

const FATE_TEXTS = {
  dropped: 'Not answered: an earlier one of the same name is kept.',
  overridden: 'Not answered: a later one of the same name is kept.',
  shadowed: 'Lookups of the name return another one.',
  ignored: 'Not answered: the library leaves this part of the file out.',
  lost: 'Not answered, since what it is in is not.',
};

function fateText(id) {
  const fate = model.fateOf(id);
  const by = model.by[id];
  const isPart = fate === 'shadowed' && model.kind[by] !== model.kind[id];
  return isPart ? `Its ${kindText(by)} is shadowed.` : FATE_TEXTS[fate];
}

/**
 * Notes beside an element: what becomes of it. Marks of what has changed and findings of lint
 * belong here, too.
 */
export function notes(id) {
  const text = fateText(id) ?? (model.isImplied(id) && 'Made by the library for what is in it.');
  return text && h('p.note', text, ' ', answering(id));
}

/** The place of what is answered in its place, with a link to its page. */
function answering(id) {
  const by = model.by[id];
  return by >= 0 && by !== id && link(by, placeText(by));
}

/** The same in a few words, for rows. */
export function mark(id) {
  const fate = model.fateOf(id);
  if (fate === 'found') return false;
  const by = fate === 'shadowed' && answering(id);
  return [' ', h('span.mark', { title: fateText(id) }, fate, by && [' by ', by])];
}

function placeText(id) {
  return `${model.sourceOf(id).file}:${model.line[id]}`;
}

export function place(id) {
  return sourceLink(model.sourceOf(id), placeText(id));
}

/** What it is in, from the outside. */
function breadcrumb(id) {
  const around = [];
  for (let step = model.owner[id]; step >= 0; step = model.owner[step]) {
    if (pageOf(step) === step && model.nameOf(step)) around.unshift(h('li', link(step)));
  }
  return around.length > 0 && h('nav.breadcrumb', { 'aria-label': 'Breadcrumb' }, h('ol', around));
}

/** The first heading of every page. */
export function title(kind, text) {
  return h('h1', { tabindex: '-1' }, h('span.kind', kind), ' ', name(text));
}

/** The top of every element's page. */
export function heading(id) {
  const kind = model.kindOf(id);
  const isTyped = /^(namespace|command)$/.test(kind);
  const isFull = /^(component|authentication|package|service)$/.test(kind);
  const text = isTyped ? words(id) : isFull ? model.nameOf(id) : model.simpleName(id);
  const full = model.fullName(id);
  const copy = async ({ target: button }) => {
    try {
      await navigator.clipboard.writeText(full);
      button.textContent = 'Copied';
    } catch {
      button.textContent = 'Not allowed';
    }
  };
  return [
    breadcrumb(id),
    title(kindText(id), text),
    h(
      'p.about',
      full !== text && h('code.name', full.length > 200 ? longText(full) : name(full)),
      action('Copy name', copy),
      place(id),
    ),
    notes(id),
    documentation(id),
  ];
}

export function section(heading, ...content) {
  return h('section', h('h2', heading), content);
}

export function tally(items) {
  return items.length > 1 && h('small', ' ', number(items.length));
}

/**
 * A table with rows in steps, or false without rows. `columns` has what is in each, by its heading;
 * `idOf(item)` returns what a row is called in addresses. The row of the current address is shown.
 */
export function table(heading, items, columns, idOf = () => false) {
  const [first, ...others] = Object.values(columns);
  const row = (item) =>
    h(
      'tr',
      { id: idOf(item), tabindex: '-1' },
      h('th', { scope: 'row' }, first(item)),
      others.map((cell) => h('td', cell(item))),
    );
  const heads = Object.keys(columns).map((column) => h('th', { scope: 'col' }, column));
  const wrap = (rest) => h('tr', h('td', { colspan: heads.length }, rest));
  const { part } = parseAddress(location.hash);
  const at = part ? items.findIndex((item) => idOf(item) === part) : 0;
  return (
    items.length > 0 &&
    section(
      [heading, tally(items)],
      h(
        'table',
        h('caption.sr', heading),
        h('thead', h('tr', heads)),
        inSteps(h('tbody'), items, row, wrap, at),
      ),
    )
  );
}

/** A column with "3 services, 4 structures". */
export const CONTENTS = {
  Contents: (id) =>
    ['service', 'operation', 'structure', 'enumeration', 'namespace', 'command']
      .map((kind) => [model.children(id, kind).length, kind])
      .filter(([count]) => count)
      .map(([count, kind]) => counted(count, kind))
      .join(', '),
};

/** Elements with pages of their own: name and first sentence. */
export function overview(heading, ids, text = (id) => model.relativeName(id), more = {}) {
  const Name = (id) => [link(id, text(id)), mark(id)];
  return table(heading, ids, { Name, ...more, Meaning: summary });
}

/** Parts of a page: name, what else there is, and documentation. */
export function partsTable(heading, ids, more = {}) {
  const Name = (id) => [h('code', name(model.nameOf(id))), mark(id)];
  const Meaning = (id) => [documentation(id), annotationTexts(id)];
  return table(heading, ids, { Name, ...more, Meaning }, partId);
}

function annotationTexts(id) {
  return model.children(id, 'annotation').map((annotation) => {
    const isResource = model.nameOf(annotation) === 'Resource';
    const textOf = (text) => [
      ' ',
      isResource && model.resources.has(text) ? resourceLink(text) : name(text),
    ];
    const members = model
      .members(annotation)
      .map((member) => [' ', name(member.name), ':', member.texts.map(textOf)]);
    return h('div.annotation', '@', name(model.nameOf(annotation)), members);
  });
}

export function annotations(id) {
  const texts = annotationTexts(id);
  return texts.length > 0 && section('Annotations', texts);
}

/** A list in steps, or the text without items. */
export function lines(items, make, none) {
  return items.length ? inSteps(h('ul.list'), items, (item) => h('li', make(item))) : quiet(none);
}

/** The same as a section, or false without items. */
export function list(heading, items, make) {
  return items.length > 0 && section([heading, tally(items)], lines(items, make));
}
