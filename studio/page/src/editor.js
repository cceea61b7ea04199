// The editor of the style: JSON with the component's findings, completion, and colours as chips.
import {autocompletion, closeBrackets, closeBracketsKeymap, completionKeymap, startCompletion} from '@codemirror/autocomplete';
import {defaultKeymap, history, historyKeymap, indentWithTab, isolateHistory} from '@codemirror/commands';
import {json} from '@codemirror/lang-json';
import {bracketMatching, ensureSyntaxTree, foldGutter, HighlightStyle, syntaxHighlighting, syntaxTree} from '@codemirror/language';
import {lintGutter, lintKeymap, setDiagnostics} from '@codemirror/lint';
import {highlightSelectionMatches, searchKeymap} from '@codemirror/search';
import {EditorState, StateEffect, StateField} from '@codemirror/state';
import {
  Decoration, drawSelection, EditorView, highlightActiveLine, hoverTooltip, keymap, lineNumbers, ViewPlugin, WidgetType,
} from '@codemirror/view';
import {tags} from '@lezer/highlight';

/** How text looks in the page. */
export const look = EditorView.theme({
  '&': {height: '100%', fontSize: '12px', backgroundColor: 'var(--ground)', color: 'var(--text)'},
  '.cm-scroller': {fontFamily: 'ui-monospace, "Noto Sans Mono", monospace'},
  // What does not fit on the line goes on below it, indented.
  '.cm-line': {paddingLeft: '34px', textIndent: '-28px'},
  '.cm-gutters': {backgroundColor: 'var(--raised)', color: 'var(--quiet)', borderRight: '1px solid var(--line)'},
  '.cm-activeLine': {backgroundColor: 'color-mix(in srgb, var(--accent) 8%, transparent)'},
  '.cm-activeLineGutter': {backgroundColor: 'transparent'},
  '&.cm-focused > .cm-scroller > .cm-selectionLayer .cm-selectionBackground, .cm-selectionBackground':
    {background: 'color-mix(in srgb, var(--accent) 28%, var(--ground))'},
  '.cm-cursor': {borderLeftColor: 'var(--text)'},
  '.cm-tooltip': {backgroundColor: 'var(--raised)', color: 'var(--text)', border: '1px solid var(--line)', maxWidth: '46em'},
  '.cm-tooltip-autocomplete ul li[aria-selected]': {backgroundColor: 'var(--accent)', color: 'var(--ground)'},
  '.cm-panels': {backgroundColor: 'var(--raised)', color: 'var(--text)'},
  '.cm-chip': {display: 'inline-block', width: '12px', height: '12px', border: '1px solid var(--quiet)', borderRadius: '3px',
    marginRight: '4px', verticalAlign: '-1px', cursor: 'pointer', padding: 0},
  '.cm-idle, .cm-idle *': {color: 'var(--quiet)', fontStyle: 'italic'},
  '.cm-diagnostic': {color: 'var(--text)'},
});

export const colours = syntaxHighlighting(HighlightStyle.define([
  {tag: tags.propertyName, color: 'var(--accent)'},
  {tag: tags.string, color: 'var(--text)'},
  {tag: [tags.number, tags.bool, tags.null], color: 'var(--error)'},
  {tag: [tags.punctuation, tags.separator], color: 'var(--quiet)'},
]));

// ---- Colours as chips -------------------------------------------------------------------------------------------------

class Chip extends WidgetType {
  constructor(text, from) {
    super();
    Object.assign(this, {text, from});
  }
  eq(other) {
    return other.text === this.text && other.from === this.from;
  }
  toDOM(view) {
    const chip = document.createElement('button');
    chip.className = 'cm-chip';
    chip.type = 'button';
    chip.style.backgroundColor = this.text;
    chip.setAttribute('aria-label', `Colour ${this.text}: choose another`);
    chip.addEventListener('click', () => pickColour(view, this.from, this.text));
    return chip;
  }
  ignoreEvent() {
    return true;
  }
}

// The first seven characters are the colour; what follows is its alpha, and stays.
function pickColour(view, from, text) {
  const input = document.createElement('input');
  input.type = 'color';
  input.value = text.slice(0, 7).toLowerCase();
  input.addEventListener('input', () => view.dispatch({changes: {from, to: from + 7, insert: input.value}}));
  input.click();
}

