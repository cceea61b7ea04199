// Export to MapLibre and import from there: two dialogs, and the module that converts.
import {ComponentClient} from './component.js';
import {at, element} from './dom.js';
import {readFile, saveCopy} from './files.js';
import {levelsText} from './levels.js';

const kShownPlaces = 4;
const kLegends = {openmaptiles: 'tiles with the OpenMapTiles schema', studio: 'the studio’s tiles'};

// The module is loaded for each conversion and goes with its answer: a file that it cannot bear costs the page nothing.
async function converted(request) {
  const client = new ComponentClient('component-worker.js', 'conversion');
  try {
    return await client.ask(request);
  } catch (error) {
    return {error: `This cannot be converted here: ${error.cause ?? error.message}. Try again, or use the command customstyle ${request.method}.`};
  } finally {
    client.end();
  }
}

// Where the losses name options of the command, the dialog has fields.
const kFields = [
  ['write --raised for walls and roofs', 'choose “buildings with walls and roofs”'], ['write --tiles URL', 'fill in “Tiles”'],
  ['write --glyphs URL', 'fill in “Glyphs”'], ['write --sprite URL', 'fill in “Sprite”'],
];

function sentence(text) {
  const said = kFields.reduce((before, [option, field]) => before.replace(option, field), text);
  return `${said[0].toUpperCase()}${said.slice(1)}.`;
}

const placeText = (place) => (typeof place === 'string' ? place : `${place.feature_type} ${levelsText(place.levels)}`);

function lossItem({text, places}) {
  const names = places.map(placeText);
  const list = () => element('div', {class: 'quiet'}, names.join('; '));
  const isLong = names.length > kShownPlaces;
  return element('li', {}, sentence(text), names.length > 0 && (isLong
    ? element('details', {}, element('summary', {}, `${names.length} places`), list()) : list()));
}

/** Whether a text is a style for MapLibre renderers, at a glance. */
export const isMapStyle = (text) => /^\s*\{/.test(text) && /"version"\s*:\s*8\b/.test(text) && /"layers"\s*:\s*\[/.test(text);

/** What both dialogs have in common: options, a conversion for each change of them, and what is lost. */
class ConversionDialog {
  /** @param {string} id of the dialog, and the beginning of the ids in it */
  constructor(id) {
    this.id = id;
    this.dialog = at(id);
    this.part('legend').append(...Object.entries(kLegends).map(([value, title]) => element('option', {value}, title)));
    this.part('close').addEventListener('click', () => this.dialog.close());
    this.dialog.addEventListener('close', () => this.forget());
  }

  part(name) {
    return at(`${this.id}-${name}`);
  }

  // An answer that comes after the dialog was closed, or after another question, is too late.
  async convert(request, said) {
    const asked = (this.asked = Symbol('conversion'));
    this.show('Converting …');
    const answer = await converted(request);
    if (asked !== this.asked) return;
    if (answer.error) this.showProblem(answer.error);
    else this.showAnswer(answer, said);
  }

  show(text, losses = []) {
    this.answer = null;
    this.part('do').disabled = true;
    this.part('problem').textContent = '';
    this.part('said').textContent = text;
    this.part('losses').replaceChildren(...losses.map(lossItem));
    this.part('losses').hidden = losses.length === 0;
  }

  showProblem(text) {
    this.show('');
    this.part('problem').textContent = text;
  }

  showAnswer(answer, said) {
    const {losses} = JSON.parse(answer.report);
    this.show(`${said} ${losses.length > 0 ? 'What is lost:' : 'Nothing is lost.'}`, losses);
    this.answer = answer;
    this.part('do').disabled = false;
  }

  forget() {
    this.asked = null;
    this.show('');
  }
}

const stemOf = (name) => name.replace(/\.json$/i, '');

export class ExportDialog extends ConversionDialog {
  /** @param {{style: {path: string, text: string}, component: ComponentClient}} page */
  constructor(page) {
    super('export');
    this.page = page;
    for (const name of ['legend', 'raised', 'tiles', 'glyphs', 'sprite']) {
      this.part(name).addEventListener('change', () => this.ask());
    }
    this.part('do').addEventListener('click', () => this.save());
  }

  open() {
    this.dialog.showModal();
    return this.ask();
  }

  ask() {
    const {style, component: {mapping}} = this.page;
    const value = (name) => this.part(name).value.trim();
    this.name = `${stemOf(style.path)}-maplibre.json`;
    return this.convert({method: 'export', style, mapping, legend: value('legend'), raised: this.part('raised').checked,
      tiles: value('tiles'), glyphs: value('glyphs'), sprite: value('sprite')}, `${this.name} is ready.`);
  }

  async save() {
    this.part('said').textContent = await saveCopy(this.name, this.answer.style);
  }
}

export class ImportDialog extends ConversionDialog {
  /** @param {{component: ComponentClient, load: (name: string, text: string) => Promise<void>, say: (text: string) => void}} page */
  constructor(page) {
    super('import');
    this.page = page;
    this.part('choose').addEventListener('click', () => this.choose());
    this.part('legend').addEventListener('change', () => this.file && this.ask());
    this.part('do').addEventListener('click', () => this.use());
  }

  /** @param {{name: string, text: string}} [file] that has been chosen already */
  open(file) {
    this.dialog.showModal();
    if (file) this.take(file);
  }

  async choose() {
    try {
      const file = await readFile(at('file-input'));
      if (file) await this.take(file);
    } catch (error) {
      this.showProblem(error.message);
    }
  }

  // What customstyle has exported names its legend.
  take(file) {
    this.file = file;
    const [, legend] = /"customstyle:legend":\s*"(\w+)"/.exec(file.text) ?? [];
    if (Object.hasOwn(kLegends, legend)) this.part('legend').value = legend;
    return this.ask();
  }

  ask() {
    const {name, text} = this.file;
    return this.convert({method: 'import', map_style: {path: name, text}, mapping: this.page.component.mapping,
      legend: this.part('legend').value}, `${name} can be used.`);
  }

  async use() {
    const [name, text] = [`${stemOf(this.file.name)}-imported.json`, this.answer.style];
    this.dialog.close();
    await this.page.load(name, text);
    this.page.say(`${name} is open; Ctrl+Z brings back what was here`);
  }

  forget() {
    this.file = null;
    super.forget();
  }
}
