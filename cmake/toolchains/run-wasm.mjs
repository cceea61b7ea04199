// Runs a program that was compiled to WebAssembly: run-wasm.mjs PROGRAM [ARGUMENT...]
// It sees the project's files, the folder in which it runs, and the folder for temporary files.
import {readFile} from 'node:fs/promises';
import {tmpdir} from 'node:os';
import process, {argv, cwd, env} from 'node:process';
import {fileURLToPath} from 'node:url';
import {WASI} from 'node:wasi';

const root = fileURLToPath(new URL('../..', import.meta.url)).replace(/\/$/, '');
const folders = {[root]: root, [tmpdir()]: tmpdir(), '.': cwd()};
const wasi = new WASI({version: 'preview1', args: argv.slice(2), env, preopens: folders});
const program = await WebAssembly.compile(await readFile(argv[2]));
process.exitCode = wasi.start(await WebAssembly.instantiate(program, wasi.getImportObject()));
