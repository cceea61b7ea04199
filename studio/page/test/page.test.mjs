// The page in a real browser: what an author sees, types and clicks.
import assert from 'node:assert/strict';
import {after, before, beforeEach, describe, test} from 'node:test';
import {brokenRules, whenDrawn, openStudio, pixelsOf, startTestBrowser, typeStyle} from './browser.mjs';

const rule = (featureType, elementType, stylers) => ({featureType, elementType, stylers});
const styleOf = (...rules) => JSON.stringify(rules, null, 1);
const kMagenta = [255, 0, 200];
const kRoads = ['highway', 'cityhighway', 'nationalway', 'provincialway', 'arterial'];
const magentaRoads = styleOf(...kRoads.map((type) => rule(type, 'geometry.fill', {color: '#ff00c8'})));

let started;
let studio;
before(async () => {
  started = await startTestBrowser();
  studio = await openStudio(started);
});
after(() => started?.close());


const place = (page, type) => page.evaluate((wanted) => {
  const {map} = window.studio.map;
  const {width, height} = map.getCanvas().getBoundingClientRect();
  for (let y = 60; y < height - 60; y += 4) {
    for (let x = 60; x < width - 90; x += 4) {
      const [first] = window.studio.map.featuresAt({x, y});
      if (first && first.type === wanted) return {x, y};
    }
  }
  return null;
}, type);

describe('the map', () => {
  test('shows a city at once', async () => {
    const {page} = studio;
    const colours = await page.evaluate(() => {
      const source = window.studio.map.map.getCanvas();
      const canvas = Object.assign(document.createElement('canvas'), {width: source.width, height: source.height});
      const context = canvas.getContext('2d');
      context.drawImage(source, 0, 0);
      const {data} = context.getImageData(0, 0, canvas.width, canvas.height);
      const seen = new Set();
      for (let i = 0; i < data.length; i += 4) seen.add((data[i] << 16) | (data[i + 1] << 8) | data[i + 2]);
      return seen.size;
    });
    assert.ok(colours > 50, `${colours} colours`);
  });

  test('draws a typed colour on the roads', async () => {
    const {page} = studio;
    await typeStyle(page, '[]');
    assert.equal(await pixelsOf(page, kMagenta), 0);
    await typeStyle(page, magentaRoads);
    assert.ok(await pixelsOf(page, kMagenta) > 500);
  });

  test('follows the level slider', async () => {
    const {page} = studio;
    await typeStyle(page, styleOf(rule('water', 'geometry.fill', {color: '#112233'}),
      ...kRoads.map((type) => rule(type, 'geometry.fill', {color: '#ff00c8', level: '18'}))));
    assert.equal(await pixelsOf(page, kMagenta), 0);
    await page.locator('#level').fill('18');
    await whenDrawn(page);
    assert.ok(await pixelsOf(page, kMagenta) > 500);
    await page.locator('#follow').check();
    await whenDrawn(page);
    assert.equal(await pixelsOf(page, kMagenta), 0);
  });

  test('keeps the last good style while the text is broken, and says so', async () => {
    const {page} = studio;
    await typeStyle(page, magentaRoads);
    await page.evaluate((text) => window.studio.editor.set(text), `${magentaRoads.slice(0, -5)}`);
    await page.locator('#broken').waitFor({state: 'visible'});
    assert.match(await page.locator('#broken').textContent(), /last style/);
    assert.ok(await pixelsOf(page, kMagenta) > 500);
    await typeStyle(page, magentaRoads);
    assert.equal(await page.locator('#broken').isVisible(), false);
  });

  test('tells of a clicked road which rule colours it, and goes there', async () => {
    const {page} = studio;
    await typeStyle(page, magentaRoads);
    const found = await place(page, 'provincialway');
    assert.ok(found, 'a road is in view');
    await page.locator('#map canvas').click({position: found});
    const link = page.locator('#panel button', {hasText: 'rule 4: provincialway geometry.fill'});
    await link.waitFor();
    await link.click();
    const text = await page.evaluate(() => window.studio.editor.view.state.sliceDoc(
      window.studio.editor.view.state.selection.main.from, window.studio.editor.view.state.selection.main.to));
    assert.equal(JSON.parse(text).featureType, 'provincialway');
  });

  test('shows before and after side by side', async () => {
    const {page} = studio;
    await page.locator('#compare-with').selectOption('plain');
    await page.locator('#compare').check();
    await page.locator('#map-before canvas').waitFor();
    assert.ok(await page.locator('#divide', {hasText: 'before'}).isVisible());
    await page.locator('[data-panel="effects"]').click();
    await page.locator('#panel', {hasText: 'highway fill'}).waitFor();
    await page.locator('#compare').uncheck();
  });
});

