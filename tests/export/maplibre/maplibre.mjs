// Whether exported styles are what the renderer takes, and say what the component answers:
//     node maplibre.mjs PACKAGES TOOL ROOT
// Each style is validated; each property of each layer is evaluated at every level for every style id, and compared with
// the answers that "customstyle dump" prints, laid over the look of the legend file. The styles are the examples and random
// ones, over the example map and random mappings.
import {execFileSync} from 'node:child_process';
import {mkdtempSync, readFileSync, readdirSync, rmSync, writeFileSync} from 'node:fs';
import {createRequire} from 'node:module';
import {tmpdir} from 'node:os';
import {join, resolve} from 'node:path';
import {pathToFileURL} from 'node:url';

const [packages, tool, root] = process.argv.slice(2).map((name) => resolve(name));
const require = createRequire(join(packages, 'package.json'));
const spec = await import(pathToFileURL(require.resolve('@maplibre/maplibre-gl-style-spec')));
const {Color, createPropertyExpression, featureFilter, isExpression, latest, validateStyleMin} = spec;

const kOffset = 1; // level L is drawn from zoom L - 1 on
const kHighestZoom = 24;
const kRandomStyles = 8;

const failures = [];
let evaluated = 0;

function fail(text) {
  failures.push(text);
}

// --- what is expected ---

const defaults = {
  fill: '#e8e4dc', stroke: '#00000000', stroke_width: 0, width: 1, walls: '#d3cbc0', roof: '#e6e0d7',
  text: '#4a463f', halo: '#ffffffd9', halo_width: 1.2, text_size: 12,
};

const colorOf = (text) => ({rgb: text.slice(0, 7), alpha: text.length > 7 ? Number.parseInt(text.slice(7), 16) : 255});

function lookAt(layer, key, level) {
  let value = layer.look?.[key] ?? defaults[key];
  if (typeof value === 'object') {
    const levels = Object.keys(value).map(Number).sort((a, b) => a - b);
    value = value[levels.filter((from) => from <= level).at(-1) ?? levels[0]];
  }
  return typeof value === 'string' ? colorOf(value) : value;
}

const nothing = {rgb: '#000000', alpha: 0};

// What each part of a legend layer looks like with an answer: its properties, and whether it is drawn at all.
const parts = {
  fill(look, {fill}) {
    const color = fill ?? look('fill');
    return {visible: color.alpha > 0, 'fill-color': color};
  },
  outline(look, style, border) {
    const color = style.stroke ?? (style.fill ? nothing : look('stroke'));
    const width = style.stroke_weight ?? (style.stroke && look('stroke_width') === 0 ? border : look('stroke_width'));
    return {visible: color.alpha > 0 && width > 0, 'line-color': color, 'line-width': width};
  },
  casing(look, style, border) {
    const color = style.stroke ?? (style.fill?.alpha === 0 ? nothing : look('stroke'));
    const width = style.stroke_weight ?? (style.stroke && look('stroke_width') === 0 ? border : look('stroke_width'));
    const gap = style.fill_weight ?? look('width');
    return {visible: color.alpha > 0 && width > 0, 'line-color': color, 'line-width': width, 'line-gap-width': gap};
  },
  line(look, style) {
    const color = style.fill ?? look('fill');
    const width = style.fill_weight ?? look('width');
    return {visible: color.alpha > 0 && width > 0, 'line-color': color, 'line-width': width};
  },
  walls: (look, style) => extrusion(style.fill ?? look('walls')),
  roof: (look, style) => extrusion(style.top_surface ?? style.fill ?? look('roof')),
  label(look, style, border, icon, layer, legend) {
    const size = style.font_size ?? look('text_size');
    const hidden = size === 0 || (style.text_fill?.alpha === 0 && (style.text_stroke?.alpha ?? 0) === 0);
    const hasIcon = layer.icon !== undefined && icon === 'shown';
    return {
      visible: !hidden || hasIcon,
      'text-color': style.text_fill ?? look('text'), 'text-halo-color': style.text_stroke ?? look('halo'),
      'text-halo-width': Math.min(size / 4, style.text_stroke_weight ?? look('halo_width')), 'text-size': size,
      'text-font': legend.fonts[style.text_fill_weight >= 2 ? 'bold' : 'regular'].join(),
      'text-field': hidden ? '' : 'Name', ...(layer.icon && {'icon-image': hasIcon ? layer.icon : ''}),
    };
  },
};
parts.along = parts.label;

const extrusion = (color) => ({visible: color.alpha > 0, 'fill-extrusion-color': {...color, alpha: 255},
  'fill-extrusion-opacity': color.alpha / 255});

