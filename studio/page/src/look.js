// How the map draws a feature type: the look of the legend, overlaid by what the component answers.
import legend from '../../../tools/export/legends/studio.json';

/** The colours behind everything where the style sets none. */
export const {backgrounds} = legend;

/** Level classes: levels 4 to 21, then all others. */
const kLowest = 4;
export const kOtherLevels = 18;
export const levelOfClass = (index) => (index === kOtherLevels ? kLowest - 1 : index + kLowest);
export const classOfLevel = (level) => (level >= kLowest && level < kLowest + kOtherLevels ? level - kLowest : kOtherLevels);

const rowsOf = (kind) => legend.layers.filter((layer) => layer.kind === kind);
const typesOf = (kind) => rowsOf(kind).filter(({name}) => !name).map(({type}) => type);

/** Types by how they are drawn, in the order of drawing: what is more important lies above. */
export const areaTypes = ['land', ...typesOf('area')];
export const lineTypes = typesOf('line');
export const lineLabelTypes = typesOf('line_label');
export const labelTypes = typesOf('label');

/** Icons of the label types, as the package of icons names them. */
export const iconOf = Object.fromEntries(rowsOf('label').filter(({icon}) => icon).map(({type, icon}) => [type, icon]));

// What holds at a level of a value, or of an object of levels.
function atLevel(value, level) {
  if (typeof value !== 'object') return value;
  const levels = Object.keys(value).map(Number);
  return value[levels.filter((from) => from <= level).at(-1) ?? levels[0]];
}

const looks = new Map(legend.layers.map(({kind, type, look}) => [`${kind} ${type}`, look]));
looks.set('area land', {fill: backgrounds.land});

// How the legend draws a type: a function from a key to its value.
function baseOf(kind, type, level = 0) {
  const look = looks.get(`${kind} ${type}`);
  return (key, otherwise) => atLevel(look?.[key] ?? otherwise, level);
}

const firstLevel = Object.fromEntries(legend.layers.filter(({from}) => from).map(({type, from}) => [type, from]));

/** Whether the base look shows a type at a level. */
export const isShownFrom = (type, level) => level >= (firstLevel[type] ?? 4);

export const cssColor = ({rgb, alpha}) => {
  const part = (at) => Number.parseInt(rgb.slice(at, at + 2), 16);
  return `rgba(${part(1)},${part(3)},${part(5)},${Math.round((alpha / 255) * 1000) / 1000})`;
};

/** The colour of what is not drawn. */
export const kNothing = 'rgba(0,0,0,0)';

// A border that only the style colours has no width in the legend.
const borderWidth = (style, width) => style.stroke_weight ?? (style.stroke && width === 0 ? legend.border : width);

/** Colours and sizes of an area. */
export function areaLook(type, {style}) {
  const base = baseOf(type === 'building' ? 'building' : 'area', type);
  return {
    fill: style.fill ? cssColor(style.fill) : base('fill', '#e8e4dc'),
    stroke: style.stroke ? cssColor(style.stroke) : style.fill ? kNothing : base('stroke', kNothing),
    strokeWidth: borderWidth(style, base('stroke_width', 0)),
  };
}

/** The walls and the roof of a building in three dimensions. */
export function buildingLook({style}) {
  const base = baseOf('building', 'building');
  const walls = style.fill ? cssColor(style.fill) : base('walls');
  return {walls, roof: style.top_surface ? cssColor(style.top_surface) : style.fill ? walls : base('roof')};
}

export function lineLook(type, {style}, level) {
  const base = baseOf('line', type, level);
  return {
    fill: style.fill ? cssColor(style.fill) : base('fill', '#ffffff'),
    stroke: style.stroke ? cssColor(style.stroke) : style.fill?.alpha === 0 ? kNothing : base('stroke', kNothing),
    width: style.fill_weight ?? base('width', 1),
    strokeWidth: borderWidth(style, base('stroke_width', 0)),
  };
}

// A halo wider than a quarter of the text cannot be drawn.
export function labelLook(type, {style, icon_hidden: iconHidden}) {
  const size = style.font_size ?? baseOf('label', type)('text_size', 12);
  const isHidden = style.text_fill?.alpha === 0 && (style.text_stroke?.alpha ?? 0) === 0;
  return {
    size,
    color: style.text_fill ? cssColor(style.text_fill) : '#4a463f',
    halo: style.text_stroke ? cssColor(style.text_stroke) : 'rgba(255,255,255,0.85)',
    haloWidth: Math.min(size / 4, style.text_stroke_weight ?? 1.2),
    isBold: (style.text_fill_weight ?? 0) >= 2,
    hasText: !isHidden && size > 0,
    hasIcon: !iconHidden,
  };
}