describe('the editor', () => {
  test('mends a finding with a click', async () => {
    const {page} = studio;
    await typeStyle(page, '[{"featureType": "water", "elementType": "geometry.fill", "stylers": {"color": "red"}}]');
    await page.locator('[data-panel="findings"]').click();
    await page.locator('[data-fix="color-name"]').click();
    await page.waitForFunction(() => window.studio.findings.length === 0 && window.studio.text.includes('#ff0000'));
  });

  test('takes out a rule without effect, and leaves a style', async () => {
    const {page} = studio;
    const water = rule('water', 'geometry.fill', {color: '#ff0000'});
    await typeStyle(page, styleOf(rule('water', 'geometry.fill', {color: '#0000ff'}), water));
    const fixes = page.locator('[data-fix="no-effect"]');
    await fixes.first().click();
    await page.waitForFunction(() => window.studio.findings.length === 0);
    assert.deepEqual(JSON.parse(await page.evaluate(() => window.studio.text)), [water]);
  });

  test('greys a rule without effect, and no other', async () => {
    const {page} = studio;
    const rules = ['#0000ff', '#00ff00'].map((color) => JSON.stringify(rule('water', 'geometry.fill', {color})));
    await typeStyle(page, `[\n${rules.join(',\n')}\n]`);
    const lines = await page.locator('.cm-line').evaluateAll((all) => all.map((line) => {
      const idle = [...line.querySelectorAll('.cm-idle')];
      const inks = new Set([...line.querySelectorAll(idle.length > 0 ? '.cm-idle, .cm-idle *' : '*')].map((part) => getComputedStyle(part).color));
      return {grey: idle.map((part) => part.textContent).join(''), inks: inks.size};
    }));
    assert.deepEqual(lines.map(({grey}) => grey), ['', rules[0], '', '']);
    assert.equal(lines[1].inks, 1, 'one colour');
    assert.ok(lines[2].inks > 1);
    await page.evaluate(([before, after]) => window.studio.editor.update(window.studio.text.replace(before, after)), ['"water"', '"green"']);
    await page.waitForFunction(() => window.studio.settled === window.studio.editor.text);
    assert.equal(await page.locator('.cm-idle').count(), 0);
  });

  test('offers to take out only what is proven to do nothing', async () => {
    const {page} = studio;
    await typeStyle(page, styleOf(rule('locallabel', 'geometry', {visibility: 'off'}), rule('locallabel', 'labels', {color: '#ff0000'}),
      rule('water', 'geometry.fill', {color: '#0000ff', weight: '3'}), rule('water', 'geometry.fill', {color: '#ff0000'})));
    const offered = await page.evaluate(() => window.studio.findings.map(({fix, rule: number, can_go: canGo}) => [number, fix?.label ?? '', canGo]));
    for (const [, label, canGo] of offered) assert.equal(/^Remove/.test(label), canGo && label !== '');
    assert.ok(offered.some(([number, label]) => number === 3 && label === 'Remove the color'), JSON.stringify(offered));
    await page.locator('[data-panel="findings"]').click();
    await page.locator('#panel button', {hasText: 'Remove the color'}).click();
    assert.deepEqual(JSON.parse(await page.evaluate(() => window.studio.editor.text))[2].stylers, {weight: '3'});
  });

  test('underlines at the right place behind letters of several bytes', async () => {
    const {page} = studio;
    await typeStyle(page, '[{"note": "Астана 😀", "featureType": "lake", "elementType": "all", "stylers": {"color": "#fff000"}}]');
    assert.equal(await page.evaluate(() => {
      const [{from, to}] = window.studio.findings;
      return window.studio.text.slice(from, to);
    }), '"lake"');
  });

  test('completes feature types with their meaning', async () => {
    const {page} = studio;
    await typeStyle(page, '[{"featureType": "hig"}]');
    await page.evaluate(() => window.studio.editor.goTo(window.studio.text.indexOf('hig') + 3));
    await page.keyboard.press('Control+Space');
    await page.locator('.cm-tooltip-autocomplete li', {hasText: 'Names of motorways'}).waitFor();
    await page.keyboard.press('Escape');
  });

  test('lays the style out on a key', async () => {
    const {page} = studio;
    await typeStyle(page, '[{"featureType":"water","elementType":"geometry","stylers":{"color":"#102030"}}]');
    await page.evaluate(() => window.studio.editor.view.focus());
    await page.keyboard.press('Shift+Alt+F');
    await page.waitForFunction(() => window.studio.text.includes('\n  {"featureType": "water"'));
  });

  test('lights up what the rule at the cursor changes', async () => {
    const {page} = studio;
    await typeStyle(page, magentaRoads);
    await page.locator('[data-panel="effects"]').click();
    await page.evaluate(() => window.studio.editor.goToRule(1));
    await page.locator('#panel', {hasText: 'What rule 2 does'}).waitFor();
    assert.match(await page.locator('#panel').textContent(), /cityhighway fill/);
    assert.ok(await page.evaluate(() => JSON.stringify(window.studio.map.map.getFilter('lit-lines')).includes('1301')));
    const second = styleOf(rule('cityhighway', 'geometry.fill', {color: '#ff00c8'})).slice(3, -2);
    await page.evaluate(([before, after]) => window.studio.editor.update(window.studio.text.replace(before, after)),
      [second, second.replace('#ff00c8', '#12ab34')]);
    await page.locator('#panel', {hasText: '#12ab34'}).waitFor();
  });
});

