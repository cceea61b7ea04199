// The command and the page installed into a prefix of their own: one finds the other.
import assert from 'node:assert/strict';
import {execFileSync} from 'node:child_process';
import {existsSync, mkdtempSync, readdirSync, readFileSync, rmSync} from 'node:fs';
import {tmpdir} from 'node:os';
import {dirname, join} from 'node:path';
import {after, before, test} from 'node:test';
import {builtPage, startServer, tool} from './browser.mjs';

const prefix = mkdtempSync(join(tmpdir(), 'customstyle-prefix-'));
const command = join(prefix, 'bin/customstyle');

before(() => execFileSync('cmake', ['--install', dirname(tool), '--component', 'tool', '--prefix', prefix], {stdio: 'pipe'}));
after(() => rmSync(prefix, {recursive: true, force: true}));

test('the installed command serves the installed page', async () => {
  const {address, close} = await startServer(command, ['studio', '--port', '0']);
  try {
    for (const file of ['page.js', 'customstyle.wasm', 'conversion.wasm', 'tiles/tiles.json', 'examples/night.json']) {
      const answer = await fetch(address + file);
      assert.equal(answer.status, 200, file);
      assert.deepEqual(Buffer.from(await answer.arrayBuffer()), readFileSync(join(builtPage, file)), file);
    }
    assert.match(await (await fetch(address)).text(), /<title>Customstyle studio/);
  } finally {
    await close();
  }
});

test('what helps to debug the page stays behind', () => {
  const names = readdirSync(join(prefix, 'share/customstyle/studio'));
  assert.ok(names.includes('page.js'));
  assert.deepEqual(names.filter((name) => name.endsWith('.map')), []);
});

test('the installed command writes the page for a web host', () => {
  const site = join(prefix, 'site');
  execFileSync(command, ['studio', '--build-site', site]);
  assert.ok(existsSync(join(site, 'index.html')));
});
