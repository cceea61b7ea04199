// Makes streams of style ids from the vector tiles of real places:
//     node make-streams.cjs <node_modules> <mapping file> <output directory>
// Each feature of a tile becomes one style id of the feature type that it belongs to. The output directory receives a
// file a place, with one style id a line in draw order.
'use strict';

const fs = require('fs');
const path = require('path');

const [modules, mappingFile, outputDirectory] = process.argv.slice(2).map((name) => path.resolve(name));
const {VectorTile} = require(path.join(modules, '@mapbox/vector-tile'));
const Pbf = require(path.join(modules, 'pbf'));
const tilesDirectory = path.join(modules, '@mapbox/mvt-fixtures/real-world');

const POINT = 1;

// What a road's class makes of the road and of its label.
const roads = [
  [/^motorway_link/, 'cityhighway', 'cityhighwaylabel'],
  [/^motorway/, 'highway', 'highwaylabel'],
  [/^trunk/, 'nationalway', 'nationalwaylabel'],
  [/^primary/, 'provincialway', 'provincialwaylabel'],
  [/^(secondary|link)/, 'arterial', 'arteriallabel'],
  [/^tertiary/, 'tertiaryway', 'tertiarywaylabel'],
  [/^(street_limited|construction|living_street|proposed)/, 'fourlevelway', 'fourlevelwaylabel'],
  [/^(path|pedestrian|footway|steps|cycleway)/, 'scenicspotsway', 'scenicspotswaylabel'],
  [/^track/, 'vacationway', 'vacationwaylabel'],
  [/^(major_rail|minor_rail|level_crossing)/, 'railway', 'roadlabel'],
  [/^ferry/, 'transportation', 'transportationlabel'],
  [/./, 'local', 'locallabel'],
];

// The label types of points of interest, by icon or by tag.
const pois = [
  [/park|garden|attraction|viewpoint|monument|memorial|golf|zoo/, 'scenicspotslabel'],
  [/school|college|university|library|kindergarten/, 'educationlabel'],
  [/hospital|pharmacy|doctor|dentist|clinic|veterinary/, 'medicallabel'],
  [/restaurant|cafe|bar|fast_?-?food|pub|beer|ice-?_?cream/, 'restaurantlabel'],
  [/lodging|hotel|hostel|guest_house/, 'hotellabel'],
  [/car|fuel|parking/, 'carservicelabel'],
  [/bank|atm|bureau_de_change/, 'financelabel'],
  [/rail|bus|ferry|platform|stop_position|station|taxi/, 'transportationlabel'],
  [/cinema|theatre|museum|stadium|art|music|casino|playground|pitch|sports/, 'entertainmentlabel'],
  [/town_?-?hall|police|fire|embassy|government|courthouse|prison/, 'governmentlabel'],
  [/post|laundry|hairdresser|toilet|place_of_worship|religious/, 'lifeservicelabel'],
  [/office|industrial|company/, 'companylabel'],
  [/shop|grocery|clothing|supermarket|convenience|bakery|butcher|hardware|furniture|yes/, 'shoppinglabel'],
  [/./, 'poilabel'],
];

const areas = [
  [/park|grass|wood|forest|scrub|pitch|agriculture|farm|cemetery|meadow|crop|wetland|garden|golf|recreation/, 'green'],
  [/school|college|university|kindergarten/, 'education'],
  [/hospital|clinic/, 'medical'],
  [/retail|commercial|supermarket|shop/, 'shopping'],
  [/parking|apron|runway|taxiway|platform|railway|station/, 'transportation'],
  [/residential/, 'estate'],
  [/museum|stadium|theatre|cinema|sports/, 'entertainment'],
  [/water|river|stream|basin|reservoir/, 'water'],
  [/./, 'land'],
];

const places = [
  [/country/, 'country'],
  [/state|province/, 'province'],
  [/city/, 'city'],
  [/suburb/, 'district'],
  [/neighbourhood|locality/, 'districtlabel'],
  [/./, 'town'],
];

const find = (rows, word) => rows.find(([pattern]) => pattern.test(word || '-'));
const typeIn = (rows, word) => find(rows, word)[1];

