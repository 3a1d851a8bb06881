// Reads the data, then shows the page of the address and those that follow.

import { h, name, shownRanges, widenLists } from './dom.js';
import { model } from './model.js';
import { parseAddress } from './routes.js';
import { SearchBox } from './search_box.js';
import { nameIndex } from './search_index.js';
import { setUpKeys, setUpTheme, store, stored } from './settings.js';
import { Tree } from './tree.js';
import { viewAt } from './views.js';

const byId = (id) => document.getElementById(id);
const main = byId('main');

/** What entries of the history show, by their states. */
const pages = new Map();
const MOST_PAGES = 30;
let page = null;

/** Where the reader was on them when the document was left; entries of other documents, too. */
const places = storedPlaces();
const MOST_PLACES = 100;

/** Where the page was scrolled to when it was shown. */
let landed = 0;

function storedPlaces() {
  try {
    return new Map(JSON.parse(stored('places', 'sessionStorage')));
  } catch {
    // Another version of the page may have stored something else.
    return new Map();
  }
}

/** The JSON of a compressed block, which is taken out of the document. */
async function unpacked(id) {
  const block = byId(id);
  const binary = atob(block.textContent);
  block.remove();
  const bytes = new Uint8Array(binary.length);
  for (let i = 0; i < binary.length; ++i) bytes[i] = binary.charCodeAt(i);
  const stream = new Blob([bytes]).stream().pipeThrough(new DecompressionStream('deflate'));
  return new Response(stream).json();
}

async function readBlock(id) {
  try {
    return await unpacked(id);
  } catch (error) {
    const text = 'This page is damaged, or the browser is too old to read it.';
    main.replaceChildren(h('p.note', { role: 'alert' }, text), ...(page?.nodes ?? []));
    throw error;
  }
}

/** Waits until the page has been shown and nothing else is to be done. */
function idle() {
  const afterwards = window.requestIdleCallback ?? setTimeout;
  return new Promise((resolve) => requestAnimationFrame(() => afterwards(resolve)));
}

setUpTheme(byId('theme'));
model.read(await readBlock('structure'));
document.querySelector('.brand').replaceChildren(name(model.title));
const tree = new Tree(byId('tabs'), byId('tree'));
const input = byId('query');
new SearchBox({ input, hits: byId('hits'), count: byId('count') });

function openSidebar(isOpen) {
  document.body.classList.toggle('with-sidebar', isOpen);
  byId('menu').setAttribute('aria-expanded', isOpen);
}

/** The page of the address, which is kept for the way back. */
function makePage(address) {
  const view = viewAt(address);
  if (!history.state) history.replaceState(Math.random(), '');
  view.place = places.get(history.state);
  pages.set(history.state, view);
  if (pages.size > MOST_PAGES) {
    const [oldest, { place }] = pages.entries().next().value;
    places.set(oldest, place);
    pages.delete(oldest);
  }
  return view;
}

/** Keeps where the reader is on the page. */
function leave() {
  if (page) page.place = { scrolled: scrollY, ranges: shownRanges(main) };
}

/** Shows the page of the address. Focus moves only when one page follows another. */
function show(isNext) {
  const address = parseAddress(location.hash);
  leave();
  page = pages.get(history.state) ?? makePage(address);
  document.title = page.title;
  main.replaceChildren(...page.nodes);
  widenLists(main, page.place?.ranges ?? []);
  if (address.kind === 'search') input.value = address.names[0] ?? '';
  openSidebar(false);
  tree.reveal(page.element, location.hash);
  goTo(byId(address.part), isNext);
}

function goTo(part, isNext) {
  part?.classList.add('chosen');
  land();
  if (part || isNext) (part || main.querySelector('h1')).focus({ preventScroll: true });
}

/** Scrolls to where the reader was, or to the part of the address. */
function land() {
  const part = main.querySelector('.chosen');
  if (part && !page.place) part.scrollIntoView();
  else scrollTo(0, page.place?.scrolled ?? 0);
  landed = scrollY;
}

function goBeside(step) {
  const address = tree.sibling(page.element, step);
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
document.addEventListener('keydown', ({ key }) => {
  if (key !== 'Escape') return;
  if (document.querySelector('#sidebar :focus')) byId('menu').focus();
  openSidebar(false);
});
byId('skip').addEventListener('click', (event) => {
  event.preventDefault();
  main.querySelector('h1').focus();
});
addEventListener('hashchange', () => show(true));
addEventListener('pagehide', () => {
  leave();
  const own = Array.from(pages, ([entry, { place }]) => [entry, place]);
  store('places', JSON.stringify([...places, ...own].slice(-MOST_PLACES)), 'sessionStorage');
});
// The page before has its place until the one that follows is shown.
history.scrollRestoration = 'manual';
show(false);

await idle();
model.texts = await readBlock('documentation');
// What is filled in moves the rest, unless the reader has gone on.
const isThere = scrollY === landed;
const fills = model.waiting.map((fill) => fill());
if (isThere) land();
await Promise.all(fills);
if (scrollY === landed) land();
await idle();
nameIndex();
document.documentElement.dataset.state = 'ready';
