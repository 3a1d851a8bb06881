// Pages of what Metamodel files describe.

import { counted, h, name } from './dom.js';
import { path } from './routes.js';
import { schemesAt, schemesOf } from './view_schemes.js';
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
  partId,
  partsTable,
  section,
  table,
  target,
  typeOf,
} from './parts.js';

export function viewComponent(model, id) {
  const packages = model.sorted(model.children(id, 'package'));
  const schemes = model.referencesTo(id, 'listed');
  return [
    heading(model, id, model.name(id)),
    table('Packages', ['Name', 'Contents', 'Meaning'], packages, (one) => [
      link(model, one, model.name(one)),
      contents(model, one),
      documentation(model, one, true),
    ]),
    list('Schemes', schemes, ({ from }) => [
      link(model, from, model.name(from)),
      ' ',
      counted(model.children(from, 'scheme').length, 'scheme'),
    ]),
    annotations(model, id),
  ];
}

/** "3 services, 4 structures". */
function contents(model, id) {
  const kinds = ['service', 'operation', 'structure', 'enumeration'];
  const counts = kinds.map((kind) => [model.children(id, kind).length, kind]);
  return counts
    .filter(([count]) => count)
    .map(([count, kind]) => counted(count, kind))
    .join(', ');
}

function definitions(model, id) {
  return [
    table(
      'Structures',
      ['Name', 'Meaning'],
      model.sorted(model.children(id, 'structure')),
      (one) => [[link(model, one), mark(model, one)], documentation(model, one, true)],
    ),
    table(
      'Enumerations',
      ['Name', 'Meaning'],
      model.sorted(model.children(id, 'enumeration')),
      (one) => [[link(model, one), mark(model, one)], documentation(model, one, true)],
    ),
    constants(model, id),
  ];
}

function constants(model, id) {
  const all = model.children(id, 'constant');
  return table(
    'Constants',
    ['Name', 'Type', 'Value', 'Meaning'],
    all,
    (one) => {
      const [category, type] = [model.text(one, 0), model.text(one, 1)].map((word) =>
        word.toUpperCase(),
      );
      const value =
        model.row(one).length > 2
          ? h('code', null, name(model.text(one, 2)))
          : h('span', { class: 'quiet' }, 'not kept');
      return [
        name(model.name(one), 'code'),
        h('code', null, category === 'LIST' ? `LIST<${type}>` : type),
        value,
        documentation(model, one),
      ];
    },
    { id: (one) => partId(model, one) },
  );
}

export function viewPackage(model, id) {
  const services = model.sorted(model.children(id, 'service'));
  return [
    heading(model, id, model.name(id)),
    table('Services', ['Name', 'Contents', 'Meaning'], services, (one) => [
      link(model, one),
      contents(model, one),
      documentation(model, one, true),
    ]),
    definitions(model, id),
    schemesAt(model, [id]),
    annotations(model, id),
  ];
}

export function viewService(model, id) {
  const operations = model.sorted(model.children(id, 'operation'));
  return [
    heading(model, id, model.name(id)),
    table('Operations', ['Name', 'Takes and returns', 'Meaning'], operations, (one) => [
      [link(model, one), mark(model, one)],
      signature(model, one, true),
      documentation(model, one, true),
    ]),
    definitions(model, id),
    schemesAt(model, [model.owner[id], id]),
    list('Commands that call it', model.referencesTo(id, 'service'), ({ from }) =>
      fullLink(model, from),
    ),
    annotations(model, id),
  ];
}

/** The names of the parameters with their types, and that of the result. */
function signature(model, id, isBrief = false) {
  const parameters = model.children(id, 'parameter');
  const shownOnes = parameters.slice(0, isBrief ? 8 : 100);
  const pieces = shownOnes.map((one, i) => [
    i ? ', ' : '',
    isBrief ? null : [name(model.name(one)), ': '],
    typeOf(model, model.row(one)),
  ]);
  const [result] = model.children(id, 'result');
  return h(
    'code',
    { class: isBrief ? 'signature brief' : 'signature' },
    isBrief ? null : name(model.name(id), 'b'),
    '(',
    pieces,
    parameters.length > shownOnes.length ? ', …' : null,
    ') → ',
    result === undefined ? '?' : typeOf(model, model.row(result)),
  );
}