// By layer of the tile: the feature type, and the word that tells the styles of one type apart.
const layers = {
  water: () => ['water', ''],
  waterway: (p) => ['water', p.class],
  water_label: () => ['water', 'label'],
  waterway_label: (p) => ['water', p.class],
  landuse: (p) => [typeIn(areas, p.class), p.type],
  landuse_overlay: (p) => [typeIn(areas, p.class), p.type],
  landcover: (p) => [typeIn(areas, p.class), p.class],
  hillshade: (p) => ['land', `${p.class}${p.level}`],
  contour: (p) => ['land', `contour${p.index}`],
  building: (p) => [buildingType(p.type), p.type],
  barrier_line: (p) => ['manmade', p.class],
  aeroway: (p) => ['transportation', p.type],
  admin: (p) => ['boundary', `${p.admin_level}`],
  road: (p) => [p.type === 'subway' ? 'subway' : find(roads, p.class)[1], p.type],
  road_label: (p) => [p.shield && !p.name ? 'highwaysign' : find(roads, p.class)[2], p.class],
  motorway_junction: (p) => [/^motorway/.test(p.class) ? 'highwayentrance' : 'arterialentrance', p.class],
  rail_station_label: (p) => [p.maki === 'rail' ? 'transportationlabel' : 'subwaystation', p.maki],
  airport_label: (p) => ['airportlabel', p.maki],
  mountain_peak_label: (p) => ['scenicspotslabel', p.maki],
  place_label: (p) => [typeIn(places, p.type), p.type],
  poi_label: (p) => [typeIn(pois, p.maki), p.type],
  osm: classifyTags,
};

function buildingType(word) {
  const type = typeIn(areas, word);
  return ['education', 'medical', 'shopping', 'entertainment'].includes(type) ? type : 'building';
}

// Features that carry the tags of their author instead of classes.
function classifyTags(tags, geometry) {
  const word = (...keys) => tags[keys.find((key) => tags[key] !== undefined)];
  const poi = word('shop', 'amenity', 'tourism', 'office', 'leisure', 'public_transport', 'bus', 'railway');
  if (geometry === POINT) {
    if (tags.place) return [typeIn(places, tags.place), tags.place];
    if (poi) return [tags.shop ? 'shoppinglabel' : typeIn(pois, poi), poi];
    if (tags.highway) return ['transportationlabel', tags.highway];
    return ['otherlabel', word('power', 'barrier', 'natural', 'crossing')];
  }
  if (tags.highway) return [find(roads, tags.highway)[1], tags.highway];
  if (tags.railway) return [tags.railway === 'subway' ? 'subway' : 'railway', tags.railway];
  if (tags.building) return [buildingType(tags.building), tags.building];
  if (tags.boundary) return ['boundary', tags.boundary];
  if (tags.waterway || tags.natural === 'water') return ['water', tags.waterway];
  if (tags.barrier || tags.man_made || tags.power) return ['manmade', word('barrier', 'man_made', 'power')];
  const area = word('landuse', 'leisure', 'amenity', 'natural', 'shop');
  return [typeIn(areas, area), area];
}

function hash(text) {
  let value = 2166136261;
  for (const character of text) value = Math.imul(value ^ character.codePointAt(0), 16777619) >>> 0;
  return value;
}

const mapping = JSON.parse(fs.readFileSync(mappingFile, 'utf8'));
const drawRanks = new Map(Object.keys(mapping).map((name, rank) => [name, rank]));

// Areas, then roads, then labels: the mapping names the types in the order in which a renderer draws them.
function styleIdOf(layerName, feature) {
  const [type, word] = layers[layerName](feature.properties, feature.type);
  const ids = mapping[type];
  return {rank: drawRanks.get(type), id: ids[hash(`${word}`) % ids.length]};
}

function featuresOf(file) {
  const tile = new VectorTile(new Pbf(fs.readFileSync(file)));
  return Object.entries(tile.layers).flatMap(([name, layer]) =>
    Array.from({length: layer.length}, (_, i) => styleIdOf(name, layer.feature(i))));
}

function writeStream(name, files) {
  const features = files.flatMap(featuresOf);
  features.sort((left, right) => left.rank - right.rank);
  fs.writeFileSync(path.join(outputDirectory, `${name}.ids`), features.map(({id}) => `${id}\n`).join(''));
  const styles = new Set(features.map(({id}) => id));
  console.log(`${name}: ${features.length} features, ${styles.size} styles`);
}

function tilesOf(place) {
  const directory = path.join(tilesDirectory, place);
  return fs.readdirSync(directory).sort().map((file) => path.join(directory, file));
}

fs.mkdirSync(outputDirectory, {recursive: true});
writeStream('sanfrancisco', tilesOf('sanfrancisco'));
writeStream('chicago', tilesOf('chicago'));
writeStream('montevideo', [path.join(tilesDirectory, 'osm-qa-montevideo/12-1408-2471.mvt')]);
