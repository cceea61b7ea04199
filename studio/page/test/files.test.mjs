// Opening and saving with the file pickers of the browser: which file is written.
import assert from 'node:assert/strict';
import {beforeEach, describe, test} from 'node:test';
import {forgetFile, openFile, saveCopy, saveFile} from '../src/files.js';

const use = () => forgetFile(); // as the page does with each style that it opens

let written;
let picked;

const handleOf = (name, size = 2) => ({
  name,
  getFile: async () => ({name, size, text: async () => '[]'}),
  createWritable: async () => ({write: async (text) => (written[name] = text), close: async () => {}}),
});

beforeEach(() => {
  forgetFile();
  written = {};
  picked = null;
  globalThis.window = {
    showOpenFilePicker: async () => [picked],
    showSaveFilePicker: async ({suggestedName}) => handleOf(`picked-${suggestedName}`),
  };
});

const open = (handle) => {
  picked = handle;
  return openFile(null, use);
};

describe('saving', () => {
  test('writes to the file that was opened', async () => {
    await open(handleOf('my.json'));
    assert.equal(await saveFile('my.json', '[1]'), 'my.json is saved');
    assert.deepEqual(written, {'my.json': '[1]'});
  });

  test('asks for a file when another style has been opened since', async () => {
    await open(handleOf('my.json'));
    forgetFile(); // an example
    assert.equal(await saveFile('night.json', '[2]'), 'picked-night.json is saved');
    assert.deepEqual(written, {'picked-night.json': '[2]'});
  });

  test('asks once for a new style', async () => {
    await saveFile('night.json', '[1]');
    window.showSaveFilePicker = () => assert.fail('asked again');
    await saveFile('night.json', '[2]');
    assert.deepEqual(written, {'picked-night.json': '[2]'});
  });

  test('keeps to the open file when the page does not open the one that was chosen', async () => {
    await open(handleOf('my.json'));
    picked = handleOf('map-style.json');
    await openFile(null, () => false);
    await saveFile('my.json', '[4]');
    assert.deepEqual(written, {'my.json': '[4]'});
  });

  test('of a copy leaves the open file alone', async () => {
    await open(handleOf('my.json'));
    assert.equal(await saveCopy('map.json', '[5]'), 'picked-map.json is saved');
    await saveFile('my.json', '[6]');
    assert.deepEqual(written, {'picked-map.json': '[5]', 'my.json': '[6]'});
  });

  test('keeps to the open file when one that is too long was chosen', async () => {
    await open(handleOf('my.json'));
    await assert.rejects(open(handleOf('long.json', 17 * 1024 * 1024)), /long\.json is larger than 16 MB/);
    await saveFile('my.json', '[3]');
    assert.deepEqual(written, {'my.json': '[3]'});
  });
});

describe('an upload, where the browser has no pickers', () => {
  const inputWith = (file) => ({files: [file], click() {
    this.onchange();
  }});

  test('gives the page the file', async () => {
    delete window.showOpenFilePicker;
    const used = [];
    await openFile(inputWith({name: 'my.json', size: 2, text: async () => '[]'}), (file) => used.push(file));
    assert.deepEqual(used, [{name: 'my.json', text: '[]'}]);
  });

  test('says that a file is too long', async () => {
    delete window.showOpenFilePicker;
    const long = {name: 'long.json', size: 17 * 1024 * 1024, text: async () => '[]'};
    await assert.rejects(openFile(inputWith(long), () => assert.fail('used')), /long\.json is larger than 16 MB/);
  });
});