describe('what the panels show', () => {
  test('is what a rule for all types does, with and without the mapping', async () => {
    const {page} = studio;
    await typeStyle(page, styleOf(rule('all', 'labels.icon', {visibility: 'off'})));
    await page.locator('[data-panel="effects"]').click();
    await page.evaluate(() => window.studio.editor.goToRule(0));
    await page.locator('#panel strong', {hasText: 'every type icon'}).waitFor();
    assert.deepEqual(await page.locator('#panel strong').allTextContents(), ['every type icon', 'style ids outside the mapping icon']);
  });

  test('are findings with the gravest first', async () => {
    const {page} = studio;
    await typeStyle(page, styleOf(rule('water', 'geometry.fill', {color: '#0000ff'}), rule('water', 'geometry.fill', {color: '#ff0000'}),
      rule('lake', 'geometry.fill', {color: '#ff0000'})));
    await page.locator('[data-panel="findings"]').click();
    const severities = await page.locator('#panel li > span').allTextContents();
    assert.deepEqual(severities.map((text) => text.trim()), ['error:', 'warning:']);
  });

  test('is each feature type, also where the city has none', async () => {
    const {page} = studio;
    await page.locator('[data-panel="specimens"]').click();
    const names = await page.locator('#panel .specimen canvas').evaluateAll((all) => all.map((each) => each.getAttribute('aria-label')));
    const types = await page.evaluate(() => Object.keys(window.studio.mapping));
    assert.equal(types.length, 72);
    assert.deepEqual(names, types.map((type) => `${type} as the style draws it`));
  });

  test('are levels whose cells lead to their rules', async () => {
    const {page} = studio;
    await typeStyle(page, styleOf(rule('water', 'geometry.fill', {color: '#0000ff'}), rule('water', 'geometry.fill', {color: '#ff0000', level: '9'})));
    await page.locator('[data-panel="levels"]').click();
    await page.locator('#matrix-type').focus();
    await page.locator('#matrix-type').selectOption('water');
    assert.equal(await page.evaluate(() => document.activeElement.id), 'matrix-type', 'the keyboard stays where it was');
    for (const [level, color, number] of [[8, '#0000ff', 0], [9, '#ff0000', 1]]) {
      await page.locator(`#panel button[aria-label="fill at level ${level}: ${color}"]`).click();
      await page.waitForFunction((text) => {
        const {state} = window.studio.editor.view;
        return state.sliceDoc(state.selection.main.from, state.selection.main.to).includes(text);
      }, color);
      assert.equal(await page.evaluate(() => window.studio.rule), number);
    }
  });
});

