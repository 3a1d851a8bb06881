// Reads the data, then shows the page of the address and those that follow.

import { Model } from './model.js';
import { fillDocumentation } from './parts.js';
import { parseAddress } from './routes.js';
import { SearchBox } from './search_box.js';
import { SearchIndex } from './search_index.js';
import { setUpKeys, setUpTheme } from './settings.js';
import { Tree } from './tree.js';
import { viewAt } from './views.js';

const byId = (id) => document.getElementById(id);
const main = byId('main');

/** The JSON of a compressed block, which is taken out of the document. */
async function readBlock(id) {
  const block = byId(id);
  const binary = atob(block.textContent);
  block.remove();
  const bytes = new Uint8Array(binary.length);
  for (let i = 0; i < binary.length; ++i) bytes[i] = binary.charCodeAt(i);
  const stream = new Blob([bytes]).stream().pipeThrough(new DecompressionStream('deflate'));
  return new Response(stream).json();
}

/** Waits until the page has been shown and nothing else is to be done. */
function idle() {
  const afterwards = window.requestIdleCallback ?? setTimeout;
  return new Promise((resolve) => requestAnimationFrame(() => afterwards(resolve)));
}

setUpTheme(byId('theme'));
const model = new Model(await readBlock('structure'));
let made = null;
const index = () => (made ??= new SearchIndex(model));
const tree = new Tree(model, byId('tabs'), byId('tree'));
const input = byId('query');
let element = -1;
new SearchBox(model, index, { input, hits: byId('hits'), count: byId('count') });

function openSidebar(isOpen) {
  document.body.classList.toggle('with-sidebar', isOpen);
  byId('menu').setAttribute('aria-expanded', isOpen);
}

/** Shows the page of the address. Focus moves only when one page follows another. */
function show(isNext) {
  const address = parseAddress(location.hash);
  const view = viewAt(model, index, address);
  element = view.element;
  document.title = [view.title.slice(0, 200), model.title].filter(Boolean).join(' · ');
  main.replaceChildren(...view.nodes.flat(Infinity).filter(Boolean));
  openSidebar(false);
  tree.reveal(element, location.hash);
  const part = byId(address.part);
  part?.classList.add('chosen');
  if (part) part.scrollIntoView({ block: 'center' });
  else if (isNext) window.scrollTo(0, 0);
  if (part || isNext) (part || main.querySelector('h1')).focus({ preventScroll: true });
}

function goBeside(step) {
  const address = tree.sibling(element, step);
  if (address) location.hash = address;
}

const showHelp = () => byId('help-dialog').showModal();
const search = () => {
  input.focus();
  input.select();
};
setUpKeys(byId('keys'), {
  '/': search,
  s: search,
  '?': showHelp,
  '[': () => goBeside(-1),
  ']': () => goBeside(1),
});
byId('help').addEventListener('click', showHelp);
byId('menu').addEventListener('click', () => openSidebar(!document.body.matches('.with-sidebar')));
document.addEventListener('keydown', (event) => event.key === 'Escape' && openSidebar(false));
byId('skip').addEventListener('click', (event) => {
  event.preventDefault();
  main.querySelector('h1').focus();
});
window.addEventListener('hashchange', () => show(true));
show(false);

await idle();
model.texts = await readBlock('documentation');
fillDocumentation(main);
await idle();
index();
document.documentElement.dataset.state = 'ready';
