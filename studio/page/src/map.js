// The city on the map.
import * as maplibre from 'maplibre-gl';
import {typeLayers, emptyStyle, valuesAt} from './map-layers.js';

const kIconSize = 17; // pixels
const kStart = {center: [71.4305, 51.1285], zoom: 13.3};

/** Places to look at, by what they show best. */
export const cameras = [
  {name: 'City', ...kStart},
  {name: 'Centre', center: [71.4305, 51.1285], zoom: 15.4, pitch: 0},
  {name: 'Region', center: [71.44, 51.16], zoom: 10.3, pitch: 0},
  {name: 'Streets', center: [71.421, 51.163], zoom: 16.4, pitch: 0},
  {name: '3D', center: [71.4305, 51.1262], zoom: 15.2, pitch: 58, bearing: -20, is3d: true},
];

const base = new URL('.', document.baseURI).href;
maplibre.setWorkerUrl(`${base}maplibre-gl-worker.mjs`);

/** Starts the map's workers, so that they are there when a map is made. */
export const warmUp = () => maplibre.prewarm();

async function readIcon(name) {
  const image = new Image(kIconSize * devicePixelRatio, kIconSize * devicePixelRatio);
  image.src = `${base}icons/${name}.svg`;
  await image.decode();
  const canvas = document.createElement('canvas');
  canvas.width = canvas.height = Math.round(kIconSize * devicePixelRatio);
  const context = canvas.getContext('2d');
  context.drawImage(image, 0, 0, canvas.width, canvas.height);
  // A light edge, so that the icon shows on any ground.
  context.globalCompositeOperation = 'source-in';
  context.fillStyle = '#5b5f66';
  context.fillRect(0, 0, canvas.width, canvas.height);
  return context.getImageData(0, 0, canvas.width, canvas.height);
}

const isLayout = (property) => /^(visibility|text-field|text-font|text-size|icon-image|line-cap|line-join)$/.test(property);

const levelOfZoom = (zoom) => Math.max(0, Math.floor(zoom + 1e-6) + 1);

/** One map whose layers look as the component answers. Tells of its level with an event "level". */
export class CityMap extends EventTarget {
  constructor(container, {tiles, faces, ids, camera = kStart, answers = null}) {
    super();
    this.ids = ids;
    this.answers = answers;
    this.pinnedLevel = null;
    this.is3d = false;
    this.applied = {};
    this.map = new maplibre.Map({
      container, style: this.firstStyle(tiles, faces, camera), ...camera, minZoom: 3, maxZoom: 20.99, fadeDuration: 0,
      attributionControl: {compact: false}, canvasContextAttributes: {preserveDrawingBuffer: true},
      maxPitch: 65,
    });
    this.map.addControl(new maplibre.NavigationControl({visualizePitch: true}), 'top-right');
    this.map.addControl(new maplibre.ScaleControl());
    this.map.on('zoom', () => this.update());
    this.map.setMissingStyleImageResolver((name) => this.addIcon(name));
    this.map.once('style.load', () => {
      this.isLoaded = true;
      this.update();
    });
  }

  // Tiles are laid out once where the first answers are known already.
  firstStyle(tiles, faces, {zoom}) {
    const style = emptyStyle(tiles, faces, base);
    if (!this.answers) return style;
    const values = valuesAt(this.answers, this.ids, {level: levelOfZoom(zoom), is3d: false});
    for (const layer of style.layers) {
      const known = (this.applied[layer.id] = {});
      for (const [property, value] of Object.entries(values[layer.id])) {
        known[property] = JSON.stringify(value);
        ((isLayout(property) ? (layer.layout ??= {}) : layer.paint))[property] = value;
      }
    }
    return style;
  }

  /** Calls `act` once when everything in view is drawn. */
  whenDrawn(act) {
    const begin = performance.now();
    const look = () => {
      const isDrawn = this.isLoaded && this.map.loaded() && this.map.areTilesLoaded() && performance.now() > begin + 20;
      if (isDrawn) act();
      else setTimeout(look, 20);
    };
    this.map.triggerRepaint();
    this.map.once('render', look);
  }

