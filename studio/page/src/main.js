// The studio: an editor beside a map that the component styles.
import {ComponentClient} from './component.js';
import {createEditor, rulesOf} from './editor.js';
import {fixOf} from './fixes.js';
import {classOfLevel, levelOfClass} from './look.js';
import {cameras, CityMap, warmUp} from './map.js';
import {indexOfByte} from './offsets.js';
import {effectsPanel, explainPanel, findingsPanel, levelsPanel, specimenPanel} from './panels.js';
import {CityIds} from './city-ids.js';
import {Comparison} from './comparison.js';
import {ExportDialog, ImportDialog, isMapStyle} from './conversion.js';
import {showDifference} from './difference.js';
import {DiskFile, filesOfServer, followServer} from './disk.js';
import {forgetFile, openFile, saveFile} from './files.js';
import {at, changed, element, named} from './dom.js';
import {linkOf, readLink, recall, remember} from './state.js';

const kQuickCheck = 150; // milliseconds
const kLongestPause = 300; // milliseconds without a keystroke before long proofs begin
// No example has a name with blanks.
const kDisk = 'on disk';
const kPrevious = 'previous style';
const listen = (id, event, act) => at(id).addEventListener(event, act);
const fetchJson = async (path) => (await fetch(path)).json();
const fetchText = async (path) => (await fetch(path)).text();

const kPanels = [
  {id: 'findings', title: 'Findings', draw: findingsPanel},
  {id: 'explain', title: 'Why', draw: explainPanel},
  {id: 'effects', title: 'Effects', draw: effectsPanel},
  {id: 'levels', title: 'Levels', draw: levelsPanel},
  {id: 'specimens', title: 'All types', draw: specimenPanel},
];

// The page has no commands; it completes names.
const remedyHere = (remedy) => remedy.replace(/\bcustomstyle list \w+/, 'the list of Ctrl+Space');

class Studio {
  findings = [];
  picked = null;
  effect = null;
  answers = null;
  matrixType = 'highway';
  panel = 'findings';
  rule = -1;
  checking = 0; // milliseconds that the last check took
  timings = {};

  async start() {
    performance.mark('studio-start');
    this.component = new ComponentClient('component-worker.js');
    warmUp();
    const example = recall('style') ? null : fetchText('examples/night.json');
    const [cityMapping, tiles, faces, vocabulary, examples, files] = await Promise.all([
      fetchText('examples/CustomIndex'), fetchJson('tiles/tiles.json'), fetchJson('fonts/faces.json'),
      fetchJson('vocabulary.json'), fetchJson('examples/list.json'), filesOfServer()]);
    performance.mark('studio-files');
    this.city = {tiles, faces, mapping: JSON.parse(cityMapping)};
    const ownMapping = {name: 'CustomIndex', text: cityMapping};
    if (!await this.takeMapping(files.mapping ?? ownMapping)) await this.takeMapping(ownMapping);
    performance.mark('studio-mapping');
    this.text = await this.startPage(files.style, example);
    const answers = await this.ask({method: 'answers', style: this.style});
    performance.mark('studio-answers');
    this.answers = answers.error ? null : answers;
    this.map = new CityMap(at('map'), {...this.city, ids: this.ids, camera: recall('camera') ?? undefined, answers: this.answers});
    performance.mark('studio-map');
    this.map.whenDrawn(() => (this.timings.first = performance.now()));
    this.vocabulary = vocabulary;
    this.createEditor();
    this.connect(examples);
    this.comparison = new Comparison(this);
    this.drawPanels();
    performance.mark('studio-page');
    await this.refresh();
    if (files.style || files.mapping) this.follow();
  }

  // The style of the link, the file of the server, what was typed last, or an example.
  async startPage(file, example) {
    const linked = await readLink();
    if (file) this.disk = this.diskFile(file);
    if (file && !linked) {
      this.file = {name: file.name};
      return this.disk.first;
    }
    if (this.disk) this.disk.isOpen = false;
    const kept = recall('style');
    if (linked) {
      if (kept && kept.text !== linked.text) remember('previous-style', kept);
      this.file = {name: 'shared.json'};
      return linked.text;
    }
    this.file = {name: kept?.name ?? 'night.json'};
    this.isTyped = Boolean(kept);
    return kept?.text ?? example;
  }

