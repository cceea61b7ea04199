// A style that a server edits, in a real browser: the page and another editor at the same time.
import assert from 'node:assert/strict';
import {execFileSync} from 'node:child_process';
import {mkdtempSync, readdirSync, readFileSync, renameSync, rmSync, writeFileSync} from 'node:fs';
import {createServer} from 'node:http';
import {tmpdir} from 'node:os';
import {join} from 'node:path';
import {after, afterEach, before, beforeEach, describe, test} from 'node:test';
import {openStudio, pixelsOf, startTestBrowser, startServer, startStudio, tool, builtPage, whenDrawn} from './browser.mjs';

const kMagenta = [255, 0, 200];
const roads = (color) => `${JSON.stringify(['highway', 'cityhighway', 'nationalway', 'provincialway', 'arterial'].map((featureType) =>
  ({featureType, elementType: 'geometry.fill', stylers: {color}})), null, 1)}\n`;

const folder = mkdtempSync(join(tmpdir(), 'studio-'));
const file = join(folder, 'night.json');
const onDisk = () => readFileSync(file, 'utf8');
let started;
let studio;

before(async () => {
  writeFileSync(file, roads('#445566'));
  started = await startTestBrowser([file]);
  studio = await openStudio(started);
});
after(async () => {
  await started?.close();
  rmSync(folder, {recursive: true});
});
beforeEach(async () => {
  writeFileSync(file, roads('#445566'));
  await studio.page.evaluate(() => {
    localStorage.clear();
    return window.studio.openDisk();
  });
  await hasText(studio.page, roads('#445566'));
  assert.equal(await conflict(studio.page).isVisible(), false);
});
afterEach(async () => {
  assert.deepEqual(studio.heard.errors.filter((text) => !/409|Conflict/.test(text)), []);
  const strange = studio.heard.requests.filter((url) => !url.startsWith(started.address) && !url.startsWith(`blob:${started.address}`));
  assert.deepEqual(strange, [], 'requests to others');
});

const textIn = (page) => page.evaluate(() => window.studio.editor.text);
const hasText = (page, text) => page.waitForFunction((wanted) => window.studio.editor.text === wanted && window.studio.text === wanted, text);
const type = (page, text) => page.evaluate((wanted) => window.studio.editor.update(wanted), text);
const conflict = (page) => page.locator('#conflict');

