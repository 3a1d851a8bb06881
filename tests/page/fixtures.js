// Metadata files that are hard to show.

import { writeSource } from './support.js';

/** How many fields the longest structure has. */
export const COPIES = 350;

const text = { category: 'BUILTIN', primitive_type: 'STRING' };

function service(name) {
  return {
    name,
    documentation: 'A service.',
    metadata: {},
    enumerations: [],
    structures: [],
    constants: [],
    operations: [],
  };
}

function operation(name, params = []) {
  return {
    name,
    documentation: '',
    metadata: {},
    params,
    result: { documentation: '', metadata: {}, type: text },
    errors: [],
  };
}

function packageOf(name, structures, services) {
  return { name, documentation: '', metadata: {}, enumerations: [], structures, services };
}

function command(name, serviceId, operationId, fields) {
  return {
    type: 'command',
    path: '',
    name,
    description: '',
    node_metadata: {
      service_id: serviceId,
      operation_id: operationId,
      formatter: 'SIMPLE',
      options: fields.map((field) => ({
        long_option: field,
        short_option: '',
        field_name: field,
        description: '',
        type: 'String',
        generic: 'NONE',
      })),
      output_field_list: [],
    },
  };
}

function schemes(component, definitions, lists) {
  return { authentication: { component: { name: component, schemes: definitions, ...lists } } };
}

function component(name, packages) {
  return { metamodel: { component: { name, documentation: '', metadata: {}, packages } } };
}

function structure(name, fields) {
  return {
    name,
    type: 'STRUCTURE',
    documentation: 'Many.',
    metadata: {},
    enumerations: [],
    constants: [],
    fields,
  };
}

/**
 * Two sources that describe the same package and service, each with something that the other one
 * has not, and schemes and a command of an operation that is not answered.
 */
export function mergedSources() {
  const source = (file, structures, operations) =>
    writeSource(
      file,
      component('me', [packageOf('me.p', structures, [{ ...service('me.p.svc'), operations }])]),
    );
  const definitions = { own: { authenticationScheme: 'x.own', type: 'SESSIONLESS' } };
  const lists = { packages: {}, operations: { 'me.p.svc.hidden': ['own'] } };
  return [
    source('m0.json', [], [operation('run')]),
    source('m1.json', [structure('me.p.only', [])], [operation('hidden')]),
    writeSource('m2.json', schemes('me', definitions, lists)),
    writeSource('m3.json', {
      cli: [
        { type: 'namespace', path: '', name: 'some', description: '' },
        command('call', 'me.p.svc', 'hidden', []),
      ],
    }),
  ];
}

/** A file of which a part does not load. */
export function partialSource() {
  const { authentication } = schemes('part', {}, {});
  return writeSource('partial.json', { authentication: { ...authentication, product: 1 } });
}

/**
 * What is not answered beside what has its name: of another kind, or in another service. The second
 * package of the first source is dropped, and the services of the second source are shadowed.
 */
export function namesakeSources() {
  const type = { category: 'USER_DEFINED', user_defined_type: 'STRUCTURE' };
  const field = (name, user_defined_type_name) => ({
    name,
    documentation: '',
    metadata: {},
    type: { ...type, user_defined_type_name },
  });
  const answered = structure('na.p.s', [field('one', 'na.p.lost'), field('two', 'na.p.gone')]);
  const error = (name) => ({ user_defined_type_name: name, documentation: '' });
  const run = { ...operation('run'), errors: [error('na.p.lost'), error('na.p.gone')] };
  const services = (inShort, inLong) => [
    { ...service('na.p.svc'), operations: inShort },
    { ...service('na.p.svc.a'), operations: inLong },
  ];
  const dropped = [packageOf('na.p', [structure('na.p.lost', [])], [service('na.p.gone')])];
  const packages = [packageOf('na.p', [answered], services([run], [])), ...dropped];
  const shadowed = [packageOf('na.p', [], services([operation('a.b')], [operation('b')]))];
  const definitions = { own: { authenticationScheme: 'x.own', type: 'SESSIONLESS' } };
  const lists = { operations: { 'na.p.svc.a.b': ['own'] } };
  return [
    writeSource('na0.json', component('na', packages)),
    writeSource('na1.json', component('na', shadowed)),
    writeSource('na2.json', {
      cli: [
        command('long', 'na.p.svc.a', 'b', []),
        command('short', 'na.p.svc', 'a.b', []),
        command('fill', 'na.p.svc', 'run', ['na.p.gone']),
      ],
    }),
    writeSource('na3.json', schemes('na', definitions, lists)),
  ];
}

export const LONG_NAME = 'a_name_of_a_field_that_has_many_words'.repeat(3);

/** A component with a long name, and types that have little room. */
export function longSources() {
  const optional = { category: 'GENERIC', generic_type: 'OPTIONAL', element_type: text };
  const field = { documentation: 'Many words. '.repeat(90), metadata: {}, type: optional };
  const fields = [{ ...field, name: LONG_NAME }];
  const name = Array(20).fill('component').join('.');
  return [
    writeSource('long.json', component(name, [packageOf('lo', [structure('lo.s', fields)], [])])),
  ];
}

