// What a query means: words, kinds, and types that operations take or return.

/** Words before a colon that limit a search to kinds. */
const KIND_WORDS = {
  component: ['component'],
  package: ['package'],
  service: ['service'],
  svc: ['service'],
  op: ['operation'],
  operation: ['operation'],
  struct: ['structure'],
  structure: ['structure'],
  enum: ['enumeration'],
  enumeration: ['enumeration'],
  type: ['structure', 'enumeration'],
  field: ['field', 'parameter'],
  param: ['parameter'],
  value: ['value', 'constant'],
  cmd: ['command'],
  command: ['command'],
  ns: ['namespace'],
  option: ['option'],
  scheme: ['scheme'],
  res: ['resource'],
  resource: ['resource'],
};

/** `kinds` is null for all; `terms` are in lower case. */
export function parseQuery(text) {
  const query = { kinds: null, takes: [], returns: [], terms: [] };
  for (const word of text.trim().split(/\s+/)) {
    const [, prefix, rest] = /^([a-z]+):(.*)$/i.exec(word) ?? [null, '', word];
    const key = prefix.toLowerCase();
    const terms = rest
      .toLowerCase()
      .split('.')
      .filter((term) => term);
    if (key === 'takes' || key === 'returns') query[key].push(rest.toLowerCase());
    else if (Object.hasOwn(KIND_WORDS, key)) {
      query.kinds = [...(query.kinds ?? []), ...KIND_WORDS[key]];
      query.terms.push(...terms);
    } else
      query.terms.push(
        ...word
          .toLowerCase()
          .split('.')
          .filter((term) => term),
      );
  }
  return query;
}

export function isEmpty(query) {
  return !query.kinds && !query.takes.length && !query.returns.length && !query.terms.length;
}
