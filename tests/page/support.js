// Pages to test, and browsers to test them in.
// ZELK_METADATA is the program; screenshots go to the folder ZELK_SCREENSHOTS.

import { execFileSync } from 'node:child_process';
import { mkdirSync, mkdtempSync, readFileSync, rmSync, writeFileSync } from 'node:fs';
import { createRequire } from 'node:module';
import { tmpdir } from 'node:os';
import { join } from 'node:path';
import { pathToFileURL } from 'node:url';

import puppeteer from 'puppeteer-core';

const top = new URL('../..', import.meta.url).pathname;
const program = process.env.ZELK_METADATA ?? join(top, 'build/release/bin/zelk-metadata');
const screenshots = process.env.ZELK_SCREENSHOTS ?? join(top, 'build/page');
export const folder = mkdtempSync(join(tmpdir(), 'zelk-page-'));
const axe = readFileSync(createRequire(import.meta.url).resolve('axe-core/axe.min.js'), 'utf8');

mkdirSync(screenshots, { recursive: true });
process.on('exit', () => rmSync(folder, { recursive: true }));

/** The address of the page of the sources; `status` is what the program returns. */
export function makePage(name, sources, status = 0) {
  const file = join(folder, `${name}.html`);
  const words = sources.flatMap((source) => ['--source', source]);
  let actual = 0;
  try {
    execFileSync(program, ['docs', ...words, '--output-file', file], { cwd: top, stdio: 'pipe' });
  } catch (error) {
    actual = error.status;
  }
  if (actual !== status) throw new Error(`docs returned ${actual}, not ${status}`);
  return pathToFileURL(file).href;
}

export function writeSource(name, content) {
  const file = join(folder, name);
  writeFileSync(file, typeof content === 'string' ? content : JSON.stringify(content));
  return file;
}

const FLAGS = [
  '--no-sandbox',
  '--host-resolver-rules=MAP * ~NOTFOUND',
  '--force-color-profile=srgb',
];

export const BROWSERS = {
  chromium: { browser: 'chrome', executablePath: '/usr/bin/chromium', args: FLAGS },
  firefox: { browser: 'firefox', executablePath: '/usr/bin/firefox-esr' },
};

/** A tab that remembers what it should not have done. */
export async function openTab(browser) {
  const tab = await browser.newPage();
  tab.faults = [];
  tab.on('pageerror', (error) => tab.faults.push(String(error)));
  tab.on('console', (message) => {
    if (message.type() === 'error') tab.faults.push(message.text());
  });
  tab.on('request', (request) => {
    if (!/^(file|data|about):/.test(request.url())) tab.faults.push(`request: ${request.url()}`);
  });
  return tab;
}

/** Loads the address as a new document. */
export async function load(tab, address) {
  await tab.goto('about:blank');
  await tab.goto(address);
  await ready(tab);
}

export function ready(tab) {
  return tab.waitForFunction(() => document.documentElement.dataset.state === 'ready');
}

/** Follows a link within the page. */
export async function follow(tab, hash) {
  await tab.evaluate((address) => (location.hash = address), hash);
  await tab.waitForFunction((address) => location.hash === address, {}, hash);
  await settle(tab);
}

export function settle(tab) {
  return tab.evaluate(
    () => new Promise((resolve) => requestAnimationFrame(() => setTimeout(resolve))),
  );
}

export function heading(tab) {
  return tab.$eval('h1 .name', (name) => name.textContent);
}

/** What is wrong for people who use assistive technology, as texts. */
export async function violations(tab) {
  if (!(await tab.evaluate(() => 'axe' in window))) await tab.evaluate(axe);
  return tab.evaluate(async () => {
    const { violations: found } = await window.axe.run({
      resultTypes: ['violations'],
      rules: { 'target-size': { enabled: true } },
    });
    return found.flatMap(({ id, nodes }) =>
      nodes.map((node) => `${id}: ${node.html.slice(0, 200)}`),
    );
  });
}

export function screenshot(tab, name) {
  return tab.screenshot({ path: join(screenshots, `${name}.png`) });
}

export async function launch(name) {
  return puppeteer.launch({ headless: true, ...BROWSERS[name] });
}
