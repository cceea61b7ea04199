// Cuts the tiles of a city out of a package's map data: node tiles.mjs MAPPING OUTPUT_DIRECTORY
// The data is OpenStreetMap's, under the Open Database License; the page names its contributors on the map.
import {mkdirSync, readdirSync, readFileSync, writeFileSync} from 'node:fs';
import {createRequire} from 'node:module';
import {dirname, join} from 'node:path';
import {GeoJSONVT} from '@maplibre/geojson-vt';
import {fromGeojsonVt} from '@maplibre/vt-pbf';
import {VectorTile} from '@mapbox/vector-tile';
import {PbfReader} from 'pbf';
import {classify, labelOfLine, styleIdOf} from './src/legend.js';

const [mappingFile, output] = process.argv.slice(2);
const mapping = JSON.parse(readFileSync(mappingFile, 'utf8'));
const source = join(dirname(createRequire(import.meta.url).resolve('@mapbox/mvt-fixtures')), 'real-world/osm-qa-astana');

// Which features stand in the tiles of a few zooms. The map enlarges the last ones.
const major = /^(water|green|boundary|highway|cityhighway|nationalway|provincialway|railway|city|town)$/;
const bands = [
  {lowest: 3, highest: 9, has: (p) => /^(water|highway|cityhighway|nationalway|city)$/.test(p.t)},
  {lowest: 10, highest: 11, has: (p) => major.test(p.t) || p.t === 'arterial' || p.t === 'district'},
  {lowest: 12, highest: 12, has: (p, kind) => kind !== 'buildings' && !/^(scenicspotsway|local|poilabel)$/.test(p.t)},
  {lowest: 13, highest: 14, has: () => true},
];

function propertiesOf(tags, found) {
  const properties = {t: found.type, s: styleIdOf(mapping, found.type, found.word)};
  if (properties.s === null) return null;
  const name = tags['name:en'] ?? tags.name;
  if (name) properties.n = `${name}`;
  const labelType = found.kind === 'lines' && name && labelOfLine[found.type];
  if (labelType) Object.assign(properties, {lt: labelType, l: styleIdOf(mapping, labelType, found.word)});
  if (found.kind === 'buildings') properties.h = heightOf(tags);
  return properties;
}

function heightOf(tags) {
  const metres = Number.parseFloat(tags.height ?? tags['building:height']);
  const storeys = Number.parseFloat(tags['building:levels']);
  return Math.min(300, metres > 0 ? metres : storeys > 0 ? 3 * storeys + 1 : 5);
}

// Features by kind. The tiles of the source overlap a little, so that some come twice; ids keep them apart.
function readFeatures() {
  const kinds = {areas: [], lines: [], points: [], buildings: []};
  const seen = new Set();
  for (const file of readdirSync(source).filter((name) => name.endsWith('.mvt'))) {
    const [z, x, y] = file.match(/\d+/g).map(Number);
    const tile = new VectorTile(new PbfReader(readFileSync(join(source, file))));
    for (const layer of Object.values(tile.layers)) {
      for (let i = 0; i < layer.length; ++i) {
        const feature = layer.feature(i);
        const found = classify(feature.properties, feature.type);
        const properties = found && propertiesOf(feature.properties, found);
        if (!properties) continue;
        const geojson = feature.toGeoJSON(x, y, z);
        const key = `${found.kind}${JSON.stringify(geojson.geometry)}`;
        if (seen.has(key)) continue;
        seen.add(key);
        kinds[found.kind].push({type: 'Feature', properties, geometry: geojson.geometry});
      }
    }
  }
  return kinds;
}

function bounds(kinds) {
  const box = [Infinity, Infinity, -Infinity, -Infinity];
  const widen = (coordinates) => {
    if (typeof coordinates[0] !== 'number') return coordinates.forEach(widen);
    const [x, y] = coordinates;
    box.splice(0, 4, Math.min(box[0], x), Math.min(box[1], y), Math.max(box[2], x), Math.max(box[3], y));
  };
  for (const feature of kinds.buildings) widen(feature.geometry.coordinates);
  return box;
}

const tileX = (longitude, z) => Math.floor(((longitude + 180) / 360) * 2 ** z);
const tileY = (latitude, z) => {
  const sine = Math.sin((latitude * Math.PI) / 180);
  return Math.floor((0.5 - Math.log((1 + sine) / (1 - sine)) / (4 * Math.PI)) * 2 ** z);
};

function cut(kinds, {lowest, highest, has}, box, write) {
  const indexes = Object.entries(kinds).map(([kind, features]) => {
    const kept = features.filter((feature) => has(feature.properties, kind));
    const options = {maxZoom: highest, indexMaxZoom: highest, indexMaxPoints: 0, tolerance: 3, buffer: 80};
    return [kind, new GeoJSONVT({type: 'FeatureCollection', features: kept}, options)];
  });
  for (let z = lowest; z <= highest; ++z) {
    for (let x = tileX(box[0], z); x <= tileX(box[2], z); ++x) {
      for (let y = tileY(box[3], z); y <= tileY(box[1], z); ++y) {
        const layers = indexes.map(([kind, index]) => [kind, index.getTile(z, x, y)]).filter(([, tile]) => tile?.features.length);
        if (layers.length > 0) write(`${z}-${x}-${y}.pbf`, fromGeojsonVt(Object.fromEntries(layers), {version: 2}));
      }
    }
  }
}

mkdirSync(output, {recursive: true});
const kinds = readFeatures();
const box = bounds(kinds);
const names = [];
let bytes = 0;
for (const band of bands) {
  cut(kinds, band, box, (name, content) => {
    names.push(name.replace('.pbf', ''));
    bytes += content.length;
    writeFileSync(join(output, name), content);
  });
}
writeFileSync(join(output, 'tiles.json'), JSON.stringify({bounds: box, highest: bands.at(-1).highest, tiles: names}));
const counts = Object.entries(kinds).map(([kind, features]) => `${features.length} ${kind}`).join(', ');
console.log(`${names.length} tiles, ${(bytes / 1e6).toFixed(1)} MB: ${counts}; ${box.map((v) => v.toFixed(3))}`);
