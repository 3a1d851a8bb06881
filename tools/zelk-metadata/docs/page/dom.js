// Making elements. Every text becomes a text node, so none of it can be taken for HTML.

/**
 * Characters that cannot be seen or that change the direction of text. Joiners of other scripts and
 * of emoji have an effect; browsers show halves of characters themselves.
 */
const UNSEEN =
  /(?![\t\n\p{Cs}]|(?<=[^ -~\p{C}\p{sc=Latn}])[\u200c\u200d])[\p{C}\p{Zl}\p{Zp}\u034f\u115f\u1160\u2800\u3164\uffa0]/gu;

/** Longer texts are shown in part, and whole on demand. */
const LONG = 4000;

/** How many rows longer lists show at once. */
const STEP = 200;

/**
 * An element: "tag.class.class", then children, arrays of them, and objects with attributes. Event
 * listeners are called "on…". What is null or false is left out.
 */
export function h(tag, ...rest) {
  const [type, ...classes] = tag.split('.');
  const element = document.createElement(type);
  if (classes.length) element.className = classes.join(' ');
  for (const one of rest.flat(Infinity)) {
    if (one?.constructor === Object) setAttributes(element, one);
    else if (one || one === 0) element.append(one);
  }
  return element;
}

function setAttributes(element, attributes) {
  for (const [key, value] of Object.entries(attributes)) {
    if (key.startsWith('on')) element.addEventListener(key.slice(2), value);
    else if (value || value === 0) element.setAttribute(key, value);
  }
}

/** The text, or its beginning, with what cannot be seen made visible. */
export function shown(text, length = Infinity) {
  return (text.length > length ? text.slice(0, length) + '…' : text).replace(
    UNSEEN,
    (unseen) => `⟨U+${unseen.codePointAt(0).toString(16).toUpperCase().padStart(4, '0')}⟩`,
  );
}

/** The text of a name, which is never blank. */
export function shownName(text) {
  return shown(text, 200).trim() || '(blank)';
}

/**
 * A name, which keeps its direction to itself. Lines may end after its dots, slashes and
 * underscores.
 */
export function name(text) {
  const parts = shownName(text).split(/(?<=[./_])/);
  return h(
    'bdi.name',
    parts.map((part, i) => [i > 0 && h('wbr'), part]),
  );
}

/** A text that may be very long. */
export function longText(text) {
  if (text.length <= LONG) return shown(text);
  const showAll = () => part.replaceChildren(shown(text));
  const part = h(
    'span',
    shown(text, LONG),
    ' ',
    action(`Show all ${number(text.length)} characters`, showAll),
  );
  return part;
}

export function action(text, onclick) {
  return h('button.action', { type: 'button', onclick }, text);
}

export function quiet(...content) {
  return h('span.quiet', content);
}

const NUMBERS = new Intl.NumberFormat('en');

export function number(count) {
  return NUMBERS.format(count);
}

/** "1 operation", "2 operations". */
export function counted(count, what) {
  const plural = what.endsWith('y') ? what.slice(0, -1) + 'ies' : what + 's';
  return `${number(count)} ${count === 1 ? what : plural}`;
}

/**
 * Appends what `make(item)` returns to the parent, in steps: the one with the item at that position
 * or the first one, and the others on demand. `wrap(rest)` returns what the number of the others,
 * which is also printed, and a button are in.
 */
export function inSteps(parent, items, make, wrap = (rest) => h('li', rest), at = 0) {
  let begin = at - (at % STEP);
  let end = begin;
  const focusOn = (node) => {
    node.tabIndex = -1;
    (node.querySelector('a') ?? node).focus();
  };
  const showBefore = () => {
    const nodes = items.slice(0, begin).map(make);
    begin = 0;
    before.replaceWith(...nodes);
    return nodes[0];
  };
  const before = wrap([
    `${number(begin)} before `,
    action('Show all', () => focusOn(showBefore())),
  ]);
  const count = h('span');
  const row = wrap([count, action('Show more', () => focusOn(show()))]);
  const show = () => {
    const nodes = items.slice(end, end + STEP).map(make);
    end += STEP;
    row.remove();
    parent.append(...nodes);
    count.textContent = `${number(items.length - end)} more `;
    if (end < items.length) parent.append(row);
    return nodes[0];
  };
  if (begin > 0) parent.append(before);
  show();
  shownRows.set(parent, {
    range: () => [begin, end],
    widen: ([first, last]) => {
      const isWider = first < begin || last > end;
      if (first < begin) showBefore();
      while (end < last && end < items.length) show();
      return isWider;
    },
  });
  return parent;
}

/** Which rows lists in steps show. */
const shownRows = new WeakMap();

function listsIn(root) {
  const parents = Array.from(root.querySelectorAll('ul, div, tbody'));
  return parents.map((parent) => shownRows.get(parent)).filter(Boolean);
}

/** Which rows each list in the element shows. */
export function shownRanges(root) {
  return listsIn(root).map((list) => list.range());
}

/** Shows these rows of each list, too. Rows may have lists in them. */
export function widenLists(root, ranges) {
  let lists = listsIn(root);
  ranges.forEach((range, i) => {
    if (lists[i]?.widen(range)) lists = listsIn(root);
  });
}
