// Export and import as a module under Node: what it writes is what the native tool writes, and hostile files are told apart.
import assert from 'node:assert/strict';
import {mkdtempSync, readFileSync, rmSync, writeFileSync} from 'node:fs';
import {tmpdir} from 'node:os';
import {join} from 'node:path';
import {after, describe, test} from 'node:test';
import {Component} from './component.mjs';
import {assertSize, fileAt, isSmall, mapping, moduleBytes, run, styles} from './native.mjs';

const bytes = moduleBytes('conversion.wasm');
const component = new Component(new WebAssembly.Module(bytes));
const convert = (request) => component.answer({mapping, legend: 'studio', ...request});

const folder = mkdtempSync(join(tmpdir(), 'customstyle-conversion-'));
after(() => rmSync(folder, {recursive: true}));

// The style, the losses and the report of a command.
function written(command, path, legend, ...words) {
  const report = join(folder, 'report.json');
  const {stdout, stderr} = run([command, path, '--mapping', 'examples/map', '--legend', legend, '--report', report, ...words]);
  return {style: stdout, losses: stderr, report: readFileSync(report, 'utf8')};
}

describe('texts are those of the native tool', () => {
  for (const path of styles) {
    for (const legend of ['studio', 'openmaptiles']) {
      test(`export and import ${path} for ${legend}`, () => {
        const exported = written('export', path, legend);
        assert.deepEqual(convert({method: 'export', style: fileAt(path), legend}), exported);
        const back = run(['import', '-', '--mapping', 'examples/map', '--legend', legend, '--quiet'], exported.style).stdout;
        assert.ok(back.length > 100);
        assert.equal(convert({method: 'import', map_style: {path: 'map.json', text: exported.style}, legend}).style, back);
      });
    }
  }

  test('with walls and addresses', () => {
    const [path] = styles;
    const urls = {tiles: 'https://example.org/{z}/{x}/{y}.pbf', glyphs: 'https://example.org/glyphs', sprite: 'https://example.org/sprite'};
    const words = Object.entries(urls).flatMap(([name, url]) => [`--${name}`, url]);
    assert.deepEqual(convert({method: 'export', style: fileAt(path), raised: true, ...urls, legend: 'openmaptiles'}),
      written('export', path, 'openmaptiles', '--raised', ...words));
  });

  test('of what an import loses', () => {
    const path = join(folder, 'map <b>.json');
    const line = {type: 'line', 'source-layer': 'transportation', filter: ['==', 'class', 'motorway']};
    const layers = [{...line, id: 'one', paint: {'line-color': '#123456', 'line-width': 3.5, 'line-blur': 2}},
      {...line, id: 'two', minzoom: 9.5, paint: {'line-color': ['concat', '#', 'f80'], 'line-width': ['interpolate', ['linear'], ['zoom'], 5, 1.2, 18, 26]}},
      {id: 'ice \u0007', type: 'fill', 'source-layer': 'ice'}];
    const text = JSON.stringify({version: 8, layers});
    writeFileSync(path, text);
    const imported = written('import', path, 'openmaptiles');
    assert.ok(JSON.parse(imported.report).losses.length > 3, imported.report);
    assert.deepEqual(convert({method: 'import', map_style: {path, text}, legend: 'openmaptiles'}), imported);
  });
});

describe('a file that is no map style is told apart', () => {
  const strange = [
    ['nothing', '', /map\.json/], ['half a file', '{"layers": [', /map\.json:1:/], ['words', 'hello', /map\.json:1:1/],
    ['a style file', '[]', /no list "layers"/], ['layers that are no list', '{"layers": {}}', /no list "layers"/],
    ['a file that nests deep', '['.repeat(200_000), /map\.json:1:/],
    ['layers that nest deep', `{"layers": [${'{"filter": ['.repeat(50_000)}`, /map\.json:1:/],
  ];
  for (const [name, text, why] of strange) {
    test(name, () => assert.match(convert({method: 'import', map_style: {path: 'map.json', text}}).error, why));
  }
});

describe('layers of any kind are data', () => {
  const nested = (depth) => `${'["!", '.repeat(depth)}true${']'.repeat(depth)}`;
  const markup = '<img src=x onerror=alert(1)>';
  const layers = [
    ['null', null], ['a number', 1], ['an empty object', {}], ['names of other kinds', {id: 1, type: 2, 'source-layer': []}],
    ['colours that are none', {id: 'a', type: 'background', paint: {'background-color': 'rgba(nan, inf, 1e999, 1)'}}],
    ['numbers that are too large', {id: 'a', type: 'line', 'source-layer': 'lines', paint: {'line-width': 1e300, 'line-color': '#fff'}}],
    ['paint that is a list', {id: 'a', type: 'line', 'source-layer': 'lines', paint: [], layout: 'x', filter: {}, minzoom: 'x'}],
    ['markup', {id: markup, type: markup, 'source-layer': 'lines', metadata: {'customstyle:type': markup}}],
  ];
  for (const [name, layer] of layers) {
    test(name, () => {
      const {style, report} = convert({method: 'import', map_style: {path: 'map.json', text: JSON.stringify({layers: [layer]})}});
      assert.ok(Array.isArray(JSON.parse(style)));
      assert.ok(Array.isArray(JSON.parse(report).losses));
    });
  }

  test('a filter that is as deep as a document may be', () => {
    const text = `{"layers": [{"id": "a", "type": "line", "source-layer": "lines", "filter": ${nested(900)}}]}`;
    assert.ok(Array.isArray(JSON.parse(convert({method: 'import', map_style: {path: 'map.json', text}}).style)));
  });
});

describe('a request that cannot be answered', () => {
  const style = fileAt(styles[0]);
  for (const request of [{}, {method: 'check', style}, {method: 'export'}, {method: 'import', style}, {method: 'export', style, legend: 'mine'},
    {method: 'export', style, mapping: {path: 'm', text: '{}'}}, {method: 'export', style: {path: 's.json', text: '[1,'}}]) {
    test(JSON.stringify(request).slice(0, 60), () => assert.ok(convert(request).error));
  }
});

test('the module has at most 500 KB, and 185 KB compressed', {skip: !isSmall}, () => assertSize(bytes, 500, 185));
