// The panels below the map: findings, explanation, effects, levels, specimens.
import {changed, element, named, swatch} from './dom.js';
import {levelsText} from './levels.js';
import {areaLook, areaTypes, backgrounds, buildingLook, cssColor, kOtherLevels, labelLook, levelOfClass, lineLook, lineTypes} from './look.js';

const kHow = {overwritten: 'overwritten later'};
const isColor = (value) => value !== null && typeof value === 'object' && 'rgb' in value;
const inWords = (value) => (isColor(value) ? `${value.rgb}${value.alpha === 255 ? '' : ` alpha ${value.alpha}`}` : `${value ?? 'not set'}`);
const shown = (value) => (isColor(value) ? [swatch(cssColor(value)), inWords(value)] : [inWords(value)]);
const levelName = (index) => (index === kOtherLevels ? 'other' : `${levelOfClass(index)}`);

function jump(page, rule, text = `rule ${rule}`) {
  return element('button', {type: 'button', class: 'plain', onclick: () => page.goToRule(rule - 1)}, text);
}

// ---- Findings -----------------------------------------------------------------------------------------------------------

export function findingsPanel(page) {
  const {findings} = page;
  if (findings.length === 0) return element('p', {}, 'No findings. Click something on the map to see which rule made its look.');
  const link = (place) => element('button', {type: 'button', class: 'plain', onclick: () => page.goTo(place)}, `line ${place.line}`);
  return element('ul', {}, ...findings.map((finding) => element('li', {}, link(finding), ' ',
    element('span', {class: finding.severity}, `${finding.severity}: `), finding.message,
    element('div', {class: 'quiet'}, `Remedy: ${finding.remedy} `,
      finding.fix && element('button', {type: 'button', 'data-fix': finding.code, onclick: () => page.applyFix(finding)}, finding.fix.label)),
    ...finding.related.map((place) => element('div', {class: 'quiet'}, link(place), ` ${place.text}`)))));
}

// ---- Explanation ----------------------------------------------------------------------------------------------------------

export function explainPanel(page) {
  if (!page.picked) return element('p', {}, 'Click something on the map to see where its look comes from.');
  const {picked: {features, index, explanation, level}} = page;
  const feature = features[index];
  if (!explanation) return element('p', {}, `Explaining ${feature.type} …`);
  return element('div', {},
    element('p', {}, `${feature.name ? `“${feature.name}”: ` : ''}${feature.type}, style id ${feature.id}, level ${level}`,
      features.length > 1 && element('span', {}, '  ',
        element('button', {type: 'button', onclick: () => page.explainNext()}, `next of ${features.length} here`))),
    explanation.error ? element('p', {class: 'error'}, explanation.error) : explanationTable(page, explanation));
}

function explanationTable(page, explanation) {
  const rows = Object.entries(explanation).filter(([, topic]) => topic?.lost && (topic.from && topic.value !== null || topic.lost.length > 0));
  if (rows.length === 0) return element('p', {}, 'No rule sets anything here: the look is the map’s own.');
  return element('table', {}, element('thead', {}, element('tr', {}, ...['Value', 'Is', 'By', 'Lost'].map((text) => element('th', {scope: 'col'}, text)))),
    element('tbody', {}, ...rows.map(([field, {value, from, lost}]) => {
      return element('tr', {}, element('th', {scope: 'row'}, named(field)), element('td', {}, ...shown(value)),
        element('td', {}, from ? jump(page, from.rule, `rule ${from.rule}: ${from.rule_feature_type} ${from.rule_element_type}`) : ''),
        element('td', {}, ...lost.map((loss) => element('div', {}, ...shown(loss.value), ' ', jump(page, loss.rule), ` ${kHow[loss.how] ?? named(loss.how)}`))));
    })));
}

// ---- Effects --------------------------------------------------------------------------------------------------------------

export function effectsPanel(page) {
  const {effect} = page;
  if (!effect) return element('p', {}, 'Put the cursor on a rule to see what it does, or compare two styles.');
  if (effect.error) return element('p', {class: 'error'}, effect.error);
  const {changes} = effect.difference;
  return element('div', {}, element('p', {}, effect.title, changes.length === 0 ? ': nothing changes on this map, proven for every style id at every level.' : ` (${changes.length})`),
    element('ul', {}, ...changes.slice(0, 200).map((change) => element('li', {},
      element('strong', {}, changed(change)), ` ${levelsText(change.levels)}: `,
      ...shown(change.a), ' → ', ...shown(change.b), ' ', change.b_from && jump(page, change.b_from.rule)))));
}

// ---- Levels ---------------------------------------------------------------------------------------------------------------

