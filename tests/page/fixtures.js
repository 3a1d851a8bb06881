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

/** Two sources that describe the same package, and one that has problems in each of its packages. */
export function shadowedSources() {
  const fields = Array.from({ length: COPIES }, (_, i) => ({
    name: `f${i}`,
    documentation: 'Many words. '.repeat(90),
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
  const operation = () => ({
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
    services: [{ ...service(hostile()), documentation: hostile(), operations: [operation()] }],
  }));
  const schemes = {
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
    writeSource('hostile-authentication.json', {
      authentication: { component: { name: HOSTILE_TEXTS[1], schemes, packages: lists } },
    }),
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
  const content = {
    name: 'sh.p',
    documentation: '',
    metadata: {},
    enumerations: [],
    structures: names.map((name) => structure(name, [])),
    services: [],
  };
  const called = {
    ...content,
    name: 'sh.q',
    structures: [],
    services: [
      {
        ...service('sh.q.svc'),
        operations: [
          {
            name: 'run',
            documentation: '',
            metadata: {},
            params: [{ name: 'spec', documentation: '', metadata: {}, type: text }],
            result: { documentation: '', metadata: {}, type: text },
            errors: [],
          },
        ],
      },
    ],
  };
  const command = {
    type: 'command',
    path: '',
    name: 'run',
    description: '',
    node_metadata: {
      service_id: 'sh.q.svc',
      operation_id: 'run',
      formatter: 'SIMPLE',
      options: ['spec.more.q', 'nothing.q'].map((field) => ({
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
  const schemes = (name) => ({
    authentication: {
      component: {
        name: 'sh',
        schemes: { a: { authenticationScheme: name, type: 'SESSIONLESS' } },
        packages: { 'sh.p': ['a'] },
      },
    },
  });
  return [
    writeSource('odd.json', component('sh', [content, called])),
    writeSource('c0.json', schemes('x.a')),
    writeSource('c1.json', schemes('y.a')),
    writeSource('run.json', { cli: [command] }),
  ];
}
