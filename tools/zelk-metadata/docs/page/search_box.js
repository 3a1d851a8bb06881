// The search in the header: a combobox whose list shows results while one types.

import { brief, counted, h } from './dom.js';
import { glyph } from './parts.js';
import { path } from './routes.js';
import { isEmpty, parseQuery } from './search_query.js';
import { findInTexts, findNearNames } from './search_texts.js';
import { excerptOf, hitText } from './view_home.js';

const SHOWN = 40;
const PAUSE_MILLISECONDS = 150;

export class SearchBox {
  /** `index()` returns the index of names, which is made when it is first needed. */
  constructor(model, index, { input, hits, count }) {
    Object.assign(this, { model, index, input, hits, count, options: [], active: -1, run: 0 });
    input.addEventListener('input', () => this.search());
    input.addEventListener('focus', () => input.value && this.search());
    input.addEventListener('keydown', (event) => this.onKey(event));
    input.addEventListener('blur', () => setTimeout(() => this.close(), 150));
    hits.addEventListener('mousedown', (event) => event.preventDefault());
  }

  search() {
    const run = ++this.run;
    const query = parseQuery(this.input.value);
    clearTimeout(this.timer);
    if (isEmpty(query)) return this.close();
    const { hits, total } = this.index().find(query);
    const words = query.terms;
    this.hits.replaceChildren();
    this.options = [];
    this.activate(-1);
    this.addGroup('Names', hits.slice(0, SHOWN), words);
    this.open();
    this.count.textContent = counted(total, 'result');
    this.timer = setTimeout(() => this.searchFurther(query, run, hits.length), PAUSE_MILLISECONDS);
    return undefined;
  }

  async searchFurther(query, run, found) {
    const isOver = () => run !== this.run;
    const texts = await findInTexts(this.model, query, SHOWN, isOver);
    if (isOver()) return;
    this.addGroup('In documentation', texts, query.terms);
    if (found || texts.length) {
      if (texts.length)
        this.count.textContent = `${counted(this.options.length, 'result')} with documentation`;
      return;
    }
    const near = await findNearNames(this.model, query, 10, isOver);
    if (isOver()) return;
    if (near.length) this.addGroup('Did you mean', near, []);
    else
      this.hits.replaceChildren(
        h('p', { role: 'option', 'aria-disabled': 'true', class: 'quiet' }, 'Nothing found'),
      );
    this.count.textContent = near.length
      ? `Nothing found; ${counted(near.length, 'similar name')}`
      : 'Nothing found';
  }

  addGroup(title, hits, words) {
    if (!hits.length) return;
    const id = `group-${this.hits.children.length}`;
    const options = hits.map((hit, i) => this.option(hit, words, this.options.length + i));
    this.options.push(...options);
    this.hits.append(
      h(
        'div',
        { role: 'group', 'aria-labelledby': id },
        h('div', { id, class: 'group' }, title),
        options,
      ),
    );
  }

  option(hit, words, position) {
    const { kind, text, around, address } = hitText(this.model, hit);
    const option = h(
      'div',
      { role: 'option', id: `hit-${position}`, 'aria-selected': 'false' },
      glyph(kind),
      h('bdi', { class: 'name' }, marked(brief(text), words)),
      ' ',
      h('bdi', { class: 'around' }, hit.pattern ? excerptOf(this.model, hit) : brief(around)),
    );
    option.address = address;
    option.addEventListener('click', (event) => this.go(address, event.ctrlKey || event.metaKey));
    option.addEventListener('auxclick', (event) => event.button === 1 && this.go(address, true));
    return option;
  }

  go(address, isNewTab) {
    if (isNewTab) {
      window.open(address);
      return;
    }
    this.close();
    this.input.blur();
    location.hash = address;
  }

  onKey(event) {
    const step = { ArrowDown: 1, ArrowUp: -1 }[event.key];
    if (step) {
      event.preventDefault();
      if (this.hits.hidden) this.search();
      const count = this.options.length;
      if (count)
        this.activate(
          this.active < 0 && step < 0 ? count - 1 : (this.active + step + count) % count,
        );
    } else if (event.key === 'Enter' && this.input.value.trim()) {
      const option = this.options[this.active];
      this.go(
        option ? option.address : path('search', this.input.value.trim()),
        event.ctrlKey || event.metaKey,
      );
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
    if (option) this.input.setAttribute('aria-activedescendant', option.id);
    else this.input.removeAttribute('aria-activedescendant');
  }

  open() {
    this.hits.hidden = false;
    this.hits.scrollTop = 0;
    this.input.setAttribute('aria-expanded', 'true');
  }

  close() {
    ++this.run;
    clearTimeout(this.timer);
    this.hits.hidden = true;
    this.activate(-1);
    this.input.setAttribute('aria-expanded', 'false');
    this.count.textContent = '';
  }
}

/** The text with the first place of each word marked. */
function marked(text, words) {
  const lower = text.toLowerCase();
  const places = words.map((word) => [lower.indexOf(word), word.length]).filter(([at]) => at >= 0);
  if (lower.length !== text.length) return text;
  const nodes = [];
  let end = 0;
  for (const [at, length] of places.sort(([a], [b]) => a - b)) {
    if (at < end) continue;
    nodes.push(text.slice(end, at), h('mark', null, text.slice(at, at + length)));
    end = at + length;
  }
  return [...nodes, text.slice(end)];
}
