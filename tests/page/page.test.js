// What people see of the page, in both browsers.

import assert from 'node:assert/strict';
import { readFileSync } from 'node:fs';
import { createServer } from 'node:http';
import { after, before, describe, test } from 'node:test';
import { fileURLToPath, pathToFileURL } from 'node:url';

import {
  COPIES,
  HOSTILE_TEXTS,
  hostileSources,
  LONG_NAME,
  longSources,
  mergedSources,
  namesakeSources,
  oddSources,
  partialSource,
  shadowedSources,
  UNSEEN,
} from './fixtures.js';
import {
  BROWSERS,
  follow,
  heading,
  launch,
  load,
  makePage,
  openTab,
  ready,
  screenshot,
  settle,
  violations,
  writeSource,
} from './support.js';

const SOURCE = 'com.orvane.zelk.metadata.metamodel.source';
const KINDS = {
  home: '#/',
  component: '#/component/com.orvane.zelk.metadata',
  package: '#/package/com.orvane.zelk.metadata.metamodel',
  service: `#/service/${SOURCE}`,
  operation: `#/operation/${SOURCE}/delete`,
  part: `#/operation/${SOURCE}/create?parameter=spec`,
  structure: '#/structure/com.orvane.zelk.metadata.metamodel.field_info',
  enumeration: '#/enumeration/com.orvane.zelk.metadata.source_type',
  authentication: '#/authentication/com.orvane.zelk.metadata',
  scheme: '#/scheme/com.orvane.zelk.metadata/session',
  namespace: '#/namespace/metadata.metamodel',
  command: '#/command/metadata.metamodel.source.create',
  resource: `#/resource/${SOURCE}`,
  source: '#/source/cli/cli%2Fzelk-metadata',
  search: '#/search/fingerprint',
  missing: '#/service/no.such.servic',
};

const own = makePage('own', ['metadata']);
const schemesOnly = makePage('schemes-only', ['metadata/authentication']);
const commandsOnly = makePage('commands-only', ['metadata/cli']);
const shadowed = makePage('shadowed', [...shadowedSources(), 'nowhere.json'], 1);
const hostile = makePage('hostile', hostileSources());
const odd = makePage('odd', oddSources());
const merged = makePage('merged', mergedSources());
const partial = makePage('partial', [partialSource()]);
const namesakes = makePage('namesakes', namesakeSources());
const long = makePage('long', longSources());

