// Making elements. Every text becomes a text node, so none of it can be taken for HTML.

/** Control characters, and those that change the direction of what follows. */
// eslint-disable-next-line no-control-regex
const UNSEEN = /[\u0000-\u0008\u000b-\u001f\u007f-\u009f\u202a-\u202e\u2066-\u2069\ufeff]/g;

/** Longer texts are shown in part, and whole on demand. */
const LONG = 4000;

/** The text with what cannot be seen made visible. */
export function shown(text) {
  return text.replace(
    UNSEEN,
    (unseen) => `⟨U+${unseen.charCodeAt(0).toString(16).toUpperCase().padStart(4, '0')}⟩`,
  );
}

/** The text, or its beginning. */
export function brief(text, length = 200) {
  return shown(text.length > length ? text.slice(0, length) + '…' : text);
}

/**
 * An element. `attributes` become attributes, `on…` event listeners; what is null or false is left
 * out. Children are nodes, texts, or arrays of them.
 */
export function h(tag, attributes, ...children) {
  const element = document.createElement(tag);
  for (const [key, value] of Object.entries(attributes ?? {})) {
    if (value === null || value === undefined || value === false) continue;
    if (key.startsWith('on')) element.addEventListener(key.slice(2), value);
    else element.setAttribute(key, value === true ? '' : value);
  }
  add(element, children);
  return element;
}

function add(element, child) {
  if (Array.isArray(child)) for (const one of child) add(element, one);
  else if (child instanceof Node) element.append(child);
  else if (child !== null && child !== undefined && child !== false) element.append(String(child));
}

/** A name that keeps its direction to itself. */
export function name(text, tag = 'bdi') {
  return h(tag, { class: 'name', dir: 'auto' }, brief(text));
}

/** A text that may be very long. */
export function longText(text) {
  if (text.length <= LONG) return shown(text);
  const rest = h(
    'button',
    { type: 'button', class: 'action' },
    `Show all ${number(text.length)} characters`,
  );
  const part = h('span', null, brief(text, LONG), ' ', rest);
  rest.addEventListener('click', () => part.replaceChildren(shown(text)));
  return part;
}

export function number(count) {
  return count.toLocaleString('en');
}

/** "1 operation", "2 operations". */
export function counted(count, what) {
  const plural = what.endsWith('s')
    ? `${what}es`
    : what.endsWith('y')
      ? `${what.slice(0, -1)}ies`
      : `${what}s`;
  return `${number(count)} ${count === 1 ? what : plural}`;
}

/**
 * Appends what `make(item)` gives of the items to the parent, in steps: the first ones now, others
 * on demand. Only what is shown is in the document.
 */
export function inSteps(parent, items, make, { step = 200, first = 0, more } = {}) {
  let next = first;
  const button = h('button', { type: 'button', class: 'action' });
  const row = more ? more(button) : button;
  const show = () => {
    const end = Math.min(next + step, items.length);
    const nodes = [];
    for (; next < end; ++next) nodes.push(make(items[next], next));
    row.remove();
    parent.append(...nodes);
    if (next < items.length) {
      button.textContent = `Show more (${number(items.length - next)})`;
      parent.append(row);
    }
    return nodes[0];
  };
  button.addEventListener('click', () => {
    const begun = show();
    (begun?.querySelector('a, button') ?? begun)?.focus();
  });
  show();
  return parent;
}
