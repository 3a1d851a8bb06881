// Pages of what Metamodel files describe.

import { counted, h, name, quiet } from './dom.js';
import {
  annotations,
  documentation,
  fullLink,
  glyph,
  heading,
  kindText,
  link,
  list,
  mark,
  overview,
  partsTable,
  resourceLink,
  section,
  table,
  target,
  title,
  typeOf,
  words,
} from './parts.js';
import { partId } from './routes.js';
import { schemesAt } from './view_schemes.js';

/** A column with "3 services, 4 structures". */
function contents(model) {
  const kinds = ['service', 'operation', 'structure', 'enumeration'];
  const cell = (id) => {
    const counts = kinds.map((kind) => [model.children(id, kind).length, kind]);
    const texts = counts.map(([count, kind]) => count && counted(count, kind));
    return h('span', texts.filter(Boolean).join(', '));
  };
  return ['Contents', cell];
}

export function packages(model, id) {
  const full = (one) => model.nameOf(one);
  return overview(model, 'Packages', model.sorted(id, 'package'), full, contents(model));
}

export function viewComponent(model, id) {
  const schemes = model.referencesTo(id, 'listed');
  return [
    heading(model, id, model.nameOf(id)),
    packages(model, id),
    list('Schemes', schemes, ({ from }) => fullLink(model, from)),
    annotations(model, id),
  ];
}

function definitions(model, id) {
  return [
    overview(model, 'Structures', model.sorted(id, 'structure')),
    overview(model, 'Enumerations', model.sorted(id, 'enumeration')),
    partsTable(model, 'Constants', model.children(id, 'constant'), constantType),
  ];
}

function constantType(model, id) {
  const [category, type] = [0, 1].map((position) => model.text(id, position).toUpperCase());
  const value =
    model.row(id)[2] === undefined ? quiet(', value not kept') : [' ', name(model.text(id, 2))];
  return h('code', category === 'LIST' ? `LIST<${type}>` : type, value);
}

export function viewPackage(model, id) {
  return [
    heading(model, id, model.nameOf(id)),
    overview(model, 'Services', model.sorted(id, 'service'), undefined, contents(model)),
    definitions(model, id),
    schemesAt(model, [id]),
    annotations(model, id),
  ];
}

export function viewService(model, id) {
  const column = ['Takes and returns', (one) => signature(model, one, 8)];
  return [
    heading(model, id, model.nameOf(id)),
    overview(model, 'Operations', model.sorted(id, 'operation'), undefined, column),
    definitions(model, id),
    schemesAt(model, [model.owner[id], id]),
    list('Commands that call it', model.referencesTo(id, 'service'), ({ from }) =>
      fullLink(model, from),
    ),
    annotations(model, id),
  ];
}

/** The parameters, by their types only where `most` is small, and the result. */
function signature(model, id, most) {
  const parameters = model.children(id, 'parameter');
  const pieces = parameters
    .slice(0, most)
    .map((one, i) => [
      i > 0 && ', ',
      most > 9 && [name(model.nameOf(one)), ': '],
      typeOf(model, one),
    ]);
  const results = model.children(id, 'result').map((one) => typeOf(model, one));
  return h('code', '(', pieces, parameters.length > most && ', …', ') → ', results);
}

export function viewOperation(model, id) {
  const commands = model.referencesTo(id, 'operation').map(({ from }) => from);
  const errors = model.children(id, 'error');
  const errorOf = (one) =>
    target(model, model.referencesFrom(one, 'error')[0] ?? { id: -1, name: model.nameOf(one) });
  return [
    heading(model, id),
    h('p.signature', h('b', name(model.nameOf(id))), signature(model, id, 100)),
    partsTable(model, 'Parameters', model.children(id, 'parameter'), typeOf),
    model
      .children(id, 'result')
      .map((one) =>
        section(
          'Result',
          h('p', { id: partId(model, one), tabindex: '-1' }, typeOf(model, one)),
          documentation(model, one),
        ),
      ),
    table(
      'Errors',
      ['Error', 'When'],
      errors,
      (one) => [errorOf(one), documentation(model, one)],
      (one) => partId(model, one),
    ),
    schemesAt(model, [...around(model, id), id]),
    overview(model, 'Commands that call it', commands, (one) => words(model, one)),
    list('Resources it uses', resourcesOf(model, id), resourceLink),
    annotations(model, id),
  ];
}

/** The package and the service of an operation. */
export function around(model, operation) {
  const service = model.owner[operation];
  return [model.owner[service], service];
}

/** The resources that the operation and its parts name. */
function resourcesOf(model, id) {
  const parts = [id, ...model.children(id)];
  const all = parts.flatMap((part) => model.children(part, 'annotation'));
  const members = all
    .filter((one) => model.nameOf(one) === 'Resource')
    .flatMap((one) => model.members(one));
  return [
    ...new Set(
      members.filter((member) => member.name === 'value').flatMap((member) => member.texts),
    ),
  ];
}

export function viewStructure(model, id) {
  const isError = model.text(id, 0).toUpperCase() === 'ERROR';
  const models = [...model.resources.values()].filter((resource) => resource.models.includes(id));
  return [
    heading(model, id),
    isError && h('p', quiet('An error that operations may end with.')),
    models.map((resource) => h('p', 'A model of ', resourceLink(resource.name))),
    partsTable(model, 'Fields', model.children(id, 'field'), typeOf),
    definitions(model, id),
    usedBy(model, id),
    annotations(model, id),
  ];
}

export function viewEnumeration(model, id) {
  return [
    heading(model, id),
    partsTable(model, 'Values', model.children(id, 'value')),
    usedBy(model, id),
    annotations(model, id),
  ];
}

/** Everything that has the type. */
function usedBy(model, id) {
  const users = model.referencesTo(id).filter((reference) => reference.kind !== 'resource');
  const ids = [...new Set(users.map(({ from }) => from))];
  return (
    list('Used by', ids, (from) => useLink(model, from)) ||
    section('Used by', quiet('Nothing in these files refers to it.'))
  );
}

/** What has it, and as what. */
function useLink(model, id) {
  const owner = model.owner[id];
  const kind = kindText(model, id);
  const user = /parameter|field|option/.test(kind) ? id : owner;
  return [
    glyph(kindText(model, owner)),
    ' ',
    link(model, user, model.fullName(user)),
    ' ',
    quiet(kind),
    mark(model, id),
  ];
}

export function viewResource(model, resource) {
  const full = (id) => fullLink(model, id);
  const unanswered = (id) =>
    model.source[id] !== resource.last && quiet(' not answered: a later source names the resource');
  return [
    title('resource', resource.name),
    list('Models', [...new Set(resource.models)], (id) => [full(id), unanswered(id)]),
    list('Identifiers that stand for it', [...new Set(resource.users)], full),
    list('Service of that name', model.find('service', resource.name).slice(0, 1), full),
  ];
}
