// The lists at the side. Only what is open is in the document, in steps of a few hundred rows.

import { h, inSteps, name } from './dom.js';
import { model } from './model.js';
import { glyph, kindText } from './parts.js';
import { href, namedPages } from './routes.js';

const CHILD_KINDS = {
  component: ['package'],
  authentication: ['scheme'],
  package: ['service', 'structure', 'enumeration'],
  service: ['operation', 'structure', 'enumeration'],
  structure: ['enumeration'],
  namespace: ['namespace', 'command'],
};

/** A row: `name`, `address`, `kind`, and `children()`, which is null for a leaf. */
function rowOf(id) {
  const kind = model.kindOf(id);
  const kinds = CHILD_KINDS[kind] ?? [];
  const hasChildren = kinds.length > 0 && model.children(id, ...kinds).length > 0;
  return {
    name: model.relativeName(id),
    address: href(id),
    kind: kindText(id),
    children: hasChildren ? () => childrenOf(id, kinds) : null,
  };
}

function childrenOf(id, kinds) {
  const ids = kinds.flatMap((kind) => model.sorted(id, kind));
  return rowsOf(ids);
}

function rowsOf(ids) {
  return ids.map((id) => rowOf(id));
}

/** What the root has in it, namespaces without a root, and commands without a namespace. */
function commands() {
  const roots = model.roots('namespace');
  const rows = rowsOf(roots);
  const top = rows.flatMap((row, i) => (model.nameOf(roots[i]) ? [row] : (row.children?.() ?? [])));
  return [...top, ...rowsOf(model.roots('command'))];
}

function named(kind) {
  return namedPages().filter((page) => page.kind === kind);
}

/** The rows of each tab, by the domain of their elements or their kind. */
const TABS = {
  metamodel: () => rowsOf(model.ofKind('component')),
  cli: commands,
  authentication: () => rowsOf(model.ofKind('authentication')),
  resource: () => named('resource'),
  source: () => named('source'),
};

export class Tree {
  rows = { __proto__: null };
  /** What people have opened. */
  opened = new Set();
  /** What is open only because the current page is in it. */
  around = new Set();
  current = '';

  constructor(tabs, panel) {
    this.tabs = tabs;
    this.panel = panel;
    tabs.addEventListener('click', ({ target }) => target.value && this.show(target.value));
    tabs.addEventListener('keydown', (event) => this.moveTab(event));
  }

  moveTab({ key, target }) {
    const next = {
      ArrowRight: target.nextElementSibling ?? this.tabs.firstElementChild,
      ArrowLeft: target.previousElementSibling ?? this.tabs.lastElementChild,
    }[key];
    next?.click();
    next?.focus();
  }

  rowsIn(tab) {
    return (this.rows[tab] ??= TABS[tab]());
  }

  show(tab) {
    this.tab = tab;
    for (const button of this.tabs.children) {
      const isSelected = button.value === tab;
      button.setAttribute('aria-selected', isSelected);
      button.tabIndex = isSelected ? 0 : -1;
    }
    this.panel.setAttribute('aria-labelledby', `tab-${tab}`);
    const rows = this.rowsIn(tab);
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
    return inSteps(h('ul'), rows, (row) => this.item(row), undefined, at);
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
    for (let step = model.owner[id] ?? -1; step >= 0; step = model.owner[step]) {
      this.around.add(href(step));
    }
    const tabs = Object.keys(TABS);
    const wanted = id < 0 ? address.split('/')[1] : model.sourceOf(id).domain;
    this.tab ??= tabs.find((tab) => this.rowsIn(tab).length > 0) ?? tabs[0];
    this.show(tabs.includes(wanted) ? wanted : this.tab);
    this.panel.querySelector('[aria-current]')?.scrollIntoView({ block: 'nearest' });
  }

  /** The address beside the current one: of those that are in the same thing. */
  sibling(id, step) {
    const owner = model.owner[id] ?? -1;
    const rows = owner < 0 ? this.rows[this.tab] : (rowOf(owner).children?.() ?? []);
    const at = rows.findIndex((row) => row.address === this.current);
    return at < 0 ? undefined : rows[at + step]?.address;
  }
}
