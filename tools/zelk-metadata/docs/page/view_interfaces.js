// Pages of what Metamodel files describe.

import { h, name, quiet } from './dom.js';
import { model } from './model.js';
import {
  CONTENTS,
  documentation,
  fullLink,
  glyph,
  kindText,
  link,
  list,
  mark,
  overview,
  partsTable,
  referred,
  resourceLink,
  section,
  table,
  title,
  typeOf,
  words,
} from './parts.js';
import { partId } from './routes.js';
import { usage } from './view_commands.js';
import { schemesAt, schemesOf } from './view_schemes.js';

export function packages(id) {
  return overview('Packages', model.sorted(id, 'package'), (one) => model.nameOf(one), CONTENTS);
}

/** A list of what refers to the element in that way. */
function users(heading, id, kind) {
  return list(heading, model.referencesTo(id, kind), ({ from }) => fullLink(from));
}

export function viewComponent(id) {
  return [packages(id), users('Schemes', id, 'listed')];
}

function definitions(id) {
  return [
    overview('Structures', model.sorted(id, 'structure')),
    overview('Enumerations', model.sorted(id, 'enumeration')),
    partsTable('Constants', model.children(id, 'constant'), { Type: constantType }),
  ];
}

function constantType(id) {
  const [category, type] = [0, 1].map((position) => model.text(id, position).toUpperCase());
  const value =
    model.row(id)[2] === undefined ? quiet(', value not kept') : [' ', name(model.text(id, 2))];
  return h('code', category === 'LIST' ? `LIST<${type}>` : type, value);
}

export function viewPackage(id) {
  return [
    overview('Services', model.sorted(id, 'service'), undefined, CONTENTS),
    definitions(id),
    schemesAt([id]),
  ];
}

export function viewService(id) {
  const column = { 'Takes and returns': (one) => signature(one, 8) };
  return [
    overview('Operations', model.sorted(id, 'operation'), undefined, column),
    definitions(id),
    schemesAt([model.owner[id], id]),
    users('Commands that call it', id, 'service'),
  ];
}

/** The parameters, by their types only where `most` is small, and the result. */
function signature(id, most) {
  const parameters = model.children(id, 'parameter');
  const pieces = parameters
    .slice(0, most)
    .map((one, i) => [i > 0 && ', ', most > 9 && [name(model.nameOf(one)), ': '], typeOf(one)]);
  const results = model.children(id, 'result').map(typeOf);
  return h('code', '(', pieces, parameters.length > most && ', …', ') → ', results);
}

export function viewOperation(id) {
  const commands = model.referencesTo(id, 'operation').map(({ from }) => from);
  return [
    h('p.signature', h('b', name(model.nameOf(id))), signature(id, 100)),
    partsTable('Parameters', model.children(id, 'parameter'), { Type: typeOf }),
    model
      .children(id, 'result')
      .map((one) =>
        section(
          'Result',
          h('p', { id: partId(one), tabindex: '-1' }, typeOf(one)),
          documentation(one),
        ),
      ),
    table(
      'Errors',
      model.children(id, 'error'),
      { Error: (one) => referred(one, 'error', model.nameOf(one)), When: documentation },
      partId,
    ),
    schemesOf(id),
    overview('Commands that call it', commands, words, {
      Options: (one) => h('code', usage(one)),
    }),
    list('Resources it uses', resourcesOf(id), resourceLink),
  ];
}

/** The resources that the operation and its parts name. */
function resourcesOf(id) {
  const parts = [id, ...model.children(id)];
  const all = parts.flatMap((part) => model.children(part, 'annotation'));
  const values = all
    .filter((one) => model.nameOf(one) === 'Resource')
    .flatMap((one) => model.members(one))
    .filter((member) => member.name === 'value');
  return [...new Set(values.flatMap((member) => member.texts))];
}

export function viewStructure(id) {
  const isError = model.text(id, 0).toUpperCase() === 'ERROR';
  const models = [...model.resources.values()].filter((resource) => resource.models.includes(id));
  return [
    isError && h('p', quiet('An error that operations may end with.')),
    models.map((resource) => h('p', 'A model of ', resourceLink(resource.name))),
    partsTable('Fields', model.children(id, 'field'), { Type: typeOf }),
    definitions(id),
    usedBy(id),
  ];
}

export function viewEnumeration(id) {
  return [partsTable('Values', model.children(id, 'value')), usedBy(id)];
}

/** Everything that has the type. */
function usedBy(id) {
  const users = model.referencesTo(id).filter((reference) => reference.kind !== 'resource');
  const ids = [...new Set(users.map(({ from }) => from))];
  return (
    list('Used by', ids, useLink) ||
    section('Used by', quiet('Nothing in these files refers to it.'))
  );
}

/** What has it, and as what. */
function useLink(id) {
  const owner = model.owner[id];
  const kind = kindText(id);
  const user = /parameter|field|option/.test(kind) ? id : owner;
  return [
    glyph(kindText(owner)),
    ' ',
    link(user, model.fullName(user)),
    ' ',
    quiet(kind),
    mark(id),
  ];
}

export function viewResource(resource) {
  const unanswered = (id) =>
    model.source[id] !== resource.last && quiet(' not answered: a later source names the resource');
  return [
    title('resource', resource.name),
    list('Models', [...new Set(resource.models)], (id) => [fullLink(id), unanswered(id)]),
    list('Identifiers that stand for it', [...new Set(resource.users)], fullLink),
    list('Service of that name', model.find('service', resource.name).slice(0, 1), fullLink),
  ];
}
