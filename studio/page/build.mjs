// Builds the page into build/studio/: node build.mjs [OUTPUT_DIRECTORY]
// Needs the modules in build/wasm (script/studio-wasm) and the packages of package-lock.json (npm ci).
import {execFileSync} from 'node:child_process';
import {copyFileSync, cpSync, existsSync, mkdirSync, readdirSync, readFileSync, writeFileSync} from 'node:fs';
import {createRequire} from 'node:module';
import {dirname, join, resolve} from 'node:path';
import {fileURLToPath} from 'node:url';
import {build} from 'esbuild';
import {Component} from '../wasm/component.mjs';

const here = dirname(fileURLToPath(import.meta.url));
const root = join(here, '../..');
const output = resolve(process.argv[2] ?? join(root, 'build/studio'));
const require = createRequire(import.meta.url);
const folderOf = (name, file) => dirname(require.resolve(`${name}/${file}`));

function copyIcons() {
  const icons = join(folderOf('@mapbox/maki', 'package.json'), 'icons');
  mkdirSync(join(output, 'icons'), {recursive: true});
  const legend = JSON.parse(readFileSync(join(root, 'tools/export/legends/studio.json'), 'utf8'));
  for (const name of new Set(legend.layers.map(({icon}) => icon).filter(Boolean))) {
    copyFileSync(join(icons, `${name}.svg`), join(output, 'icons', `${name}.svg`));
  }
}

// The faces of the fonts with the characters that they have, as the map's style names them.
function copyFonts() {
  const folder = folderOf('@fontsource/noto-sans', 'package.json');
  mkdirSync(join(output, 'fonts'), {recursive: true});
  const faces = {};
  for (const [family, weight] of [['Noto Sans', 400], ['Noto Sans Bold', 700]]) {
    const css = readFileSync(join(folder, `${weight}.css`), 'utf8');
    faces[family] = [];
    for (const [, file, ranges] of css.matchAll(/url\(\.\/files\/([\w-]+\.woff2)\)[\s\S]*?unicode-range: ([^;]+);/g)) {
      if (!/-(latin|latin-ext|cyrillic|cyrillic-ext|greek)-\d/.test(file)) continue;
      copyFileSync(join(folder, 'files', file), join(output, 'fonts', file));
      faces[family].push({url: `fonts/${file}`, 'unicode-range': ranges.split(',').map((range) => range.trim())});
    }
  }
  writeFileSync(join(output, 'fonts/faces.json'), JSON.stringify(faces));
}

function copyExamples() {
  mkdirSync(join(output, 'examples'), {recursive: true});
  const names = readdirSync(join(root, 'examples/styles')).filter((name) => name.endsWith('.json'));
  for (const name of names) copyFileSync(join(root, 'examples/styles', name), join(output, 'examples', name));
  copyFileSync(join(root, 'examples/map/CustomIndex'), join(output, 'examples/CustomIndex'));
  writeFileSync(join(output, 'examples/list.json'), JSON.stringify(names));
}

function makeTiles() {
  const tiles = join(output, 'tiles');
  if (existsSync(join(tiles, 'tiles.json'))) return;
  const mapping = join(root, 'examples/map/CustomIndex');
  execFileSync(process.execPath, [join(here, 'tiles.mjs'), mapping, tiles], {stdio: 'inherit'});
}

// What rules can say is the module's to know; asking it takes a second, so that the page gets it as a file.
async function writeVocabulary() {
  const component = new Component(await WebAssembly.compile(readFileSync(join(output, 'customstyle.wasm'))));
  const vocabulary = {...component.answer({method: 'complete'}), ...component.answer({method: 'takes'})};
  writeFileSync(join(output, 'vocabulary.json'), JSON.stringify(vocabulary));
}

mkdirSync(output, {recursive: true});
const maplibre = join(folderOf('maplibre-gl', 'package.json'), 'dist');
for (const file of readdirSync(maplibre).filter((name) => /^maplibre-gl-(worker|shared)\.mjs$/.test(name))) {
  copyFileSync(join(maplibre, file), join(output, file));
}
copyFileSync(join(maplibre, 'maplibre-gl.css'), join(output, 'maplibre-gl.css'));
for (const module of ['customstyle.wasm', 'conversion.wasm']) {
  copyFileSync(join(root, 'build/wasm', module), join(output, module));
}
cpSync(join(here, 'src/index.html'), join(output, 'index.html'));
cpSync(join(here, 'src/page.css'), join(output, 'page.css'));
cpSync(join(here, 'src/editor.css'), join(output, 'editor.css'));
copyIcons();
copyFonts();
copyExamples();
makeTiles();
await writeVocabulary();
await build({
  entryPoints: {page: join(here, 'src/main.js'), 'component-worker': join(here, 'src/component-worker.js')},
  bundle: true, format: 'esm', minify: true, sourcemap: true, target: 'es2022', outdir: output, logLevel: 'warning',
});
