// What pages are made of: links, types, places, tables, notes.

import { action, counted, h, inSteps, longText, name, number, quiet, shown } from './dom.js';
import { href, pageOf, partId, path } from './routes.js';
import { typePieces } from './types.js';

export function kindText(model, id) {
  return model.kindOf(id).replace('-list', '').replace('-', ' ');
}

/** The full name of a command or a namespace as people type it. */
export function words(model, id) {
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

export function link(model, id, text = model.simpleName(id)) {
  return h('a', { href: href(model, id) }, name(text));
}

/** The link with the full name and the kind in front. */
export function fullLink(model, id) {
  return [glyph(kindText(model, id)), ' ', link(model, id, model.fullName(id)), mark(model, id)];
}

export function resourceLink(text) {
  return h('a', { href: path('resource', text) }, name(text));
}

export function sourceLink(source, text = source.file) {
  return h('a', { href: path('source', source.domain, source.id) }, name(text));
}

export function typeOf(model, id) {
  const pieces = typePieces(model, model.row(id)).map((piece) => {
    if (piece.id >= 0) return link(model, piece.id, piece.text);
    return piece.id ? quiet(name(piece.text)) : shown(piece.text);
  });
  return h('code', pieces);
}

/** What is named: a link, or the name of something that is not loaded. */
export function target(model, { id, name: text }, label = text) {
  return id >= 0 ? link(model, id, label) : quiet(name(text), ' (not in these files)');
}

/** Fills in the element once the documentation is read. */
export function later(model, element, fill) {
  if (model.texts) fill();
  else model.waiting.push(fill);
  return element;
}

export function documentation(model, id) {
  const element = h('div.doc', { dir: 'auto' });
  return later(model, element, () => {
    const parts = model
      .documentation(id)
      .split(/\n\s*\n/)
      .filter(Boolean);
    element.replaceChildren(...parts.map((part) => h('p', longText(part))));
  });
}

/** Its first sentence. */
function summary(model, id) {
  const element = h('span.doc', { dir: 'auto' });
  return later(model, element, () => {
    element.textContent = shown(model.documentation(id).split(/(?<=[.!?])\s|\n/, 1)[0], 300);
  });
}

/** The share of elements with documentation in the element. */
export function documentedShare(model, root) {
  const element = h('span.doc');
  return later(model, element, () => {
    const all = [root];
    for (const id of all) {
      for (const child of model.children(id)) {
        if (model.kindOf(child) !== 'annotation') all.push(child);
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

/**
 * Notes beside an element: what becomes of it. Marks of what has changed and findings of lint
 * belong here, too.
 */
export function notes(model, id) {
  const fate = model.fateOf(id);
  const by = model.by[id];
  const text =
    FATE_TEXTS[fate] ?? (model.isImplied(id) && 'Made by the library for what is in it.');
  const place = () => `${model.sourceOf(by).file}:${model.line[by]}`;
  return text && h('p.note', text, by >= 0 && by !== id && [' ', link(model, by, place())]);
}

/** The same in one word, for rows. */
export function mark(model, id) {
  const fate = model.fateOf(id);
  return fate !== 'found' && [' ', h('span.mark', { title: FATE_TEXTS[fate] }, fate)];
}

export function place(model, id) {
  const source = model.sourceOf(id);
  return sourceLink(source, `${source.file}:${model.line[id]}`);
}

/** What it is in, from the outside. */
function breadcrumb(model, id) {
  const around = [];
  for (let step = model.owner[id]; step >= 0; step = model.owner[step]) {
    if (pageOf(model, step) === step && model.nameOf(step))
      around.unshift(h('li', link(model, step)));
  }
  return around.length > 0 && h('nav.breadcrumb', { 'aria-label': 'Breadcrumb' }, h('ol', around));
}

/** The first heading of every page. */
export function title(kind, text) {
  return h('h1', { tabindex: '-1' }, h('span.kind', kind), ' ', name(text));
}

/** The top of every element's page. */
export function heading(model, id, text = model.simpleName(id)) {
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
    breadcrumb(model, id),
    title(kindText(model, id), text),
    h(
      'p.about',
      full !== text && h('code.name', full.length > 200 ? longText(full) : name(full)),
      action('Copy name', copy),
      place(model, id),
    ),
    notes(model, id),
    documentation(model, id),
  ];
}

export function section(heading, ...content) {
  return h('section', h('h2', heading), content);
}

export function tally(items) {
  return items.length > 1 && h('small', ' ', number(items.length));
}

/** A table with rows in steps, or false without rows. `cells(item)` returns the cells of a row. */
export function table(heading, columns, items, cells, idOf = () => false) {
  const row = (item) => {
    const [first, ...others] = cells(item);
    const id = idOf(item);
    return h(
      'tr',
      { id, tabindex: id && '-1' },
      h('th', { scope: 'row' }, first),
      others.map((cell) => h('td', cell)),
    );
  };
  const wrap = (rest) => h('tr', h('td', { colspan: columns.length }, rest));
  const head = h(
    'thead',
    h(
      'tr',
      columns.map((column) => h('th', { scope: 'col' }, column)),
    ),
  );
  return (
    items.length > 0 &&
    section(
      [heading, tally(items)],
      h('table', h('caption.sr', heading), head, inSteps(h('tbody'), items, row, wrap)),
    )
  );
}

/** Elements with pages of their own: name and first sentence. */
export function overview(model, heading, ids, text = (id) => model.relativeName(id), more = []) {
  const [column, cell] = more;
  const columns = ['Name', column, 'Meaning'].filter(Boolean);
  return table(heading, columns, ids, (id) =>
    [[link(model, id, text(id)), mark(model, id)], cell?.(id), summary(model, id)].filter(Boolean),
  );
}

/** Parts of a page: name, type and documentation. */
export function partsTable(model, heading, ids, type) {
  const columns = ['Name', ...(type ? ['Type'] : []), 'Meaning'];
  const cells = (id) => [
    [h('code', name(model.nameOf(id))), mark(model, id)],
    ...(type ? [type(model, id)] : []),
    [documentation(model, id), annotationTexts(model, id)],
  ];
  return table(heading, columns, ids, cells, (id) => partId(model, id));
}

function annotationTexts(model, id) {
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

export function annotations(model, id) {
  const texts = annotationTexts(model, id);
  return texts.length > 0 && section('Annotations', texts);
}

/** A list in steps, or false without items. */
export function list(heading, items, make) {
  const content = () => inSteps(h('ul.list'), items, (item) => h('li', make(item)));
  return items.length > 0 && section([heading, tally(items)], content());
}
