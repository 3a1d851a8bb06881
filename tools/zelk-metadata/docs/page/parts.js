// What pages are made of: links, types, places, tables, notes.

import { brief, counted, h, inSteps, longText, name, number, shown } from './dom.js';
import { href, pageOf, path } from './routes.js';
import { typePieces } from './types.js';

/** What people call the kinds. */
const KIND_TEXTS = {
  'output-field': 'output field',
  'package-list': 'package',
  'service-list': 'service',
  'operation-list': 'operation',
};

export function kindText(model, id) {
  const kind = model.kindOf(id);
  return KIND_TEXTS[kind] ?? kind;
}

/** A letter in a colour, beside which the word is there for those who do not see it. */
export function glyph(kind) {
  return h(
    'span',
    { class: `glyph ${kind}`, title: kind },
    h('span', { 'aria-hidden': 'true' }, kind.slice(0, 1).toUpperCase()),
    h('span', { class: 'sr' }, `${kind} `),
  );
}

export function link(model, id, text) {
  return h('a', { href: href(model, id), class: 'name' }, name(text ?? model.simpleName(id)));
}

/** The link with the kind in front, and with the full name if that says more. */
export function fullLink(model, id) {
  return [glyph(kindText(model, id)), ' ', link(model, id, model.fullName(id))];
}

export function typeOf(model, row) {
  return h(
    'code',
    { class: 'type' },
    typePieces(model, row).map((piece) => {
      if (piece.id === undefined) return shown(piece.text);
      if (piece.id >= 0) return link(model, piece.id, piece.text);
      return h('span', { class: 'missing', title: 'not in these files' }, name(piece.text));
    }),
  );
}

/** An element that is named: a link, or the name of something that is not loaded. */
export function target(model, { id, name: text }, label) {
  if (id >= 0) return link(model, id, label ?? text);
  return h('span', { class: 'missing' }, name(text), ' ', h('small', null, '(not in these files)'));
}

/** Where its documentation is put once that is read. */
export function documentation(model, id, isBrief = false) {
  const place = h(isBrief ? 'span' : 'div', { class: 'doc', dir: 'auto' });
  place.fill = () => {
    const text = model.documentation(id);
    if (isBrief) place.textContent = brief(text.split(/(?<=[.!?])\s|\n/, 1)[0], 300);
    else
      place.replaceChildren(
        ...text
          .split(/\n\s*\n/)
          .filter((part) => part.trim())
          .map((part) => h('p', null, longText(part))),
      );
  };
  if (model.texts) place.fill();
  else place.setAttribute('data-unread', '');
  return place;
}

/** Fills in what pages have shown before the documentation was read. */
export function fillDocumentation(root) {
  for (const place of root.querySelectorAll('[data-unread]')) {
    place.removeAttribute('data-unread');
    place.fill();
  }
}

const FATE_TEXTS = {
  dropped: 'Not answered: an earlier one of the same name is kept.',
  overridden: 'Not answered: a later one of the same name is kept.',
  shadowed: 'Shadowed: lookups of the name return another one.',
  ignored: 'Not answered: the library leaves this part of the file out.',
  lost: 'Not answered: what it is in is not.',
};

/**
 * Notes beside an element: what becomes of it. Marks of what has changed and findings of lint
 * belong here, too.
 */
export function notes(model, id) {
  const list = [];
  const fate = model.fateOf(id);
  if (fate !== 'found') {
    const by = model.by[id];
    const other =
      by < 0 || by === id
        ? null
        : [' ', link(model, by, `${model.sources[model.source[by]].file}:${model.line[by]}`)];
    list.push(h('p', { class: 'note' }, h('strong', null, fate), ' ', FATE_TEXTS[fate], other));
  }
  if (model.isImplied(id)) {
    list.push(
      h(
        'p',
        { class: 'note' },
        h('strong', null, 'implied'),
        ' No file describes it; the library makes it for what is in it.',
      ),
    );
  }
  return list;
}

/** The same in one word, for rows. */
export function mark(model, id) {
  const fate = model.fateOf(id);
  return fate === 'found'
    ? null
    : [' ', h('span', { class: 'mark', title: FATE_TEXTS[fate] }, fate)];
}

export function place(model, id) {
  const source = model.sources[model.source[id]];
  return h(
    'a',
    { href: path('source', source.domain, source.id), class: 'place' },
    name(`${source.file}:${model.line[id]}`),
  );
}

/** What it is in, from the outside. */
function breadcrumb(model, id) {
  const around = [];
  for (let step = model.owner[id]; step >= 0; step = model.owner[step]) {
    if (pageOf(model, step) === step) around.unshift(step);
  }
  if (!around.length) return null;
  return h(
    'nav',
    { 'aria-label': 'Breadcrumb', class: 'breadcrumb' },
    h(
      'ol',
      null,
      around.map((step) => h('li', null, link(model, step))),
    ),
  );
}

