// From an address to the content of the page.

import { h, name } from './dom.js';
import { elementsAt } from './routes.js';
import { viewCommand, viewNamespace } from './view_commands.js';
import { viewHome, viewSearch, viewSource } from './view_home.js';
import {
  viewComponent,
  viewEnumeration,
  viewOperation,
  viewPackage,
  viewResource,
  viewService,
  viewStructure,
} from './view_interfaces.js';
import { viewAuthentication, viewScheme } from './view_schemes.js';

const VIEWS = {
  component: viewComponent,
  package: viewPackage,
  service: viewService,
  operation: viewOperation,
  structure: viewStructure,
  enumeration: viewEnumeration,
  authentication: viewAuthentication,
  scheme: viewScheme,
  namespace: viewNamespace,
  command: viewCommand,
};

/** The page of an address: its title, its nodes, and its element or -1. */
export function viewAt(model, index, address) {
  const { kind, names, ordinal } = address;
  if (!kind) return { title: '', nodes: viewHome(model), element: -1 };
  if (kind === 'search')
    return { title: 'Search', nodes: viewSearch(model, index(), names.join('/')), element: -1 };
  if (kind === 'resource') {
    const resource = model.resources.get(names[0]);
    if (resource)
      return { title: resource.name, nodes: viewResource(model, resource), element: -1 };
  }
  if (kind === 'source') {
    const position = model.sources.findIndex(
      (source) => source.domain === names[0] && source.id === names[1],
    );
    if (position >= 0) return { title: names[1], nodes: viewSource(model, position), element: -1 };
  }
  const elements = Object.hasOwn(VIEWS, kind) ? elementsAt(model, kind, names) : [];
  const element = elements[ordinal - 1] ?? elements[0];
  if (element === undefined) return missing(model, index, address);
  return { title: model.fullName(element), nodes: VIEWS[kind](model, element), element };
}

/** Nothing has the address: what may be meant. */
function missing(model, index, { names }) {
  const last = names.at(-1) ?? '';
  const text = last.slice(last.lastIndexOf('.') + 1);
  return {
    title: 'Not found',
    nodes: [
      h('h1', { tabindex: '-1' }, 'Not found: ', name(names.join(' '))),
      h('p', null, 'Nothing in these files has that name.'),
      viewSearch(model, index(), text).slice(1),
    ],
    element: -1,
  };
}