function testIn(name) {
  describe(name, { concurrency: 1 }, () => {
    let browser;
    let tab;
    const text = (selector) => tab.$eval(selector, (element) => element.textContent);
    const texts = (selector) => tab.$$eval(selector, (all) => all.map((one) => one.textContent));
    const focused = () => tab.evaluate(() => document.activeElement.tagName);
    const hash = () => tab.evaluate(() => location.hash);
    const shownTab = async () => (await text('[role="tab"][aria-selected="true"]')).trim();
    const width = () => tab.evaluate(() => document.scrollingElement.scrollWidth);

    const search = async (query) => {
      await tab.focus('#query');
      await tab.$eval(
        '#query',
        (input, value) => {
          input.value = value;
          input.dispatchEvent(new Event('input'));
        },
        query,
      );
    };

    // It finds the same in both browsers, and takes most of the time.
    const assertAccessible = async (what) => {
      if (name === 'chromium') assert.deepEqual(await violations(tab), [], what);
    };

    before(async () => {
      browser = await launch(name);
      tab = await openTab(browser);
      await tab.setViewport({ width: 1280, height: 860 });
    });

    after(async () => {
      assert.deepEqual(tab.faults, []);
      await browser.close();
    });

    test('every kind of page is accessible in both themes and on a narrow screen', async () => {
      await load(tab, own);
      const themes = await tab.$('#theme');
      for (const theme of name === 'chromium' ? ['light', 'dark'] : ['dark']) {
        while ((await tab.evaluate(() => document.documentElement.dataset.theme)) !== theme) {
          await themes.click();
        }
        for (const [kind, address] of Object.entries(KINDS)) {
          await follow(tab, address);
          await assertAccessible(`${kind}, ${theme}`);
          await screenshot(tab, `${name}-${kind}-${theme}`);
        }
      }
      await tab.setViewport({ width: 320, height: 720 });
      for (const [kind, address] of Object.entries(KINDS)) {
        await follow(tab, address);
        assert.ok((await width()) <= 320, `${kind} is ${await width()} wide`);
        await screenshot(tab, `${name}-${kind}-narrow`);
      }
      await assertAccessible();
      await tab.setViewport({ width: 1280, height: 860 });
    });

    test('an operation has its types, schemes at each level, commands and place', async () => {
      await load(tab, own + KINDS.operation);
      assert.equal(await heading(tab), 'delete');
      assert.equal(await tab.title(), `${SOURCE}.delete · com.orvane.zelk.metadata`);
      assert.equal(await text('.signature'), 'delete(source_id: ID) → VOID');
      assert.match(await text('.about'), /metadata\/metamodel\/zelk-metadata\.json:\d+$/);
      const levels = await tab.$$eval('table', (tables) =>
        tables
          .find((table) => table.caption.textContent === 'Schemes listed')
          .innerText.split('\n')
          .join(' '),
      );
      assert.match(
        levels,
        /package metamodel.*session com\.orvane\.zelk\.authentication\.session SESSION_AWARE.*service source.*operation delete.*administrator/,
      );
      assert.match(
        await text('main'),
        /Commands that call it.*metadata metamodel source delete.*--source-id ID/,
      );
      assert.match(await text('main'), /nothing is inherited/);
      const links = await tab.$$eval('main a', (all) =>
        all.map((link) => link.getAttribute('href')),
      );
      for (const link of ['#/command/metadata.metamodel.source.delete', `#/resource/${SOURCE}`]) {
        assert.ok(links.includes(link), link);
      }
    });

    test('links lead both ways', async () => {
      await load(tab, own + '#/command/metadata.metamodel.source.delete');
      await tab.click(`main a[href="${KINDS.operation}"]`);
      await settle(tab);
      assert.equal(await heading(tab), 'delete');
      await tab.click('main a[href="#/command/metadata.metamodel.source.delete"]');
      await settle(tab);
      assert.equal(await heading(tab), 'metadata metamodel source delete');
      await follow(tab, KINDS.structure);
      const users = await texts('main section:last-of-type li');
      assert.ok(
        users.some((user) => user.includes('operation_info.params field')),
        users.join(),
      );
      assert.ok(users.some((user) => user.includes('metadata.metamodel.structure.get output')));
      await follow(tab, KINDS.package);
      assert.ok((await texts('main tbody th')).includes('service.operation'));
      await follow(tab, KINDS.scheme);
      assert.ok((await texts('main li')).some((user) => user.includes(SOURCE)));
    });

    test('what an option fills is shown whole, whatever of it is unknown', async () => {
      await load(tab, odd + '#/command/run');
      const rows = await tab.$$eval('main tbody tr', (all) => all.map((row) => row.innerText));
      assert.match(rows[0], /\bspec\.more\.q \(not in these files\)/);
      assert.match(rows[1], /\bnothing\.q \(not in these files\)/);
      await tab.click('main tbody a');
      await settle(tab);
      assert.equal(await hash(), '#/operation/sh.q.svc/run?parameter=spec');
    });

    test('back, forward and links to parts of pages work', async () => {
      await load(tab, own + KINDS.service);
      await follow(tab, KINDS.structure + '?field=type');
      assert.equal(await text('.chosen th'), 'type');
      assert.equal(await focused(), 'TR');
      await follow(tab, KINDS.command);
      assert.equal(await focused(), 'H1');
      await tab.evaluate(() => history.go(-2));
      await tab.waitForFunction(() =>
        document.title.startsWith('com.orvane.zelk.metadata.metamodel.source '),
      );
      assert.equal(await heading(tab), SOURCE);
      await tab.evaluate(() => history.forward());
      await tab.waitForFunction(() => document.title.includes('field_info'));
      assert.equal(await heading(tab), 'field_info');
      assert.equal(await text('[aria-current="page"] .name'), 'field_info');
    });

    test('back leads to the same place of the page as it was', async () => {
      await load(tab, shadowed + '#/structure/a.b.many');
      await tab.click('main tbody button');
      await tab.evaluate(() => scrollTo(0, 3000));
      await follow(tab, '#/package/a.b');
      assert.equal(await tab.evaluate(() => scrollY), 0);
      await tab.evaluate(() => history.back());
      await tab.waitForFunction(() => document.title.includes('many'));
      assert.equal((await texts('main tbody tr')).length, COPIES);
      assert.equal(await tab.evaluate(() => scrollY), 3000);
      await tab.evaluate(() => history.forward());
      await tab.waitForFunction(() => !document.title.includes('many'));
      assert.equal(await tab.evaluate(() => scrollY), 0);
    });

    test('back leads to the same place after many other pages', async () => {
      await load(tab, shadowed + '#/structure/a.b.many');
      await tab.evaluate(() => scrollTo(0, 3000));
      const others = 31;
      for (let i = 0; i < others; ++i) await follow(tab, `#/search/${i}`);
      await tab.evaluate((steps) => history.go(-steps), others);
      await tab.waitForFunction(() => document.title.includes('many'));
      assert.equal(await tab.evaluate(() => scrollY), 3000);
    });

    test('what another version of the page has stored does no harm', async () => {
      await load(tab, own);
      await tab.evaluate(() => {
        const spoil = () => sessionStorage.setItem('zelk-metadata.places', '{}');
        addEventListener('pagehide', spoil);
      });
      await tab.reload();
      await ready(tab);
    });

    test('a reload leads to the same place, and so does back after it', async () => {
      const place = () => tab.evaluate(() => Math.round(scrollY));
      const rows = async () => (await texts('main tbody tr')).length;
      await load(tab, shadowed + '#/structure/a.b.many?field=f10');
      await tab.click('main tbody button');
      const bottom = await tab.evaluate(() => document.body.scrollHeight - innerHeight - 500);
      await tab.evaluate((top) => scrollTo(0, top), bottom);
      const before = await place();
      for (const which of ['first', 'second']) {
        await tab.reload();
        await ready(tab);
        assert.equal(await place(), before, which);
        assert.equal(await rows(), COPIES);
      }
      await follow(tab, '#/package/a.b');
      await tab.reload();
      await ready(tab);
      assert.equal(await place(), 0);
      await tab.evaluate(() => history.back());
      await tab.waitForFunction(() => document.title.includes('many'));
      assert.equal(await place(), before);
      assert.equal(await rows(), COPIES);
      await tab.evaluate(() => scrollTo(0, 0));
      await tab.reload();
      await ready(tab);
      assert.equal(await place(), 0);
    });

    test('an address of nothing leads to similar names', async () => {
      await load(tab, own);
      for (const address of [
        '#/constructor/x',
        '#/toString',
        '#/search',
        '#/search/constructor:x',
      ]) {
        await follow(tab, address);
        assert.ok(await text('h1'), address);
      }
      await follow(tab, '#/service');
      assert.match(await text('h1'), /not found/);
      await follow(tab, '#/constructor/source');
      assert.match(await text('main'), /not found source.*In names/s);
    });

    test('a page that cannot be read says so', async () => {
      const html = readFileSync(fileURLToPath(own), 'utf8');
      for (const block of ['structure', 'documentation']) {
        const damaged = html.replace(new RegExp(`(id="${block}">.{50})....`), '$1AAAA');
        assert.notEqual(damaged, html);
        const probe = await browser.newPage();
        const file = writeSource(`${name}-${block}.html`, damaged);
        await probe.goto(pathToFileURL(file).href);
        await probe.waitForSelector('[role="alert"]');
        const visible = await probe.$eval('main', (main) => main.innerText);
        assert.match(visible, /^This page is damaged/);
        assert.doesNotMatch(visible, /Reading the page/);
        assert.equal(/operation/.test(visible), block === 'documentation');
        await probe.close();
      }
      const old = await browser.newPage();
      await old.evaluateOnNewDocument(() => delete window.DecompressionStream);
      await old.goto(own);
      await old.waitForSelector('[role="alert"]');
      await old.close();
    });

    test('names that cannot be seen are shown as codes or as blank', async () => {
      await load(tab, odd + '#/package/sh.p');
      const names = await texts('main tbody th');
      const code = (one) => `⟨U+${one.toString(16).toUpperCase().padStart(4, '0')}⟩`;
      const coded = `a${UNSEEN.map(code).join('')}b`;
      assert.ok(names.includes('(blank)'), names.join());
      assert.ok(names.includes(coded), names.join());
      assert.ok(names.includes('\u0645\u06cc\u200c\u062e'), names.join());
      await assertAccessible();
      await tab.click('main tbody th:first-child a');
      await settle(tab);
      assert.equal(await heading(tab), '(blank)');
      await tab.keyboard.press(']');
      await tab.waitForFunction(() => document.title.includes('b ·'));
      assert.ok((await tab.title()).includes(coded));
    });

    test('schemes of one name lead to their own pages', async () => {
      await load(tab, odd + '#/package/sh.p');
      for (const scheme of ['x.a', 'y.a']) {
        await follow(tab, '#/package/sh.p');
        const link = await tab.$$eval(
          'main td .list li',
          (items, wanted) => {
            const item = items.find((one) => one.textContent.startsWith(`a ${wanted} `));
            return item.querySelector('a').getAttribute('href');
          },
          scheme,
        );
        await follow(tab, link);
        assert.match(await text('main'), new RegExp(`Definition${scheme.replace('.', '\\.')}`));
      }
    });

    test('search finds names, parts, initials, kinds, types and documentation', async () => {
      await load(tab, own);
      const first = async (query) => {
        await search(query);
        return texts('#hits [role="option"]');
      };
      assert.match((await first('sou del'))[0], /delete.*source/);
      assert.match((await first('source.delete'))[0], /delete.*source/);
      assert.match((await first('ofi'))[0], /output_field_info|option_field/);
      const commands = await first('cmd:get');
      assert.ok(commands.length > 3 && commands.every((one) => one.startsWith('Cmcommand')));
      const taking = await first('takes:create_spec');
      assert.ok(
        taking.length === 3 && taking.every((one) => one.includes('create')),
        taking.join(),
      );
      assert.match((await first('source:cli'))[0], /^Sosource metadata\/cli\/zelk-metadata\.json$/);
      assert.match(
        (await first('res:cli.source'))[0],
        /^Reresource sourcecom\.orvane\.zelk\.metadata\.cli$/,
      );
      assert.match((await first('returns:field_info'))[0] ?? '', /^$/);
      assert.ok((await first('returns:operation_info')).length > 0);
      await search('hex digits');
      await tab.waitForSelector('[aria-label="In documentation"]');
      const excerpts = await texts('[aria-label="In documentation"] .around');
      assert.ok(
        excerpts.some((one) => /^…of the file that describes/.test(one)),
        excerpts.join(),
      );
      await search('strukture_inof');
      await tab.waitForSelector('[aria-label="Did you mean"]');
      assert.match(await text('[aria-label="Did you mean"]'), /structure_info/);
      await search('qqqqqqqq');
      await tab.waitForFunction(
        () => document.querySelector('#count').textContent === 'Nothing found',
      );
      await assertAccessible();
      await search('source');
      await assertAccessible();
      await tab.waitForFunction(() =>
        /^\d+ names; In documentation, the first: 40$/.test(
          document.querySelector('#count').textContent,
        ),
      );
      assert.deepEqual(await texts('#hits .group'), [
        'Names, the best 40',
        'In documentation, the first 40',
      ]);
      await load(tab, own + '#/search/hex%20digits');
      assert.equal(await tab.$eval('#query', (input) => input.value), 'hex digits');
      await tab.waitForFunction(() => document.querySelector('main h2'));
      assert.match(await text('main'), /0 names.*In documentation/);
      await screenshot(tab, `${name}-searching`);
    });

    test('search finds errors, annotations and fingerprints', async () => {
      await load(tab, own);
      const find = async (query) => {
        await search(query);
        return tab.$$eval('#hits [role="option"]', (all) =>
          all.map((one) => [one.textContent, one.getAttribute('href')]),
        );
      };
      const errors = await find('error:delete not_found');
      assert.equal(errors.length, 3);
      assert.match(errors[0][0], /^Ererror not_foundcom\.orvane\..*\.source\.delete$/);
      await follow(tab, errors[0][1]);
      assert.match(await text('.chosen th'), /not_found/);
      const annotations = await find('annotation:resource source.delete');
      assert.match(annotations[0][0], /^Anannotation Resourcecom\..*\.source\.delete\.source_id$/);
      await follow(tab, annotations[0][1]);
      assert.match(await text('.chosen th'), /source_id/);
      await follow(tab, '#/');
      const [digest] = (await texts('main td .name')).filter((one) => /^[0-9a-f]{32}$/.test(one));
      for (const query of [digest, digest.slice(0, 12)]) {
        assert.deepEqual(
          (await find(query)).map(([one]) => one),
          ['Sosource metadata/metamodel/zelk-metadata.json'],
        );
      }
    });

    test('components of interfaces and of schemes do not look alike', async () => {
      await load(tab, own);
      await search('com.orvane.zelk.metadata');
      const hits = await texts('#hits [role="option"]');
      for (const kind of ['Cocomponent ', 'Auauthentication ']) {
        assert.equal(hits.filter((one) => one.startsWith(kind)).length, 1, kind);
      }
      await follow(tab, KINDS.authentication);
      assert.match(await text('.tree li'), /^(Contents of [^A]*)?Auauthentication /);
      assert.match(await text('h1'), /^authentication /);
    });

    test('pages of schemes or of commands only begin with these', async () => {
      await load(tab, schemesOnly);
      assert.equal(await heading(tab), 'com.orvane.zelk.metadata');
      assert.equal(await shownTab(), 'Schemes');
      assert.match(await text('main'), /4 schemes.*password com\.orvane\S* SESSIONLESS/);
      await assertAccessible();
      await screenshot(tab, `${name}-schemes-only`);
      await load(tab, commandsOnly);
      assert.equal(await heading(tab), 'Commands');
      assert.equal(await shownTab(), 'Commands');
      assert.match(await text('main'), /49 commands.*metadata3 namespaces/);
      await assertAccessible();
      await screenshot(tab, `${name}-commands-only`);
    });

    test('results are links, of which no name is cut on a narrow screen', async () => {
      await load(tab, own + KINDS.operation);
      await tab.setViewport({ width: 320, height: 720 });
      await search('create');
      const hits = await tab.$$eval('#hits a[role="option"]', (all) =>
        all.map((one) => ({
          address: one.getAttribute('href'),
          isWhole: [one, ...one.children].every((part) => part.scrollWidth <= one.clientWidth),
        })),
      );
      assert.ok(hits.length > 5);
      assert.deepEqual(
        hits.filter(({ isWhole }) => !isWhole),
        [],
      );
      assert.equal(hits[0].address, '#/operation/com.orvane.zelk.metadata.metamodel.source/create');
      await screenshot(tab, `${name}-searching-narrow`);
      await tab.setViewport({ width: 1280, height: 860 });
      const pages = (await browser.pages()).length;
      const opened = new Promise((resolve) => browser.once('targetcreated', resolve));
      await tab.click('#hits a', { button: 'middle' });
      await (await (await opened).page()).close();
      assert.equal((await browser.pages()).length, pages);
      assert.equal(await hash(), KINDS.operation);
      assert.ok(!(await tab.$eval('#hits', (one) => one.hidden)));
      await tab.click('#hits a');
      await tab.waitForFunction((address) => location.hash === address, {}, hits[0].address);
      assert.ok(await tab.$eval('#hits', (one) => one.hidden));
      assert.equal(await heading(tab), 'create');
    });

    test('everything can be done with the keyboard', async () => {
      await load(tab, own);
      await tab.keyboard.press('/');
      await tab.keyboard.type('sou del');
      await tab.keyboard.press('ArrowDown');
      assert.equal(
        await tab.$eval('#query', (input) => input.getAttribute('aria-activedescendant')),
        'hit-0',
      );
      await tab.keyboard.press('ArrowDown');
      await tab.keyboard.press('ArrowUp');
      await tab.keyboard.press('Enter');
      await tab.waitForFunction(() => location.hash.includes('/delete'));
      await settle(tab);
      assert.equal(await heading(tab), 'delete');
      assert.equal(await focused(), 'H1');
      const before = await hash();
      await tab.keyboard.press(']');
      await tab.waitForFunction((old) => location.hash !== old, {}, before);
      await settle(tab);
      assert.equal(await heading(tab), 'fingerprint');
      await tab.keyboard.press('[');
      await tab.waitForFunction((old) => location.hash === old, {}, before);
      await settle(tab);
      await tab.keyboard.press('s');
      await tab.keyboard.type('fingerprint');
      await tab.keyboard.press('Enter');
      await tab.waitForFunction(() => location.hash === '#/search/fingerprint');
      await settle(tab);
      assert.match(await text('main'), /In names/);
      await tab.keyboard.press('s');
      await tab.keyboard.press('Enter');
      assert.equal(await focused(), 'H1');
      await tab.keyboard.press('?');
      assert.ok(await tab.$eval('dialog', (dialog) => dialog.open));
      await assertAccessible();
      await tab.keyboard.press('Escape');
      assert.ok(!(await tab.$eval('dialog', (dialog) => dialog.open)));
      await tab.focus('#tab-metamodel');
      await tab.keyboard.press('ArrowRight');
      assert.equal(await shownTab(), 'Commands');
      await tab.keyboard.press('ArrowLeft');
      await tab.keyboard.press('ArrowLeft');
      assert.equal(await shownTab(), 'Sources');
      assert.equal(await focused(), 'BUTTON');
    });

    test('a name can be copied, and results opened in new tabs', async () => {
      await load(tab, own + KINDS.operation);
      await tab.evaluate(() => {
        window.copied = '';
        navigator.clipboard.writeText = async (copied) => (window.copied = copied);
        window.open = (address) => (window.opened = address);
      });
      await tab.click('.about button');
      await tab.waitForFunction(
        () => document.querySelector('.about button').textContent === 'Copied',
      );
      assert.equal(await tab.evaluate(() => window.copied), `${SOURCE}.delete`);
      await search('field_info');
      await tab.keyboard.down('Control');
      await tab.keyboard.press('Enter');
      await tab.keyboard.up('Control');
      assert.equal(await tab.evaluate(() => window.opened), '#/search/field_info');
      await tab.evaluate(() => {
        navigator.clipboard.writeText = () => Promise.reject(new Error('denied'));
      });
      await tab.click('h1');
      await tab.click('.about button');
      await tab.waitForFunction(() =>
        document.querySelector('.about button').textContent.startsWith('Not allowed'),
      );
    });

    test('keys that are single letters can be switched off', async () => {
      await load(tab, own);
      await tab.click('#help');
      await tab.$eval('#keys', (box) => box.click());
      await tab.keyboard.press('Escape');
      await tab.reload();
      await ready(tab);
      await tab.keyboard.press('/');
      assert.notEqual(await focused(), 'INPUT');
      await tab.click('#help');
      await tab.$eval('#keys', (box) => box.click());
      await tab.keyboard.press('Escape');
      await tab.evaluate(() => document.activeElement.blur());
      await tab.keyboard.press('/');
      assert.equal(await focused(), 'INPUT');
    });

    test('the lists at the side open step by step', async () => {
      await load(tab, own);
      const rows = async () => (await texts('.tree a')).length;
      assert.equal(await rows(), 5);
      await tab.click('.tree ul ul .opener');
      assert.equal(
        await tab.$eval('.tree ul ul .opener', (one) => one.getAttribute('aria-expanded')),
        'true',
      );
      assert.ok((await rows()) > 5);
      await tab.click('.tree ul ul .opener');
      assert.equal(await rows(), 5);
      await tab.click('.tree ul ul .opener');
      const before = await rows();
      for (const [kind, address] of Object.entries(KINDS))
        if (/^op|^st/.test(kind)) await follow(tab, address);
      assert.ok((await rows()) > before);
      await follow(tab, KINDS.component);
      assert.equal(await rows(), before);
      await tab.setViewport({ width: 320, height: 720 });
      assert.ok(await tab.$eval('#sidebar', (one) => getComputedStyle(one).display === 'none'));
      await tab.click('#menu');
      assert.ok(await tab.$eval('#sidebar', (one) => getComputedStyle(one).display !== 'none'));
      await assertAccessible();
      await screenshot(tab, `${name}-menu-narrow`);
      await tab.keyboard.press('Escape');
      assert.ok(await tab.$eval('#sidebar', (one) => getComputedStyle(one).display === 'none'));
      await tab.click('#menu');
      await tab.focus('#tree a');
      await tab.keyboard.press('Escape');
      assert.equal(await tab.evaluate(() => document.activeElement.id), 'menu');
      await tab.setViewport({ width: 1280, height: 860 });
    });

    test('what is shadowed, dropped or does not load is shown', async () => {
      await load(tab, shadowed);
      const home = await text('main');
      assert.match(
        home,
        /Files that do not load.*nowhere\.jsonNo such file.*broken\.json1:\d+: Json/s,
      );
      await follow(tab, '#/service/a.b.svc');
      assert.equal((await texts('.note')).length, 0);
      await follow(tab, '#/service/a.b.svc@2');
      assert.match(await text('.note'), /Lookups of the name return another one.*first\.json:1/);
      await assertAccessible();
      await screenshot(tab, `${name}-shadowed`);
      await follow(tab, '#/source/metamodel/second');
      assert.match(await text('main'), /Not answered or shadowed.*second\.json:1/s);
      await follow(tab, '#/source/metamodel/first');
      assert.match(await text('main'), /ShadowsCocomponent {2}a \S*second\.json:1/s);
      await follow(tab, '#/search/service:a.b.svc');
      const services = await texts('main .list li');
      assert.equal(services.length, 2);
      assert.match(services[1], /svc a\.b shadowed by \S*first\.json:1$/);
      await assertAccessible();
      await tab.click('main .list .mark a');
      await settle(tab);
      assert.equal(await hash(), '#/service/a.b.svc');
      await search('service:a.b.svc');
      assert.match((await texts('#hits [role="option"]'))[1], /shadowed$/);
    });

    test('sources show what of them is answered', async () => {
      await load(tab, merged + '#/source/metamodel/m1');
      const items = await texts('main .list li');
      assert.equal(items.length, 2);
      assert.match(items[0], /^Cocomponent {2}me \S*m1\.json:1Lookups of [^.]*\. \S*m0\.json:1$/);
      assert.match(items[1], /^Ststructure {2}me\.p\.only$/);
    });

    test('the first page has commands that are in no namespace', async () => {
      await load(tab, merged);
      assert.match(await text('main'), /Commands in no namespace.*call/);
    });

    test('parts of what is shadowed have their own schemes, note and links', async () => {
      await load(tab, merged + '#/operation/me.p.svc/hidden');
      assert.match(await text('.note'), /^Its service is shadowed\. \S*m0\.json:1$/);
      const rows = await texts('main tbody tr');
      assert.match(rows.at(-1), /^call/);
      assert.match(rows.at(-2), /^operation hidden ?own x\.own SESSIONLESS$/);
      assert.match(rows.at(-3), /nothing is listed$/);
      await screenshot(tab, `${name}-merged`);
      for (const address of ['#/command/call', '#/authentication/me']) {
        await follow(tab, address);
        assert.match(await text('main'), /hidden \(not answered\)/);
        assert.doesNotMatch(await text('main'), /not in these files/);
        await tab.click('main a[href="#/operation/me.p.svc/hidden"]');
        await settle(tab);
        assert.equal(await heading(tab), 'hidden');
      }
    });

    test('what is not answered is found by its kind and by all of its names', async () => {
      await load(tab, namesakes + '#/operation/na.p.svc/run');
      const rows = await texts('main tbody tr');
      assert.match(rows[0], /^na\.p\.lost \(not answered\)$/);
      assert.match(rows[1], /^na\.p\.gone \(not in these files\)$/);
      await follow(tab, '#/structure/na.p.s');
      const [unanswered, missing] = await texts('main tbody tr');
      assert.match(unanswered, /na\.p\.lost \(not answered\)$/);
      assert.match(missing, /na\.p\.gone \(not in these files\)$/);
      for (const [place, address] of [
        ['#/command/long', '#/operation/na.p.svc.a/b'],
        ['#/command/short', '#/operation/na.p.svc/a.b'],
        ['#/authentication/na', '#/operation/na.p.svc.a/b'],
      ]) {
        await follow(tab, place);
        assert.match(await text('main'), /b \(not answered\)/, place);
        assert.ok(await tab.$(`main a[href="${address}"]`), place);
      }
      await follow(tab, '#/command/fill');
      assert.match(await text('main'), /na\.p\.gone \(not in these files\)/);
    });

    test('what names something that is not answered is on its page', async () => {
      await load(tab, namesakes + '#/structure/na.p.lost');
      assert.match(await text('main'), /na\.p\.s\.one field[^]*na\.p\.svc\.run error/);
      assert.doesNotMatch(await text('main'), /Nothing in these files/);
      for (const [address, command] of [
        ['#/operation/na.p.svc.a/b', 'long'],
        ['#/operation/na.p.svc/a.b', 'short'],
      ]) {
        await follow(tab, address);
        const links = await texts('main tbody a[href^="#/command/"]');
        assert.deepEqual(links, [command], address);
      }
      await follow(tab, '#/scheme/na/own');
      assert.match(await text('main'), /na\.p\.svc\.a\.b \(not answered\)/);
      await follow(tab, '#/authentication/na?operation-list=na.p.svc.a.b');
      assert.match(await text('.chosen'), /^na\.p\.svc\.a\.b/);
    });

    test('the share of documented elements counts what is answered', async () => {
      await load(tab, namesakes);
      assert.match(await text('main'), /27 % of 11 elements documented/);
    });

    test('a long title is cut, and types break between words', async () => {
      await load(tab, long + '#/structure/lo.s');
      const [bar, brand] = await tab.$$eval('.brand, .bar', (all) =>
        all.map((one) => one.offsetHeight),
      );
      assert.ok(brand < bar, `${brand} of ${bar}`);
      const lines = () =>
        tab.$eval('main td code', (code) => {
          const range = document.createRange();
          range.selectNodeContents(code);
          const rects = Array.from(range.getClientRects()).filter((one) => one.width > 0);
          return new Set(rects.map(({ top }) => top)).size;
        });
      assert.equal(await text('main td code'), 'OPTIONAL<STRING>');
      assert.equal(await lines(), 1);
      await screenshot(tab, `${name}-long`);
      await tab.setViewport({ width: 320, height: 720 });
      assert.ok((await width()) <= 320);
      await screenshot(tab, `${name}-long-narrow`);
      await tab.setViewport({ width: 1280, height: 860 });
      assert.ok((await width()) <= 1280);
    });

    test('long lists are shown in steps', async () => {
      await load(tab, shadowed + '#/structure/a.b.many');
      const rows = async () => (await texts('main tbody tr')).length;
      assert.equal(await rows(), 201);
      await tab.click('main tbody button');
      assert.equal(await rows(), COPIES);
      assert.equal(await focused(), 'TR');
      await follow(tab, '#/structure/a.b.many?field=f260');
      assert.equal(await text('.chosen th'), 'f260');
      assert.equal(await text('main tbody tr'), '200 before Show all');
      await tab.click('main tbody button');
      assert.equal(await rows(), COPIES);
      assert.equal(await text(':focus th'), 'f0');
      await follow(tab, '#/structure/a.b.many?field=none');
      assert.equal(await rows(), 201);
    });

    test('a file of which a part does not load is listed with its messages', async () => {
      await load(tab, partial);
      assert.match(
        await text('main'),
        /Files that load in part.*partial\.json1:\d+: warning: .*The product is left out\./s,
      );
    });

    test('all listed problems of a file that does not load are shown', async () => {
      await load(tab, shadowed);
      const problems = await texts('.note:last-child p');
      assert.ok(problems.length > 50);
      assert.match(problems.at(-1), /^\d+ more mistakes are not listed\.$/);
    });

    test('a part of a page is in view until the reader scrolls', async () => {
      const place = () =>
        tab.$eval('.chosen', (row) => row.getBoundingClientRect().top / innerHeight);
      for (const part of ['f150', 'f260']) {
        await load(tab, `${shadowed}#/structure/a.b.many?field=${part}`);
        const at = await place();
        assert.ok(at > 0 && at < 1, `${part} is at ${at}`);
      }
      await tab.setViewport({ width: 320, height: 720 });
      await load(tab, `${long}#/structure/lo.s?field=${LONG_NAME}`);
      assert.ok((await place()) > 0);
      await tab.setViewport({ width: 1280, height: 860 });
      const { identifier } = await tab.evaluateOnNewDocument(() =>
        new MutationObserver((changes, observer) => {
          if (!document.querySelector('.chosen')) return;
          observer.disconnect();
          scrollTo(0, 0);
        }).observe(document, { childList: true, subtree: true }),
      );
      await load(tab, `${shadowed}#/structure/a.b.many?field=f150`);
      await tab.removeScriptToEvaluateOnNewDocument(identifier);
      assert.ok((await place()) > 1);
    });

    test('hostile texts are shown and run nothing', async () => {
      await load(tab, hostile);
      const names = await tab.$$eval('.tree a', (links) =>
        links.map((link) => link.getAttribute('href')),
      );
      for (const address of ['#/', ...names, '#/search/script', '#/search/%3Cscript']) {
        await follow(tab, address);
        const { attacked, elements } = await tab.evaluate(() => ({
          attacked: 'attacked' in window,
          elements: document.querySelectorAll('main img, main script, main b i').length,
        }));
        assert.equal(attacked, false);
        assert.equal(elements, 0);
      }
      await follow(tab, names[0]);
      assert.ok((await text('main')).includes(HOSTILE_TEXTS[0].slice(0, 20)));
      await follow(
        tab,
        names.find((one) => one.includes(encodeURIComponent('\u202eevil'))),
      );
      assert.match(await tab.title(), /^⟨U\+202E⟩evil⟨U\+2066⟩⟨U\+0000⟩/);
      await screenshot(tab, `${name}-hostile`);
      assert.ok((await width()) <= 1280, String(await width()));
    });

    test('the browser refuses every request, even one that a script of the page tries', async () => {
      let requests = 0;
      const server = createServer((request, response) => {
        ++requests;
        response.end();
      });
      await new Promise((resolve) => server.listen(0, '127.0.0.1', resolve));
      const probe = await browser.newPage();
      await load(probe, own);
      const address = `http://127.0.0.1:${server.address().port}/`;
      const isRefused = await probe.evaluate(
        (url) =>
          fetch(url, { mode: 'no-cors' }).then(
            () => false,
            () => true,
          ),
        address,
      );
      await probe.evaluate((url) => {
        const image = document.createElement('img');
        image.src = url;
        document.body.append(image);
        return new Promise((resolve) => (image.onerror = resolve));
      }, address);
      await probe.close();
      server.close();
      assert.ok(isRefused);
      assert.equal(requests, 0);
    });

    if (name === 'chromium') {
      test('print shows the page without the frame', async () => {
        await load(tab, own + KINDS.operation);
        await tab.emulateMediaType('print');
        const display = (selector) => tab.$eval(selector, (one) => getComputedStyle(one).display);
        assert.deepEqual([await display('.bar'), await display('.sidebar')], ['none', 'none']);
        assert.notEqual(await display('main'), 'none');
        await screenshot(tab, `${name}-print`);
        await load(tab, shadowed + '#/structure/a.b.many');
        assert.equal(
          await tab.$eval('main tbody tr:last-child', (row) => row.innerText.trim()),
          '150 more',
        );
        await load(tab, shadowed + '#/structure/a.b.many?field=f260');
        assert.equal(await tab.$eval('main tbody tr', (row) => row.innerText.trim()), '200 before');
        await tab.emulateMediaType(null);
      });

      test('without scripts there is a table of contents', async () => {
        const still = await browser.newPage();
        await still.setJavaScriptEnabled(false);
        await still.goto(own);
        const visible = await still.evaluate(() => document.body.innerText);
        assert.match(visible, /needs JavaScript/);
        assert.match(visible, /component com\.orvane\.zelk\.metadata\s+package.*service source/s);
        assert.doesNotMatch(visible, /Reading the page/);
        await screenshot(still, `${name}-no-script`);
        await still.setViewport({ width: 320, height: 720 });
        for (const page of [own, shadowed, hostile]) {
          await still.goto(page);
          const wide = await still.evaluate(() => document.scrollingElement.scrollWidth);
          assert.ok(wide <= 320, `${page} is ${wide} wide`);
        }
        await screenshot(still, `${name}-no-script-narrow`);
        const shown = await still.evaluate(() => document.title + document.body.innerText);
        assert.match(shown, /⟨U\+202E⟩evil⟨U\+2066⟩⟨U\+0000⟩/);
        assert.doesNotMatch(shown, /[\u202e\u2066\u2028]/);
        await still.goto(shadowed);
        const failed = await still.evaluate(() => document.body.innerText);
        assert.match(failed, /Files that do not load.*nowhere\.json: No such file/s);
        await still.close();
      });
    }
  });
}

describe('the page', { concurrency: 2 }, () => Object.keys(BROWSERS).forEach(testIn));
