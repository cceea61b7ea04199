// The layers of the map, and what they look like by the component's answers at one level.
import {areaLook, areaTypes, backgrounds, buildingLook, classOfLevel, cssColor, iconOf, isShownFrom, kNothing, labelLook, labelTypes, lineLabelTypes,
  lineLook, lineTypes} from './look.js';

const typeIs = (type) => ['==', ['get', 't'], type];
const rivers = {id: 'water-river', type: 'line', kind: 'lines', of: 'water', part: 'line'};

function layer(id, of, part, type, kind, extra = {}) {
  return {id, of, part, type, kind, filter: typeIs(of), ...extra};
}

const areaLayers = areaTypes.filter((type) => type !== 'land').flatMap((type) => [
  layer(`${type}-fill`, type, 'fill', 'fill', 'areas'), layer(`${type}-stroke`, type, 'stroke', 'line', 'areas')]);
const casings = lineTypes.map((type) => layer(`${type}-casing`, type, 'casing', 'line', 'lines'));
const lines = lineTypes.map((type) => layer(`${type}-line`, type, 'line', 'line', 'lines'));
const buildings = [
  layer('building-fill', 'building', 'fill', 'fill', 'buildings'),
  layer('building-stroke', 'building', 'stroke', 'line', 'buildings'),
  layer('building-walls', 'building', 'walls', 'fill-extrusion', 'buildings'),
  layer('building-roof', 'building', 'roof', 'fill-extrusion', 'buildings')];
const lineLabels = lineLabelTypes.map((type) =>
  layer(`${type}-along`, type, 'label', 'symbol', 'lines', {filter: ['==', ['get', 'lt'], type], id_of: 'l'}));
const pointLabels = labelTypes.map((type) => layer(`${type}-label`, type, 'label', 'symbol', 'points'));

/** All layers that show a feature type, bottom to top. */
export const typeLayers = [...areaLayers, {...rivers, filter: typeIs('water')}, ...casings, ...lines, ...buildings,
  ...lineLabels, ...pointLabels];

const lineJoin = {'line-cap': 'round', 'line-join': 'round'};
const fixedLayout = {
  line: lineJoin,
  symbol: {'text-font': ['Noto Sans'], 'text-max-width': 8, 'text-padding': 3, 'icon-padding': 1},
};

/** The style of the map before anything is known of colours. */
export function emptyStyle(tiles, faces, base) {
  const source = {type: 'vector', tiles: [`${base}tiles/{z}-{x}-{y}.pbf`], minzoom: 3, maxzoom: tiles.highest,
    bounds: tiles.bounds, attribution: '© OpenStreetMap contributors'};
  const ground = rectangle(tiles.bounds);
  return {
    version: 8,
    'font-faces': withBase(faces, base),
    light: {intensity: 0, anchor: 'viewport'},
    transition: {duration: 0, delay: 0},
    sources: {city: source, ground: {type: 'geojson', data: ground}},
    layers: [
      {id: 'grid', type: 'background', paint: {}},
      {id: 'land', type: 'fill', source: 'ground', paint: {'fill-antialias': false}},
      ...typeLayers.map(mapLayerOf)],
  };
}

function mapLayerOf({id, type, kind, part, filter, of}) {
  const layout = {...fixedLayout[type]};
  const paint = {};
  if (part === 'label') Object.assign(layout, labelLayout(kind, of));
  if (part === 'stroke') layout['line-cap'] = 'butt';
  if (part === 'walls' || part === 'roof') {
    Object.assign(layout, {visibility: 'none'});
    Object.assign(paint, {
      'fill-extrusion-height': part === 'roof' ? ['+', ['get', 'h'], 0.2] : ['get', 'h'],
      'fill-extrusion-base': part === 'roof' ? ['get', 'h'] : 0, 'fill-extrusion-vertical-gradient': false,
    });
  }
  const minzoom = kind === 'buildings' ? 13 : 0;
  return {id, type, source: 'city', 'source-layer': kind, filter, layout, paint, minzoom};
}

function labelLayout(kind, type) {
  if (kind === 'lines') return {'symbol-placement': 'line', 'text-field': ['get', 'n'], 'symbol-spacing': 350};
  const icon = iconOf[type];
  return {'text-field': ['get', 'n'], ...(icon && {'text-anchor': 'top', 'text-offset': [0, 0.7], 'text-optional': true,
    'icon-image': icon})};
}

const rectangle = ([west, south, east, north]) => ({type: 'Feature', properties: {}, geometry: {type: 'Polygon',
  coordinates: [[[west, south], [east, south], [east, north], [west, north], [west, south]]]}});

const withBase = (faces, base) => Object.fromEntries(Object.entries(faces).map(([family, list]) =>
  [family, list.map((face) => ({...face, url: base + face.url}))]));

