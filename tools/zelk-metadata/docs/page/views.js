// From an address to the content of the page.

import { shown } from './dom.js';
import { model } from './model.js';
import { annotations, heading, title } from './parts.js';
import { elementsAt } from './routes.js';
import { viewCommand, viewNamespace } from './view_commands.js';
import { viewHome, viewSource } from './view_home.js';
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
import { viewSearch } from './view_search.js';

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
export function viewAt({ kind, names, ordinal }) {
  const page = (subject, nodes, element = -1) => ({
    title: shown([subject, model.title].filter(Boolean).join(' · '), 400),
    nodes: nodes.flat(Infinity).filter(Boolean),
    element,
  });
  const [first, second] = names;
  if (!kind) return page('', viewHome());
  if (kind === 'search') return page('Search', viewSearch(first));
  if (kind === 'resource' && model.resources.has(first)) {
    return page(first, viewResource(model.resources.get(first)));
  }
  const isMeant = (source) => source.domain === first && source.id === second;
  const source = kind === 'source' ? model.sources.findIndex(isMeant) : -1;
  if (source >= 0) return page(second, viewSource(source));
  const elements = Object.hasOwn(VIEWS, kind) ? elementsAt(kind, names) : [];
  const element = elements[ordinal - 1] ?? elements[0];
  if (element >= 0) {
    const nodes = [heading(element), VIEWS[kind](element), annotations(element)];
    return page(model.fullName(element), nodes, element);
  }
  // Nothing has the address: what may be meant.
  const text = names.at(-1)?.split('.').at(-1) ?? '';
  return page('Not found', [title('not found', names.join(' ')), viewSearch(text).slice(1)]);
}
