// Pages of what CLI files describe.

import { h, name, quiet } from './dom.js';
import { model } from './model.js';
import {
  CONTENTS,
  documentation,
  link,
  notLoaded,
  overview,
  referred,
  section,
  table,
  words,
} from './parts.js';
import { partId } from './routes.js';
import { schemesOf } from './view_schemes.js';

/** More options are not in a usage line. */
const MOST_OPTIONS = 40;

export function viewNamespace(id) {
  return [
    overview('Namespaces', model.sorted(id, 'namespace'), words, CONTENTS),
    overview('Commands', model.sorted(id, 'command'), words),
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

function arityOf(option) {
  return model.text(option, 3).toLowerCase();
}

function lastName(text) {
  return text.slice(text.lastIndexOf('.') + 1);
}

/** "--name TYPE" as help texts have it. */
function optionUsage(option) {
  const arity = arityOf(option);
  const value =
    lastName(model.text(option, 2)).toUpperCase() + (arity.includes('list') ? ' …' : '');
  const text = `--${model.nameOf(option)} ${value}`;
  return [' ', h('span.usage', name(arity.startsWith('optional') ? `[${text}]` : text))];
}

/** What follows the words of the command. */
export function usage(id) {
  const options = model.children(id, 'option');
  return [options.slice(0, MOST_OPTIONS).map(optionUsage), options.length > MOST_OPTIONS && ' …'];
}

export function viewCommand(id) {
  const [operation] = model.referencesFrom(id, 'operation');
  const [service, called] = [0, 1].map((position) => model.text(id, position));
  return [
    h('p.signature', h('b', name(words(id))), usage(id)),
    section(
      'Calls',
      h(
        'p',
        referred(id, 'operation', called, called, [service, called]),
        ' of ',
        referred(id, 'service'),
      ),
      model.text(id, 2) && h('p', 'The result is shown as ', name(model.text(id, 2))),
    ),
    optionsTable(model.children(id, 'option')),
    model.children(id, 'output').map(output),
    operation?.id >= 0 && schemesOf(operation.id),
  ];
}

/** The parameter and the fields in it that the option fills. */
function filled(option) {
  const parts = model.referencesFrom(option, 'fills');
  const found = parts.filter(({ id }) => id >= 0);
  const path = model.text(option, 1).split('.');
  const links = found.map(({ id }, i) => [
    link(id, path[i]),
    i < path.length - 1 && ['.', h('wbr')],
  ]);
  const rest = path.slice(found.length).join('.');
  const isMissing = parts.length > found.length;
  return h('code', links, rest && (isMissing ? notLoaded(rest) : name(rest)));
}

function optionsTable(options) {
  const Option = (one) => {
    const short = model.text(one, 0);
    return h('code', '--', name(model.nameOf(one)), short && [', -', name(short)]);
  };
  const Value = (one) => {
    const [type, arity] = [model.text(one, 2), arityOf(one)];
    const typeLink = referred(one, 'type', type.toUpperCase(), lastName(type));
    return [h('code', typeLink), ' ', quiet(ARITIES[arity] ?? name(arity))];
  };
  const columns = { Option, Value, Fills: filled, Meaning: documentation };
  return table('Options', options, columns, partId);
}

function output(id) {
  const fields = model.children(id, 'output-field');
  const rows = table('Output', fields, {
    Title: (one) => name(model.text(one, 0)),
    Field: (one) => referred(one, 'output-field', model.nameOf(one)),
  });
  const shown = rows || section('Output', quiet('No field is shown.'));
  const structure = h('p', { id: partId(id), tabindex: '-1' }, 'Of ', referred(id, 'output'));
  shown.querySelector('h2').after(structure);
  return shown;
}
