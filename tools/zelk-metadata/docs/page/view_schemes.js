// Pages of what Authentication files describe, and the schemes of what others describe.

import { h, name, quiet } from './dom.js';
import { model } from './model.js';
import { fullLink, lines, link, list, mark, referred, section, table, target } from './parts.js';
import { partId } from './routes.js';

/** "ID SESSION_AWARE session manager …". */
function definition(id) {
  const managers = model.referencesFrom(id, 'manager');
  return [
    h('code', name(model.text(id, 0))),
    ' ',
    h('span.tag', name(model.text(id, 1).toUpperCase())),
    managers.map((manager) => [' session manager ', target(manager)]),
  ];
}

/** A list of schemes. */
export function schemes(ids) {
  return lines(ids, (id) => [link(id), mark(id), ' ', definition(id)], 'none');
}

/** The schemes that a list has, in its order, as it calls them. */
function entries(id) {
  const line = (entry) => {
    const [scheme] = model.referencesFrom(entry, 'scheme');
    const text = model.nameOf(entry);
    return [target(scheme, text), scheme.id >= 0 && [' ', definition(scheme.id)]];
  };
  return lines(model.children(id, 'entry'), line, 'an empty list');
}

/** The lists for the element. References lead to elements that are answered only. */
function listsOf(id) {
  return model.isFound(id)
    ? model.referencesTo(id, 'listed').map(({ from }) => from)
    : model
        .find(`${model.kindOf(id)}-list`, model.fullName(id))
        .filter((one) => !model.isImplied(one));
}

/** What is listed for each of the elements, each as it is listed. */
export function schemesAt(ids) {
  const hasSchemes = model.sources.some((source) => source.domain === 'authentication');
  const For = (id) => [quiet(model.kindOf(id)), ' ', name(model.simpleName(id))];
  const Schemes = (id) => {
    const all = listsOf(id);
    return all.length ? all.map((one) => [entries(one), mark(one)]) : quiet('nothing is listed');
  };
  const levels = ids.filter((id) => hasSchemes && id >= 0);
  const rows = table('Schemes listed', levels, { For, Schemes });
  const rule =
    'Each level is shown as it is listed; nothing is inherited. What applies where nothing is listed is up to the client.';
  return rows && [rows, h('p.quiet', rule)];
}

/** The same for an operation, and what it is in. */
export function schemesOf(operation) {
  const service = model.owner[operation];
  return schemesAt([model.owner[service], service, operation]);
}

export function viewAuthentication(id) {
  const packages = model.sorted(id, 'package-list');
  const services = packages.flatMap((one) => model.sorted(one, 'service-list'));
  const operations = services.flatMap((one) => model.sorted(one, 'operation-list'));
  const For = (one) => [referred(one, 'listed', model.nameOf(one)), mark(one)];
  const lists = (title, ids) => {
    const listed = ids.filter((one) => !model.isImplied(one));
    return table(title, listed, { For, Schemes: entries }, partId);
  };
  return [
    list('Authenticates', model.referencesFrom(id, 'listed'), (component) => target(component)),
    table('Schemes', model.children(id, 'scheme'), {
      Name: (one) => [link(one), mark(one)],
      Definition: definition,
    }),
    lists('Packages', packages),
    lists('Services', services),
    lists('Operations', operations),
  ];
}

export function viewScheme(id) {
  const users = model.referencesTo(id, 'scheme').map(({ from }) => model.owner[from]);
  return [
    section('Definition', h('p', definition(id))),
    list('Listed for', [...new Set(users)], (one) => {
      const [listed] = model.referencesFrom(one, 'listed');
      return listed?.id >= 0 ? fullLink(listed.id) : referred(one, 'listed', model.nameOf(one));
    }),
  ];
}
