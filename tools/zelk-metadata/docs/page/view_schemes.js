// Pages of what Authentication files describe, and the schemes of what others describe.

import { h, inSteps, name, quiet } from './dom.js';
import { fullLink, heading, link, list, mark, section, table, target } from './parts.js';

/** "SESSION_AWARE, session manager …". */
function schemeType(model, id) {
  const managers = model.referencesFrom(id, 'manager');
  const text = managers.map((manager) => [' session manager ', target(model, manager)]);
  return h('span', h('span.tag', name(model.text(id, 1).toUpperCase())), text);
}

/** The schemes that a list has, in its order. */
function entries(model, id) {
  const all = model.children(id, 'entry').flatMap((entry) => model.referencesFrom(entry, 'scheme'));
  const line = (scheme) =>
    h('li', link(model, scheme.id, model.text(scheme.id, 0)), ' ', schemeType(model, scheme.id));
  return all.length ? inSteps(h('ul.list'), all, line) : quiet('an empty list');
}

/** What is listed for each of the elements, each as it is listed. */
export function schemesAt(model, ids) {
  const levels = ids.filter((id) => id >= 0);
  const hasSchemes = model.sources.some((source) => source.domain === 'authentication');
  const listed = (id) =>
    model.referencesTo(id, 'listed').map(({ from }) => [entries(model, from), mark(model, from)]);
  const lists = (id) => {
    const all = listed(id);
    return all.length ? all : quiet('nothing is listed');
  };
  const rows = table('Schemes listed', ['For', 'Schemes'], hasSchemes ? levels : [], (id) => [
    [quiet(model.kindOf(id)), ' ', name(model.simpleName(id))],
    lists(id),
  ]);
  const rule =
    'Each level is shown as it is listed; nothing is inherited. What applies where nothing is listed is up to the client.';
  return rows && [rows, h('p.quiet', rule)];
}

export function viewAuthentication(model, id) {
  const packages = model.sorted(id, 'package-list');
  const services = packages.flatMap((one) => model.sorted(one, 'service-list'));
  const operations = services.flatMap((one) => model.sorted(one, 'operation-list'));
  const named = (one) =>
    model.referencesFrom(one, 'listed')[0] ?? { id: -1, name: model.nameOf(one) };
  const lists = (title, ids) =>
    table(
      title,
      ['For', 'Schemes'],
      ids.filter((one) => !model.isImplied(one)),
      (one) => [[target(model, named(one)), mark(model, one)], entries(model, one)],
    );
  return [
    heading(model, id, model.nameOf(id)),
    list('Authenticates', model.referencesFrom(id, 'listed'), (component) =>
      target(model, component),
    ),
    table('Schemes', ['Name', 'Scheme', 'Type'], model.children(id, 'scheme'), (one) => [
      [link(model, one), mark(model, one)],
      h('code', name(model.text(one, 0))),
      schemeType(model, one),
    ]),
    lists('Packages', packages),
    lists('Services', services),
    lists('Operations', operations),
  ];
}

export function viewScheme(model, id) {
  const users = model.referencesTo(id, 'scheme').map(({ from }) => model.owner[from]);
  return [
    heading(model, id),
    section('Definition', h('p', h('code', name(model.text(id, 0))), ' ', schemeType(model, id))),
    list('Listed for', [...new Set(users)], (one) => {
      const [listed] = model.referencesFrom(one, 'listed');
      return listed?.id >= 0 ? fullLink(model, listed.id) : name(model.nameOf(one));
    }),
  ];
}