  createEditor() {
    this.editor = createEditor(at('editor'), {
      vocabulary: this.vocabulary,
      onChange: () => this.changed(),
      onCursor: (rule) => this.cursorAt(rule),
      onFormat: () => this.format(),
      onSave: () => this.save(),
      describe: (rule) => this.describe(rule),
    });
    this.firstText = this.text;
    this.editor.set(this.text);
    if (!at('notice').textContent) this.say(`${this.file.name} is open`);
    this.showFile();
    this.showConflict();
  }

  get style() {
    return {path: this.file.name, text: this.text};
  }

  get kept() {
    return {name: this.file.name, text: this.text};
  }

  changed() {
    if (this.editor.text === this.text) return;
    this.text = this.editor.text;
    this.isTyped = true;
    if (this.onDisk) this.disk.keepDraft();
    else remember('style', this.kept);
    this.showFile();
    this.typedAt = performance.now();
    this.refresh();
  }

  /**
   * Asks for answers and findings about the text as it stands, and shows them; while some are under way, afterwards.
   * @returns {Promise<void>} when everything about the last text is shown
   */
  refresh() {
    this.isStale = true;
    this.endPause?.();
    this.refreshing ??= this.askUntilFresh().finally(() => (this.refreshing = null));
    return this.refreshing;
  }

  async askUntilFresh() {
    while (this.isStale) {
      this.isStale = false;
      const {style, typedAt} = this;
      if (this.checking < kQuickCheck) await this.showAtOnce(style, typedAt);
      else await this.showMapFirst(style, typedAt);
      if (this.isAbout(style)) this.settled = style.text;
    }
  }

  /** Whether nothing has been asked since about another text. */
  isAbout(style) {
    return !this.isStale && this.text === style.text;
  }

  // Findings come first: while the map is drawn, the page hears nothing.
  async showAtOnce(style, typedAt) {
    const answers = this.ask({method: 'answers', style});
    const report = await this.check(style, answers);
    if (this.isAbout(style)) this.showReport(report, typedAt);
    const answered = await answers;
    if (this.isAbout(style)) this.showAnswers(answered, typedAt);
  }

  // Long proofs wait until the author stops typing: meanwhile the map would not follow.
  async showMapFirst(style, typedAt) {
    const answered = await this.ask({method: 'answers', style});
    if (this.isAbout(style)) this.showAnswers(answered, typedAt);
    await this.pause();
    if (!this.isAbout(style)) return;
    const report = await this.check(style);
    if (this.isAbout(style)) this.showReport(report, typedAt);
  }

  /** @param {Promise<any>} [before] what the component does first */
  async check(style, before) {
    const report = this.ask({method: 'check', style});
    await before;
    const begin = performance.now();
    const checked = await report;
    this.checking = performance.now() - begin;
    return checked;
  }

  pause() {
    return this.isStale ? undefined : new Promise((resolve) => {
      this.endPause = resolve;
      setTimeout(resolve, Math.min(kLongestPause, this.checking / 2));
    });
  }

  showReport(report, typedAt) {
    if (report.error) this.say(report.error);
    this.showFindings(report.error ? [] : report.files[0].findings);
    if (typedAt) this.timings.findings = performance.now() - typedAt;
  }

  showAnswers(answers, typedAt) {
    const isBroken = Boolean(answers.error);
    at('broken').hidden = !isBroken;
    if (isBroken) {
      at('broken').textContent = `The map shows the last style that could be read. ${answers.error}`;
      return;
    }
    this.answers = answers;
    this.map.show(answers);
    if (typedAt) this.map.whenDrawn(() => (this.timings.redraw = performance.now() - typedAt));
    if (this.picked) this.explainAgain();
    if (this.comparison.isOn) this.comparison.refresh();
    else this.showEffectOfRule();
    this.drawPanel(['levels', 'specimens']);
  }

