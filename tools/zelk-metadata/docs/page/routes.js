// Addresses of pages: the kind and the full name, so that links stay valid when the page is made
// again. Of several elements of one name, those that are not answered have a number at the end.
//
//   #/operation/SERVICE/NAME   #/scheme/COMPONENT/NAME   #/resource/NAME   #/source/DOMAIN/ID
//   #/KIND/NAME                #/authentication/NAME     #/search/QUERY
//
// "?KIND=NAME" leads to a part of the page, such as a parameter.

const PAGES =
  /^(component|package|service|operation|structure|enumeration|namespace|command|scheme)$/;

export function path(...parts) {
  return '#/' + parts.map((part) => encodeURIComponent(part.toWellFormed())).join('/');
}

/** All elements that an address means, the one that is answered first. */
export function elementsAt(model, kind, [first, second]) {
  const inOwners = (owners) => {
    const isWanted = (id) => model.kindOf(id) === kind && model.nameOf(id) === second;
    const ids = owners.flatMap((owner) => model.children(owner)).filter(isWanted);
    return ids.sort((a, b) => model.isFound(b) - model.isFound(a));
  };
  if (kind === 'operation') return inOwners(model.find('service', first));
  if (kind === 'scheme') return inOwners(model.find('component', first, 'authentication'));
  if (kind === 'authentication') return model.find('component', first, kind);
  return model.find(kind, first === '.' ? '' : first, kind === 'component' && 'metamodel');
}

/** The address of the element, or of the page that it is on. */
export function href(model, id) {
  const kind = model.kindOf(id);
  const page = pageOf(model, id);
  if (page < 0) return '#/';
  if (page !== id) {
    const isAnnotation = kind === 'annotation' || kind === 'entry';
    return href(model, page) + (isAnnotation ? '' : '?' + partId(model, id));
  }
  const owner = /^(operation|scheme)$/.test(kind) ? [model.nameOf(model.owner[id])] : [];
  const names = [...owner, model.nameOf(id)];
  const domain = model.sourceOf(id).domain;
  const pageKind = kind === 'component' && domain === 'authentication' ? domain : kind;
  const isFirst = kind !== 'scheme' && model.isFound(id);
  const position = isFirst ? 0 : elementsAt(model, pageKind, names).indexOf(id);
  return path(pageKind, ...names) + (position > 0 ? `@${position + 1}` : '');
}

/** The pages of what is not an element: resources and sources. */
export function namedPages(model) {
  const resources = Array.from(model.resources.keys(), (name) => ({
    kind: 'resource',
    name,
    text: name.slice(name.lastIndexOf('.') + 1) || name,
    address: path('resource', name),
  }));
  const sources = model.sources.map(({ domain, id, file: name }) => ({
    kind: 'source',
    name,
    text: name,
    address: path('source', domain, id),
  }));
  return [...resources, ...sources];
}

/** What the address and the document call a part of a page. */
export function partId(model, id) {
  return `${model.kindOf(id)}=${encodeURIComponent(model.nameOf(id).slice(0, 500).toWellFormed())}`;
}

/** The element whose page shows the element; -1 if nothing does. */
export function pageOf(model, id) {
  while (id >= 0 && !PAGES.test(model.kindOf(id))) id = model.owner[id];
  return id;
}

/** What an address means: `kind`, `names`, `ordinal`, and `part`, the id of a part of the page. */
export function parseAddress(hash) {
  const [, address, part] = /^#\/([^?]*)\??(.*)$/.exec(hash) ?? [null, '', ''];
  const [plain, ordinal] = address.split('@');
  const [kind, ...names] = plain.split('/').map(decoded);
  return { kind, names, ordinal: Number(ordinal) || 1, part };
}

function decoded(text) {
  try {
    return decodeURIComponent(text);
  } catch {
    return text;
  }
}