/** Two sources that describe the same package, and one that has problems in each of its packages. */
export function shadowedSources() {
  const fields = Array.from({ length: COPIES }, (_, i) => ({
    name: `f${i}`,
    documentation: 'Many words. '.repeat(30),
    metadata: {},
    type: text,
  }));
  const content = (structures) => ({
    name: 'a.b',
    documentation: 'Twice.',
    metadata: {},
    enumerations: [],
    structures,
    services: [service('a.b.svc')],
  });
  return [
    writeSource('first.json', component('a', [content([structure('a.b.many', fields)])])),
    writeSource('second.json', component('a', [content([])])),
    writeSource('broken.json', component('b', fields)),
  ];
}

const LONG = 'x'.repeat(1000000);

export const HOSTILE_TEXTS = [
  '<script>window.attacked = 1</script>',
  '</script><img src=x onerror="window.attacked = 1">',
  '<b><i>"\'&amp;<!--',
  '\u202eevil\u2066\u0000\u001b[31m',
  '{{script}}\u2028\u2029',
  `<script>window.attacked = 1</script>${LONG}`,
];

/** Sources of all domains in which every text is one of these. */
export function hostileSources() {
  let next = 0;
  const hostile = () => HOSTILE_TEXTS[next++ % HOSTILE_TEXTS.length];
  const named = () => ({
    name: hostile(),
    documentation: hostile(),
    metadata: { [hostile()]: { [hostile()]: [hostile()] }, Resource: { value: hostile() } },
  });
  const type = (name) => ({
    category: 'USER_DEFINED',
    user_defined_type: hostile(),
    user_defined_type_name: name,
  });
  const hostileOperation = () => ({
    ...named(),
    params: [{ ...named(), type: type(hostile()) }],
    result: { ...named(), type: type(hostile()) },
    errors: [{ user_defined_type_name: hostile(), documentation: hostile() }],
  });
  const packages = HOSTILE_TEXTS.map((name) => ({
    ...named(),
    name,
    enumerations: [{ ...named(), values: [named()] }],
    structures: [
      { ...structure(hostile(), [{ ...named(), type: text }]), documentation: hostile() },
    ],
    services: [
      { ...service(hostile()), documentation: hostile(), operations: [hostileOperation()] },
    ],
  }));
  const definitions = {
    [HOSTILE_TEXTS[0]]: {
      authenticationScheme: hostile(),
      type: 'SESSION_AWARE',
      sessionManager: hostile(),
    },
  };
  const lists = Object.fromEntries(HOSTILE_TEXTS.map((name) => [name, [HOSTILE_TEXTS[0]]]));
  const option = () => ({
    long_option: hostile(),
    short_option: hostile(),
    field_name: hostile(),
    description: hostile(),
    type: hostile(),
    generic: hostile(),
  });
  const output = () => ({
    structure_id: hostile(),
    output_fields: [{ field_name: hostile(), display_name: hostile() }],
  });
  const commands = HOSTILE_TEXTS.map((name) => ({
    type: 'command',
    path: '',
    name,
    description: hostile(),
    node_metadata: {
      service_id: hostile(),
      operation_id: hostile(),
      formatter: hostile(),
      options: [option()],
      output_field_list: [output()],
    },
  }));
  const namespaces = HOSTILE_TEXTS.map((name) => ({
    type: 'namespace',
    path: '',
    name,
    description: hostile(),
  }));
  return [
    writeSource('hostile-metamodel.json', component(HOSTILE_TEXTS[0], packages)),
    writeSource(
      'hostile-authentication.json',
      schemes(HOSTILE_TEXTS[1], definitions, { packages: lists }),
    ),
    writeSource('hostile-cli.json', { cli: [...namespaces, ...commands] }),
  ];
}

/** Each is shown as its code in names. */
export const UNSEEN = [0x200b, 0x200f, 0x061c, 0x00ad, 0xe0041, 0x2028, 0x202e];

/**
 * Two sources that describe the schemes of one component, names that cannot be seen, and a command
 * that fills what is not there.
 */
export function oddSources() {
  const names = [' ', `a${String.fromCodePoint(...UNSEEN)}b`, '\u0645\u06cc\u200c\u062e'];
  const content = packageOf(
    'sh.p',
    names.map((name) => structure(name, [])),
    [],
  );
  const spec = { name: 'spec', documentation: '', metadata: {}, type: text };
  const operations = [operation('run', [spec])];
  const called = packageOf('sh.q', [], [{ ...service('sh.q.svc'), operations }]);
  const scheme = (name) =>
    schemes(
      'sh',
      { a: { authenticationScheme: name, type: 'SESSIONLESS' } },
      { packages: { 'sh.p': ['a'] } },
    );
  return [
    writeSource('odd.json', component('sh', [content, called])),
    writeSource('c0.json', scheme('x.a')),
    writeSource('c1.json', scheme('y.a')),
    writeSource('run.json', {
      cli: [command('run', 'sh.q.svc', 'run', ['spec.more.q', 'nothing.q'])],
    }),
  ];
}