const partsOf = {area: ['fill', 'outline'], line: ['casing', 'line'], label: ['label'], line_label: ['along']};
const partsOfLayer = ({kind}, raised) => (kind === 'building' ? (raised ? ['walls', 'roof'] : ['fill', 'outline']) : partsOf[kind]);
const layerId = ({type, name}, part) => [type, name, part].filter(Boolean).join('-');

// --- what the style says ---

const properties = {s: 0, l: 0, n: 'Name', h: 12, name: 'Name', ref: 'Name', housenumber: 'Name', render_height: 12};

function specOf(layer, property) {
  const group = property in (latest[`paint_${layer.type}`] ?? {}) ? 'paint' : 'layout';
  return {spec: latest[`${group}_${layer.type}`][property], value: layer[group]?.[property]};
}

const compiled = new Map();
function evaluate(layer, property, zoom, id) {
  const key = `${layer.id} ${property}`;
  if (!compiled.has(key)) compiled.set(key, compile(layer, property));
  ++evaluated;
  return compiled.get(key)(zoom, id);
}

function compile(layer, property) {
  const {spec: type, value} = specOf(layer, property);
  if (!isExpression(value)) {
    const constant = type.type === 'color' ? Color.parse(value) : Array.isArray(value) ? value.join() : value;
    return () => constant;
  }
  const expression = createPropertyExpression(value, property, type);
  if (expression.result !== 'success') {
    fail(`${layer.id} ${property}: ${JSON.stringify(expression.value)}`);
    return () => undefined;
  }
  return (zoom, id) => {
    const feature = {type: 1, properties: {...properties, s: id, l: id}};
    const result = expression.value.evaluate({zoom}, feature, {}, undefined, []);
    if (result === null && property === 'icon-image') return ''; // how the renderer understands the empty name
    if (result instanceof Color || typeof result !== 'object' || result === null) return result;
    return Array.isArray(result) ? result.join() : `${result.name ?? result}`;
  };
}

function isSame(value, expected) {
  if (typeof expected !== 'object') return typeof expected === 'number' ? Math.abs(value - expected) < 0.003 : value === expected;
  const alpha = Math.round(value.a * 255);
  if (alpha !== expected.alpha) return false;
  const wanted = [1, 3, 5].map((at) => Number.parseInt(expected.rgb.slice(at, at + 2), 16));
  return alpha === 0 || [value.r, value.g, value.b].every((part, i) => Math.round((part / value.a) * 255) === wanted[i]);
}

const shown = (value) => (value instanceof Color ? value.toString() : JSON.stringify(value));

// Steps that change nothing would only make the file larger.
function requireShortSteps(layer, property) {
  const {value} = specOf(layer, property);
  if (!Array.isArray(value) || value[0] !== 'step') return;
  const outputs = value.filter((_, i) => i >= 2 && i % 2 === 0).map((output) => JSON.stringify(output));
  if (outputs.some((output, i) => i > 0 && output === outputs[i - 1])) fail(`${layer.id} ${property}: a step that changes nothing`);
}

// --- one export ---

// "other" means all levels outside 4 to 21.
const levelName = (level) => (level >= 4 && level <= 21 ? level : 'other');

// The members of the styles that are dumped, and those that some part above reads.
const dumped = new Set();
const read = new Set();
const watched = (style) => new Proxy(style, {get: (target, member) => read.add(member) && target[member]});

function answersOf(dump) {
  const answers = new Map();
  for (const {id, levels, style, icon} of dump.styles) {
    Object.keys(style).forEach((member) => dumped.add(member));
    const answer = {style: watched(style), icon};
    for (const level of levels) answers.set(`${id} ${level}`, answer);
  }
  return answers;
}

// A field that no part draws would be exported unseen, and one that no style sets would not be looked at. They come
// first: they are the reason of many failures.
function requireEveryFieldDrawn() {
  const ignored = [...dumped].filter((member) => !read.has(member));
  const unset = [...read].filter((member) => !dumped.has(member));
  failures.unshift(...ignored.map((member) => `"${member}" of a dumped style: no part draws it`),
    ...unset.map((member) => `"${member}" is drawn, but no style sets it`));
}

