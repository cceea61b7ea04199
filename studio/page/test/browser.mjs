// A browser on the built page, for tests and for pictures.
import {existsSync} from 'node:fs';
import {dirname, join} from 'node:path';
import {fileURLToPath} from 'node:url';
import {chromium} from 'playwright-core';
import {pageServer} from '../serve.mjs';

export const builtPage = process.env.CUSTOMSTYLE_STUDIO ?? join(dirname(fileURLToPath(import.meta.url)), '../../../build/studio');
const kPatience = 60_000; // milliseconds; software rendering on a busy machine takes its time

/** Starts a server and a browser; `close` ends both. */
export async function startBrowser() {
  if (!existsSync(join(builtPage, 'page.js'))) throw new Error(`${builtPage}: no page; run script/studio --build`);
  const server = pageServer(builtPage).listen(0, '127.0.0.1');
  await new Promise((resolve) => server.once('listening', resolve));
  const browser = await chromium.launch({executablePath: '/usr/bin/chromium',
    args: ['--enable-unsafe-swiftshader', '--no-sandbox', '--disable-dev-shm-usage']});
  const address = `http://127.0.0.1:${server.address().port}/`;
  const close = async () => {
    await browser.close();
    server.close();
  };
  return {browser, address, close};
}

/** Opens the page in a fresh profile and waits for its first picture. Complaints of the page are collected. */
export async function openStudio({browser, address}, {size = {width: 1000, height: 640}, fragment = '', context, init, scheme = 'light'} = {}) {
  const profile = context ?? (await browser.newContext({viewport: size, colorScheme: scheme}));
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