export function levelsPanel(page) {
  const {answers, mapping, vocabulary, matrixType: type} = page;
  if (!answers) return element('p', {}, 'No style yet.');
  const select = element('select', {id: 'matrix-type', onchange: ({target}) => page.showLevelsOf(target.value)},
    ...Object.keys(mapping).map((name) => element('option', {value: name, selected: name === type}, name)));
  const id = (mapping[type] ?? [])[0];
  const records = (answers.styles[id] ?? []).map((index) => answers.records[index]);
  const fields = vocabulary.fields.map(({word}) => word).filter((field) => records.some(({style}) => style[field] !== undefined));
  const head = element('tr', {}, element('th', {}, 'Level'), ...records.map((_, i) => element('th', {scope: 'col'}, levelName(i))));
  const rows = fields.map((field) => element('tr', {}, element('th', {scope: 'row'}, named(field)),
    ...records.map(({style}, i) => matrixCell(page, id, field, style[field], i))));
  rows.push(element('tr', {}, element('th', {scope: 'row'}, 'icon'), ...records.map((record, i) =>
    matrixCell(page, id, 'icon', record.icon_hidden ? 'off' : 'on', i))));
  return element('div', {class: 'levels'}, element('p', {}, element('label', {}, 'Feature type ', select)),
    element('table', {class: 'matrix'}, element('thead', {}, head), element('tbody', {}, ...rows)));
}

function cellText(value) {
  if (isColor(value)) return value.alpha === 0 ? 'clear' : '';
  return `${value ?? ''}`;
}

function matrixCell(page, id, field, value, index) {
  const button = element('button', {type: 'button', title: inWords(value ?? null),
    'aria-label': `${named(field)} at level ${levelName(index)}: ${inWords(value ?? null)}`,
    onclick: () => page.goToWriter(id, field, index)}, cellText(value));
  if (isColor(value)) button.style.backgroundColor = cssColor(value);
  return element('td', {'aria-current': page.levelClass === index ? 'true' : undefined}, button);
}

// ---- Specimens ------------------------------------------------------------------------------------------------------------

export function specimenPanel(page) {
  const {answers, mapping, level, levelClass} = page;
  if (!answers) return element('p', {}, 'No style yet.');
  return element('div', {}, element('p', {}, `Every feature type at level ${level}, even those that the city does not have.`),
    element('div', {class: 'specimen'}, ...Object.entries(mapping).map(([type, ids]) => {
      const record = answers.records[answers.styles[ids[0]]?.[levelClass]] ?? {style: {}, icon_hidden: false};
      return element('div', {}, drawn(type, record, answers, levelClass, level), element('button',
        {type: 'button', class: 'plain', onclick: () => page.showLevelsOf(type)}, type));
    })));
}

function drawn(type, record, {land, grid}, levelClass, level) {
  const canvas = element('canvas', {width: 300, height: 88, role: 'img', 'aria-label': `${type} as the style draws it`});
  const context = canvas.getContext('2d');
  context.scale(2, 2);
  const background = type === 'grid' ? grid : land;
  context.fillStyle = background[levelClass] ? cssColor(background[levelClass]) : backgrounds[type === 'grid' ? 'grid' : 'land'];
  context.fillRect(0, 0, 150, 44);
  if (type === 'building') drawBuilding(context, record);
  else if (areaTypes.includes(type)) drawArea(context, areaLook(type, record));
  else if (lineTypes.includes(type)) drawLine(context, lineLook(type, record, level));
  else if (type !== 'grid') drawLabel(context, type, record);
  return canvas;
}

function drawArea(context, {fill, stroke, strokeWidth}) {
  Object.assign(context, {fillStyle: fill, strokeStyle: stroke, lineWidth: strokeWidth});
  context.fillRect(20, 8, 110, 28);
  if (strokeWidth > 0) context.strokeRect(20, 8, 110, 28);
}

function drawBuilding(context, record) {
  const {walls, roof} = buildingLook(record);
  drawArea(context, areaLook('building', record));
  context.fillStyle = walls;
  context.fillRect(95, 16, 30, 18);
  context.fillStyle = roof;
  context.fillRect(95, 10, 30, 7);
}

function drawLine(context, {fill, stroke, width, strokeWidth}) {
  const draw = (style, size) => {
    if (size <= 0) return;
    context.beginPath();
    context.moveTo(10, 30);
    context.lineTo(140, 14);
    Object.assign(context, {strokeStyle: style, lineWidth: size});
    context.stroke();
  };
  if (strokeWidth > 0) draw(stroke, width + 2 * strokeWidth);
  draw(fill, width);
}

function drawLabel(context, type, record) {
  const {size, color, halo, haloWidth, isBold, hasText, hasIcon} = labelLook(type, record);
  if (hasText) {
    Object.assign(context, {font: `${isBold ? 700 : 400} ${size}px "Noto Sans", sans-serif`, fillStyle: color, strokeStyle: halo,
      lineWidth: 2 * haloWidth, textBaseline: 'middle', lineJoin: 'round'});
    if (haloWidth > 0) context.strokeText('Астана Aa', 34, 22);
    context.fillText('Астана Aa', 34, 22);
  }
  if (hasIcon) {
    context.fillStyle = '#5b5f66';
    context.beginPath();
    context.arc(18, 22, 6, 0, 7);
    context.fill();
  }
}