// Whether a value is the expected one, or, where the tiles do not tell style ids apart, that of most of them.
function check(where, layer, property, zoom, ids, wantedOf, tellsIds) {
  if (tellsIds) {
    for (const id of ids) {
      const value = evaluate(layer, property, zoom, id);
      if (!isSame(value, wantedOf(id))) fail(`${where} id ${id}: ${shown(value)}, expected ${shown(wantedOf(id))}`);
    }
    return;
  }
  const counts = new Map();
  for (const id of ids) counts.set(JSON.stringify(wantedOf(id)), (counts.get(JSON.stringify(wantedOf(id))) ?? 0) + 1);
  const most = Math.max(...counts.values());
  const wanted = [...counts].filter(([, count]) => count === most).map(([text]) => JSON.parse(text));
  const value = evaluate(layer, property, zoom, 0);
  if (!wanted.some((each) => isSame(value, each))) fail(`${where}: ${shown(value)}, expected ${shown(wanted)}`);
}

function checkPart(name, layer, part, context) {
  const {style, legend, mapping, answers, everyId} = context;
  const mapped = layer.ids ?? mapping[layer.type];
  const ids = mapped.length > 0 ? mapped : [everyId];
  const levels = [];
  for (let level = Math.max(kOffset, layer.from ?? 0); level <= Math.min(kHighestZoom + kOffset, layer.to ?? 99); ++level) levels.push(level);
  const wantedAt = new Map();
  for (const level of levels) {
    for (const id of ids) {
      const {style: answer, icon} = answers.get(`${id} ${levelName(level)}`) ?? {style: {}, icon: context.unlistedIcon};
      const look = (key) => lookAt(layer, key, level);
      wantedAt.set(`${id} ${level}`, parts[part](look, answer, legend.border, icon, layer, legend));
    }
  }
  const made = style.layers.find(({id}) => id === layerId(layer, part));
  const isVisible = [...wantedAt.values()].some(({visible}) => visible);
  if (Boolean(made) !== isVisible) return fail(`${name} ${layerId(layer, part)}: ${made ? 'is never visible' : 'is missing'}`);
  if (!made) return;
  const filter = part === 'walls' || part === 'roof' ? featureFilter(made.filter ?? true, `layers.${made.id}.filter`) : null;
  for (const property of Object.keys(wantedAt.values().next().value).filter((key) => key !== 'visible')) {
    requireShortSteps(made, property);
    for (const level of levels) {
      for (const zoom of [level - kOffset, level - kOffset + 0.99]) {
        const isDrawn = (id) => !filter || layer.id === undefined || wantedAt.get(`${id} ${level}`).visible;
        const drawn = ids.filter(isDrawn);
        const where = `${name} ${made.id} ${property} level ${level}`;
        // One opacity holds for all walls of a layer.
        const tellsIds = layer.id !== undefined && property !== 'fill-extrusion-opacity';
        if (drawn.length > 0) check(where, made, property, zoom, drawn, (id) => wantedAt.get(`${id} ${level}`)[property], tellsIds);
        if (filter && layer.id !== undefined) checkFilter(where, filter, zoom, ids, isDrawn);
      }
    }
  }
}

function checkFilter(where, filter, zoom, ids, isDrawn) {
  if (!ids.some(isDrawn)) return; // the opacity hides them all
  for (const id of ids) {
    ++evaluated;
    const passes = filter.filter({zoom: Math.floor(zoom)}, {type: 3, properties: {...properties, t: 'building', s: id}});
    if (passes !== isDrawn(id)) fail(`${where} id ${id}: filter says ${passes}`);
  }
}

function checkBackgrounds(name, {style, legend, dump}) {
  for (const type of ['land', 'grid']) {
    const layer = style.layers.find(({id}) => id === type);
    for (let zoom = 0; zoom <= kHighestZoom; ++zoom) {
      const level = levelName(zoom + kOffset);
      const wanted = dump[`${type}_background`].find(({levels}) => levels.includes(level))?.color ?? colorOf(legend.backgrounds[type]);
      const value = evaluate(layer, 'background-color', zoom, 0);
      if (!isSame(value, wanted)) fail(`${name} ${type} level ${level}: ${shown(value)}, expected ${shown(wanted)}`);
    }
  }
}

const run = (...words) => execFileSync(tool, words, {encoding: 'utf8', maxBuffer: 1 << 28});

