// What the tests of both modules have in common: the example styles, and the native tool, whose path is in CUSTOMSTYLE_TOOL.
import assert from 'node:assert/strict';
import {spawnSync} from 'node:child_process';
import {readdirSync, readFileSync} from 'node:fs';
import {dirname, join} from 'node:path';
import {fileURLToPath} from 'node:url';

const root = join(dirname(fileURLToPath(import.meta.url)), '../..');
const tool = process.env.CUSTOMSTYLE_TOOL ?? join(root, 'build/dev/customstyle');

export const fileAt = (path) => ({path, text: readFileSync(join(root, path), 'utf8')});

export const mapping = fileAt('examples/map/CustomIndex');

/** The paths of the example styles. */
export const styles = readdirSync(join(root, 'examples/styles')).filter((name) => name.endsWith('.json'))
  .map((name) => join('examples/styles', name));

/** Runs the native tool in the project's folder. */
export const run = (words, input) => spawnSync(tool, words, {cwd: root, encoding: 'utf8', maxBuffer: 1 << 28, input});

/** @returns {string} what the native tool prints */
export const native = (...words) => run(words).stdout;

/** The bytes of a module that is built. */
export const moduleBytes = (name) => readFileSync(join(root, 'build/wasm', name));

/** Whether modules are built to be small, not to be built soon. */
export const isSmall = process.env.CUSTOMSTYLE_STUDIO_QUICK !== '1';

/** Fails where a module has more than so many KB of 1,024 bytes, or more than so many compressed. */
export function assertSize(bytes, most, mostCompressed) {
  assert.ok(bytes.length <= most * 1024, `${bytes.length} bytes`);
  // With the program gzip; Node's own library needs half a percent more.
  const compressed = spawnSync('gzip', ['-9', '--to-stdout'], {input: bytes, maxBuffer: 1 << 28}).stdout.length;
  assert.ok(compressed > 0 && compressed <= mostCompressed * 1024, `${compressed} compressed`);
}
