// Pages of what CLI files describe.

import { h, name } from './dom.js';
import {
  documentation,
  heading,
  link,
  list,
  mark,
  partId,
  section,
  table,
  target,
} from './parts.js';
import { schemesOf } from './view_schemes.js';

export function viewNamespace(model, id) {
  return [
    heading(model, id, words(model, id) || 'All commands'),
    table(
      'Namespaces',
      ['Name', 'Meaning'],
      model.sorted(model.children(id, 'namespace')),
      (one) => [
        [link(model, one, words(model, one)), mark(model, one)],
        documentation(model, one, true),
      ],
    ),
    table('Commands', ['Command', 'Meaning'], model.sorted(commandsIn(model, id)), (one) => [
      [link(model, one, words(model, one)), mark(model, one)],
      documentation(model, one, true),
    ]),
  ];
}

/** Commands belong to the namespace of their path, in whichever file it is. */
export function commandsIn(model, id) {
  return model.children(id, 'command');
}

/** A full name as people type it. */
export function words(model, id) {
  return model.name(id).replaceAll('.', ' ');
}

/** "--name TYPE" as help texts have it. */
function optionUsage(model, id) {
  const type = model.text(id, 2);
  const arity = model.text(id, 3).toLowerCase();
  const value = type.slice(type.lastIndexOf('.') + 1).toUpperCase();
  const text = `--${model.name(id)} ${value}${arity.includes('list') ? ' …' : ''}`;
  return arity.startsWith('optional') ? `[${text}]` : text;
}

export function viewCommand(model, id) {
  const options = model.children(id, 'option');
  const [service] = model.referencesFrom(id, 'service');
  const [operation] = model.referencesFrom(id, 'operation');
  const usage = h(
    'code',
    { class: 'signature' },
    h('b', null, name(words(model, id))),
    options
      .slice(0, 40)
      .map((one) => [' ', h('span', { class: 'usage' }, name(optionUsage(model, one)))]),
    options.length > 40 ? ' …' : null,
  );
  return [
    heading(model, id, words(model, id)),
    usage,
    section(
      'Calls',
      h(
        'dl',
        { class: 'facts' },
        h('dt', null, 'Operation'),
        h('dd', null, operation ? target(model, operation) : name(model.text(id, 1))),
        h('dt', null, 'Service'),
        h('dd', null, service ? target(model, service) : name(model.text(id, 0))),
        model.text(id, 2)
          ? [h('dt', null, 'Shown as'), h('dd', null, name(model.text(id, 2)))]
          : null,
      ),
    ),
    optionsTable(model, options),
    model.children(id, 'output').map((one) => output(model, one)),
    operation && operation.id >= 0 ? schemesOf(model, operation.id) : null,
  ];
}

const ARITIES = {
  none: 'one value',
  '': 'one value',
  optional: 'one value or none',
  list: 'a list',
  optional_list: 'a list or none',
  list_optional: 'a list with gaps',
};

function optionsTable(model, options) {
  return table(
    'Options',
    ['Option', 'Value', 'Fills', 'Meaning'],
    options,
    (one) => {
      const short = model.text(one, 0);
      const type = model.referencesFrom(one, 'type')[0];
      const fills = model.referencesFrom(one, 'fills');
      const arity = model.text(one, 3);
      return [
        h('code', null, '--', name(model.name(one)), short ? [', -', name(short)] : null),
        [
          type
            ? target(model, type, type.name.slice(type.name.lastIndexOf('.') + 1))
            : h('code', null, name(model.text(one, 2).toUpperCase())),
          h('small', { class: 'quiet' }, ' ', ARITIES[arity.toLowerCase()] ?? name(arity)),
        ],
        fills.length
          ? fills.map((part, i) => [
              i ? '.' : '',
              target(model, part, part.id < 0 ? part.name : model.name(part.id)),
            ])
          : name(model.text(one, 1), 'code'),
        documentation(model, one),
      ];
    },
    { id: (one) => partId(model, one) },
  );
}

function output(model, id) {
  const [structure] = model.referencesFrom(id, 'output');
  const fields = model.children(id, 'output-field');
  const title = `Output of ${model.name(id).slice(model.name(id).lastIndexOf('.') + 1)}`.slice(
    0,
    200,
  );
  const about = h(
    'p',
    { id: partId(model, id), tabindex: '-1' },
    'Structure: ',
    target(model, structure ?? { id: -1, name: model.name(id) }),
  );
  const rows = table(title, ['Title', 'Field'], fields, (one) => {
    const [field] = model.referencesFrom(one, 'output-field');
    return [
      name(model.text(one, 0)),
      field
        ? target(model, field, field.id < 0 ? undefined : model.name(field.id))
        : name(model.name(one)),
    ];
  });
  if (!rows) return section(title, about, h('p', { class: 'quiet' }, 'No field is shown.'));
  rows.querySelector('h2').after(about);
  return rows;
}

/** What no namespace leads to. */
export function commandsAlone(model) {
  return model.ofKind('command').filter((id) => model.owner[id] < 0);
}

export function viewLooseCommands(model) {
  return list('Commands in no namespace', commandsAlone(model), (id) =>
    link(model, id, words(model, id)),
  );
}