function checkExport(name, styleFile, mappingFolder, legendName, raised) {
  const words = ['--mapping', mappingFolder];
  const text = run('export', styleFile, ...words, '--to', 'maplibre', '--legend', legendName, '--quiet',
    '--tiles', 'https://example.org/{z}/{x}/{y}.pbf', '--glyphs', 'https://example.org/{fontstack}/{range}.pbf',
    '--sprite', 'https://example.org/sprite', ...(raised ? ['--raised'] : []));
  const style = JSON.parse(text);
  const label = `${name} over ${legendName}${raised ? ', raised' : ''}`;
  for (const error of validateStyleMin(style)) fail(`${label}: ${error.message}`);
  compiled.clear();
  const legend = JSON.parse(readFileSync(join(root, `tools/export/legends/${legendName}.json`), 'utf8'));
  const mapping = JSON.parse(readFileSync(join(mappingFolder, 'CustomIndex'), 'utf8'));
  const dump = JSON.parse(run('dump', styleFile, ...words, '--format', 'json'));
  const everyId = 1999999999;
  const unlisted = JSON.parse(run('query', styleFile, ...words, '--id', `${everyId}`, '--level', '10', '--format', 'json'));
  const context = {style, legend, mapping, dump, answers: answersOf(dump), everyId, unlistedIcon: Object.values(unlisted).at(-1)[0].icon};
  checkBackgrounds(label, context);
  const known = new Set(['land', 'grid']);
  for (const layer of legend.layers) {
    for (const part of partsOfLayer(layer, raised)) {
      known.add(layerId(layer, part));
      checkPart(label, layer, part, context);
    }
  }
  for (const {id} of style.layers) if (!known.has(id)) fail(`${label}: ${id} comes from nowhere`);
  return text.length;
}

// --- random styles ---

function generator(seed) {
  let state = seed >>> 0;
  return (limit) => {
    state = (Math.imul(state, 1664525) + 1013904223) >>> 0;
    return Math.floor((state / 2 ** 32) * limit);
  };
}

function randomStyle(random, types) {
  const pick = (list) => list[random(list.length)];
  const elements = ['all', 'geometry', 'geometry.fill', 'geometry.stroke', 'geometry.topsurface', 'labels', 'labels.text.fill',
    'labels.text.stroke', 'labels.icon'];
  const hex = () => random(256).toString(16).padStart(2, '0');
  const stylers = () => ({
    ...(random(2) && {color: `#${hex()}${hex()}${hex()}${pick(['', '', hex(), '00'])}`}),
    ...(random(6) === 0 && {visibility: pick(['on', 'off', 'off'])}),
    ...(random(3) === 0 && {weight: `${pick([0, 1, 2, 3, 9, random(256)])}`}),
    ...(random(3) === 0 && {fontsize: `${pick([0, 9, 14, random(256)])}`}),
    ...(random(2) && {level: `${4 + random(18)}`}),
  });
  const few = Array.from({length: 9}, () => pick(types));
  return Array.from({length: 120}, () => ({
    featureType: random(40) === 0 ? 'all' : random(3) ? pick(few) : pick(types), elementType: pick(elements), stylers: stylers()}));
}

// Few style ids, so that many belong to several types; some types have none.
function randomMapping(random, types) {
  return Object.fromEntries(types.map((type) => [type, [...new Set(Array.from({length: random(5)}, () => 1 + random(120)))]]));
}

function checkAll(folder) {
  const map = join(root, 'examples/map');
  const types = Object.keys(JSON.parse(readFileSync(join(map, 'CustomIndex'), 'utf8')));
  for (const file of readdirSync(join(root, 'examples/styles')).filter((name) => name.endsWith('.json'))) {
    for (const legend of ['studio', 'openmaptiles']) {
      const bytes = checkExport(file, join(root, 'examples/styles', file), map, legend, legend === 'openmaptiles');
      if (bytes > 250_000) fail(`${file} over ${legend}: ${bytes} bytes`);
    }
  }
  const tried = new Set();
  for (let seed = 1; seed <= kRandomStyles; ++seed) {
    const random = generator(seed);
    const file = join(folder, 'style.json');
    const style = randomStyle(random, types);
    for (const rule of style) Object.keys(rule.stylers).forEach((styler) => tried.add(styler));
    writeFileSync(file, JSON.stringify(style));
    writeFileSync(join(folder, 'CustomIndex'), JSON.stringify(randomMapping(random, types)));
    checkExport(`random style ${seed}`, file, folder, ['studio', 'openmaptiles'][seed % 2], seed % 4 < 2);
  }
  const {stylers} = JSON.parse(run('list', 'stylers', '--format', 'json'));
  for (const {name} of stylers) if (!tried.has(name)) fail(`no random style has the styler "${name}"`);
  requireEveryFieldDrawn();
}

const folder = mkdtempSync(join(tmpdir(), 'customstyle-export-'));
try {
  checkAll(folder);
} finally {
  rmSync(folder, {recursive: true});
}
console.log(`${evaluated} values, ${failures.length} failures`);
console.log(failures.slice(0, 30).join('\n'));
process.exitCode = failures.length > 0 || evaluated < 50_000 ? 1 : 0;