/**
 * The values of all layers at a level: {layer: {property: value}}.
 * @param {object} answers the component's answers
 * @param {import('./city-ids.js').CityIds} ids
 * @param {{level: number, is3d: boolean}} view
 */
export function valuesAt(answers, ids, {level, is3d}) {
  const at = classOfLevel(level);
  const recordsOf = recordLists(answers, ids, at);
  const values = {
    grid: {'background-color': answers.grid[at] ? cssColor(answers.grid[at]) : backgrounds.grid},
    land: {'fill-color': answers.land[at] ? cssColor(answers.land[at]) : backgrounds.land},
  };
  for (const each of typeLayers) values[each.id] = layerValues(each, recordsOf(each.of), {level, is3d});
  return values;
}

const kEmptyRecord = {type: null, icon_hidden: false, style: {}};

// The records of a type with the ids in the tiles that have them.
function recordLists(answers, ids, at) {
  return (type) => {
    const groups = new Map();
    for (const id of ids.inCity(type)) {
      const record = answers.records[answers.styles[ids.of(type, id)]?.[at]] ?? kEmptyRecord;
      groups.set(record, [...(groups.get(record) ?? []), id]);
    }
    return [...groups].map(([record, inCity]) => ({record, ids: inCity}));
  };
}

// One value where all style ids agree, else a choice by the style id of the feature.
function chosen(groups, idProperty, valueOf) {
  if (groups.length === 0) return valueOf(kEmptyRecord);
  const byValue = new Map();
  for (const {record, ids} of groups) {
    const key = JSON.stringify(valueOf(record));
    byValue.set(key, [...(byValue.get(key) ?? []), ...ids]);
  }
  const lists = [...byValue].sort((a, b) => b[1].length - a[1].length);
  if (lists.length === 1) return JSON.parse(lists[0][0]);
  const [[common], ...others] = lists;
  return ['match', ['get', idProperty], ...others.flatMap(([key, ids]) => [[...new Set(ids)], JSON.parse(key)]), JSON.parse(common)];
}

// Borders that nobody would see are not laid out: those are many layers. A hidden fill can still be clicked.
const isSeen = (color, width) => color !== kNothing && width !== 0;

function layerValues({of, part, kind, id_of: idProperty = 's'}, groups, {level, is3d}) {
  const pick = (valueOf) => chosen(groups, idProperty, valueOf);
  const shown = (condition) => (condition ? 'visible' : 'none');
  const isShown = isShownFrom(of, level);
  const isFlat = !(is3d && kind === 'buildings');
  switch (part) {
    case 'fill':
      return {'fill-color': pick((r) => areaLook(of, r).fill), visibility: shown(isShown && isFlat)};
    case 'stroke': {
      const color = pick((r) => areaLook(of, r).stroke);
      const width = pick((r) => areaLook(of, r).strokeWidth);
      return {'line-color': color, 'line-width': width, visibility: shown(isShown && isFlat && isSeen(color, width))};
    }
    case 'walls':
      return {'fill-extrusion-color': pick((r) => buildingLook(r).walls), visibility: shown(is3d)};
    case 'roof':
      return {'fill-extrusion-color': pick((r) => buildingLook(r).roof), visibility: shown(is3d)};
    case 'casing': {
      const color = pick((r) => lineLook(of, r, level).stroke);
      const width = pick((r) => lineLook(of, r, level).strokeWidth);
      return {'line-color': color, 'line-gap-width': pick((r) => lineLook(of, r, level).width), 'line-width': width,
        visibility: shown(isShown && isSeen(color, width))};
    }
    case 'line':
      return {'line-color': pick((r) => lineLook(of, r, level).fill), visibility: shown(isShown),
        'line-width': pick((r) => lineLook(of, r, level).width)};
    default:
      return labelValues(of, kind, pick, shown(isShown));
  }
}

function labelValues(of, kind, pick, visibility) {
  const text = pick((r) => labelLook(of, r).hasText);
  const font = pick((r) => labelLook(of, r).isBold);
  const icon = kind === 'points' && iconOf[of] ? {'icon-image': chosenText(pick((r) => labelLook(of, r).hasIcon), iconOf[of])} : {};
  return {
    visibility, ...icon,
    'text-field': chosenText(text, ['get', 'n']),
    'text-font': [font === true ? 'Noto Sans Bold' : 'Noto Sans'],
    'text-size': pick((r) => labelLook(of, r).size),
    'text-color': pick((r) => labelLook(of, r).color),
    'text-halo-color': pick((r) => labelLook(of, r).halo),
    'text-halo-width': pick((r) => labelLook(of, r).haloWidth),
  };
}

const chosenText = (condition, value) => (Array.isArray(condition) ? ['case', condition, value, ''] : condition ? value : '');