describe('the file on the disk', () => {
  test('is what the page opens, and what it follows', async () => {
    const {page} = studio;
    assert.equal(await textIn(page), onDisk());
    assert.equal(await pixelsOf(page, kMagenta), 0);
    writeFileSync(file, roads('#ff00c8'));
    await hasText(page, roads('#ff00c8'));
    await page.waitForFunction(() => window.studio.settled === window.studio.text);
    await whenDrawn(page);
    assert.ok(await pixelsOf(page, kMagenta) > 500);
    writeFileSync(join(folder, 'new'), roads('#123456'));
    renameSync(join(folder, 'new'), file);
    await hasText(page, roads('#123456'));
    assert.equal(await conflict(page).isVisible(), false);
  });

  test('is saved on a key, whole, with nothing left beside it', async () => {
    const {page} = studio;
    await type(page, roads('#abcdef'));
    assert.match(await page.locator('#file').textContent(), /night\.json \(not saved\)/);
    await page.evaluate(() => window.studio.editor.view.focus());
    await page.keyboard.press('Control+s');
    await page.locator('#notice', {hasText: 'night.json is saved'}).waitFor();
    assert.equal(onDisk(), roads('#abcdef'));
    assert.deepEqual(readdirSync(folder), ['night.json']);
    assert.equal(await page.locator('#file').textContent(), 'night.json');
    await type(page, roads('#fedcba'));
    await page.locator('#save').click();
    await page.waitForFunction(() => !window.studio.disk.isChanged);
    assert.equal(onDisk(), roads('#fedcba'));
    assert.equal(await conflict(page).isVisible(), false);
  });

  test('keeps its line ends', async () => {
    const {page} = studio;
    writeFileSync(file, roads('#445566').replaceAll('\n', '\r\n'));
    await page.waitForFunction(() => window.studio.disk.lineEnd === '\r\n');
    assert.equal(await page.evaluate(() => window.studio.disk.isChanged), false);
    await type(page, roads('#abcdef'));
    await page.locator('#save').click();
    await page.waitForFunction(() => !window.studio.disk.isChanged);
    assert.equal(onDisk(), roads('#abcdef').replaceAll('\n', '\r\n'));
  });

  test('that is gone can be written again', async () => {
    const {page} = studio;
    rmSync(file);
    await page.locator('#notice', {hasText: 'was deleted from disk'}).waitFor();
    assert.equal(await textIn(page), roads('#445566'));
    await page.locator('#save').click();
    await page.locator('#notice', {hasText: 'is saved'}).waitFor();
    assert.equal(onDisk(), roads('#445566'));
  });

  test('stays as it is when an example is opened, or a link', async () => {
    const {page} = studio;
    await type(page, roads('#abcdef'));
    await page.locator('#examples').selectOption('pale.json');
    await page.waitForFunction(() => window.studio.file.name === 'pale.json');
    writeFileSync(file, roads('#111111'));
    await page.waitForTimeout(600);
    assert.equal(await page.evaluate(() => window.studio.file.name), 'pale.json');
    assert.equal(await conflict(page).isVisible(), false);
    await page.locator('#examples').selectOption({label: 'night.json on disk'});
    await hasText(page, roads('#abcdef')); // what was typed before
    await conflict(page).waitFor();
    assert.equal(onDisk(), roads('#111111'));
    await page.locator('#share').click();
    await page.waitForFunction(() => location.hash.startsWith('#style='));
    const other = await openStudio(started, {fragment: await page.evaluate(() => location.hash)});
    assert.equal(await textIn(other.page), roads('#abcdef'));
    assert.equal(await other.page.evaluate(() => window.studio.onDisk), false);
    await other.profile.close();
    await page.evaluate(() => history.replaceState(null, '', location.pathname));
  });

  test('comes back, and what was typed into an example is kept', async () => {
    const {page} = studio;
    await page.locator('#examples').selectOption('pale.json');
    await page.waitForFunction(() => window.studio.file.name === 'pale.json');
    await type(page, '[ ]');
    await page.locator('#examples').selectOption({label: 'night.json on disk'});
    await hasText(page, roads('#445566'));
    await page.locator('#examples').selectOption({label: 'your previous style'});
    await hasText(page, '[ ]');
    assert.equal(await page.evaluate(() => window.studio.file.name), 'pale.json');
    assert.equal(onDisk(), roads('#445566'));
  });
});

