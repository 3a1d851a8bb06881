// Reads the data, then shows the page of the address and those that follow.

import { fillDocumentation } from './parts.js';
import { Model } from './model.js';
import { parseAddress } from './routes.js';
import { SearchBox } from './search_box.js';
import { SearchIndex } from './search_index.js';
import { setUpKeys, setUpTheme } from './settings.js';
import { Tree } from './tree.js';
import { viewAt } from './views.js';

const byId = (id) => document.getElementById(id);

function bytesOf(text) {
  if (Uint8Array.fromBase64) return Uint8Array.fromBase64(text);
  const binary = atob(text);
  const bytes = new Uint8Array(binary.length);
  for (let i = 0; i < binary.length; ++i) bytes[i] = binary.charCodeAt(i);
  return bytes;
}

/** The JSON of a compressed block, which is taken out of the document. */
async function readBlock(id) {
  const block = byId(id);
  const bytes = bytesOf(block.textContent);
  block.remove();
  const stream = new Blob([bytes]).stream().pipeThrough(new DecompressionStream('deflate'));
  return new Response(stream).json();
}

/** Waits until the page has been shown and nothing else is to be done. */
function idle() {
  return new Promise((resolve) => {
    requestAnimationFrame(() => (window.requestIdleCallback ?? setTimeout)(resolve));
  });
}

function lazily(make) {
  let value;
  return () => (value ??= make());
}

class Page {
  constructor(model) {
    this.model = model;
    this.element = -1;
    this.index = lazily(() => new SearchIndex(model));
    this.tree = new Tree(model, byId('tabs'), byId('tree'));
    const parts = { input: byId('query'), hits: byId('hits'), count: byId('count') };
    this.search = new SearchBox(model, this.index, parts);
    window.addEventListener('hashchange', () => this.show(true));
    setUpKeys(byId('shortcuts'), {
      '/': () => parts.input.focus(),
      s: () => parts.input.focus(),
      '?': () => byId('help-dialog').showModal(),
      '[': () => this.goBeside(-1),
      ']': () => this.goBeside(1),
    });
    byId('menu').addEventListener('click', () => this.openSidebar());
    byId('skip').addEventListener('click', (event) => {
      event.preventDefault();
      byId('main').querySelector('h1').focus();
    });
    document.addEventListener(
      'keydown',
      (event) => event.key === 'Escape' && this.openSidebar(false),
    );
  }

  openSidebar(open = !document.body.classList.contains('with-sidebar')) {
    document.body.classList.toggle('with-sidebar', open);
    byId('menu').setAttribute('aria-expanded', String(open));
  }

  goBeside(step) {
    const address = this.tree.sibling(this.element, step);
    if (address) location.hash = address;
  }

  /** Shows the page of the address. Focus moves only when one page follows another. */
  show(isNext) {
    const address = parseAddress(location.hash);
    const { title, nodes, element } = viewAt(this.model, this.index, address);
    this.element = element;
    document.title = title ? `${title.slice(0, 200)} · ${this.model.title}` : this.model.title;
    const main = byId('main');
    main.replaceChildren(...nodes.flat(Infinity).filter(Boolean));
    this.openSidebar(false);
    this.tree.reveal(element, location.hash || '#/');
    const part =
      address.part && document.getElementById(`${address.part.kind}=${address.part.name}`);
    main.querySelector('.chosen')?.classList.remove('chosen');
    part?.classList.add('chosen');
    if (part) part.scrollIntoView({ block: 'center' });
    else if (isNext) window.scrollTo(0, 0);
    if (isNext || part) (part ?? main.querySelector('h1')).focus({ preventScroll: true });
  }

  /** What is not needed for the first page. */
  async finish() {
    await idle();
    this.model.texts = await readBlock('documentation');
    fillDocumentation(byId('main'));
    await idle();
    this.index();
    document.documentElement.dataset.state = 'ready';
  }
}

setUpTheme(byId('theme'));
byId('help').addEventListener('click', () => byId('help-dialog').showModal());
const page = new Page(new Model(await readBlock('structure')));
page.show(false);
await page.finish();
