// Pages of what CLI files describe.

import { h, name, quiet } from './dom.js';
import { documentation, heading, overview, section, table, target, words } from './parts.js';
import { partId } from './routes.js';
import { around } from './view_interfaces.js';
import { schemesAt } from './view_schemes.js';

export function viewNamespace(model, id) {
  const text = (one) => words(model, one);
  return [
    heading(model, id, words(model, id)),
    overview(model, 'Namespaces', model.sorted(id, 'namespace'), text),
    overview(model, 'Commands', model.sorted(id, 'command'), text),
  ];
}

const ARITIES = {
  __proto__: null,
  none: 'one value',
  '': 'one value',
  optional: 'one value or none',
  list: 'a list',
  optional_list: 'a list or none',
  list_optional: 'a list with gaps',
};

function arityOf(model, option) {
  return model.text(option, 3).toLowerCase();
}

function lastName(text) {
  return text.slice(text.lastIndexOf('.') + 1);
}

/** "--name TYPE" as help texts have it. */
function usage(model, option) {
  const arity = arityOf(model, option);
  const value =
    lastName(model.text(option, 2)).toUpperCase() + (arity.includes('list') ? ' …' : '');
  const text = `--${model.nameOf(option)} ${value}`;
  return [' ', h('span.usage', name(arity.startsWith('optional') ? `[${text}]` : text))];
}

export function viewCommand(model, id) {
  const options = model.children(id, 'option');
  const [operation] = model.referencesFrom(id, 'operation');
  const [service] = model.referencesFrom(id, 'service');
  const called = operation ? target(model, operation) : name(model.text(id, 1));
  return [
    heading(model, id, words(model, id)),
    h(
      'p.signature',
      h('b', name(words(model, id))),
      options.slice(0, 40).map((one) => usage(model, one)),
      options.length > 40 && ' …',
    ),
    section(
      'Calls',
      h('p', called, ' of ', service && target(model, service)),
      model.text(id, 2) && h('p', 'The result is shown as ', name(model.text(id, 2))),
    ),
    optionsTable(model, options),
    model.children(id, 'output').map((one) => output(model, one)),
    operation?.id >= 0 && schemesAt(model, [...around(model, operation.id), operation.id]),
  ];
}

/** The parameter and the fields in it that the option fills. */
function filled(model, option) {
  const parts = model.referencesFrom(option, 'fills');
  const nameOf = (part) => (part.id < 0 ? part.name : model.nameOf(part.id));
  const links = parts.map((part, i) => [i > 0 && '.', target(model, part, nameOf(part))]);
  return h('code', parts.length ? links : name(model.text(option, 1)));
}

function optionsTable(model, options) {
  const type = (one) => {
    const [named] = model.referencesFrom(one, 'type');
    return named
      ? target(model, named, lastName(named.name))
      : name(model.text(one, 2).toUpperCase());
  };
  const cells = (one) => [
    h(
      'code',
      '--',
      name(model.nameOf(one)),
      model.text(one, 0) && [', -', name(model.text(one, 0))],
    ),
    [h('code', type(one)), ' ', quiet(ARITIES[arityOf(model, one)] ?? name(arityOf(model, one)))],
    filled(model, one),
    documentation(model, one),
  ];
  return table('Options', ['Option', 'Value', 'Fills', 'Meaning'], options, cells, (one) =>
    partId(model, one),
  );
}

function output(model, id) {
  const [structure] = model.referencesFrom(id, 'output');
  const fields = model.children(id, 'output-field');
  const rows = table('Output', ['Title', 'Field'], fields, (one) => {
    const [field] = model.referencesFrom(one, 'output-field');
    return [
      name(model.text(one, 0)),
      field ? target(model, field, model.nameOf(one)) : name(model.nameOf(one)),
    ];
  });
  const shown = rows || section('Output', quiet('No field is shown.'));
  shown
    .querySelector('h2')
    .after(
      h(
        'p',
        { id: partId(model, id), tabindex: '-1' },
        'Of ',
        structure && target(model, structure),
      ),
    );
  return shown;
}
