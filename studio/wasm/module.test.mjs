// The module under Node: what it says of the example styles is what the native tool says, and it is small.
import assert from 'node:assert/strict';
import {before, describe, test} from 'node:test';
import {Component} from './component.mjs';
import {assertSize, fileAt, isSmall, mapping, moduleBytes, native, styles} from './native.mjs';

const bytes = moduleBytes('customstyle.wasm');

let component;
before(() => {
  component = new Component(new WebAssembly.Module(bytes));
  component.answer({method: 'mapping', mapping});
});

describe('reports are those of the native tool', () => {
  for (const path of styles) {
    test(`check ${path}`, () => {
      const text = component.answerText({method: 'check', style: fileAt(path), with_mapping: true});
      assert.equal(text, native('check', path, '--mapping', 'examples/map', '--format', 'json'));
    });
    test(`explain ${path}`, () => {
      for (const [id, level] of [[1001, 15], [2201, 16], [2101, 10], [4242, 12]]) {
        const text = component.answerText({method: 'explain', style: fileAt(path), id, level});
        const words = ['explain', path, '--mapping', 'examples/map', '--format', 'json'];
        assert.equal(text, native(...words, '--id', `${id}`, '--level', `${level}`));
      }
    });
    test(`diff ${path}`, () => {
      const before = fileAt('examples/styles/pale.json');
      const text = component.answerText({method: 'diff', before, after: fileAt(path)});
      assert.equal(`${text}\n`, native('diff', before.path, path, '--mapping', 'examples/map', '--format', 'json'));
    });
    test(`format ${path}`, () => {
      assert.equal(component.answer({method: 'format', style: fileAt(path)}).text, native('format', '--stdout', path));
    });
    test(`answers ${path}`, () => {
      const {records, styles: byId, land, grid} = component.answer({method: 'answers', style: fileAt(path)});
      const dump = JSON.parse(native('dump', path, '--mapping', 'examples/map', '--format', 'json'));
      assert.deepEqual(expanded(dump), {
        land, grid,
        styles: Object.fromEntries(Object.entries(byId).map(([id, classes]) => [id, classes.map((i) => records[i])])),
      });
    });
  }
  for (const path of styles.slice(0, 2)) {
    test(`minify ${path}`, () => {
      const {text} = component.answer({method: 'minify', style: fileAt(path)});
      assert.equal(text, native('minify', path, '--mapping', 'examples/map', '--stdout'));
    });
  }
});

// The dump with a value for each level class.
function expanded(dump) {
  const place = (level) => (level === 'other' ? 18 : level - 4);
  const background = (list) => {
    const classes = Array(19).fill(null);
    for (const {levels, color} of list) for (const level of levels) classes[place(level)] = color;
    return classes;
  };
  const styles = {};
  for (const {id, levels, feature_type: type, style, icon} of dump.styles) {
    styles[id] ??= Array(19).fill(null);
    for (const level of levels) styles[id][place(level)] = {type, icon_hidden: icon === 'hidden', style};
  }
  return {land: background(dump.land_background), grid: background(dump.grid_background), styles};
}

describe('a text that is no style', () => {
  for (const [name, text] of [['nothing', ''], ['half a list', '[1,'], ['words', 'hello']]) {
    test(`${name} is told apart`, () => {
      const {files} = component.answer({method: 'check', style: {path: 'broken.json', text}});
      assert.equal(files[0].findings[0].severity, 'error');
      assert.match(component.answer({method: 'answers', style: {path: 'broken.json', text}}).error, /broken\.json/);
    });
  }
  test('the component goes on after it', () => {
    assert.ok(component.answer({method: 'answers', style: fileAt(styles[0])}).records.length > 0);
  });
});

describe('a request that cannot be answered', () => {
  for (const request of [{}, {method: 'nothing'}, {method: 'answers'}, {method: 'explain', style: fileAt(styles[0])},
    {method: 'effect', style: fileAt(styles[0]), rule: 100000}, {method: 'mapping', mapping: {path: 'm', text: '{}'}}]) {
    test(JSON.stringify(request).slice(0, 60), () => assert.ok(component.answer(request).error));
  }
});

test('a rule has the effect of the difference without it', () => {
  const style = {path: 's.json', text: '[{"featureType":"water","elementType":"geometry.fill","stylers":{"color":"#0000ff"}}]'};
  const {difference} = component.answer({method: 'effect', style, rule: 0});
  assert.equal(difference.equivalent, false);
  assert.deepEqual(difference.changes.map(({feature_type, field, b}) => [feature_type, field, b.rgb]),
    [['water', 'fill', '#0000ff']]);
});

describe('the words of the language', () => {
  const listed = (what) => JSON.parse(native('list', what, '--format', 'json'))[what].map(({name, path}) => name ?? path);
  for (const what of ['types', 'elements', 'stylers']) {
    test(`${what} are those of the native tool`, () => {
      const words = component.answer({method: 'complete'})[what].map(({word}) => word);
      assert.deepEqual(words.filter((word) => word !== 'all' || what !== 'types'), listed(what));
    });
  }

  test('name every field of every answer', () => {
    const fields = new Set(component.answer({method: 'complete'}).fields.map(({word}) => word));
    const seen = new Set(styles.flatMap((path) => component.answer({method: 'answers', style: fileAt(path)}).records)
      .flatMap(({style}) => Object.keys(style)));
    assert.ok(seen.size > 3);
    assert.deepEqual([...seen].filter((field) => !fields.has(field)), []);
  });

  test('have the kind and an example of each styler, and the levels of the component', () => {
    const {stylers, levels} = component.answer({method: 'complete'});
    assert.deepEqual(levels, {lowest: 4, highest: 21});
    for (const {word, kind, example} of stylers) {
      assert.match(kind, /^(color|visibility|size|level)$/, word);
      assert.equal(typeof example, kind === 'level' ? 'undefined' : 'string', word);
    }
  });

  test('say which styler works on which element of which type', () => {
    const {takes} = component.answer({method: 'takes'});
    assert.ok(takes.some((row) => row.types.includes('highway') && row.styler === 'weight' && row.elements.length > 0));
  });
});

test('the module has at most 700 KB, and 250 KB compressed', {skip: !isSmall}, () => assertSize(bytes, 700, 250));