  showFindings(list) {
    const indexOf = indexOfByte(this.text);
    const rules = this.editor ? rulesOf(this.editor.view.state) : [];
    const rank = {error: 0, warning: 1, note: 2};
    const placeOf = ({begin, end}) => ({from: indexOf(begin.offset), to: indexOf(end.offset), line: begin.line});
    this.findings = list.map((finding) => ({...finding, ...placeOf(finding.range), remedy: remedyHere(finding.remedy),
      related: finding.related.map(({text, range}) => ({text, ...placeOf(range)})),
      fix: fixOf(finding, indexOf, rules[finding.rule - 1])}));
    this.findings.sort((a, b) => rank[a.severity] - rank[b.severity] || a.from - b.from);
    if (!this.editor) return;
    const idle = this.findings.filter(({fix, rule}) => fix?.takesRuleOut && rules[rule - 1]).map(({rule}) => rules[rule - 1]);
    this.editor.showFindings(this.findings.map((finding) => this.diagnostic(finding)), idle);
    this.drawTabs();
    this.drawPanel(['findings']);
  }

  diagnostic(finding) {
    const {from, to, severity, message, remedy, code, fix, related} = finding;
    const end = Math.min(Math.max(to, from + 1), this.text.length);
    return {from: Math.min(from, end), to: end, severity: severity === 'note' ? 'info' : severity, source: code,
      message: `${message}\nRemedy: ${remedy}`,
      actions: [...(fix ? [{name: fix.label, apply: () => this.applyFix(finding)}] : []),
        ...related.map((place) => ({name: `Line ${place.line}: ${place.text}`, apply: () => this.goTo(place)}))]};
  }

  applyFix(finding) {
    this.editor.change(finding.fix.changes);
    this.say(`line ${finding.line} is fixed; Ctrl+Z undoes that`);
  }

  // ---- The file on the disk, and the mapping of the server -----------------------------------------------------------------

  /** Whether the editor shows the file that the server edits. */
  get onDisk() {
    return Boolean(this.disk?.isOpen);
  }

  diskFile(file) {
    const disk = new DiskFile(file, {text: () => this.text, take: (text) => this.editor.update(text), say: (text) => this.say(text)});
    disk.addEventListener('conflict', () => this.showConflict());
    return disk;
  }

  follow() {
    followServer({
      style: async (file) => {
        await this.disk?.changed(file);
        this.showFile();
      },
      mapping: async (file) => {
        if (file.text === this.mappingText || !await this.takeMapping(file)) return;
        for (const map of [this.map, this.comparison.before]) if (map) map.ids = this.ids;
        this.say('the mapping has changed on disk and is used');
        await this.refresh();
      },
      lost: () => this.say('the server does not answer; what you type is kept in this browser'),
      back: () => this.say('the server answers again'),
    });
  }

  /** @returns {Promise<boolean>} whether the component takes the mapping */
  async takeMapping({name, text, problem}) {
    const mapping = {path: name, text: text ?? ''};
    const ask = () => this.component.setMapping(mapping);
    const {error} = problem ? {error: problem} : await ask().catch(ask);
    if (error) this.say(`the previous mapping is kept: ${error}`);
    if (error) return false;
    this.mappingText = text;
    this.mapping = JSON.parse(text);
    this.ids = new CityIds(this.city.mapping, this.mapping);
    return true;
  }

  showFile() {
    const isChanged = this.onDisk && this.disk.isChanged;
    at('file').textContent = `${this.file.name}${isChanged ? ' (not saved)' : ''}`;
    document.title = `${isChanged ? '• ' : ''}${this.file.name} – Customstyle studio`;
  }

  showConflict() {
    const theirs = this.onDisk ? this.disk.theirs : null;
    at('conflict').hidden = !theirs;
    if (!theirs) return;
    const isReadable = theirs.text !== null;
    at('conflict-text').textContent = isReadable ? `${this.file.name} has changed on disk and here. Which text do you want to keep?`
      : `${theirs.problem ?? `${this.file.name} was deleted from disk`}. Your text here is unchanged.`;
    at('take-theirs').hidden = at('show-difference').hidden = !isReadable;
    this.say('there is a question below the editor');
  }

