// The search in the header: a combobox whose list shows results while one types.

import { counted, h, name, shownName } from './dom.js';
import { model } from './model.js';
import { glyph, tally } from './parts.js';
import { path } from './routes.js';
import { nameIndex } from './search_index.js';
import { parseQuery } from './search_query.js';
import { findInTexts, findNearNames } from './search_texts.js';
import { describe, textsHeading } from './view_search.js';

const SHOWN = 40;
const PAUSE_MILLISECONDS = 150;

export class SearchBox {
  options = [];
  active = -1;
  run = 0;

  /** The elements that it is made of. */
  constructor(parts) {
    Object.assign(this, parts);
    this.input.addEventListener('input', () => this.search());
    this.input.addEventListener('keydown', (event) => this.onKey(event));
    this.input.addEventListener('blur', () => this.close());
    // A click into the list leaves the focus where it is.
    this.hits.addEventListener('mousedown', (event) => event.preventDefault());
    this.hits.addEventListener('click', (event) => {
      if (!isForNewTab(event)) this.input.blur();
    });
  }

  search() {
    this.close();
    const run = this.run;
    const query = parseQuery(this.input.value);
    if (query.isEmpty) return;
    const { hits, total } = nameIndex().find(query);
    this.options = [];
    this.hits.replaceChildren();
    const best = hits.slice(0, SHOWN);
    this.addGroup(best.length < total ? 'Names, the best' : 'Names', best, query.terms);
    this.hits.hidden = false;
    this.hits.scrollTop = 0;
    this.input.setAttribute('aria-expanded', 'true');
    this.count.textContent = counted(total, 'name');
    this.timer = setTimeout(() => this.searchFurther(query, run, hits.length), PAUSE_MILLISECONDS);
  }

  async searchFurther(query, run, found) {
    const isOver = () => run !== this.run;
    const texts = await findInTexts(query, SHOWN, isOver);
    if (isOver()) return;
    const heading = textsHeading(texts, SHOWN);
    this.addGroup(heading, texts, query.terms);
    this.count.textContent += `; ${heading}: ${texts.length}`;
    if (found + texts.length) return;
    const near = await findNearNames(query, 10, isOver);
    if (isOver()) return;
    this.addGroup('Did you mean', near, []);
    this.count.textContent = 'Nothing found';
    if (near.length) this.count.textContent += `; ${counted(near.length, 'similar name')}`;
    else this.hits.append(h('div', { role: 'option', 'aria-disabled': 'true' }, 'Nothing found'));
  }

  addGroup(title, hits, words) {
    if (!hits.length) return;
    const options = hits.map((hit, i) => this.option(hit, words, this.options.length + i));
    this.options.push(...options);
    this.hits.append(
      h(
        'div',
        { role: 'group', 'aria-label': title },
        h('div.group', { 'aria-hidden': 'true' }, title, tally(hits)),
        options,
      ),
    );
  }

  option(hit, words, position) {
    const { kind, text, around, address } = describe(hit);
    return h(
      'a',
      {
        role: 'option',
        id: `hit-${position}`,
        href: address,
        tabindex: '-1',
        'aria-selected': 'false',
      },
      glyph(kind),
      h('bdi.name', marked(shownName(text), words)),
      around && h('span.around', name(around)),
      hit.id >= 0 && !model.isFound(hit.id) && h('span.mark', model.fateOf(hit.id)),
    );
  }

  onKey(event) {
    const step = { ArrowDown: 1, ArrowUp: -1 }[event.key];
    const text = this.input.value.trim();
    if (step) {
      event.preventDefault();
      if (this.hits.hidden) this.search();
      const count = this.options.length;
      if (count) this.activate((Math.max(this.active, -step) + step + count) % count);
    } else if (event.key === 'Enter' && text) {
      const address = this.options[this.active]?.hash ?? path('search', text);
      if (isForNewTab(event)) window.open(address);
      else {
        this.input.blur();
        if (location.hash === address) dispatchEvent(new Event('hashchange'));
        location.hash = address;
      }
    } else if (event.key === 'Escape') {
      if (this.hits.hidden) this.input.value = '';
      this.close();
    }
  }

  activate(position) {
    this.options[this.active]?.setAttribute('aria-selected', 'false');
    this.active = position;
    const option = this.options[position];
    option?.setAttribute('aria-selected', 'true');
    option?.scrollIntoView({ block: 'nearest' });
    this.input.setAttribute('aria-activedescendant', option?.id ?? '');
  }

  close() {
    ++this.run;
    clearTimeout(this.timer);
    this.activate(-1);
    this.hits.hidden = true;
    this.input.setAttribute('aria-expanded', 'false');
    this.count.textContent = '';
  }
}

function isForNewTab(event) {
  return event.ctrlKey || event.metaKey;
}

/** The text with the first place of each word marked. */
function marked(text, words) {
  const lower = text.toLowerCase();
  if (lower.length !== text.length) return text;
  const nodes = [];
  let end = 0;
  const places = words.map((word) => [lower.indexOf(word), word.length]).sort(([a], [b]) => a - b);
  for (const [at, length] of places) {
    if (at < end) continue;
    nodes.push(text.slice(end, at), h('mark', text.slice(at, at + length)));
    end = at + length;
  }
  return [...nodes, text.slice(end)];
}
