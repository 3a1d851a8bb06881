// The lists at the side. Only what is open is in the document, in steps of a few hundred rows.

import { action, h, inSteps, name } from './dom.js';
import { glyph, kindText } from './parts.js';
import { href, path } from './routes.js';
import { looseCommands } from './view_commands.js';

const STEP = 200;

const CHILD_KINDS = {
  component: ['package', 'scheme'],
  package: ['service', 'structure', 'enumeration'],
  service: ['operation', 'structure', 'enumeration'],
  structure: ['enumeration'],
  namespace: ['namespace', 'command'],
};

/** A row: `label`, `address`, `kind`, and `children()`, which is null for a leaf. */
function rowOf(model, id) {
  const kind = model.kindOf(id);
  const kinds = CHILD_KINDS[kind] ?? [];
  const hasChildren = kinds.length > 0 && model.children(id, ...kinds).length > 0;
  return {
    label: kind === 'component' ? model.nameOf(id) : model.relativeName(id),
    address: href(model, id),
    kind: kindText(model, id),
    children: hasChildren ? () => childrenOf(model, id, kinds) : null,
  };
}

function childrenOf(model, id, kinds) {
  return kinds.flatMap((kind) => model.sorted(id, kind)).map((child) => rowOf(model, child));
}

function components(model, domain) {
  const ids = model.ofKind('component').filter((id) => model.sourceOf(id).domain === domain);
  return ids.map((id) => rowOf(model, id));
}

/** What the root has in it, namespaces without a root, and commands without a namespace. */
function commands(model) {
  const roots = model.ofKind('namespace').filter((id) => model.owner[id] < 0);
  const rows = roots.map((id) => rowOf(model, id));
  const top = rows.flatMap((row, i) => (model.nameOf(roots[i]) ? [row] : (row.children?.() ?? [])));
  return [...top, ...looseCommands(model).map((id) => rowOf(model, id))];
}

function resources(model) {
  return [...model.resources.keys()].map((text) => ({
    kind: 'resource',
    label: text,
    address: path('resource', text),
  }));
}

function sources(model) {
  return model.sources.map(({ domain, id, file }) => ({
    kind: 'source',
    label: file,
    address: path('source', domain, id),
  }));
}

const TABS = [
  ['Interfaces', (model) => components(model, 'metamodel')],
  ['Commands', commands],
  ['Schemes', (model) => components(model, 'authentication')],
  ['Resources', resources],
  ['Sources', sources],
];

export class Tree {
  rows = [];
  opened = new Set();
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
      ({ address }) => address === this.current || this.opened.has(address),
    );
    const first = Math.max(0, at - (at % STEP));
    const list = h('ul');
    const all = () =>
      list.replaceWith(
        h(
          'ul',
          rows.map((row) => this.item(row)),
        ),
      );
    if (first) list.append(h('li', action(`Show the ${first} before`, all)));
    return inSteps(
      list,
      rows,
      (row) => this.item(row),
      (button) => h('li', button),
      STEP,
      first,
    );
  }

  item(row) {
    const isOpen = row.children && this.opened.has(row.address);
    const isCurrent = row.address === this.current && 'page';
    const label = h(
      'a',
      { href: row.address, 'aria-current': isCurrent },
      glyph(row.kind),
      name(row.label),
    );
    const opener = row.children ? this.opener(row, isOpen) : h('span.opener');
    return h('li', h('div.row', opener, label), isOpen && this.list(row.children()));
  }

  opener(row, isOpen) {
    const button = h(
      'button.opener',
      { type: 'button', 'aria-expanded': String(Boolean(isOpen)) },
      h('span.sr', 'Contents of ', name(row.label)),
    );
    button.addEventListener('click', () => {
      const isNowOpen = !this.opened.delete(row.address);
      button.setAttribute('aria-expanded', isNowOpen);
      const item = button.closest('li');
      if (!isNowOpen) return item.querySelector('ul').remove();
      this.opened.add(row.address);
      return item.append(this.list(row.children()));
    });
    return button;
  }

  /** Opens what is around the element, marks it and brings it into view. */
  reveal(id, address) {
    this.current = address.split('?')[0];
    for (let step = this.model.owner[id] ?? -1; step >= 0; step = this.model.owner[step]) {
      this.opened.add(href(this.model, step));
    }
    const tabs = { metamodel: 0, cli: 1, authentication: 2, resource: 3, source: 4 };
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
