// Addresses of pages: the kind and the full name, so that links stay valid when the page is made
// again. Of several elements of one name, those that are not answered have a number at the end.
//
//   #/operation/SERVICE/NAME   #/scheme/COMPONENT/NAME   #/resource/NAME   #/source/DOMAIN/ID
//   #/KIND/NAME                #/authentication/NAME     #/search/QUERY
//
// "?KIND=NAME" leads to a part of the page, such as a parameter.

import { model } from './model.js';

const PAGES =
  /^(component|authentication|package|service|operation|structure|enumeration|namespace|command|scheme)$/;

/** Kinds of which addresses name the owner, too, and what that is. */
const OWNERS = { __proto__: null, operation: 'service', scheme: 'authentication' };

export function path(...parts) {
  return '#/' + parts.map((part) => encodeURIComponent(part.toWellFormed())).join('/');
}

/**
 * All elements that an address means, the one that is answered first. The names are positions in
 * `model.strings`.
 */
function elementsWith(kind, [first = -1, second]) {
  const outer = OWNERS[kind];
  if (!outer) return model.named(kind, first);
  const isWanted = (id) => model.kindOf(id) === kind && model.name[id] === second;
  const all = model.named(outer, first).flatMap((owner) => model.children(owner));
  return model.foundFirst(all.filter(isWanted));
}

export function elementsAt(kind, names) {
  const position = (name) => model.strings.indexOf(name === '.' ? '' : name);
  return elementsWith(kind, names.map(position));
}

/** The address of the element, or of the page that it is on. */
export function href(id) {
  const kind = model.kindOf(id);
  const page = pageOf(id);
  if (page < 0) return '#/';
  if (kind === 'annotation') return href(model.owner[id]);
  if (page !== id) return `${href(page)}?${partId(id)}`;
  const isFirst = kind !== 'scheme' && model.isFound(id);
  const names = namedIn(id).map((one) => model.name[one]);
  const position = isFirst ? 0 : elementsWith(kind, names).indexOf(id);
  return pagePath(id) + (position > 0 ? `@${position + 1}` : '');
}

/** The elements that the address of a page names. */
function namedIn(id) {
  return OWNERS[model.kindOf(id)] ? [model.owner[id], id] : [id];
}

/** The address of the element's page without a number, which others may have, too. */
export function pagePath(id) {
  return path(model.kindOf(id), ...namedIn(id).map((one) => model.nameOf(one)));
}

/** The pages of what is not an element: resources and sources. */
export function namedPages() {
  const resources = Array.from(model.resources.keys(), (name) => ({
    kind: 'resource',
    name,
    text: name.slice(name.lastIndexOf('.') + 1) || name,
    address: path('resource', name),
  }));
  const sources = model.sources.map(({ domain, id, file: name, fingerprint }) => ({
    kind: 'source',
    name,
    text: name,
    fingerprint,
    address: path('source', domain, id),
  }));
  return [...resources, ...sources];
}

/** What the address and the document call a part of a page. */
export function partId(id) {
  return `${model.kindOf(id)}=${encodeURIComponent(model.nameOf(id).slice(0, 500).toWellFormed())}`;
}

/** The element whose page shows the element; -1 if nothing does. */
export function pageOf(id) {
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
