// Addresses of pages: the kind and the full name, so that links stay valid when the page is made
// again. Of several elements of one name, those that are not answered have a number at the end.
//
//   #/operation/SERVICE/NAME   #/scheme/COMPONENT/NAME   #/resource/NAME   #/source/DOMAIN/ID
//   #/KIND/NAME                #/authentication/NAME     #/search/QUERY
//
// "?KIND=NAME" leads to a part of the page, such as a parameter.

const PAGES = new Set([
  'component',
  'package',
  'service',
  'operation',
  'structure',
  'enumeration',
  'namespace',
  'command',
  'scheme',
]);

/** What the address of a page calls the element's kind. */
function pageKind(model, id) {
  const kind = model.kindOf(id);
  return kind === 'component' && model.domainOf(id) === 'authentication' ? 'authentication' : kind;
}

function ownNames(model, id) {
  const kind = model.kindOf(id);
  if (kind === 'operation' || kind === 'scheme')
    return [model.name(model.owner[id]), model.name(id)];
  return [model.name(id) || '.'];
}

export function path(...parts) {
  return '#/' + parts.map((part) => encodeURIComponent(part.toWellFormed())).join('/');
}

/** All elements that an address means, the one that is answered first. */
export function elementsAt(model, kind, names) {
  const [first, second] = names;
  switch (kind) {
    case 'operation':
      return partsAt(model, model.find('service', first), kind, second);
    case 'scheme':
      return partsAt(model, model.find('component', first, 'authentication'), kind, second);
    case 'authentication':
      return model.find('component', first, 'authentication');
    case 'component':
      return model.find('component', first, 'metamodel');
    case 'namespace':
      return model.find(kind, first === '.' ? '' : first);
    default:
      return PAGES.has(kind) ? model.find(kind, first) : [];
  }
}

function partsAt(model, owners, kind, wanted) {
  const code = model.kinds.indexOf(kind);
  const ids = owners
    .flatMap((owner) => model.children(owner))
    .filter((id) => model.kind[id] === code && model.name(id) === wanted);
  return [...ids.filter((id) => model.isFound(id)), ...ids.filter((id) => !model.isFound(id))];
}

/** The address of the element, or of the page that it is on. */
export function href(model, id) {
  const kind = model.kindOf(id);
  if (PAGES.has(kind)) {
    const names = ownNames(model, id);
    const address = path(pageKind(model, id), ...names);
    if (model.isFound(id)) return address;
    const position = elementsAt(model, pageKind(model, id), names).indexOf(id);
    return position > 0 ? `${address}@${position + 1}` : address;
  }
  if (kind === 'annotation' || kind === 'entry') return href(model, model.owner[id]);
  const page = pageOf(model, id);
  if (page < 0) return '#/';
  return `${href(model, page)}?${kind}=${encodeURIComponent(model.name(id).toWellFormed())}`;
}

/** The element whose page shows the element; -1 if nothing does. */
export function pageOf(model, id) {
  let page = id;
  const isList = model.kindOf(id).endsWith('-list');
  while (
    page >= 0 &&
    !(PAGES.has(model.kindOf(page)) && (!isList || model.kindOf(page) === 'component'))
  ) {
    page = model.owner[page];
  }
  return page;
}

/** What an address means: `kind`, `names`, `ordinal`, and the `part` of the page or null. */
export function parseAddress(hash) {
  const [, address, query] = /^#\/([^?]*)\??(.*)$/.exec(hash) ?? [null, '', ''];
  const [plain, ordinal] = address.split('@');
  const [kind, ...names] = plain.split('/').map(decoded);
  const [partKind, partName] = query.split('=');
  return {
    kind,
    names,
    ordinal: Math.max(1, Number(ordinal) || 1),
    part: query ? { kind: partKind, name: decoded(partName ?? '') } : null,
  };
}

function decoded(text) {
  try {
    return decodeURIComponent(text);
  } catch {
    return text;
  }
}