/** The top of every element's page. */
export function heading(model, id, text) {
  const full = model.fullName(id);
  const copy = h('button', { type: 'button', class: 'action copy' }, 'Copy name');
  copy.addEventListener('click', async () => {
    try {
      await navigator.clipboard.writeText(full);
      copy.textContent = 'Copied';
    } catch {
      copy.textContent = 'Not allowed here';
    }
  });
  return [
    breadcrumb(model, id),
    h(
      'h1',
      { tabindex: '-1' },
      h('span', { class: `kind ${model.kindOf(id)}` }, kindText(model, id)),
      ' ',
      name(text ?? model.simpleName(id)),
    ),
    h(
      'p',
      { class: 'about' },
      h('code', { class: 'full' }, name(full)),
      copy,
      h('span', { class: 'at' }, place(model, id)),
    ),
    notes(model, id),
    documentation(model, id),
  ];
}

export function section(title, ...content) {
  return h('section', null, h('h2', null, title), content);
}

/** A table with rows in steps; null without rows. `cells(item)` returns the cells of a row. */
export function table(title, headings, items, cells, { id: idOf } = {}) {
  if (!items.length) return null;
  const body = h('tbody');
  const row = (item) => {
    const [first, ...others] = cells(item);
    return h(
      'tr',
      { id: idOf?.(item), tabindex: idOf ? '-1' : null },
      h('th', { scope: 'row' }, first),
      others.map((cell, i) => h('td', { 'data-label': headings[i + 1] }, cell)),
    );
  };
  inSteps(body, items, row, {
    more: (button) => h('tr', null, h('td', { colspan: headings.length }, button)),
  });
  return h(
    'section',
    null,
    h(
      'h2',
      null,
      title,
      ' ',
      items.length > 1 ? h('small', { class: 'tally' }, number(items.length)) : null,
    ),
    h(
      'table',
      null,
      h('caption', { class: 'sr' }, title),
      h(
        'thead',
        null,
        h(
          'tr',
          null,
          headings.map((text) => h('th', { scope: 'col' }, text)),
        ),
      ),
      body,
    ),
  );
}

/** The id of the row that shows a part of the page. */
export function partId(model, id) {
  return `${model.kindOf(id)}=${model.name(id)}`;
}

/** A table of parts: name, type, documentation. */
export function partsTable(model, title, ids, typeHeading = 'Type') {
  const withType = ids.some((id) => model.row(id).length);
  const headings = withType ? ['Name', typeHeading, 'Meaning'] : ['Name', 'Meaning'];
  return table(
    title,
    headings,
    ids,
    (id) => {
      const about = [documentation(model, id), annotationsInline(model, id)];
      const named = [name(model.name(id), 'code'), mark(model, id)];
      return withType ? [named, typeOf(model, model.row(id)), about] : [named, about];
    },
    { id: (id) => partId(model, id) },
  );
}

/** The texts of an annotation's member; resources are links. */
function memberTexts(model, annotation, member) {
  const isResource = model.name(annotation) === 'Resource' && member.name === 'value';
  return member.texts.map((text, i) => [
    i ? ', ' : '',
    isResource && model.resources.has(text)
      ? h('a', { href: path('resource', text) }, name(text))
      : name(text),
  ]);
}

export function annotationsInline(model, id) {
  return model.children(id, 'annotation').map((annotation) =>
    h(
      'div',
      { class: 'annotation' },
      h('span', null, '@', name(model.name(annotation))),
      model
        .members(annotation)
        .map((member) => [' ', name(member.name), '=', memberTexts(model, annotation, member)]),
    ),
  );
}

export function annotations(model, id) {
  const list = annotationsInline(model, id);
  return list.length ? section('Annotations', list) : null;
}

/** Names that all must be shown: a list in steps; null without items. */
export function list(title, items, make) {
  if (!items.length) return null;
  const element = h('ul', { class: 'plain' });
  inSteps(element, items, (item) => h('li', null, make(item)), {
    more: (button) => h('li', null, button),
  });
  return h(
    'section',
    null,
    h('h2', null, title, ' ', h('small', { class: 'tally' }, number(items.length))),
    element,
  );
}

/** The share of elements with documentation below the element, once that is read. */
export function documentedShare(model, root) {
  const place = h('span', { class: 'doc' });
  place.fill = () => {
    let all = 0;
    let documented = 0;
    const work = [root];
    while (work.length) {
      const id = work.pop();
      const kind = model.kindOf(id);
      if (kind === 'annotation') continue;
      ++all;
      if (model.documentation(id)) ++documented;
      for (const child of model.children(id)) work.push(child);
    }
    place.textContent = `${Math.floor((100 * documented) / all)} % of ${counted(all, 'element')} documented`;
  };
  if (model.texts) place.fill();
  else place.setAttribute('data-unread', '');
  return place;
}
