// Pages of what Authentication files describe, and the schemes of what others describe.

import { h, name } from './dom.js';
import {
  annotations,
  fullLink,
  heading,
  link,
  list,
  mark,
  section,
  table,
  target,
} from './parts.js';

/** "SESSION_AWARE, session manager …". */
function schemeType(model, id) {
  const [manager] = model.referencesFrom(id, 'manager');
  return [
    h('span', { class: 'tag' }, name(model.text(id, 1).toUpperCase())),
    manager ? [' session manager ', target(model, manager)] : null,
  ];
}

/** The schemes that a list has, in its order. */
function entries(model, id) {
  const all = model.children(id, 'entry');
  if (!all.length) return h('span', { class: 'quiet' }, 'an empty list');
  return h(
    'ul',
    { class: 'plain' },
    all.slice(0, 100).map((entry) => {
      const [scheme] = model.referencesFrom(entry, 'scheme');
      if (!scheme || scheme.id < 0) return h('li', null, name(model.name(entry)));
      return h(
        'li',
        null,
        link(model, scheme.id, model.text(scheme.id, 0)),
        ' ',
        schemeType(model, scheme.id),
      );
    }),
    all.length > 100 ? h('li', null, `and ${all.length - 100} more`) : null,
  );
}

/** What is listed for each of the elements, each as it is listed. */
export function schemesAt(model, ids) {
  const levels = ids
    .filter((id) => id >= 0)
    .map((id) => ({ id, lists: model.referencesTo(id, 'listed') }));
  const isListed = levels.some(({ lists }) => lists.length);
  if (!isListed && !model.sources.some((source) => source.domain === 'authentication')) return null;
  return section(
    'Schemes listed',
    h(
      'table',
      { class: 'levels' },
      h('caption', { class: 'sr' }, 'Schemes listed at each level'),
      h(
        'thead',
        null,
        h('tr', null, h('th', { scope: 'col' }, 'For'), h('th', { scope: 'col' }, 'Schemes')),
      ),
      h(
        'tbody',
        null,
        levels.map(({ id, lists }) =>
          h(
            'tr',
            null,
            h('th', { scope: 'row' }, model.kindOf(id), ' ', name(model.simpleName(id))),
            h(
              'td',
              null,
              lists.length
                ? lists.map(({ from }) => [entries(model, from), mark(model, from)])
                : h('span', { class: 'quiet' }, 'nothing is listed'),
            ),
          ),
        ),
      ),
    ),
    h(
      'p',
      { class: 'quiet' },
      'Each level is shown as it is listed; nothing is inherited. What applies if a level has no list is up to the client.',
    ),
  );
}

export function schemesOf(model, operation) {
  const service = model.owner[operation];
  return schemesAt(model, [service < 0 ? -1 : model.owner[service], service, operation]);
}

export function viewAuthentication(model, id) {
  const [component] = model.referencesFrom(id, 'listed');
  const packages = model.sorted(model.children(id, 'package-list'));
  const services = packages.flatMap((one) => model.sorted(model.children(one, 'service-list')));
  const operations = services.flatMap((one) => model.sorted(model.children(one, 'operation-list')));
  const lists = (title, ids) =>
    table(
      title,
      ['For', 'Schemes'],
      ids.filter((one) => !model.isImplied(one)),
      (one) => {
        const [listed] = model.referencesFrom(one, 'listed');
        return [
          [target(model, listed ?? { id: -1, name: model.name(one) }), mark(model, one)],
          entries(model, one),
        ];
      },
    );
  return [
    heading(model, id, model.name(id)),
    component && component.id >= 0
      ? h('p', null, 'What it authenticates: ', fullLink(model, component.id))
      : null,
    table('Schemes', ['Name', 'Scheme', 'Type'], model.children(id, 'scheme'), (one) => [
      [link(model, one), mark(model, one)],
      name(model.text(one, 0), 'code'),
      schemeType(model, one),
    ]),
    lists('Packages', packages),
    lists('Services', services),
    lists('Operations', operations),
    annotations(model, id),
  ];
}

export function viewScheme(model, id) {
  const users = model.referencesTo(id, 'scheme').map(({ from }) => model.owner[from]);
  return [
    heading(model, id),
    section(
      'Definition',
      h(
        'dl',
        { class: 'facts' },
        h('dt', null, 'Scheme'),
        h('dd', null, name(model.text(id, 0), 'code')),
        h('dt', null, 'Type'),
        h('dd', null, schemeType(model, id)),
      ),
    ),
    list('Listed for', [...new Set(users)], (one) => {
      const [listed] = model.referencesFrom(one, 'listed');
      return listed && listed.id >= 0 ? fullLink(model, listed.id) : name(model.name(one));
    }),
  ];
}
