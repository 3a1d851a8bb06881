// The lists at the side. Only what is open is in the document, in steps of a few hundred rows.

import { action, h, inSteps, name, STEP } from './dom.js';
import { glyph, kindText } from './parts.js';
import { href, namedPages } from './routes.js';

const CHILD_KINDS = {
  component: ['package', 'scheme'],
  package: ['service', 'structure', 'enumeration'],
  service: ['operation', 'structure', 'enumeration'],
  structure: ['enumeration'],
  namespace: ['namespace', 'command'],
};

/** A row: `name`, `address`, `kind`, and `children()`, which is null for a leaf. */
function rowOf(model, id) {
  const kind = model.kindOf(id);
  const kinds = CHILD_KINDS[kind] ?? [];
  const hasChildren = kinds.length > 0 && model.children(id, ...kinds).length > 0;
  return {
    name: kind === 'component' ? model.nameOf(id) : model.relativeName(id),
    address: href(model, id),
    kind: kindText(model, id),
    children: hasChildren ? () => childrenOf(model, id, kinds) : null,
  };
}

function childrenOf(model, id, kinds) {
  const ids = kinds.flatMap((kind) => model.sorted(id, kind));
  return rowsOf(model, ids);
}

function rowsOf(model, ids) {
  return ids.map((id) => rowOf(model, id));
}

/** What the root has in it, namespaces without a root, and commands without a namespace. */
function commands(model) {
  const roots = model.roots('namespace');
  const rows = rowsOf(model, roots);
  const top = rows.flatMap((row, i) => (model.nameOf(roots[i]) ? [row] : (row.children?.() ?? [])));
  return [...top, ...rowsOf(model, model.roots('command'))];
}

function named(model, kind) {
  return namedPages(model).filter((page) => page.kind === kind);
}

const TABS = [
  ['Interfaces', (model) => rowsOf(model, model.components('metamodel'))],
  ['Commands', commands],
  ['Schemes', (model) => rowsOf(model, model.components('authentication'))],
  ['Resources', (model) => named(model, 'resource')],
  ['Sources', (model) => named(model, 'source')],
];

export class Tree {
  rows = [];
  /** What people have opened. */
  opened = new Set();
  /** What is open only because the current page is in it. */
  around = new Set();
  current = '';

  constructor(model, tabs, panel) {
    this.model = model;
    this.panel = panel;
    this.tabs = TABS.map(([label], tab) =>
      h(
        'button',
        {
          type: 'button',
          role: 'tab',
          id: `tab-${tab}`,
          'aria-controls': 'tree',
          onclick: () => this.show(tab),
          onkeydown: (event) => this.moveTab(event, tab),
        },
        label,
      ),
    );
    tabs.append(...this.tabs);
  }

  moveTab(event, tab) {
    const step = { ArrowRight: 1, ArrowLeft: -1 }[event.key];
    if (!step) return;
    const next = (tab + step + TABS.length) % TABS.length;
    this.show(next);
    this.tabs[next].focus();
  }

  show(tab) {
    this.tab = tab;
    this.tabs.forEach((button, position) => {
      button.setAttribute('aria-selected', position === tab);
      button.tabIndex = position === tab ? 0 : -1;
    });
    this.panel.setAttribute('aria-labelledby', `tab-${tab}`);
    this.rows[tab] ??= TABS[tab][1](this.model);
    const rows = this.rows[tab];
    if (rows.length === 1 && rows[0].children) this.opened.add(rows[0].address);
    this.panel.replaceChildren(
      rows.length ? this.list(rows) : h('p.quiet', 'None in these files.'),
    );
  }

  /** Begins with the step that has the current row, if one has. */
  list(rows) {
    const at = rows.findIndex(
      ({ address }) => address === this.current || this.around.has(address),
    );
    const first = Math.max(0, at - (at % STEP));
    const item = (row) => this.item(row);
    const showAll = () => before.replaceWith(...rows.slice(0, first).map(item));
    const before = h('li', action(`Show the ${first} before`, showAll));
    return inSteps(h('ul', first > 0 && before), rows, item, undefined, first);
  }

  item(row) {
    const isOpen = row.children && (this.opened.has(row.address) || this.around.has(row.address));
    const isCurrent = row.address === this.current && 'page';
    const label = h(
      'a',
      { href: row.address, 'aria-current': isCurrent },
      glyph(row.kind),
      name(row.name),
    );
    const opener = row.children ? this.opener(row, isOpen) : h('span.opener');
    return h('li', h('div.row', opener, label), isOpen && this.list(row.children()));
  }

  opener(row, isOpen) {
    const button = h(
      'button.opener',
      { type: 'button', 'aria-expanded': String(isOpen) },
      h('span.sr', 'Contents of ', name(row.name)),
    );
    button.addEventListener('click', () => {
      const item = button.closest('li');
      const list = item.querySelector('ul');
      button.setAttribute('aria-expanded', !list);
      this.around.delete(row.address);
      this.opened[list ? 'delete' : 'add'](row.address);
      if (list) list.remove();
      else item.append(this.list(row.children()));
    });
    return button;
  }

  /** Opens what is around the element, marks it and brings it into view. */
  reveal(id, address) {
    this.current = address.split('?')[0];
    this.around.clear();
    for (let step = this.model.owner[id] ?? -1; step >= 0; step = this.model.owner[step]) {
      this.around.add(href(this.model, step));
    }
    const tabs = {
      __proto__: null,
      metamodel: 0,
      cli: 1,
      authentication: 2,
      resource: 3,
      source: 4,
    };
    const kind = id < 0 ? address.split('/')[1] : this.model.sourceOf(id).domain;
    this.show(tabs[kind] ?? this.tab ?? 0);
    this.panel.querySelector('[aria-current]')?.scrollIntoView({ block: 'nearest' });
  }

  /** The address beside the current one: of those that are in the same thing. */
  sibling(id, step) {
    const owner = this.model.owner[id] ?? -1;
    const rows = owner < 0 ? this.rows[this.tab] : (rowOf(this.model, owner).children?.() ?? []);
    const at = rows.findIndex((row) => row.address === this.current);
    return at < 0 ? undefined : rows[at + step]?.address;
  }
}
