// What changes on the map between two styles, in pictures: node compare.mjs FOLDER BEFORE AFTER [VIEW...]
// Writes before, after and difference of each view; exits with 1 where a picture differs.
import {spawnSync} from 'node:child_process';
import {mkdirSync, readFileSync, writeFileSync} from 'node:fs';
import {basename, join} from 'node:path';
import {compressed, kLargest, views} from './shots.mjs';
import {openStudio, startBrowser, tool, whenDrawn} from './test/browser.mjs';

const [folder, before, after, ...wanted] = process.argv.slice(2);
const names = wanted.length > 0 ? wanted : Object.keys(views);
const unknown = names.find((name) => !views[name]);
if (!after || unknown) {
  console.error(unknown ? `unknown view "${unknown}"; the views are ${Object.keys(views).join(', ')}`
    : 'usage: script/pictures --compare FOLDER BEFORE AFTER [VIEW...]');
  process.exit(2);
}

// The command says what is wrong with a style sooner than a browser has started.
function textOf(path) {
  const {status, stderr} = spawnSync(tool, ['dump', path], {encoding: 'utf8', stdio: ['ignore', 'ignore', 'pipe']});
  if (status !== 0) {
    console.error(stderr.trim() || `${tool}: cannot be run`);
    process.exit(2);
  }
  return readFileSync(path, 'utf8');
}
const styles = {before: {name: basename(before), text: textOf(before)}, after: {name: basename(after), text: textOf(after)}};

async function shot(page, {name: style, text: styleText}, view) {
  const problem = await page.evaluate(async ([name, text, camera]) => {
    const {studio} = window;
    await studio.load(name, text);
    studio.goToCamera(camera);
    const answers = await studio.ask({method: 'answers', style: {path: name, text}});
    return answers.error ?? null;
  }, [style, styleText, views[view]]);
  if (problem) throw new Error(problem);
  await page.waitForFunction(() => window.studio.settled === window.studio.editor.text);
  await whenDrawn(page);
  return page.locator('#map').screenshot();
}

// Grey where both are the same, and the stronger the colour the more they differ; and how many pixels do.
const differenceOf = (page, ...pictures) => page.evaluate(async (texts) => {
  const [first, second] = await Promise.all(texts.map(async (text) => {
    const image = new Image();
    image.src = `data:image/png;base64,${text}`;
    await image.decode();
    const context = Object.assign(document.createElement('canvas'), {width: image.width, height: image.height}).getContext('2d');
    context.drawImage(image, 0, 0);
    return context.getImageData(0, 0, image.width, image.height);
  }));
  let count = 0;
  for (let i = 0; i < first.data.length; i += 4) {
    const distance = Math.max(...[0, 1, 2].map((part) => Math.abs(first.data[i + part] - second.data[i + part])));
    const grey = 215 + (first.data[i] + first.data[i + 1] + first.data[i + 2]) / 20;
    const color = distance > 0 ? [230, 160 - 160 * (distance / 255), 150 - 60 * (distance / 255)] : [grey, grey, grey];
    count += distance > 0;
    color.forEach((value, part) => (second.data[i + part] = value));
  }
  const canvas = Object.assign(document.createElement('canvas'), {width: first.width, height: first.height});
  canvas.getContext('2d').putImageData(second, 0, 0);
  return {count, share: count / (first.data.length / 4), png: canvas.toDataURL('image/png').split(',')[1]};
}, pictures.map((png) => png.toString('base64')));

const started = await startBrowser().catch((error) => {
  console.error(error.message);
  process.exit(2);
});
let isEqual = true;
try {
  const {page} = await openStudio(started, {size: {width: 1280, height: 800}});
  for (const view of names) {
    const pictures = {before: await shot(page, styles.before, view), after: await shot(page, styles.after, view)};
    mkdirSync(folder, {recursive: true});
    const {count, share, png} = await differenceOf(page, pictures.before, pictures.after);
    pictures.difference = Buffer.from(png, 'base64');
    for (const [kind, picture] of Object.entries(pictures)) {
      const bytes = await compressed(page, picture);
      if (!bytes) throw new Error(`${view}-${kind}: larger than ${kLargest} bytes at any quality`);
      writeFileSync(join(folder, `${view}-${kind}.webp`), bytes);
    }
    isEqual &&= count === 0;
    console.log(`${view}: ${count === 0 ? 'no pixel differs' : `${(100 * share).toFixed(1)} % of the pixels differ`}`);
  }
} catch (error) {
  console.error(error.message);
  process.exitCode = 2;
} finally {
  await started.close();
}
if (!isEqual) process.exitCode ||= 1;