  async showDifference() {
    const theirs = this.disk.theirs.text.replace(/\r\n?/g, '\n');
    showDifference(at('difference'), theirs, this.text);
    const answer = await this.ask({method: 'diff', before: {path: this.file.name, text: theirs}, after: this.style});
    const count = answer.changes?.length;
    at('difference-text').textContent = answer.error ?? (count === 0 ? 'The map is the same with both.'
      : `On the map ${count === 1 ? 'one value differs' : `${count} values differ`}.`);
  }

  settleConflict(choose) {
    at('difference').close();
    choose();
    this.showFile();
    this.editor.view.focus();
  }

  async save() {
    if (this.onDisk) await this.disk.save();
    else this.say(await saveFile(this.file.name, this.text));
    this.showFile();
  }

  /** Goes back to the file of the server, as it was left. */
  async openDisk() {
    const {style} = await filesOfServer();
    if (!style) return this.say('the server does not answer');
    this.keepPrevious();
    this.disk.isOpen = true;
    this.disk.open(style);
    await this.load(style.name, this.disk.first, true);
    return this.showConflict();
  }

  async format() {
    const answer = await this.ask({method: 'format', style: this.style});
    if (answer.error) this.say(answer.error);
    else if (answer.text !== this.editor.text) this.editor.set(answer.text);
  }

  /** An answer, or {error} where there is none. */
  ask(request) {
    return this.component.ask(request).catch((error) => ({error: error.message}));
  }

  // ---- What a rule does -------------------------------------------------------------------------------------------------

  cursorAt(rule) {
    if (rule === this.rule) return;
    this.rule = rule;
    clearTimeout(this.effectTimer);
    this.effectTimer = setTimeout(() => this.showEffectOfRule(), 250);
  }

  async showEffectOfRule() {
    const rule = this.rule;
    const {isOn, kind} = this.comparison;
    if (rule < 0 || (this.panel !== 'effects' && !isOn) || (isOn && kind !== 'rule')) return this.map.light([]);
    const effect = await this.ask({method: 'effect', style: this.style, rule});
    if (rule !== this.rule) return undefined;
    this.effect = effect.error ? effect : {...effect, title: `What rule ${rule + 1} does`};
    this.without = effect.without;
    this.map.light(effect.error ? [] : [...new Set(effect.difference.changes.flatMap(({ids}) => ids))]);
    if (isOn) this.comparison.show();
    return this.drawPanel(['effects']);
  }

  async describe(rule) {
    const effect = await this.ask({method: 'effect', style: this.style, rule});
    if (effect.error) return '';
    const {changes} = effect.difference;
    if (changes.length === 0) return `Rule ${rule + 1} has no effect on this map.`;
    const fields = [...new Set(changes.map(changed))];
    return `Rule ${rule + 1} changes ${fields.slice(0, 8).join(', ')}${fields.length > 8 ? ` and ${fields.length - 8} more` : ''}.`;
  }

  // ---- Why a feature looks as it does ------------------------------------------------------------------------------------

  async explainAt(point) {
    const features = this.map.featuresAt(point);
    const known = new Set();
    const distinct = features.filter(({id, type}) => id !== undefined && !known.has(`${type}${id}`) && known.add(`${type}${id}`));
    this.picked = {features: distinct.length > 0 ? distinct : [{type: 'land', id: this.mapping.land?.[0], name: ''}], index: 0};
    this.selectPanel('explain');
    this.showView('panels');
    await this.explainAgain();
  }

  async explainAgain() {
    const {picked} = this;
    const level = this.map.level;
    const explanation = await this.explain(picked.features[picked.index].id, level);
    if (this.picked !== picked) return;
    Object.assign(picked, {explanation, level});
    this.matrixType = picked.features[picked.index].type;
    this.drawPanel(['explain']);
  }

  async explain(id, level) {
    const answer = await this.ask({method: 'explain', style: this.style, id, level});
    return answer.error ? answer : answer.explanations[0];
  }

  explainNext() {
    this.picked = {...this.picked, index: (this.picked.index + 1) % this.picked.features.length};
    return this.explainAgain();
  }

