// How long does another renderer's expression evaluator take to resolve the same theme for the same features?
//     node peer-evaluator.cjs <node_modules> <theme> <results> <stream file>...
// The theme is what ThemeAnswers prints. Each of its ten properties becomes one "match" by style id, at each level an
// expression of its own, so that nothing is spent on the choice of a level. All values are compared with the theme's
// before they are timed. The results have the form in which Google Benchmark writes its own.
'use strict';

const fs = require('fs');
const path = require('path');

const [modules, themeFile, resultsFile, ...streamFiles] = process.argv.slice(2).map((name) => path.resolve(name));
const {createPropertyExpression} = require(path.join(modules, '@maplibre/maplibre-gl-style-spec'));

const SHORTEST_SECONDS = 0.3;

const colourSpec = {
  type: 'color', default: 'rgba(0, 0, 0, 0)', 'property-type': 'data-driven',
  expression: {interpolated: true, parameters: ['zoom', 'feature']},
};
const numberSpec = {...colourSpec, type: 'number', default: 0};

// Red stands in the lowest byte, alpha in the highest.
const bytesOf = (packed) => [0, 8, 16, 24].map((shift) => (packed >>> shift) & 255);
const colourText = (packed) => {
  const [red, green, blue, alpha] = bytesOf(packed);
  return `rgba(${red}, ${green}, ${blue}, ${alpha / 255})`;
};

// The evaluator multiplies colours by their alpha; what is left of an invisible colour does not matter.
function isColour(value, packed) {
  const expected = bytesOf(packed);
  const alpha = Math.round(value.a * 255);
  if (alpha !== expected[3]) return false;
  return alpha === 0 ||
    [value.r, value.g, value.b].every((part, i) => Math.round(part / value.a * 255) === expected[i]);
}

function compile(property, spec, cases, fallback) {
  const match = ['match', ['id'], ...cases.flat(), fallback];
  const compiled = createPropertyExpression(match, `layers.theme.${property}`, spec);
  if (compiled.result !== 'success') throw new Error(`${property}: ${JSON.stringify(compiled.value)}`);
  return compiled.value;
}

function compileLevel(theme, styles) {
  const colours = theme.colours.map((name, i) =>
    compile(name, colourSpec, styles.map(([id, values]) => [id, colourText(values[i])]), colourText(0)));
  const numbers = theme.numbers.map((name, i) =>
    compile(name, numberSpec, styles.map(([id, , values]) => [id, values[i]]), 0));
  return [...colours, ...numbers];
}

function compileTheme(theme) {
  return Object.entries(theme.levels).map(([level, styles]) => ({
    zoom: {zoom: Number(level)},
    properties: compileLevel(theme, styles),
    expected: new Map(styles.map(([id, colours, numbers]) => [id, {colours, numbers}])),
  }));
}

const unstyled = {colours: Array(5).fill(0), numbers: Array(5).fill(0)};

function requireThemesAnswers(levels, ids) {
  for (const {zoom, properties, expected} of levels) {
    for (const id of ids) {
      const values = properties.map((property) => property.evaluate(zoom, {id, type: 1, properties: {}}));
      const {colours, numbers} = expected.get(id) || unstyled;
      const isRight = colours.every((packed, i) => isColour(values[i], packed)) &&
        numbers.every((number, i) => values[colours.length + i] === number);
      if (!isRight) throw new Error(`wrong style for id ${id} at level ${zoom.zoom}`);
    }
  }
}

function drawFrames(levels, features) {
  let sum = 0;
  for (const {zoom, properties} of levels) {
    for (const feature of features) {
      for (let i = 0; i < properties.length; ++i) {
        const value = properties[i].evaluate(zoom, feature);
        sum += i < 5 ? value.a : value;
      }
    }
  }
  return sum;
}

function measure(name, levels, ids) {
  requireThemesAnswers(levels, new Set(ids));
  const features = ids.map((id) => ({id, type: 1, properties: {}}));
  const sum = drawFrames(levels, features);  // compiles what runs often
  const start = process.hrtime.bigint();
  const startOfWork = process.cpuUsage();
  let frames = 0;
  let elapsed = 0;
  while (elapsed < SHORTEST_SECONDS) {
    if (drawFrames(levels, features) !== sum) throw new Error(`${name}: the answers change`);
    ++frames;
    elapsed = Number(process.hrtime.bigint() - start) / 1e9;
  }
  // The shorter one counts: other programs lengthen the time that passes, the engine's own threads that of the processor.
  const work = process.cpuUsage(startOfWork);
  const seconds = Math.min(elapsed, (work.user + work.system) / 1e6);
  return {name: `${name}/evaluator`, items_per_second: frames * levels.length * ids.length / seconds};
}

const levels = compileTheme(JSON.parse(fs.readFileSync(themeFile, 'utf8')));
const benchmarks = streamFiles.map((file) => {
  const ids = fs.readFileSync(file, 'utf8').trim().split('\n').map(Number);
  return measure(path.basename(file, '.ids'), levels, ids);
});
fs.writeFileSync(resultsFile, JSON.stringify({context: {node: process.version}, benchmarks}, null, 2));
