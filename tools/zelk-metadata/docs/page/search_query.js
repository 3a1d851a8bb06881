// What a query means: words, kinds, and types that operations take or return.

/** What can be found, pages before parts of pages. */
export const KINDS = [
  'component',
  'authentication',
  'package',
  'service',
  'operation',
  'structure',
  'enumeration',
  'scheme',
  'command',
  'namespace',
  'resource',
  'source',
  'parameter',
  'field',
  'value',
  'constant',
  'option',
  'error',
  'annotation',
];

/** Short words for kinds that do not begin with them. */
const SHORT = { __proto__: null, cmd: 'command', ns: 'namespace', svc: 'service' };

/** `kind` is empty for all; `terms` are in lower case. */
export function parseQuery(text) {
  const query = { kind: '', takes: [], returns: [], terms: [] };
  for (const word of text.toLowerCase().split(/\s+/)) {
    const [, prefix, rest] = /^([a-z]+):(.*)$/.exec(word) ?? [null, '', word];
    const kind = prefix && (SHORT[prefix] ?? KINDS.find((one) => one.startsWith(prefix)));
    if (kind) query.kind = kind;
    if (prefix === 'takes' || prefix === 'returns') query[prefix].push(rest);
    else query.terms.push(...(kind ? rest : word).split('.').filter(Boolean));
  }
  query.isOfTypes = query.takes.length + query.returns.length > 0;
  query.isEmpty = !query.kind && !query.isOfTypes && !query.terms.length;
  return query;
}
