// Before and after: a second map over the first, with a swipe.
import {at} from './dom.js';
import {CityMap} from './map.js';

/** Compares the style with the style at the start, with none, or with the style without the rule at the cursor. */
export class Comparison {
  isOn = false;
  before = null; // the map

  /** @param {object} page the studio */
  constructor(page) {
    this.page = page;
    at('compare').addEventListener('change', ({target}) => this.turn(target.checked));
    at('compare-with').addEventListener('change', () => this.refresh());
    at('swipe').addEventListener('input', () => this.swipe());
    page.map.map.on('move', () => this.followMap());
  }

  get kind() {
    return at('compare-with').value;
  }

  async turn(isOn) {
    this.isOn = isOn;
    for (const id of ['map-before', 'swipe', 'divide']) at(id).hidden = !isOn;
    if (!isOn) return;
    this.before ??= new CityMap(at('map-before'), {...this.page.city, ids: this.page.ids, camera: this.page.map.camera});
    this.followMap();
    this.before.map.resize();
    this.swipe();
    await this.refresh();
  }

  followMap() {
    if (this.isOn) this.before.map.jumpTo(this.page.map.camera);
  }

  swipe() {
    const share = Number(at('swipe').value);
    at('map-before').style.clipPath = `inset(0 ${100 - share}% 0 0)`;
    at('divide').style.left = `${share}%`;
  }

  get text() {
    const {page} = this;
    return {start: page.firstText, plain: '[]', rule: page.without ?? page.text}[this.kind];
  }

  /** Shows what has changed since; the style without the rule has to be asked for first. */
  refresh() {
    if (!this.isOn) return undefined;
    return this.kind === 'rule' && this.page.rule >= 0 ? this.page.showEffectOfRule() : this.show();
  }

  /** Shows the other style, and in the panel of effects what differs. */
  async show() {
    const {page, kind} = this;
    const before = {path: 'before.json', text: this.text};
    const [answers, difference] = await Promise.all([
      page.ask({method: 'answers', style: before}), page.ask({method: 'diff', before, after: page.style})]);
    this.before.pinnedLevel = page.map.pinnedLevel;
    this.before.is3d = page.map.is3d;
    if (!answers.error) this.before.show(answers);
    if (kind !== 'rule') page.effect = difference.error ? difference : {difference, title: 'What changed'};
    page.drawPanel(['effects']);
  }
}