describe('the rule in question', () => {
  test('is shown on hover', async () => {
    const {page} = studio;
    await typeStyle(page, styleOf(rule('water', 'geometry.fill', {color: '#0000ff'})));
    await page.locator('.cm-line', {hasText: '"water"'}).hover({position: {x: 60, y: 6}});
    await page.locator('.cm-tooltip-hover', {hasText: 'Rule 1 changes water fill.'}).waitFor();
    await page.mouse.move(0, 0);
  });

  test('is found by somebody who sees a wrong colour, and mended', async () => {
    const {page} = studio;
    const wrong = rule('provincialway', 'geometry', {color: '#00ff00'});
    await typeStyle(page, styleOf(...kRoads.map((type) => rule(type, 'geometry.fill', {color: '#ff00c8'})), wrong));
    await page.locator('[data-panel="findings"]').click();
    assert.match(await page.locator('#panel').textContent(), /rule 6 overwrites all that it writes/);
    await page.locator('#map canvas').click({position: await place(page, 'provincialway')});
    await page.locator('#panel button', {hasText: 'rule 6: provincialway geometry'}).first().waitFor();
    await page.locator('[data-panel="findings"]').click();
    await page.locator('#panel li div', {hasText: 'overwritten here'}).locator('button').click();
    assert.equal(await page.evaluate(() => window.studio.rule), 5);
    await page.evaluate(() => window.studio.editor.goToRule(5));
    await page.keyboard.insertText(JSON.stringify({...wrong, elementType: 'geometry.stroke'}));
    await page.waitForFunction(() => window.studio.findings.length === 0 && window.studio.settled === window.studio.editor.text);
    await whenDrawn(page);
    assert.ok(await pixelsOf(page, kMagenta) > 500);
  });

  test('is left out on the other side of the comparison', async () => {
    const {page} = studio;
    await typeStyle(page, magentaRoads);
    await page.locator('[data-panel="findings"]').click();
    await page.evaluate(() => window.studio.editor.goToRule(3));
    await page.locator('#compare-with').selectOption('rule');
    await page.locator('#compare').check();
    await page.waitForFunction((text) => window.studio.without && !window.studio.without.includes('provincialway') &&
      window.studio.comparison.before.answers && window.studio.text === text, magentaRoads);
    await page.locator('#compare').uncheck();
    await page.locator('#compare-with').selectOption('start');
  });

  test('gets another colour with the picker of its chip', async () => {
    const {page} = studio;
    await typeStyle(page, styleOf(rule('water', 'geometry.fill', {color: '#0000ff80'})));
    await page.evaluate(() => {
      HTMLInputElement.prototype.click = function () {
        delete HTMLInputElement.prototype.click;
        this.value = '#12ab34';
        this.dispatchEvent(new Event('input'));
      };
    });
    await page.locator('.cm-chip').click();
    await page.waitForFunction(() => window.studio.text.includes('"#12ab3480"'));
  });
});

describe('where to begin', () => {
  test('is an example', async () => {
    const {page} = studio;
    await page.locator('#examples').selectOption('pale.json');
    await page.waitForFunction(() => window.studio.file.name === 'pale.json' && window.studio.settled === window.studio.editor.text);
    assert.match(await page.evaluate(() => window.studio.text), /"featureType": "land"/);
  });

  test('is a view, also with walls and roofs', async () => {
    const {page} = studio;
    const walls = () => page.evaluate(() => [window.studio.map.map.getLayoutProperty('building-walls', 'visibility'), window.studio.map.map.getPitch() > 40]);
    await page.locator('#cameras').selectOption({label: '3D'});
    assert.deepEqual(await walls(), ['visible', true]);
    await page.locator('#cameras').selectOption({label: 'City'});
    assert.deepEqual(await walls(), ['none', false]);
    await whenDrawn(page);
  });
});

