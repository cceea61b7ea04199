// A browser on the built page, for tests and for pictures.
import {spawn} from 'node:child_process';
import {existsSync, readFileSync} from 'node:fs';
import {createRequire} from 'node:module';
import {dirname, join} from 'node:path';
import {createInterface} from 'node:readline';
import {fileURLToPath} from 'node:url';
import {chromium} from 'playwright-core';

const build = join(dirname(fileURLToPath(import.meta.url)), '../../../build');
export const builtPage = process.env.CUSTOMSTYLE_STUDIO ?? join(build, 'studio');
export const tool = process.env.CUSTOMSTYLE_TOOL ?? join(build, 'release/customstyle');
// Chromium without the windows around a page: opening one takes a quarter less work. Any other Chromium will do.
const kBrowser = process.env.CUSTOMSTYLE_BROWSER ?? '/usr/bin/chromium-headless-shell';
const kPatience = 60_000; // milliseconds; software rendering on a busy machine takes its time

/** Starts a program that says in its first line at which address it listens. */
export async function startServer(program, words, stderr = 'inherit') {
  const server = spawn(program, words, {stdio: ['ignore', 'pipe', stderr]});
  const ended = new Promise((resolve) => server.once('exit', resolve));
  const lines = createInterface(server.stdout)[Symbol.asyncIterator]();
  const first = await Promise.race([lines.next(), ended.then(() => ({}))]);
  const address = /http:\/\/[\d.:]+\//.exec(first.value ?? '')?.[0];
  if (!address) throw new Error(`${program} ${words.join(' ')}: does not listen`);
  return {address, close: () => (server.kill('SIGINT'), ended)};
}

/** The studio's own server, with these words more. */
export const startStudio = (...words) => startServer(tool, ['studio', '--port', '0', '--page', builtPage, ...words]);

// A test asks what the map shows, not how finely: a quarter of the pixels, the page around the map drawn directly, and
// modules compiled once, as no page of a test lives long enough for more.
const kFrugal = {scale: 0.5, switches: ['--disable-gpu-compositing', '--disable-gpu-rasterization', '--js-flags=--liftoff-only']};

/** The same as startBrowser, for tests: with less work for the processor. */
export const startTestBrowser = (words = []) => startBrowser(words, kFrugal);

/** Starts a server and a browser; `close` ends both. @param {string[]} words for the server */
export async function startBrowser(words = [], {scale = 1, switches = []} = {}) {
  if (!existsSync(join(builtPage, 'page.js'))) throw new Error(`${builtPage}: no page; run script/studio --build`);
  if (!existsSync(tool)) throw new Error(`${tool}: no such tool; build it, or name it in CUSTOMSTYLE_TOOL`);
  if (!existsSync(kBrowser)) throw new Error(`${kBrowser}: no such browser; run script/setup studio, or name one in CUSTOMSTYLE_BROWSER`);
  const server = await startStudio(...words);
  const browser = await chromium.launch({executablePath: kBrowser,
    args: ['--enable-unsafe-swiftshader', '--no-sandbox', '--disable-dev-shm-usage', ...switches]});
  const close = async () => {
    await browser.close();
    await server.close();
  };
  return {browser, address: server.address, scale, close};
}

/** Opens the page in a fresh profile and waits for its first picture. Complaints of the page are collected. */
export async function openStudio({browser, address, scale}, {size = {width: 1000, height: 640}, fragment = '', context, init, scheme = 'light'} = {}) {
  const profile = context ?? (await browser.newContext({viewport: size, colorScheme: scheme, deviceScaleFactor: scale}));
  const page = await profile.newPage();
  page.setDefaultTimeout(kPatience);
  const heard = {errors: [], requests: []};
  page.on('pageerror', (error) => heard.errors.push(error.message));
  page.on('console', (line) => line.type() === 'error' && !/status of 404/.test(line.text()) && heard.errors.push(line.text()));
  page.on('request', (request) => heard.requests.push(request.url()));
  if (init) await page.addInitScript(init);
  await page.goto(address + fragment);
  await page.waitForFunction(() => window.studio?.timings.first && window.studio.settled !== undefined);
  return {page, profile, heard};
}

/** Waits until the map has drawn everything. */
export const whenDrawn = (page) => page.evaluate(() => new Promise((resolve) => window.studio.map.whenDrawn(resolve)));

/** Replaces the style in the editor, and waits until map and findings have followed. */
export async function typeStyle(page, text) {
  await page.evaluate((style) => window.studio.editor.set(style), text);
  await page.waitForFunction((style) => window.studio.text === style && window.studio.settled === style, text);
  await whenDrawn(page);
}

/** What an axe finds against the rules of accessibility on the page as it stands. */
export async function brokenRules(page) {
  if (!await page.evaluate(() => Boolean(window.axe))) await page.evaluate(readFileSync(createRequire(import.meta.url).resolve('axe-core/axe.min.js'), 'utf8'));
  return page.evaluate(async () => {
    const {violations} = await window.axe.run(document, {resultTypes: ['violations']});
    return violations.flatMap(({id, nodes}) => nodes.map(({target, failureSummary}) => `${id}: ${target} ${failureSummary}`));
  });
}

/** How many pixels of the map have a colour, give or take a little. */
export const pixelsOf = (page, [red, green, blue], near = 6) => page.evaluate(([r, g, b, reach]) => {
  const source = window.studio.map.map.getCanvas();
  const canvas = Object.assign(document.createElement('canvas'), {width: source.width, height: source.height});
  const context = canvas.getContext('2d');
  context.drawImage(source, 0, 0);
  const {data} = context.getImageData(0, 0, canvas.width, canvas.height);
  let count = 0;
  for (let i = 0; i < data.length; i += 4) {
    count += Math.abs(data[i] - r) <= reach && Math.abs(data[i + 1] - g) <= reach && Math.abs(data[i + 2] - b) <= reach;
  }
  return count;
}, [red, green, blue, near]);