describe('two who write', () => {
  // Something typed here, something else written there.
  async function disagree(page) {
    await type(page, roads('#aaaaaa'));
    writeFileSync(file, roads('#bbbbbb'));
    await conflict(page).waitFor();
    assert.match(await page.locator('#conflict-text').textContent(), /changed on disk and here/);
    assert.equal(await textIn(page), roads('#aaaaaa'));
  }

  test('are asked, and mine can be kept', async () => {
    const {page} = studio;
    await disagree(page);
    await page.locator('#keep-mine').click();
    assert.equal(await conflict(page).isVisible(), false);
    assert.equal(onDisk(), roads('#bbbbbb')); // until it is saved
    await page.locator('#save').click();
    await page.locator('#notice', {hasText: 'is saved'}).waitFor();
    assert.equal(onDisk(), roads('#aaaaaa'));
  });

  test('are asked, and the file can be taken, and that undone', async () => {
    const {page} = studio;
    await disagree(page);
    await page.locator('#take-theirs').click();
    await hasText(page, roads('#bbbbbb'));
    assert.equal(await page.evaluate(() => window.studio.disk.isChanged), false);
    await page.keyboard.press('Control+z');
    await hasText(page, roads('#aaaaaa'));
  });

  test('see the difference, as text and on the map', async () => {
    const {page} = studio;
    await disagree(page);
    await page.locator('#show-difference').click();
    await page.locator('#difference-text', {hasText: 'On the map 5 values differ.'}).waitFor();
    const shown = await page.locator('#difference .texts').evaluate(
      (host) => [...host.firstChild.shadowRoot.querySelectorAll('.cm-content')].map((each) => each.textContent));
    assert.equal(shown.length, 2);
    assert.match(shown[0], /#bbbbbb/);
    assert.match(shown[1], /#aaaaaa/);
    await page.keyboard.press('Escape');
    assert.ok(await conflict(page).isVisible());
    await page.locator('#show-difference').click();
    await page.locator('#difference-theirs').click();
    await hasText(page, roads('#bbbbbb'));
  });

  test('are asked where saving finds another file, and then "mine" is saved at once', async () => {
    const {page} = studio;
    await page.route('**/api/events', (route) => route.abort()); // the news is late
    await page.reload();
    await page.waitForFunction(() => window.studio?.settled !== undefined && window.studio.disk);
    studio.heard.errors.length = 0;
    await type(page, roads('#aaaaaa'));
    writeFileSync(file, roads('#bbbbbb'));
    await page.locator('#save').click();
    await conflict(page).waitFor();
    assert.equal(onDisk(), roads('#bbbbbb'));
    await page.locator('#keep-mine').click();
    await page.locator('#notice', {hasText: 'is saved'}).waitFor();
    assert.equal(onDisk(), roads('#aaaaaa'));
    studio.heard.errors.length = 0;
    await page.unroute('**/api/events');
    await page.reload();
    await page.waitForFunction(() => window.studio?.settled !== undefined && window.studio.disk);
  });

  test('are not asked where both have written the same', async () => {
    const {page} = studio;
    await type(page, roads('#cccccc'));
    writeFileSync(file, roads('#cccccc'));
    await page.waitForFunction(() => !window.studio.disk.isChanged);
    assert.equal(await conflict(page).isVisible(), false);
  });

  test('find after a reload what was typed, and the question', async () => {
    const {page, profile} = studio;
    await type(page, roads('#aaaaaa'));
    await page.reload();
    await page.waitForFunction(() => window.studio?.settled !== undefined && window.studio.disk);
    await hasText(page, roads('#aaaaaa'));
    assert.equal(await conflict(page).isVisible(), false);
    assert.match(await page.locator('#file').textContent(), /not saved/);
    await page.close();
    writeFileSync(file, roads('#bbbbbb'));
    studio = await openStudio(started, {context: profile});
    await hasText(studio.page, roads('#aaaaaa'));
    await conflict(studio.page).waitFor();
    assert.equal(onDisk(), roads('#bbbbbb'));
  });
});

describe('the server', () => {
  test('is not reached from the page of another site', async () => {
    const evil = createServer((request, response) => response.end('<!doctype html><title>evil</title>')).listen(0, '127.0.0.1');
    await new Promise((resolve) => evil.once('listening', resolve));
    const page = await studio.profile.newPage();
    await page.goto(`http://127.0.0.1:${evil.address().port}/`);
    const reached = await page.evaluate(async (address) => {
      const read = (path, options) => fetch(address + path, options).then((answer) => answer.text(), () => 'refused');
      const put = {method: 'PUT', body: '{"text": "[]", "version": ""}'};
      const script = (path) => new Promise((resolve) => {
        const made = document.createElement('script');
        made.onload = () => resolve('loaded');
        made.onerror = () => resolve('refused');
        made.src = address + path;
        document.head.append(made);
      });
      const opaque = await fetch(`${address}api/token`, {mode: 'no-cors'}).then(({type}) => type, () => 'refused');
      return [await read('api/token'), await read('api/style'), await read('api/style', put), await script('api/token'),
        await script('page.js'), opaque];
    }, started.address);
    assert.deepEqual(reached, Array(6).fill('refused'));
    assert.equal(onDisk(), roads('#445566'));
    await page.close();
    evil.close();
  });

  test('that goes away and comes back is reported, and nothing is lost', async () => {
    const own = await startStudio(file);
    const {page, profile} = await openStudio({...started, address: own.address});
    await own.close();
    await page.locator('#notice', {hasText: 'does not answer'}).waitFor();
    await type(page, roads('#aaaaaa'));
    await page.locator('#save').click();
    await page.locator('#notice', {hasText: 'not saved: the server does not answer'}).waitFor();
    const again = await startServer(tool, ['studio', '--port', new URL(own.address).port, '--page', builtPage, file]);
    await page.locator('#notice', {hasText: 'answers again'}).waitFor();
    await page.locator('#save').click(); // with the token of the new server
    await page.locator('#notice', {hasText: 'is saved'}).waitFor();
    assert.equal(onDisk(), roads('#aaaaaa'));
    await profile.close();
    await again.close();
  });

  test('may give a file of any name: it is text in the page', async () => {
    const name = '"><img src=x onerror="window.hit=1">\u202e\n.json';
    writeFileSync(join(folder, name), roads('#445566'));
    const own = await startStudio(join(folder, name));
    const {page, profile, heard} = await openStudio({...started, address: own.address});
    assert.ok((await page.locator('#file').textContent()).startsWith(name));
    await type(page, roads('#aaaaaa'));
    writeFileSync(join(folder, name), roads('#bbbbbb'));
    await conflict(page).waitFor();
    await page.locator('#show-difference').click();
    await page.locator('#difference-theirs').click();
    assert.deepEqual(await page.evaluate(() => [window.hit ?? null, document.querySelectorAll('body img').length]), [null, 0]);
    assert.deepEqual(heard.errors, []);
    await profile.close();
    await own.close();
    rmSync(join(folder, name));
  });

  test('gives the mapping, too, and the page follows it', async () => {
    const mapping = join(folder, 'CustomIndex');
    const types = Object.keys(JSON.parse(readFileSync(join(builtPage, 'examples/CustomIndex'), 'utf8')));
    const withIds = (first) => JSON.stringify(Object.fromEntries(types.map((type, i) => [type, [first + i]])));
    writeFileSync(mapping, withIds(7000));
    const own = await startStudio(file, '--mapping', folder);
    const {page, profile} = await openStudio({...started, address: own.address});
    await type(page, roads('#ff00c8'));
    await page.waitForFunction(() => window.studio.settled === window.studio.text);
    await whenDrawn(page);
    assert.ok(await pixelsOf(page, kMagenta) > 300);
    const ids = await page.evaluate(() => Object.keys(window.studio.answers.styles).map(Number));
    assert.ok(ids.every((id) => id >= 7000 && id < 7100), `${ids}`);
    writeFileSync(mapping, withIds(9000));
    await page.waitForFunction(() => Object.keys(window.studio.answers.styles).includes('9000'));
    await page.evaluate(() => window.studio.explainAt({x: 300, y: 200}));
    assert.ok(await page.evaluate(() => window.studio.picked.features[0].id) >= 9000);
    writeFileSync(mapping, '{');
    await page.locator('#notice', {hasText: 'the previous mapping is kept'}).waitFor();
    assert.ok(await pixelsOf(page, kMagenta) > 300);
    await profile.close();
    await own.close();
    rmSync(mapping);
  });

  test('is not needed: the written site works from any web host', async () => {
    const site = join(folder, 'site');
    execFileSync(tool, ['studio', '--page', builtPage, '--build-site', site]);
    const host = await startServer('python3', ['-u', '-m', 'http.server', '--bind', '127.0.0.1', '--directory', site, '0'], 'ignore');
    const {page, profile, heard} = await openStudio({...started, address: host.address});
    assert.match(await textIn(page), /featureType/);
    assert.equal(await page.evaluate(() => window.studio.onDisk), false);
    assert.deepEqual(heard.errors, []);
    await profile.close();
    await host.close();
    rmSync(site, {recursive: true});
  });
});