  /** Goes to the rule that wrote a value of a style id at a level class. */
  async goToWriter(id, field, levelIndex) {
    const explanation = await this.explain(id, levelOfClass(levelIndex));
    const from = explanation[field]?.from;
    if (from) this.goToRule(from.rule - 1);
    else this.say(`no rule sets ${named(field)} here`);
  }

  goTo({from, to}) {
    this.showView('editor');
    this.editor.goTo(from, to);
  }

  goToRule(rule) {
    this.showView('editor');
    this.editor.goToRule(rule);
  }

  showLevelsOf(type) {
    this.matrixType = type;
    this.selectPanel('levels');
  }

  get level() {
    return this.map.level;
  }

  get levelClass() {
    return classOfLevel(this.level);
  }

  // ---- The page -----------------------------------------------------------------------------------------------------------

  say(text) {
    at('notice').textContent = text;
  }

  selectPanel(id) {
    const isOpened = id !== this.panel;
    this.panel = id;
    this.drawPanels();
    if (isOpened) this.scrollToLevel();
    this.showEffectOfRule();
  }

  drawPanels() {
    this.drawTabs();
    this.drawPanel([this.panel]);
  }

  drawTabs() {
    const focused = document.activeElement?.dataset?.panel;
    at('count').textContent = this.findings.length > 0 ? `(${this.findings.length})` : '';
    at('tabs').replaceChildren(...kPanels.map(({id, title}) => element('button', {
      type: 'button', role: 'tab', 'aria-selected': `${id === this.panel}`, 'data-panel': id, tabIndex: id === this.panel ? 0 : -1,
      onclick: () => this.selectPanel(id)}, title, id === 'findings' && element('span', {class: 'count'}, ` (${this.findings.length})`))));
    if (focused) at('tabs').querySelector(`[data-panel="${this.panel}"]`)?.focus();
  }

  drawPanel(ids) {
    if (!ids.includes(this.panel)) return;
    const focused = at('panel').contains(document.activeElement) && document.activeElement.id;
    at('panel').replaceChildren(kPanels.find(({id}) => id === this.panel).draw(this));
    if (focused) at(focused)?.focus();
  }

  // At once: nothing moves, whatever readers prefer.
  scrollToLevel() {
    const cell = at('panel').querySelector('.matrix [aria-current]');
    if (cell) at('panel').scrollTo({left: cell.offsetLeft - at('panel').clientWidth / 2, behavior: 'instant'});
  }

  /** Shows one of the three parts where there is room for one only. */
  showView(view) {
    document.body.dataset.view = view;
    for (const button of document.querySelectorAll('#views button')) {
      button.setAttribute('aria-pressed', `${button.dataset.view === document.body.dataset.view}`);
    }
    this.map.map.resize();
  }

  showLevel() {
    at('level').value = this.map.level;
    at('level-text').textContent = this.map.level;
    this.drawPanel(['levels', 'specimens']);
    this.scrollToLevel();
  }

  // What was typed can be had back when another style has taken its place.
  keepPrevious() {
    if (!this.isTyped || this.onDisk) return;
    remember('previous-style', this.kept);
    this.offerPrevious();
  }

  offerPrevious() {
    const examples = at('examples');
    if (!recall('previous-style') || examples.querySelector(`[value="${kPrevious}"]`)) return;
    examples.firstElementChild.after(element('option', {value: kPrevious}, 'your previous style'));
  }

  async openPrevious() {
    const {name, text} = recall('previous-style');
    await this.load(name, text);
    this.isTyped = true;
  }

  /** Opens another style; the file on the disk stays as it is, and "undo" leads back. */
  async load(name, text, isOnDisk = false) {
    this.keepPrevious();
    if (this.disk) this.disk.isOpen = isOnDisk;
    this.file = {name};
    this.firstText = text;
    forgetFile();
    this.editor.set(text);
    this.isTyped = false;
    if (!isOnDisk) remember('style', this.kept);
    this.showFile();
    this.showConflict();
    this.say(`${name} is open`);
  }

  /** Lets the user choose a style file; a map style is imported. */
  openFile(importing) {
    const use = (file) => {
      if (!isMapStyle(file.text)) return this.load(file.name, file.text);
      importing.open(file);
      return false;
    };
    return openFile(at('file-input'), use).catch((error) => this.say(`not opened: ${error.message}`));
  }

