// Which features of the city belong to which feature type; the names are those of the mapping file. How each type is
// drawn stands in the legend of the tiles, tools/export/legends/studio.json.

/** Label types of lines, by type of the line. */
export const labelOfLine = {
  subway: 'subwaylabel', railway: 'roadlabel', vacationway: 'vacationwaylabel', scenicspotsway: 'scenicspotswaylabel',
  universityway: 'universitywaylabel', local: 'locallabel', fourlevelway: 'fourlevelwaylabel',
  tertiaryway: 'tertiarywaylabel', arterial: 'arteriallabel', provincialway: 'provincialwaylabel',
  nationalway: 'nationalwaylabel', cityhighway: 'cityhighwaylabel', highway: 'highwaylabel',
};

const POINT = 1;
const LINE = 2;

const roads = [
  [/^(motorway)/, 'highway'], [/^trunk/, 'cityhighway'], [/^primary/, 'nationalway'], [/^secondary/, 'provincialway'],
  [/^tertiary/, 'arterial'], [/^(unclassified|road)/, 'tertiaryway'], [/^residential/, 'fourlevelway'],
  [/^(footway|pedestrian|steps|path|cycleway)/, 'scenicspotsway'], [/^track/, 'vacationway'], [/./, 'local'],
];
const pois = [
  [/park|garden|attraction|viewpoint|monument|memorial|zoo|museum/, 'scenicspotslabel'],
  [/school|college|university|library|kindergarten/, 'educationlabel'],
  [/hospital|pharmacy|doctors|dentist|clinic|veterinary/, 'medicallabel'],
  [/restaurant|cafe|^bar$|fast_food|pub|biergarten/, 'restaurantlabel'],
  [/hotel|hostel|guest_house|apartment/, 'hotellabel'],
  [/car|fuel|parking/, 'carservicelabel'], [/bank|atm|bureau/, 'financelabel'],
  [/station|bus|ferry|platform|stop|taxi|halt/, 'transportationlabel'],
  [/cinema|theatre|stadium|art|music|casino|playground|pitch|sports|nightclub/, 'entertainmentlabel'],
  [/townhall|police|fire|embassy|government|courthouse|prison/, 'governmentlabel'],
  [/post|laundry|hairdresser|toilet|worship|marketplace/, 'lifeservicelabel'],
  [/office|industrial|company|estate_agent|lawyer|insurance/, 'companylabel'],
  [/aerodrome|terminal/, 'airportlabel'], [/./, 'poilabel'],
];
const areas = [
  [/university|school|college|kindergarten/, 'education'], [/hospital|clinic/, 'medical'],
  [/park|grass|wood|forest|scrub|pitch|farm|cemetery|meadow|orchard|wetland|garden|golf|recreation|heath|allotments|village_green/, 'green'],
  [/water|river|basin|reservoir|pond|lake|stream/, 'water'],
  [/retail|commercial|mall|supermarket|marketplace/, 'shopping'],
  [/parking|apron|runway|taxiway|platform|railway|station|aerodrome|garages/, 'transportation'],
  [/residential/, 'estate'], [/attraction|theme_park|zoo|museum/, 'scenicspots'],
  [/stadium|theatre|cinema|sports|playground/, 'entertainment'],
  [/industrial|construction|military|landfill|quarry|pier|bridge/, 'manmade'],
];
const places = [[/country/, 'country'], [/state|province|region/, 'province'], [/^city/, 'city'],
  [/suburb|town/, 'district'], [/neighbourhood|locality|quarter|block/, 'districtlabel'], [/./, 'town']];

const typeIn = (rows, word) => rows.find(([pattern]) => pattern.test(word ?? '-'))?.[1];

/**
 * The feature type of a feature with the tags of OpenStreetMap.
 * @param {Record<string, unknown>} tags
 * @param {number} geometry 1 point, 2 line, 3 area
 * @returns {{type: string, word: string, kind: 'areas'|'lines'|'points'|'buildings'} | null} null where it is not drawn
 */
export function classify(tags, geometry) {
  if (geometry === POINT) return pointOf(tags);
  if (tags.building || tags['building:part']) {
    return geometry === LINE ? null : {kind: 'buildings', type: 'building', word: `${tags.building}`};
  }
  if (tags.highway && !tags.area) return {kind: 'lines', type: typeIn(roads, tags.highway), word: tags.highway};
  if (tags.railway && geometry === LINE) {
    return {kind: 'lines', type: /subway|light_rail/.test(tags.railway) ? 'subway' : 'railway', word: tags.railway};
  }
  if (tags.boundary && geometry === LINE) return {kind: 'lines', type: 'boundary', word: `${tags.admin_level}`};
  if (geometry === LINE) {
    return tags.waterway ? {kind: 'lines', type: 'water', word: tags.waterway} : null;
  }
  return areaOf(tags);
}

function pointOf(tags) {
  if (!tags.name) return null;
  if (tags.place) return {kind: 'points', type: typeIn(places, tags.place), word: tags.place};
  if (tags.station === 'subway') return {kind: 'points', type: 'subwaystation', word: 'subway'};
  const word = tags.amenity ?? tags.tourism ?? tags.leisure ?? tags.office ?? tags.public_transport ?? tags.railway ??
    tags.aeroway ?? tags.historic;
  if (tags.shop) return {kind: 'points', type: 'shoppinglabel', word: tags.shop};
  if (word) return {kind: 'points', type: tags.office ? 'companylabel' : typeIn(pois, word), word};
  return tags.highway === 'bus_stop' ? {kind: 'points', type: 'transportationlabel', word: 'bus_stop'} : null;
}

function areaOf(tags) {
  const word = tags.natural ?? tags.landuse ?? tags.leisure ?? tags.amenity ?? tags.waterway ?? tags.aeroway ??
    tags.tourism ?? tags.shop ?? tags.man_made;
  const type = word && typeIn(areas, word);
  return type ? {kind: 'areas', type, word} : null;
}

function hash(text) {
  let value = 2166136261;
  for (const character of text) value = Math.imul(value ^ character.codePointAt(0), 16777619) >>> 0;
  return value;
}

/** The style id of a type's feature: a word for which features of the type differ chooses among the ids of the mapping. */
export function styleIdOf(mapping, type, word) {
  const ids = mapping[type] ?? [];
  return ids.length === 0 ? null : ids[hash(`${word}`) % ids.length];
}
