// The theme, the help, and keys that are single letters, which can be switched off. What is chosen
// is kept if the browser allows it.

const THEMES = { auto: ['◐', 'as the system'], light: ['☀', 'light'], dark: ['☾', 'dark'] };

function stored(key, unless) {
  try {
    return localStorage.getItem(`zelk-metadata.${key}`) ?? unless;
  } catch {
    return unless;
  }
}

function store(key, value) {
  try {
    localStorage.setItem(`zelk-metadata.${key}`, value);
  } catch {
    // Pages from disk may not keep anything in some browsers.
  }
}

export function setUpTheme(button) {
  const names = Object.keys(THEMES);
  const apply = (theme) => {
    document.documentElement.dataset.theme = theme;
    const [sign, text] = THEMES[theme];
    button.textContent = sign;
    button.setAttribute('aria-label', `Theme: ${text}`);
    button.title = `Theme: ${text}`;
  };
  button.addEventListener('click', () => {
    const next = names[(names.indexOf(document.documentElement.dataset.theme) + 1) % names.length];
    store('theme', next);
    apply(next);
  });
  const theme = stored('theme', 'auto');
  apply(Object.hasOwn(THEMES, theme) ? theme : 'auto');
}

/** `actions` has a function for each key. */
export function setUpKeys(checkbox, actions) {
  checkbox.checked = stored('shortcuts', 'on') === 'on';
  checkbox.addEventListener('change', () => store('shortcuts', checkbox.checked ? 'on' : 'off'));
  document.addEventListener('keydown', (event) => {
    const isTyping = event.target.closest('input, textarea, select, dialog');
    if (!checkbox.checked || isTyping || event.ctrlKey || event.metaKey || event.altKey) return;
    if (!Object.hasOwn(actions, event.key)) return;
    event.preventDefault();
    actions[event.key]();
  });
}
