// How fast the page is in software rendering on this machine: node test/measure.mjs
import {readFileSync} from 'node:fs';
import {join} from 'node:path';
import {Component} from '../../wasm/component.mjs';
import {builtPage, openStudio, startBrowser, whenDrawn} from './browser.mjs';

const kRuns = 3;
const median = (values) => [...values].sort((a, b) => a - b)[Math.floor(values.length / 2)];
const types = ['green', 'water', 'building', 'highway', 'nationalway', 'provincialway', 'arterial', 'local', 'education', 'medical'];

// A style of so many rules, none of which is like another.
const styleOf = (count) => `[\n${Array.from({length: count}, (_, i) => JSON.stringify({featureType: types[i % types.length],
  elementType: i % 2 ? 'geometry.stroke' : 'geometry.fill',
  stylers: {color: `#${(0x102030 + i * 4099).toString(16).slice(-6)}`, level: `${4 + (Math.floor(i / 20) % 18)}`}})).join(',\n')}\n]`;

// What the component alone needs, in time of the processor, which other programs of the machine do not change much.
function measureComponent(count) {
  const component = new Component(new WebAssembly.Module(readFileSync(join(builtPage, 'customstyle.wasm'))));
  component.answer({method: 'mapping', mapping: {path: 'CustomIndex', text: readFileSync(join(builtPage, 'examples/CustomIndex'), 'utf8')}});
  const text = styleOf(count);
  const timesOf = (method) => Array.from({length: 9}, (_, run) => {
    const style = {path: 'style.json', text: text.replace('"#', `"#${run}`)};
    const begin = process.cpuUsage();
    component.answerText({method, style});
    return process.cpuUsage(begin).user / 1000;
  });
  return ['answers', 'check'].map((method) => `${method} ${median(timesOf(method)).toFixed(1)} ms`).join(', ');
}

for (const count of [41, 200, 1000]) console.log(`component, ${count} rules: ${measureComponent(count)}`);

const started = await startBrowser();
const first = [];
for (let run = 0; run < kRuns; ++run) {
  const {page, profile} = await openStudio(started, {size: {width: 1280, height: 800}});
  first.push(await page.evaluate(() => window.studio.timings.first));
  await profile.close();
}
console.log(`first picture: ${Math.round(median(first))} ms (${first.map(Math.round).join(', ')})`);

for (const count of [41, 200, 1000]) {
  const {page, profile} = await openStudio(started, {size: {width: 1280, height: 800}});
  await page.evaluate((text) => window.studio.editor.set(text), styleOf(count));
  await page.waitForFunction(() => window.studio.settled === window.studio.text);
  await whenDrawn(page);
  const findings = [];
  const redraws = [];
  for (let run = 0; run < kRuns; ++run) {
    await page.evaluate((digit) => {
      const {studio} = window;
      const at = studio.text.indexOf('"#') + 2;
      delete studio.timings.findings;
      delete studio.timings.redraw;
      studio.editor.change([{from: at, to: at + 1, insert: `${digit}`}]);
    }, run + 3);
    await page.waitForFunction(() => window.studio.timings.findings && window.studio.timings.redraw);
    const timings = await page.evaluate(() => window.studio.timings);
    findings.push(timings.findings);
    redraws.push(timings.redraw);
  }
  console.log(`${count} rules: keystroke to findings ${Math.round(median(findings))} ms, to the redrawn map ${Math.round(median(redraws))} ms`);
  await profile.close();
}
await started.close();