const kColour = /"(#[0-9a-fA-F]{6}(?:[0-9a-fA-F]{2})?)"/g;
const chips = ViewPlugin.fromClass(class {
  constructor(view) {
    this.decorations = this.build(view);
  }
  update(update) {
    if (update.docChanged || update.viewportChanged) this.decorations = this.build(update.view);
  }
  build(view) {
    const found = [];
    for (const {from, to} of view.visibleRanges) {
      for (const match of view.state.doc.sliceString(from, to).matchAll(kColour)) {
        const at = from + match.index + 1;
        found.push(Decoration.widget({widget: new Chip(match[1], at), side: -1}).range(at));
      }
    }
    return Decoration.set(found);
  }
}, {decorations: (plugin) => plugin.decorations});

// ---- Rules without effect -----------------------------------------------------------------------------------------------

const setIdle = StateEffect.define();
const idleRules = StateField.define({
  create: () => Decoration.none,
  update(value, transaction) {
    let ranges = value.map(transaction.changes);
    for (const effect of transaction.effects) {
      if (effect.is(setIdle)) ranges = Decoration.set(effect.value.map(({from, to}) => Decoration.mark({class: 'cm-idle'}).range(from, to)), true);
    }
    return ranges;
  },
  provide: (field) => EditorView.decorations.from(field),
});

// ---- What stands where --------------------------------------------------------------------------------------------------

const kParsing = 200; // milliseconds for what is not in view

/** The rules of a document: the range of each value in the outermost list or object. */
export function rulesOf(state) {
  const outer = (ensureSyntaxTree(state, state.doc.length, kParsing) ?? syntaxTree(state)).topNode.firstChild;
  const rules = [];
  for (let node = outer?.firstChild; node; node = node.nextSibling) {
    const value = node.name === 'Property' ? node.lastChild : node;
    if (/^(Object|Array|String|Number|True|False|Null)$/.test(value?.name ?? '')) rules.push({from: value.from, to: value.to});
  }
  return rules;
}

function ruleAt(state, position) {
  return rulesOf(state).findIndex(({from, to}) => position >= from && position <= to);
}

function objectAt(state, position) {
  let node = syntaxTree(state).resolveInner(position, 1);
  while (node && node.name !== 'Object') node = node.parent;
  return node;
}

const textOf = (state, node) => state.sliceDoc(node.from, node.to).replace(/^"|"$/g, '');

function memberOf(state, object, name) {
  for (const property of object?.getChildren('Property') ?? []) {
    if (textOf(state, property.firstChild) === name) return property.lastChild;
  }
  return null;
}

// ---- Completion -----------------------------------------------------------------------------------------------------------

// Values worth proposing, by the kind of a styler.
const proposals = {
  color: () => ['#ffffff', '#000000', '#d94f2b', '#2b6fd9', '#2f9e5b', '#f2c14e'].map((label) => ({label, detail: 'colour'})),
  visibility: () => [{label: 'on'}, {label: 'off'}],
  size: () => ['1', '2', '3', '5', '8', '10', '12', '14', '16', '20'].map((label) => ({label, detail: 'pixels'})),
  level: ({levels: {lowest, highest}}) => Array.from({length: highest - lowest + 1}, (_, i) => ({label: `${lowest + i}`, detail: 'level'})),
};

// The styler's own example first.
function valuesOf({kind, example}, vocabulary) {
  const others = (proposals[kind]?.(vocabulary) ?? []).filter(({label}) => label !== example);
  return [...(example ? [{label: example, detail: 'example', boost: 1}] : []), ...others];
}