export function viewOperation(model, id) {
  const [result] = model.children(id, 'result');
  const commands = model.referencesTo(id, 'operation');
  return [
    heading(model, id),
    signature(model, id),
    partsTable(model, 'Parameters', model.children(id, 'parameter')),
    result === undefined ? null : partsResult(model, result),
    table(
      'Errors',
      ['Error', 'When'],
      model.children(id, 'error'),
      (one) => [
        target(model, model.referencesFrom(one, 'error')[0] ?? { id: -1, name: model.name(one) }),
        documentation(model, one),
      ],
      { id: (one) => partId(model, one) },
    ),
    schemesOf(model, id),
    table('Commands that call it', ['Command', 'Meaning'], commands, ({ from }) => [
      [link(model, from, model.fullName(from).replaceAll('.', ' ')), mark(model, from)],
      documentation(model, from, true),
    ]),
    resourcesOf(model, id),
    annotations(model, id),
  ];
}

function partsResult(model, result) {
  return section(
    'Result',
    h('p', { id: partId(model, result), tabindex: '-1' }, typeOf(model, model.row(result))),
    documentation(model, result),
  );
}

/** The resources that the operation and its parts name. */
function resourcesOf(model, id) {
  const names = new Set();
  for (const part of [id, ...model.children(id)]) {
    for (const annotation of model.children(part, 'annotation')) {
      if (model.name(annotation) !== 'Resource') continue;
      for (const member of model.members(annotation)) {
        if (member.name === 'value') member.texts.forEach((text) => names.add(text));
      }
    }
  }
  return list('Resources it uses', [...names], (text) =>
    h('a', { href: path('resource', text) }, name(text)),
  );
}

export function viewStructure(model, id) {
  const isError = model.text(id, 0).toUpperCase() === 'ERROR';
  const models = [...model.resources.values()].filter((resource) => resource.models.includes(id));
  return [
    heading(model, id),
    isError ? h('p', { class: 'quiet' }, 'An error that operations may end with.') : null,
    models.length
      ? h(
          'p',
          null,
          'A model of ',
          models.map((resource, i) => [
            i ? ', ' : '',
            h('a', { href: path('resource', resource.name) }, name(resource.name)),
          ]),
          '.',
        )
      : null,
    partsTable(model, 'Fields', model.children(id, 'field')),
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

const USE_TITLES = {
  parameter: 'Parameters',
  result: 'Results',
  field: 'Fields',
  error: 'Errors of operations',
  output: 'Outputs of commands',
  option: 'Options of commands',
};

/** Everything that has the type, by what has it. */
function usedBy(model, id) {
  const groups = new Map();
  const seen = new Set();
  for (const { kind, from } of model.referencesTo(id)) {
    if (kind === 'resource' || seen.has(from)) continue;
    seen.add(from);
    const user = model.kindOf(from);
    groups.set(user, [...(groups.get(user) ?? []), from]);
  }
  if (!groups.size)
    return section('Used by', h('p', { class: 'quiet' }, 'Nothing in these files refers to it.'));
  return h(
    'section',
    { class: 'uses' },
    h('h2', null, 'Used by'),
    Object.entries(USE_TITLES).map(([kind, title]) => {
      const element = groups.has(kind)
        ? list(title, groups.get(kind), (from) => useLink(model, from))
        : null;
      element
        ?.querySelector('h2')
        .replaceWith(
          h(
            'h3',
            null,
            title,
            ' ',
            h('small', { class: 'tally' }, String(groups.get(kind).length)),
          ),
        );
      return element;
    }),
  );
}

/** Of a result, error or output its owner; of other parts both names. */
function useLink(model, id) {
  const owner = model.owner[id];
  const isNamed = ['parameter', 'field', 'option'].includes(model.kindOf(id));
  return [
    glyph(kindText(model, owner)),
    ' ',
    link(model, isNamed ? id : owner, model.fullName(isNamed ? id : owner)),
    mark(model, id),
  ];
}

export function viewResource(model, resource) {
  const answered = (id) =>
    model.source[id] === resource.last
      ? null
      : h('small', null, ' not answered: a later source names the resource');
  return [
    h(
      'h1',
      { tabindex: '-1' },
      h('span', { class: 'kind resource' }, 'resource'),
      ' ',
      name(resource.name),
    ),
    list('Models', [...new Set(resource.models)], (id) => [fullLink(model, id), answered(id)]),
    list('Identifiers that stand for it', [...new Set(resource.users)], (id) =>
      fullLink(model, id),
    ),
    list(
      'Interface that it is named after',
      model.find('service', resource.name).slice(0, 1),
      (id) => fullLink(model, id),
    ),
  ];
}