describe('what was typed', () => {
  test('survives a reload', async () => {
    const {page} = studio;
    await typeStyle(page, styleOf(rule('green', 'geometry.fill', {color: '#00aa55'})));
    await page.reload();
    await page.waitForFunction(() => window.studio?.timings.first && window.studio.settled !== undefined);
    assert.match(await page.evaluate(() => window.studio.editor.text), /00aa55/);
  });

  test('is in the link that is shared', async () => {
    const {page} = studio;
    const text = styleOf(rule('green', 'geometry.fill', {color: '#123abc'}));
    await typeStyle(page, text);
    await page.locator('#share').click();
    await page.waitForFunction(() => location.hash.startsWith('#style='));
    const other = await openStudio(started, {fragment: await page.evaluate(() => location.hash)});
    assert.equal(await other.page.evaluate(() => window.studio.editor.text), text);
    await other.profile.close();
  });

  test('is offered again after a link was opened', async () => {
    const {page} = studio;
    const text = styleOf(rule('green', 'geometry.fill', {color: '#123abc'}));
    await typeStyle(page, text);
    await page.locator('#share').click();
    await page.waitForFunction(() => location.hash.startsWith('#style='));
    const fragment = await page.evaluate(() => location.hash);
    const init = () => sessionStorage.getItem('once') ?? (sessionStorage.setItem('once', '1'),
      localStorage.setItem('customstyle-studio-style', JSON.stringify({name: 'mine.json', text: '[]'})));
    const other = await openStudio(started, {fragment, init});
    assert.equal(await other.page.evaluate(() => window.studio.editor.text), text);
    await other.page.locator('#examples').selectOption({label: 'your previous style'});
    await other.page.waitForFunction(() => window.studio.editor.text === '[]' && window.studio.file.name === 'mine.json');
    await other.profile.close();
  });

  test('is not laid over with answers about an older text', async () => {
    const {page} = studio;
    await typeStyle(page, magentaRoads);
    const shown = await page.evaluate(async () => {
      const {studio} = window;
      const before = studio.answers;
      const refreshed = studio.refresh();
      studio.text = '[]'; // typed, and not asked about yet
      await refreshed;
      return studio.answers !== before;
    });
    assert.equal(shown, false);
    await typeStyle(page, '[ ]');
  });
});

describe('a style of a stranger', () => {
  const markup = '"><img src=x onerror="window.hit=1"><script>window.hit=1</script>';
  test('is text everywhere, and no markup', async () => {
    const {page, heard} = studio;
    await typeStyle(page, JSON.stringify([rule(markup, markup, {[markup]: markup, color: markup}),
      rule('water', 'geometry.fill', {color: '#010203'})]));
    for (const panel of ['findings', 'effects', 'levels', 'specimens', 'explain']) {
      await page.locator(`[data-panel="${panel}"]`).click();
    }
    await page.locator('#map canvas').click({position: {x: 200, y: 150}});
    await page.locator('#panel', {hasText: 'style id'}).waitFor();
    assert.equal(await page.evaluate(() => window.hit), undefined);
    assert.equal(await page.locator('#panel img, #panel script').count(), 0);
    assert.deepEqual(heard.errors, []);
  });

  test('that is not a style at all leaves the page usable', async () => {
    const other = await openStudio(started, {fragment: '#style=AAAA____'});
    assert.match(await other.page.evaluate(() => window.studio.editor.text), /featureType/);
    await other.profile.close();
  });

  test('that nests deep does not stop the page', async () => {
    const {page} = studio;
    await typeStyle(page, '['.repeat(5000));
    await typeStyle(page, magentaRoads);
    assert.ok(await pixelsOf(page, kMagenta) > 500);
  });
});

describe('a component that does not come back', () => {
  test('is started again, and answers about the same mapping', async () => {
    const {page} = studio;
    const first = await page.evaluate(async () => {
      const {component} = window.studio;
      component.worker.terminate();
      component.patience = 300;
      const lost = component.ask({method: 'complete'}).catch((error) => error.message);
      component.patience = 20_000; // for the next one, which has to start on a busy machine
      return lost;
    });
    assert.match(first, /restarted: no answer within 0.3 seconds/);
    await typeStyle(page, '[]');
    await typeStyle(page, magentaRoads);
    assert.ok(await pixelsOf(page, kMagenta) > 500);
  });
});