  async addIcon(name) {
    const icon = await readIcon(name);
    if (!this.map.hasImage(name)) this.map.addImage(name, icon, {pixelRatio: devicePixelRatio});
  }

  /** The level that is shown: pinned, or the one of the zoom. MapLibre counts tiles of 512 pixels, renderers of 256. */
  get level() {
    return this.pinnedLevel ?? levelOfZoom(this.map.getZoom());
  }

  /** Where it is looked at from. */
  get camera() {
    const {map} = this;
    return {center: map.getCenter(), zoom: map.getZoom(), pitch: map.getPitch(), bearing: map.getBearing()};
  }

  pin(level) {
    this.pinnedLevel = level;
    this.update();
  }

  set3d(is3d) {
    this.is3d = is3d;
    this.update();
  }

  show(answers) {
    this.answers = answers;
    this.shownView = null;
    this.update();
  }

  // Only what differs from the last values reaches the map.
  update() {
    const view = `${this.level} ${this.is3d}`;
    if (!this.answers || !this.isLoaded || this.shownView === view) return;
    this.shownView = view;
    const values = valuesAt(this.answers, this.ids, {level: this.level, is3d: this.is3d});
    for (const [layer, properties] of Object.entries(values)) this.apply(layer, properties);
    this.dispatchEvent(new CustomEvent('level', {detail: this.level}));
  }

  apply(layer, properties) {
    const known = (this.applied[layer] ??= {});
    for (const [property, value] of Object.entries(properties)) {
      const text = JSON.stringify(value);
      if (known[property] === text) continue;
      known[property] = text;
      if (isLayout(property)) this.map.setLayoutProperty(layer, property, value, {validate: false});
      else this.map.setPaintProperty(layer, property, value, {validate: false});
    }
  }

  /** The features of feature types at a point, topmost first. */
  featuresAt(point) {
    const reach = [[point.x - 3, point.y - 3], [point.x + 3, point.y + 3]];
    return this.map.queryRenderedFeatures(reach, {layers: typeLayers.map(({id}) => id)})
      .map((feature) => {
        const along = feature.layer.id.endsWith('-along');
        const {t, s, l, lt, n} = feature.properties;
        const [type, inCity] = along ? [lt, l] : [t, s];
        return {type, id: this.ids.of(type, inCity), name: n ?? '', layer: feature.layer.id};
      });
  }

  /** Lights the features of some style ids up. */
  light(styleIds) {
    const worn = this.ids.wearing(styleIds);
    const has = (type, id) => ['match', ['get', type],
      ...worn.flatMap((each) => [each.type, ['in', ['get', id], ['literal', each.ids]]]), false];
    if (!this.isLoaded) return;
    for (const {id, ...layer} of litLayers) {
      if (!this.map.getLayer(id)) this.map.addLayer({id, source: 'city', ...layer, filter: false});
      this.map.setFilter(id, worn.length === 0 ? false : ['any', has('t', 's'), has('lt', 'l')]);
    }
  }
}

const kLit = '#ff2fb3';
const litLayers = [
  {id: 'lit-areas', type: 'fill', 'source-layer': 'areas', paint: {'fill-color': kLit, 'fill-opacity': 0.45}},
  {id: 'lit-buildings', type: 'fill', 'source-layer': 'buildings', minzoom: 13,
    paint: {'fill-color': kLit, 'fill-opacity': 0.45}},
  {id: 'lit-lines', type: 'line', 'source-layer': 'lines', paint: {'line-color': kLit, 'line-width': 3}},
  {id: 'lit-points', type: 'circle', 'source-layer': 'points',
    paint: {'circle-color': kLit, 'circle-radius': 6, 'circle-opacity': 0.7}},
];
