import js from '@eslint/js';
import globals from 'globals';

export default [
  js.configs.recommended,
  {
    languageOptions: { globals: { ...globals.browser, ...globals.node } },
    rules: {
      complexity: ['error', 12],
      eqeqeq: 'error',
      'max-lines-per-function': ['error', { max: 60, skipComments: true }],
      'no-restricted-properties': [
        'error',
        { property: 'innerHTML', message: 'Texts become text nodes.' },
        { property: 'outerHTML', message: 'Texts become text nodes.' },
        { property: 'insertAdjacentHTML', message: 'Texts become text nodes.' },
      ],
      'no-var': 'error',
      'prefer-const': 'error',
    },
  },
  // Data, and files that are one function with many tests.
  { files: ['**/fixtures.js', '**/*.test.js'], rules: { 'max-lines-per-function': 'off' } },
];