  connect(examples) {
    this.showView('map');
    this.connectFiles(examples);
    this.connectConflict();
    this.connectMap();
    listen('format', 'click', () => this.format());
    listen('share', 'click', () => this.share());
    listen('theme', 'click', () => this.setTheme(document.documentElement.dataset.theme === 'dark' ? 'light' : 'dark'));
    listen('tabs', 'keydown', (event) => this.walkTabs(event));
    for (const button of document.querySelectorAll('#views button')) {
      button.addEventListener('click', () => this.showView(button.dataset.view));
    }
  }

  connectFiles(examples) {
    if (this.disk) at('examples').append(element('option', {value: kDisk}, `${this.disk.name} on disk`));
    this.offerPrevious();
    at('examples').append(...examples.map((name) => element('option', {value: name}, name)));
    listen('examples', 'change', async ({target}) => {
      await this.openExample(target.value);
      target.value = '';
    });
    const [exporting, importing] = [new ExportDialog(this), new ImportDialog(this)];
    listen('export-open', 'click', () => exporting.open());
    listen('import-open', 'click', () => importing.open());
    listen('open', 'click', () => this.openFile(importing));
    listen('save', 'click', () => this.save());
    document.addEventListener('keydown', (event) => {
      if (event.key !== 's' || !(event.ctrlKey || event.metaKey) || event.defaultPrevented) return;
      event.preventDefault();
      this.save();
    });
  }

  connectConflict() {
    for (const id of ['keep-mine', 'difference-mine']) listen(id, 'click', () => this.settleConflict(() => this.disk.keepMine()));
    for (const id of ['take-theirs', 'difference-theirs']) listen(id, 'click', () => this.settleConflict(() => this.disk.takeTheirs()));
    listen('show-difference', 'click', () => this.showDifference());
    listen('difference-close', 'click', () => at('difference').close());
  }

  connectMap() {
    at('cameras').append(...cameras.map(({name}, i) => element('option', {value: i}, name)));
    listen('level', 'input', ({target}) => {
      at('follow').checked = false;
      this.map.pin(Number(target.value));
    });
    listen('follow', 'change', ({target}) => this.map.pin(target.checked ? null : Number(at('level').value)));
    listen('three', 'change', ({target}) => this.map.set3d(target.checked));
    listen('cameras', 'change', ({target}) => this.goToCamera(cameras[target.value]));
    this.map.addEventListener('level', () => this.showLevel());
    this.map.map.on('click', ({point}) => this.explainAt(point));
    this.map.map.on('moveend', () => remember('camera', this.map.camera));
    this.showLevel();
  }

  async openExample(value) {
    if (value === kDisk) await this.openDisk();
    else if (value === kPrevious) await this.openPrevious();
    else if (value) await this.load(value, await fetchText(`examples/${value}`));
  }

  async share() {
    history.replaceState(null, '', await linkOf(this.text));
    const copied = await navigator.clipboard?.writeText(location.href).then(() => true, () => false);
    this.say(copied ? 'the link is in the clipboard' : 'the link is in the address bar');
  }

  goToCamera({center, zoom, pitch = 0, bearing = 0, is3d = false}) {
    at('three').checked = is3d;
    this.map.set3d(is3d);
    this.map.map.jumpTo({center, zoom, pitch, bearing});
  }

  walkTabs({key}) {
    const step = {ArrowRight: 1, ArrowLeft: -1}[key];
    if (!step) return;
    const index = kPanels.findIndex(({id}) => id === this.panel);
    this.selectPanel(kPanels[(index + step + kPanels.length) % kPanels.length].id);
  }

  setTheme(theme) {
    document.documentElement.dataset.theme = theme;
    remember('theme', theme);
  }
}

const studio = new Studio();
studio.setTheme(recall('theme') ?? (matchMedia('(prefers-color-scheme: dark)').matches ? 'dark' : 'light'));
studio.start().catch((error) => studio.say(`the studio could not start: ${error.message}`));
window.studio = studio; // for tests, and for the curious
