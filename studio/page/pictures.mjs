// Pictures of the example styles and of the studio itself: node pictures.mjs FOLDER [NAME...]
import {writeFileSync} from 'node:fs';
import {join} from 'node:path';
import {compressed, kLargest, views} from './shots.mjs';
import {openStudio, startBrowser, whenDrawn} from './test/browser.mjs';

const [folder, ...wanted] = process.argv.slice(2);
const styles = ['night', 'pale', 'transit', 'main-roads', 'no-labels'];
const pictures = [
  ...styles.map((style) => ({name: `${style}-city`, style, view: 'city'})),
  {name: 'night-region', style: 'night', view: 'region'}, {name: 'night-streets', style: 'night', view: 'streets'},
  {name: 'night-3d', style: 'night', view: 'walls'}, {name: 'pale-streets', style: 'pale', view: 'streets'},
  {name: 'studio', style: 'night', view: 'city', isWhole: true}, {name: 'studio-dark', style: 'pale', view: 'city', isWhole: true, isDark: true},
  {name: 'compare', style: 'night', view: 'city', isWhole: true, isCompared: true},
];

async function prepare(page, {style, view, isCompared, isDark}) {
  await page.evaluate(async ([name, camera, dark]) => {
    const {studio} = window;
    studio.setTheme(dark ? 'dark' : 'light');
    await studio.load(`${name}.json`, await (await fetch(`examples/${name}.json`)).text());
    studio.goToCamera(camera);
  }, [style, views[view], Boolean(isDark)]);
  await page.waitForFunction(() => window.studio.settled === window.studio.text);
  if (isCompared) {
    await page.locator('#compare-with').selectOption('plain');
    await page.locator('#compare').check();
    await page.locator('[data-panel="effects"]').click();
    await page.waitForFunction(() => window.studio.comparison.before && window.studio.effect?.difference);
    await page.evaluate(() => new Promise((resolve) => window.studio.comparison.before.whenDrawn(resolve)));
  }
  await whenDrawn(page);
}

const started = await startBrowser();
const {page} = await openStudio(started, {size: {width: 1280, height: 800}});
let total = 0;
for (const picture of pictures.filter(({name}) => wanted.length === 0 || wanted.includes(name))) {
  await prepare(page, picture);
  const png = await (picture.isWhole ? page.screenshot() : page.locator('#maps').screenshot());
  if (picture.isCompared) await page.locator('#compare').uncheck();
  const bytes = await compressed(page, png);
  if (!bytes) throw new Error(`${picture.name}: larger than ${kLargest} bytes at any quality`);
  writeFileSync(join(folder, `${picture.name}.webp`), bytes);
  total += bytes.length;
  console.log(`${picture.name}.webp ${bytes.length}`);
}
await started.close();
console.log(`${total} bytes together`);
