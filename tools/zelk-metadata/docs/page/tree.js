// The lists at the side. Only what is open is in the document, in steps of a few hundred rows.

import { h, inSteps, name } from './dom.js';
import { glyph, kindText } from './parts.js';
import { href, path } from './routes.js';
import { commandsAlone } from './view_commands.js';

const STEP = 200;

const CHILD_KINDS = {
  component: ['package', 'scheme'],
  package: ['service', 'structure', 'enumeration'],
  service: ['operation', 'structure', 'enumeration'],
  structure: ['enumeration'],
  namespace: ['namespace', 'command'],
};

/** A row: `label`, `address`, `kind`, `id` or -1, and `children()`, which is null for a leaf. */
function rowOf(model, id) {
  const kinds = CHILD_KINDS[model.kindOf(id)];
  const children = () =>
    kinds
      .flatMap((kind) => model.sorted(model.children(id, kind)))
      .map((child) => rowOf(model, child));
  const hasChildren = kinds?.some((kind) => model.children(id, kind).length);
  const isLong = ['component', 'package'].includes(model.kindOf(id));
  return {
    id,
    label: isLong ? model.name(id) : model.simpleName(id),
    address: href(model, id),
    kind: kindText(model, id),
    children: hasChildren ? children : null,
  };
}

const TABS = [
  ['Interfaces', (model) => componentsOf(model, 'metamodel')],
  [
    'Commands',
    (model) => [...rootsOf(model), ...commandsAlone(model).map((id) => rowOf(model, id))],
  ],
  ['Schemes', (model) => componentsOf(model, 'authentication')],
  [
    'Resources',
    (model) =>
      [...model.resources.keys()].map((text) => plain('resource', text, path('resource', text))),
  ],
  [
    'Sources',
    (model) =>
      model.sources.map((source) =>
        plain('source', source.file, path('source', source.domain, source.id)),
      ),
  ],
];

function plain(kind, label, address) {
  return { id: -1, label, address, kind, children: null };
}

function componentsOf(model, domain) {
  const ids = model.ofKind('component').filter((id) => model.domainOf(id) === domain);
  return model.sorted(ids).map((id) => rowOf(model, id));
}

/** What is at the top of the commands: what the root has in it, and namespaces without one. */
function rootsOf(model) {
  const roots = model.ofKind('namespace').filter((id) => model.owner[id] < 0);
  return roots.flatMap((id) =>
    model.name(id) === '' ? (rowOf(model, id).children?.() ?? []) : [rowOf(model, id)],
  );
}

export class Tree {
  constructor(model, tabs, panel) {
    Object.assign(this, { model, panel, opened: new Set(), tab: 0, current: '' });
    this.rows = TABS.map(() => null);
    this.tabs = TABS.map(([label], position) => {
      const tab = h(
        'button',
        { type: 'button', role: 'tab', id: `tab-${position}`, 'aria-controls': 'tree' },
        label,
      );
      tab.addEventListener('click', () => this.show(position));
      tab.addEventListener('keydown', (event) => this.moveTab(event, position));
      return tab;
    });
    tabs.append(...this.tabs);
    this.show(0);
  }

  rowsOf(tab) {
    this.rows[tab] ??= TABS[tab][1](this.model);
    return this.rows[tab];
  }

  moveTab(event, position) {
    const step = { ArrowRight: 1, ArrowLeft: -1 }[event.key];
    if (!step) return;
    event.preventDefault();
    const next = (position + step + TABS.length) % TABS.length;
    this.show(next);
    this.tabs[next].focus();
  }

  show(tab) {
    this.tab = tab;
    this.tabs.forEach((button, position) => {
      button.setAttribute('aria-selected', String(position === tab));
      button.tabIndex = position === tab ? 0 : -1;
    });
    this.panel.setAttribute('aria-labelledby', `tab-${tab}`);
    const rows = this.rowsOf(tab);
    if (rows.length === 1 && rows[0].children) this.opened.add(rows[0].address);
    const empty = h('p', { class: 'quiet' }, 'None in these files.');
    this.panel.replaceChildren(rows.length ? this.list(rows) : empty);
  }

  /** Begins with the step that has the current row, if one has. */
  list(rows) {
    const list = h('ul');
    const at = rows.findIndex((row) => this.isAround(row));
    const first = at < STEP ? 0 : at - (at % STEP);
    if (first) {
      const before = h('button', { type: 'button', class: 'action' }, `Show the ${first} before`);
      before.addEventListener('click', () => list.replaceWith(this.wholeList(rows)));
      list.append(h('li', null, before));
    }
    return inSteps(list, rows, (row) => this.item(row), {
      step: STEP,
      first,
      more: (button) => h('li', null, button),
    });
  }

  wholeList(rows) {
    return inSteps(h('ul'), rows, (row) => this.item(row), { step: rows.length });
  }

  isAround(row) {
    return row.address === this.current || this.opened.has(row.address);
  }

  item(row) {
    const label = h('a', { href: row.address, class: 'name' }, glyph(row.kind), name(row.label));
    if (row.address === this.current) label.setAttribute('aria-current', 'page');
    const item = h(
      'li',
      null,
      h(
        'div',
        { class: 'row' },
        row.children ? this.opener(row) : h('span', { class: 'leaf' }),
        label,
      ),
    );
    if (row.children && this.opened.has(row.address)) item.append(this.list(row.children()));
    return item;
  }

  opener(row) {
    const isOpen = this.opened.has(row.address);
    const button = h(
      'button',
      { type: 'button', class: 'opener', 'aria-expanded': String(isOpen) },
      h('span', { 'aria-hidden': 'true' }),
      h('span', { class: 'sr' }, `Contents of ${row.label.slice(0, 200)}`),
    );
    button.addEventListener('click', () => {
      const open = button.getAttribute('aria-expanded') !== 'true';
      button.setAttribute('aria-expanded', String(open));
      if (open) {
        this.opened.add(row.address);
        button.closest('li').append(this.list(row.children()));
      } else {
        this.opened.delete(row.address);
        button.closest('li').querySelector('ul').remove();
      }
    });
    return button;
  }

  /** Opens what is around the element, marks it and brings it into view. */
  reveal(id, address) {
    this.current = address.split('?')[0];
    const kind = /^#\/([a-z]*)/.exec(address)?.[1];
    if (kind === 'search' || kind === '') return this.show(this.tab);
    for (let step = id < 0 ? -1 : this.model.owner[id]; step >= 0; step = this.model.owner[step]) {
      this.opened.add(href(this.model, step));
    }
    const domain = id < 0 ? '' : this.model.domainOf(id);
    const tabs = { metamodel: 0, cli: 1, authentication: 2, '': kind === 'resource' ? 3 : 4 };
    this.show(tabs[domain]);
    return this.panel.querySelector('[aria-current]')?.scrollIntoView({ block: 'nearest' });
  }

  /** The addresses beside the current one: of those that are in the same thing. */
  sibling(id, step) {
    const owner = id < 0 ? -1 : this.model.owner[id];
    const rows = owner < 0 ? this.rowsOf(this.tab) : (rowOf(this.model, owner).children?.() ?? []);
    const at = rows.findIndex((row) => row.address === this.current);
    return at < 0 ? undefined : rows[at + step]?.address;
  }
}