describe('the page', () => {
  test('asks nobody but its own server, and complains of nothing', () => {
    const {heard} = studio;
    assert.ok(heard.requests.length > 10);
    assert.deepEqual(heard.requests.filter((url) => !url.startsWith(started.address) && !url.startsWith(`blob:${started.address}`)), []);
    assert.deepEqual(heard.errors, []);
  });

  test('is walked through by keyboard', async () => {
    const {page} = studio;
    await page.evaluate(() => document.activeElement.blur());
    const reached = new Set();
    for (let i = 0; i < 40; ++i) {
      await page.keyboard.press('Tab');
      reached.add(await page.evaluate(() => document.activeElement.id || document.activeElement.dataset.panel || document.activeElement.tagName));
      if (await page.evaluate(() => document.activeElement.id === 'editor')) await page.keyboard.press('Escape');
    }
    for (const id of ['examples', 'open', 'save', 'format', 'share', 'import-open', 'export-open', 'theme', 'editor', 'level', 'follow', 'three', 'cameras', 'compare']) {
      assert.ok(reached.has(id), `${id} in ${[...reached]}`);
    }
  });

  for (const theme of ['light', 'dark']) {
    test(`meets the rules for everybody, in the ${theme} theme`, async () => {
      const {page} = studio;
      await page.evaluate((name) => window.studio.setTheme(name), theme);
      await typeStyle(page, styleOf(rule('water', 'geometry.fill', {color: 'red'}), rule('lake', 'all', {weight: '3'}),
        rule('highway', 'geometry.fill', {color: '#00ff00'}), rule('highway', 'geometry.fill', {color: '#ff0000'}), rule('green', 'labels.icon', {visibility: 'off', color: 'x'})));
      for (const panel of ['findings', 'explain', 'effects', 'levels', 'specimens']) {
        await page.locator(`[data-panel="${panel}"]`).click();
        if (panel === 'explain') await page.evaluate(() => window.studio.explainAt({x: 200, y: 200}));
        assert.deepEqual(await brokenRules(page), [], panel);
      }
    });
  }
});

describe('on a phone, the page', () => {
  let phone;
  before(async () => (phone = await openStudio(started, {size: {width: 390, height: 720}, scheme: 'dark'})));
  after(() => phone?.profile.close());
  beforeEach(() => phone.page.evaluate(() => {
    const {studio} = window;
    studio.showView('map');
    studio.selectPanel('findings');
    studio.map.pin(null);
    studio.editor.set('[]');
  }));

  test('fits: no part is wider than the screen', async () => {
    const {page} = phone;
    for (const view of ['editor', 'panels', 'map']) {
      await page.locator(`#views [data-view="${view}"]`).click();
      assert.ok(await page.evaluate(() => document.documentElement.scrollWidth <= window.innerWidth), view);
    }
    assert.equal(await page.evaluate(() => document.documentElement.dataset.theme), 'dark');
  });

  test('shows the current level among all levels', async () => {
    const {page} = phone;
    const isShown = () => page.evaluate(() => {
      const [type, field, cell] = ['#matrix-type', 'th', 'td[aria-current]'].map((part) => document.querySelector(`#panel ${part}`).getBoundingClientRect());
      return type.left >= 0 && field.right <= cell.left && cell.right <= window.innerWidth;
    });
    await page.locator('#views [data-view="panels"]').click();
    await page.locator('[data-panel="levels"]').click();
    assert.ok(await isShown(), 'opened');
    for (const level of ['21', '4']) {
      await page.locator('#views [data-view="map"]').click();
      await page.locator('#level').fill(level);
      await page.locator('#views [data-view="panels"]').click();
      assert.ok(await isShown(), level);
    }
  });

  test('leads from the map to the reason, and on to the rule', async () => {
    const {page} = phone;
    await typeStyle(page, magentaRoads);
    const found = await place(page, 'provincialway');
    await page.locator('#map canvas').click({position: found});
    await page.locator('#panel button', {hasText: 'rule 4: provincialway geometry.fill'}).click();
    assert.ok(await page.locator('#editor').isVisible());
    await typeStyle(page, magentaRoads.replace('highway', 'highways'));
    await page.locator('#views button', {hasText: 'Panels (1)'}).click();
    await page.locator('[data-panel="findings"]').click();
    await page.locator('#panel button', {hasText: 'line 3'}).click();
    assert.ok(await page.locator('#editor').isVisible());
  });
});
