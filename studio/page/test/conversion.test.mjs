// Export and import in a real browser, on the page as any web host would serve it.
import assert from 'node:assert/strict';
import {execFileSync} from 'node:child_process';
import {mkdtempSync, readFileSync, rmSync, truncateSync, writeFileSync} from 'node:fs';
import {tmpdir} from 'node:os';
import {join} from 'node:path';
import {after, afterEach, before, describe, test} from 'node:test';
import {brokenRules, builtPage, openStudio, pixelsOf, startTestBrowser, startServer, tool, typeStyle, whenDrawn} from './browser.mjs';

const folder = mkdtempSync(join(tmpdir(), 'conversion-'));
const inFolder = (name) => join(folder, name);
const kMagenta = [255, 0, 200];
const roads = JSON.stringify(['highway', 'cityhighway', 'nationalway', 'provincialway', 'arterial'].map((featureType) =>
  ({featureType, elementType: 'geometry.fill', stylers: {color: '#ff00c8'}})), null, 1);
const markup = '<img src=x onerror="window.hit=1">';

let started;
let host;
let page;
let heard;
before(async () => {
  writeFileSync(inFolder('big.json'), '');
  truncateSync(inFolder('big.json'), 17 << 20);
  const site = inFolder('site');
  execFileSync(tool, ['studio', '--page', builtPage, '--build-site', site]);
  host = await startServer('python3', ['-u', '-m', 'http.server', '--bind', '127.0.0.1', '--directory', site, '0'], 'ignore');
  started = await startTestBrowser();
  const withoutPickers = () => ['showOpenFilePicker', 'showSaveFilePicker'].forEach((name) => delete window[name]);
  ({page, heard} = await openStudio({...started, address: host.address}, {init: withoutPickers}));
});
after(async () => {
  await started?.close();
  await host?.close();
  rmSync(folder, {recursive: true});
});
afterEach(() => page.evaluate(() => document.querySelectorAll('dialog').forEach((dialog) => dialog.close())));

const button = (name) => page.locator(`#${name}`);
const isReady = (name) => page.locator(`#${name}-do:enabled`).waitFor();
const loaded = () => heard.requests.filter((url) => url.endsWith('conversion.wasm')).length;
const editorText = () => page.evaluate(() => window.studio.editor.text);

/** What the command writes about the style that is open. */
function byCommand(command, text, legend, ...words) {
  const [file, report] = ['night.json', 'report.json'].map(inFolder);
  writeFileSync(file, text);
  const style = execFileSync(tool, [command, file, '--mapping', join(builtPage, 'examples'), '--legend', legend, '--quiet', '--report', report, ...words]);
  return {style: `${style}`, losses: JSON.parse(readFileSync(report, 'utf8')).losses};
}

async function openExport(legend) {
  await button('export-open').click();
  await button('export-legend').selectOption(legend);
  await isReady('export');
}

async function saveExport() {
  const download = page.waitForEvent('download');
  await button('export-do').click();
  const saved = await download;
  await saved.saveAs(inFolder('exported.json'));
  return {name: saved.suggestedFilename(), text: readFileSync(inFolder('exported.json'), 'utf8')};
}

async function chooseImport(file) {
  if (!await page.locator('#import').isVisible()) await button('import-open').click();
  const chooser = page.waitForEvent('filechooser');
  await button('import-choose').click();
  await (await chooser).setFiles(file);
}

const fileOf = (text, name = 'map.json') => ({name, mimeType: 'application/json', buffer: Buffer.from(text)});

describe('export', () => {
  test('loads its module only when it is asked for', async () => {
    assert.equal(loaded(), 0);
    await openExport('studio');
    assert.ok(loaded() > 0);
  });

  test('downloads what the command writes, and shows what is lost', async () => {
    await typeStyle(page, roads);
    await openExport('openmaptiles');
    const {style, losses} = byCommand('export', roads, 'openmaptiles');
    assert.equal(await page.locator('#export-losses > li').count(), losses.length);
    assert.match(await button('export-losses').textContent(), /fill in “Tiles”/);
    assert.deepEqual(await saveExport(), {name: 'night-maplibre.json', text: style});
    await page.locator('#export-said', {hasText: 'night-maplibre.json is downloaded'}).waitFor();
  });

  test('writes the walls and the addresses that are asked for', async () => {
    await openExport('openmaptiles');
    await page.locator('#export > details > summary').click();
    await button('export-raised').check();
    await button('export-tiles').fill('https://example.org/tiles.json');
    await button('export-tiles').blur();
    await page.locator('#export-losses', {hasNotText: 'fill in “Tiles”'}).waitFor();
    await isReady('export');
    const {style} = byCommand('export', roads, 'openmaptiles', '--raised', '--tiles', 'https://example.org/tiles.json');
    assert.equal((await saveExport()).text, style);
    await button('export-raised').uncheck();
    await button('export-tiles').fill('');
  });

  test('of a broken style says what is broken, and saves nothing', async () => {
    await page.evaluate(() => window.studio.editor.set('[{'));
    await page.locator('#broken').waitFor();
    await button('export-open').click();
    await page.locator('#export-problem', {hasText: 'night.json:1:'}).waitFor();
    assert.ok(await button('export-do').isDisabled());
    await button('export-close').click();
    await typeStyle(page, roads);
  });

  test('is reached, left and answered by keyboard', async () => {
    await button('export-open').focus();
    await page.keyboard.press('Enter');
    await isReady('export');
    const reached = new Set();
    for (let i = 0; i < 12; ++i) {
      await page.keyboard.press('Tab');
      reached.add(await page.evaluate(() => document.activeElement.id));
    }
    for (const id of ['export-legend', 'export-raised', 'export-losses', 'export-do', 'export-close']) assert.ok(reached.has(id), `${id} in ${[...reached]}`);
    await page.keyboard.press('Escape');
    assert.equal(await page.evaluate(() => document.activeElement.id), 'export-open');
  });
});

