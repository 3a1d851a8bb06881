// Measures the page in Chromium, with copies of metadata/ under other names, and prints a table.
// usage: node budgets.js [MEGABYTES…]      1, 10 and 80 unless given

import { mkdirSync, mkdtempSync, readFileSync, statSync, writeFileSync } from 'node:fs';
import { join } from 'node:path';
import { fileURLToPath } from 'node:url';
import { gzipSync } from 'node:zlib';

import { folder, launch, makePage, ready } from './support.js';

const top = fileURLToPath(new URL('../..', import.meta.url));
const DOMAINS = ['metamodel', 'authentication', 'cli'];
const texts = DOMAINS.map((domain) => {
  const file = join(top, 'metadata', domain, 'zelk-metadata.json');
  return JSON.stringify(JSON.parse(readFileSync(file, 'utf8')));
});
const copySize = texts.reduce((sum, text) => sum + text.length, 0);

/** A folder with that many copies, each with names of its own. */
function copies(count) {
  const copied = mkdtempSync(join(folder, 'copies-'));
  DOMAINS.forEach((domain, i) => {
    mkdirSync(join(copied, domain));
    for (let copy = 0; copy < count; ++copy) {
      const text = texts[i]
        .replaceAll('com.orvane.zelk.metadata', `com.orvane.zelk${copy}.metadata`)
        .replaceAll('"metadata.', `"metadata${copy}.`)
        .replaceAll('"path":"metadata"', `"path":"metadata${copy}"`)
        .replaceAll('"path":"","name":"metadata"', `"path":"","name":"metadata${copy}"`);
      writeFileSync(join(copied, domain, `${copy}.json`), text);
    }
  });
  return copied;
}

/** The code and the style of a page. */
function codeSize(html) {
  const style = html.indexOf('<style>') + 7;
  const script = html.lastIndexOf('<script type="module">') + 22;
  const code =
    html.slice(style, html.indexOf('</style>')) + html.slice(script, html.lastIndexOf('</script>'));
  return [Buffer.byteLength(code), gzipSync(code, { level: 9 }).length];
}

/** When the first page is in the document and laid out, in milliseconds from the navigation. */
function watchFirstPage() {
  new MutationObserver((changes, observer) => {
    if (!document.querySelector('.counts')) return;
    observer.disconnect();
    requestAnimationFrame(() =>
      setTimeout(() => {
        window.firstPage = performance.now();
      }),
    );
  }).observe(document, { childList: true, subtree: true });
}

/** How long the search takes after each key, in milliseconds. */
async function keyStrokes(tab) {
  return tab.evaluate(() => {
    const input = document.querySelector('#query');
    const times = [];
    for (const query of [
      'fingerprint',
      'source delete',
      'e',
      'op:get',
      'takes:id',
      'gci',
      'zelk',
    ]) {
      for (let length = 1; length <= query.length; ++length) {
        const begin = performance.now();
        input.value = query.slice(0, length);
        input.dispatchEvent(new Event('input'));
        document.querySelector('#hits').getBoundingClientRect();
        times.push(performance.now() - begin);
      }
    }
    input.dispatchEvent(new Event('blur'));
    return times.sort((a, b) => a - b);
  });
}

/** How long it takes until another page is shown, in milliseconds. */
async function pageChanges(tab, copy) {
  return tab.evaluate(async (name) => {
    const times = [];
    const addresses = [
      `#/service/${name}.metamodel.source`,
      `#/operation/${name}.metamodel.source/get`,
    ];
    addresses.push(`#/structure/${name}.metamodel.field_info`, `#/package/${name}.metamodel`);
    for (let i = 0; i < 20; ++i) {
      const begin = performance.now();
      const changed = new Promise((resolve) =>
        addEventListener('hashchange', resolve, { once: true }),
      );
      location.hash = addresses[i % addresses.length];
      await changed;
      document.querySelector('main').getBoundingClientRect();
      times.push(performance.now() - begin);
    }
    return times.sort((a, b) => a - b);
  }, `com.orvane.zelk${copy}.metadata`);
}

async function heap(tab) {
  const session = await tab.createCDPSession();
  await session.send('HeapProfiler.collectGarbage');
  const { usedSize, backingStorageSize } = await session.send('Runtime.getHeapUsage');
  return usedSize + backingStorageSize;
}

async function measure(megabytes) {
  const count = Math.round((megabytes * 1e6) / copySize);
  const began = performance.now();
  const page = makePage(`copies-${megabytes}`, [copies(count)]);
  const written = performance.now() - began;
  const browser = await launch('chromium');
  const tab = await browser.newPage();
  tab.setDefaultTimeout(120000);
  await tab.evaluateOnNewDocument(watchFirstPage);
  await tab.goto(page);
  await tab.waitForFunction(() => window.firstPage);
  const first = await tab.evaluate(() => window.firstPage);
  await ready(tab);
  const keys = await keyStrokes(tab);
  const changes = await pageChanges(tab, count - 1);
  const used = await heap(tab);
  await browser.close();
  const at = (times, share) => times[Math.floor((times.length - 1) * share)].toFixed(1);
  const size = statSync(fileURLToPath(page)).size;
  return [
    `${megabytes} MB`,
    `${(written / 1000).toFixed(1)} s`,
    `${(size / 1e6).toFixed(2)} MB`,
    `${(first / 1000).toFixed(2)} s`,
    `${at(keys, 0.5)} / ${at(keys, 0.99)} ms`,
    `${at(changes, 0.5)} / ${at(changes, 1)} ms`,
    `${(used / (count * copySize)).toFixed(1)}`,
  ];
}

const own = readFileSync(fileURLToPath(makePage('own', ['metadata'])), 'utf8');
const [raw, compressed] = codeSize(own);
console.log(`page of metadata/: ${Buffer.byteLength(own)} bytes`);
console.log(`code and style: ${raw} bytes, compressed ${compressed}`);
const sizes = process.argv.slice(2).map(Number);
console.log(
  '| Metadata | Written in | Page | First page | Key stroke | Change of page | Heap / metadata |',
);
console.log('|---|---|---|---|---|---|---|');
for (const megabytes of sizes.length ? sizes : [1, 10, 80]) {
  console.log(`| ${(await measure(megabytes)).join(' | ')} |`);
}
if (Buffer.byteLength(own) > 120000 || raw > 60000 || compressed > 20000) {
  console.error('the page is larger than it may be');
  process.exit(1);
}
