// How the map draws a feature type: the base look, overlaid by what the component answers.

/** Level classes: levels 4 to 21, then all others. */
export const kOtherLevels = 18;
export const classOfLevel = (level) => (level >= 4 && level <= 21 ? level - 4 : kOtherLevels);

const areaColors = {
  land: '#f3f1ec', estate: '#eceae4', green: '#cfe3c0', water: '#a9cfe8', scenicspots: '#d9e8c9', education: '#e9e2d0',
  medical: '#f0dede', shopping: '#f2e3d5', entertainment: '#e6e0ee', transportation: '#e3e4ea', manmade: '#e2ded8',
  subwaystation: '#dcdfe8', building: '#ddd6cc',
};
const roadLooks = {
  boundary: ['#a59bb0', '#a59bb0', 0.5], subway: ['#7f8fb0', '#5f6f90', 0.6], railway: ['#9a9a9a', '#7a7a7a', 0.5],
  water: ['#a9cfe8', '#a9cfe8', 0.6], vacationway: ['#e0d8c4', '#c9bfa6', 0.35], scenicspotsway: ['#e8dfd0', '#d4c9b5', 0.35],
  universityway: ['#ffffff', '#d6d0c6', 0.5], local: ['#ffffff', '#d6d0c6', 0.5], fourlevelway: ['#ffffff', '#d0cabf', 0.65],
  tertiaryway: ['#ffffff', '#cfc8bc', 0.75], arterial: ['#fffdf5', '#cbbf9f', 0.95], provincialway: ['#fdf0c6', '#d9c07a', 1.1],
  nationalway: ['#fbe3a1', '#d6b25e', 1.25], cityhighway: ['#f9d58e', '#cf9f4a', 1.4], highway: ['#f6b26b', '#c47f35', 1.55],
};
const firstLevel = {
  local: 15, scenicspotsway: 15, vacationway: 14, fourlevelway: 14, universityway: 14, tertiaryway: 13, arterial: 11,
  otherlabel: 16, poilabel: 17, lifeservicelabel: 17, carservicelabel: 17, financelabel: 17, companylabel: 17,
  restaurantlabel: 17, shoppinglabel: 17, hotellabel: 16, entertainmentlabel: 16, medicallabel: 16, educationlabel: 16,
  governmentlabel: 15, transportationlabel: 17, scenicspotslabel: 15, districtlabel: 14, subwaystation: 14,
  locallabel: 16, fourlevelwaylabel: 15, scenicspotswaylabel: 16, tertiarywaylabel: 15, arteriallabel: 14,
};
const placeSizes = {city: 20, district: 15, town: 14, country: 20, province: 18, continent: 22, districtlabel: 13};

/** Whether the base look shows a type at a level. */
export const isShownFrom = (type, level) => level >= (firstLevel[type] ?? 4);

export const cssColor = ({rgb, alpha}) => {
  const part = (at) => Number.parseInt(rgb.slice(at, at + 2), 16);
  return `rgba(${part(1)},${part(3)},${part(5)},${Math.round((alpha / 255) * 1000) / 1000})`;
};
const baseWidth = (level) => Math.max(0.6, 1.32 ** (level - 9) * 0.75);
const round = (value) => Math.round(value * 100) / 100;

/** Colours and sizes of an area. */
export function areaLook(type, {style}) {
  return {
    fill: style.fill ? cssColor(style.fill) : areaColors[type] ?? '#e8e4dc',
    stroke: style.stroke ? cssColor(style.stroke) : type === 'building' && !style.fill ? '#c4bcb0' : 'rgba(0,0,0,0)',
    strokeWidth: style.stroke_weight ?? (style.stroke || type === 'building' ? 0.6 : 0),
  };
}

/** The walls and the roof of a building in three dimensions. */
export function buildingLook({style}) {
  const walls = style.fill ? cssColor(style.fill) : '#d3cbc0';
  return {walls, roof: style.top_surface ? cssColor(style.top_surface) : style.fill ? walls : '#e6e0d7'};
}

export function lineLook(type, {style}, level) {
  const [fill, stroke, scale] = roadLooks[type] ?? roadLooks.local;
  const width = style.fill_weight ?? round(baseWidth(level) * scale);
  const hasCasing = !/^(boundary|subway|railway|water)$/.test(type) && level >= 12;
  return {
    fill: style.fill ? cssColor(style.fill) : fill,
    stroke: style.stroke ? cssColor(style.stroke) : style.fill && style.fill.alpha === 0 ? 'rgba(0,0,0,0)' : stroke,
    width,
    strokeWidth: style.stroke_weight ?? (hasCasing || style.stroke ? round(Math.min(1.5, 0.4 + width / 12)) : 0),
  };
}

// A halo wider than a quarter of the text cannot be drawn.
export function labelLook(type, {style, icon_hidden: iconHidden}) {
  const size = style.font_size ?? placeSizes[type] ?? 12;
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
