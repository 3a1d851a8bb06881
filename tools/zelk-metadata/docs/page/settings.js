// The theme and keys that are single letters, which can be switched off. What is chosen is kept if
// the browser allows it, and so are other texts.

const THEMES = ['auto', 'light', 'dark'];
const SIGNS = { auto: '◐', light: '☀', dark: '☾' };

export function stored(key, storage = 'localStorage') {
  try {
    return window[storage].getItem(`zelk-metadata.${key}`);
  } catch {
    return null;
  }
}

export function store(key, value, storage = 'localStorage') {
  try {
    window[storage].setItem(`zelk-metadata.${key}`, value);
  } catch {
    // Pages from disk may not keep anything in some browsers.
  }
}

export function setUpTheme(button) {
  const { dataset } = document.documentElement;
  const apply = (theme) => {
    dataset.theme = theme;
    button.textContent = SIGNS[theme];
    button.title = `Theme: ${theme}`;
    button.setAttribute('aria-label', button.title);
  };
  button.addEventListener('click', () => {
    apply(THEMES[(THEMES.indexOf(dataset.theme) + 1) % THEMES.length]);
    store('theme', dataset.theme);
  });
  const theme = stored('theme');
  apply(THEMES.includes(theme) ? theme : 'auto');
}

/** `actions` has a function for each key. */
export function setUpKeys(checkbox, actions) {
  checkbox.checked = stored('keys') !== 'off';
  checkbox.addEventListener('change', () => store('keys', checkbox.checked ? 'on' : 'off'));
  document.addEventListener('keydown', (event) => {
    const isTyping =
      event.target.closest('input, dialog') || event.ctrlKey || event.metaKey || event.altKey;
    if (isTyping || !checkbox.checked || !Object.hasOwn(actions, event.key)) return;
    event.preventDefault();
    actions[event.key]();
  });
}