describe('import', () => {
  test('of an exported style fills the editor and draws the map; "undo" leads back', async () => {
    await typeStyle(page, roads);
    await openExport('studio');
    const exported = await saveExport();
    await button('export-close').click();
    await typeStyle(page, '[ ]');
    assert.equal(await pixelsOf(page, kMagenta), 0);
    await chooseImport(inFolder('exported.json'));
    await isReady('import');
    assert.equal(await button('import-legend').inputValue(), 'studio', 'the legend that the file names');
    const {style, losses} = byCommand('import', exported.text, 'studio');
    assert.equal(await page.locator('#import-losses > li').count(), losses.length);
    assert.equal(await editorText(), '[ ]');
    await button('import-do').click();
    await page.waitForFunction((text) => window.studio.editor.text === text && window.studio.settled === text, style);
    assert.equal(await button('file').textContent(), 'exported-imported.json');
    await whenDrawn(page);
    assert.ok(await pixelsOf(page, kMagenta) > 500);
    await page.evaluate(() => window.studio.editor.view.focus());
    await page.keyboard.press('Control+z');
    assert.equal(await editorText(), '[ ]');
  });

  test('leaves what was typed in the list of examples', async () => {
    await typeStyle(page, roads);
    await chooseImport(fileOf('{"layers": []}'));
    await button('import-do').click();
    await page.waitForFunction(() => window.studio.file.name === 'map-imported.json');
    await button('examples').selectOption({label: 'your previous style'});
    assert.equal(await editorText(), roads);
  });

  test('is offered for a map style that is opened', async () => {
    const before = await editorText();
    const chooser = page.waitForEvent('filechooser');
    await button('open').click();
    await (await chooser).setFiles(inFolder('exported.json'));
    await isReady('import');
    assert.equal(await editorText(), before);
  });

  test('follows another choice of tiles', async () => {
    const layer = {id: 'a', type: 'fill', 'source-layer': 'water', paint: {'fill-color': '#123456'}};
    await button('import-open').click();
    await button('import-legend').selectOption('studio');
    await chooseImport(fileOf(JSON.stringify({layers: [layer]})));
    await page.locator('#import-losses', {hasText: 'draw nothing that the legend covers'}).waitFor();
    await button('import-legend').selectOption('openmaptiles');
    await page.locator('#import-losses', {hasNotText: 'draw nothing that the legend covers'}).waitFor();
    await isReady('import');
  });
});

describe('a file that cannot be imported', () => {
  const files = [
    ['words', fileOf('hello'), /map\.json:1:1: is not JSON/],
    ['a style file', fileOf('[]'), /no list "layers"/],
    ['a file that nests deep', fileOf(`{"layers": ${'['.repeat(100_000)}`), /map\.json:1:/],
    ['a file that is too large', inFolder('big.json'), /big\.json is larger than 16 MB/],
    ['markup', fileOf('hello', `${markup.replaceAll('/', '')}.json`), /onerror="window\.hit=1">\.json:1:1/],
  ];
  for (const [name, file, why] of files) {
    test(`${name}: the dialog says so, and all is kept`, async () => {
      const before = await editorText();
      await chooseImport(file);
      await page.locator('#import-problem:not(:empty)').waitFor();
      assert.match(await button('import-problem').textContent(), why);
      assert.ok(await button('import-do').isDisabled());
      assert.equal(await editorText(), before);
    });
  }

  test('names with markup are text', async () => {
    await chooseImport(fileOf(JSON.stringify({layers: [{id: markup, type: 'fill', 'source-layer': markup, paint: {[markup]: markup}}]})));
    await page.locator('#import-losses', {hasText: markup}).waitFor();
    assert.equal(await page.locator('dialog img').count(), 0);
    assert.equal(await page.evaluate(() => window.hit), undefined);
  });

  test('where the module does not come, the dialog says so, and the next time is a new one', async () => {
    const [kept, complaints] = [await editorText(), heard.errors.length];
    await page.route('**/conversion.wasm', (route) => route.abort());
    await chooseImport(fileOf('{"layers": []}'));
    await page.locator('#import-problem', {hasText: 'cannot be converted here'}).waitFor();
    await page.unroute('**/conversion.wasm');
    heard.errors.splice(complaints); // of the browser, that the file did not come
    await chooseImport(fileOf('{"layers": []}'));
    await isReady('import');
    assert.equal(await editorText(), kept);
  });
});

test('nobody but the page\'s own host is asked, and nothing is complained of', () => {
  assert.deepEqual(heard.requests.filter((url) => !url.startsWith(host.address) && !url.startsWith(`blob:${host.address}`)), []);
  assert.deepEqual(heard.errors, []);
});

for (const theme of ['light', 'dark']) {
  test(`both dialogs meet the rules for everybody, in the ${theme} theme`, async () => {
    await page.evaluate((name) => window.studio.setTheme(name), theme);
    await openExport('openmaptiles');
    assert.deepEqual(await brokenRules(page), []);
    await button('export-close').click();
    await chooseImport(inFolder('exported.json'));
    await isReady('import');
    assert.deepEqual(await brokenRules(page), []);
    await chooseImport(fileOf('hello'));
    await page.locator('#import-problem:not(:empty)').waitFor();
    assert.deepEqual(await brokenRules(page), []);
  });
}