function completions(vocabulary) {
  const words = (list, section) => list.map(({word, title}) => ({label: word, detail: title, section}));
  const elementsFor = (type, stylers) => {
    const taken = vocabulary.takes.filter((row) => row.types.includes(type) && stylers.includes(row.styler)).map((row) => row.elements);
    return taken.length === 0 ? null : new Set(taken.flat());
  };
  const values = {
    featureType: () => words(vocabulary.types),
    elementType: (rule, state) => {
      const type = memberOf(state, rule, 'featureType');
      const stylers = (memberOf(state, rule, 'stylers')?.getChildren('Property') ?? []).map((p) => textOf(state, p.firstChild));
      const works = type && elementsFor(textOf(state, type), stylers);
      return words(vocabulary.elements).map((option) => ({...option, boost: !works || works.has(option.label) ? 1 : -50,
        detail: works && !works.has(option.label) ? `${option.detail} (no effect here)` : option.detail}));
    },
  };
  return (context) => {
    const node = syntaxTree(context.state).resolveInner(context.pos, -1);
    if (node.name !== 'String' && node.name !== 'PropertyName') return null;
    const from = node.from + 1;
    if (node.name === 'PropertyName') {
      const isStyler = textOf(context.state, node.parent.parent.parent?.firstChild ?? node) === 'stylers';
      const options = isStyler ? words(vocabulary.stylers) : ['featureType', 'elementType', 'stylers'].map((label) => ({label}));
      return {from, options, validFor: /^\w*$/};
    }
    if (node.parent?.name !== 'Property') return null;
    const name = textOf(context.state, node.parent.firstChild);
    const styler = vocabulary.stylers.find(({word}) => word === name);
    const list = styler ? valuesOf(styler, vocabulary) : values[name]?.(node.parent.parent, context.state);
    return list ? {from, options: list, validFor: /^[\w.#]*$/} : null;
  };
}

// ---- The editor -----------------------------------------------------------------------------------------------------------

/**
 * @param {HTMLElement} host receives the editor in a shadow tree, where its style sheets need no exception from the policy
 * @param {{vocabulary: object, onChange: () => void, onCursor: (rule: number) => void, onFormat: () => void,
 *          onSave: () => void, describe: (rule: number) => Promise<string>}} page
 */
export function createEditor(host, {vocabulary, onChange, onCursor, onFormat, onSave, describe}) {
  const root = host.attachShadow({mode: 'open'});
  const hover = hoverTooltip(async (view, position) => {
    const rule = ruleAt(view.state, position);
    const text = rule < 0 ? '' : await describe(rule);
    if (!text) return null;
    return {pos: position, create: () => {
      const dom = document.createElement('div');
      dom.textContent = text;
      return {dom};
    }};
  }, {hoverTime: 600});
  const view = new EditorView({
    root, parent: root,
    state: EditorState.create({extensions: [
      EditorView.lineWrapping, lineNumbers(), foldGutter(), history(), drawSelection(), highlightActiveLine(), bracketMatching(), closeBrackets(),
      highlightSelectionMatches(), json(), colours, look, chips, idleRules, lintGutter(), hover,
      autocompletion({override: [completions(vocabulary)], activateOnTyping: true}),
      keymap.of([{key: 'Shift-Alt-f', run: () => (onFormat(), true)}, {key: 'Mod-s', preventDefault: true, run: () => (onSave(), true)},
        {key: 'Mod-Space', run: startCompletion},
        ...closeBracketsKeymap, ...defaultKeymap, ...searchKeymap, ...historyKeymap, ...completionKeymap, ...lintKeymap, indentWithTab]),
      EditorView.contentAttributes.of({'aria-label': 'Style file'}),
      EditorView.updateListener.of((update) => {
        if (update.docChanged) onChange();
        if (update.selectionSet || update.docChanged) onCursor(ruleAt(update.state, update.state.selection.main.head));
      }),
    ]}),
  });
  const bar = document.createElement('link');
  bar.rel = 'stylesheet';
  bar.href = 'editor.css';
  root.append(bar);

  return {
    view,
    get text() {
      return view.state.doc.toString();
    },
    set(text) {
      view.dispatch({changes: {from: 0, to: view.state.doc.length, insert: text}, selection: {anchor: 0}, scrollIntoView: true,
        annotations: isolateHistory.of('full')}); // a step of its own for "undo"
    },
    /** Makes the text another one; cursor and view stay where nothing changes, and "undo" leads back. */
    update(text) {
      const now = view.state.doc.toString();
      const shorter = Math.min(now.length, text.length);
      let from = 0;
      while (from < shorter && now[from] === text[from]) ++from;
      let kept = 0;
      while (kept < shorter - from && now.at(-1 - kept) === text.at(-1 - kept)) ++kept;
      view.dispatch({changes: {from, to: now.length - kept, insert: text.slice(from, text.length - kept)},
        annotations: isolateHistory.of('full')});
    },
    /** Carries out changes of separate parts; the cursor goes to the first. */
    change(changes) {
      view.dispatch({changes, selection: {anchor: Math.min(...changes.map(({from}) => from))}, scrollIntoView: true});
    },
    goTo(from, to = from) {
      view.dispatch({selection: {anchor: from, head: to}, effects: EditorView.scrollIntoView(from, {y: 'center'})});
      view.focus();
    },
    goToRule(rule) {
      const range = rulesOf(view.state)[rule];
      if (range) this.goTo(range.from, range.to);
    },
    showFindings(diagnostics, idle) {
      view.dispatch(setDiagnostics(view.state, diagnostics));
      view.dispatch({effects: setIdle.of(idle)});
    },
  };
}
