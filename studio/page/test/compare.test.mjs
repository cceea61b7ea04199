// Two styles compared in pictures, as for a review: before, after and difference.
import assert from 'node:assert/strict';
import {spawnSync} from 'node:child_process';
import {existsSync, mkdtempSync, readFileSync, rmSync, writeFileSync} from 'node:fs';
import {tmpdir} from 'node:os';
import {dirname, join} from 'node:path';
import {after, describe, test} from 'node:test';
import {fileURLToPath} from 'node:url';

const program = join(dirname(fileURLToPath(import.meta.url)), '../compare.mjs');
const folder = mkdtempSync(join(tmpdir(), 'customstyle-compare-'));
after(() => rmSync(folder, {recursive: true, force: true}));

function styleFile(name, text) {
  const path = join(folder, name);
  writeFileSync(path, text);
  return path;
}
const before = styleFile('before.json', '[]');
const changed = styleFile('after.json',
  '[{"featureType": "green", "elementType": "geometry.fill", "stylers": {"color": "#ff00c8"}}]');
const compare = (...words) => spawnSync(process.execPath, [program, ...words], {encoding: 'utf8'});
const pictures = (name) => join(folder, name);
const isWebp = (path) => readFileSync(path).subarray(8, 12).toString() === 'WEBP';

describe('pictures of two styles', () => {
  test('show before, after and difference, and say how much differs', () => {
    const {status, stdout, stderr} = compare(pictures('differ'), before, changed, 'city');
    assert.equal(status, 1, stderr);
    assert.match(stdout, /^city: \d+\.\d % of the pixels differ\n$/);
    const files = ['before', 'after', 'difference'].map((kind) => join(pictures('differ'), `city-${kind}.webp`));
    for (const file of files) assert.ok(isWebp(file), file);
    assert.notDeepEqual(readFileSync(files[0]), readFileSync(files[1]));
  });

  test('are the same for the same style', () => {
    const {status, stdout, stderr} = compare(pictures('same'), before, before, 'city');
    assert.equal(status, 0, stderr);
    assert.equal(stdout, 'city: no pixel differs\n');
  });

  for (const [name, words, message] of [
    ['an unknown view', [pictures('none'), before, changed, 'moon'], /unknown view "moon"; the views are region, city/],
    ['too few words', [pictures('none'), before], /usage: script\/pictures --compare FOLDER BEFORE AFTER/],
    ['a style that is none', [pictures('none'), before, styleFile('broken.json', '[1,')], /broken\.json/],
    ['a style that is not there', [pictures('none'), before, join(folder, 'absent.json')], /absent\.json/],
  ]) {
    test(`are not made of ${name}`, () => {
      const {status, stderr} = compare(...words);
      assert.equal(status, 2);
      assert.match(stderr, message);
      assert.equal(existsSync(pictures('none')), false);
    });
  }
});
