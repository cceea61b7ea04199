// Two texts side by side, in a dialog.
import {json} from '@codemirror/lang-json';
import {MergeView} from '@codemirror/merge';
import {EditorState} from '@codemirror/state';
import {EditorView, lineNumbers} from '@codemirror/view';
import {colours, look} from './editor.js';

/**
 * Shows how two texts differ.
 * @param {HTMLDialogElement} dialog with a `.texts` to hold them
 */
export function showDifference(dialog, theirs, mine) {
  const host = dialog.querySelector('.texts');
  const holder = document.createElement('div');
  const root = holder.attachShadow({mode: 'open'});
  host.replaceChildren(holder);
  const extensions = [EditorView.lineWrapping, lineNumbers(), json(), colours, look, EditorState.readOnly.of(true)];
  const named = (name) => EditorView.contentAttributes.of({'aria-label': name});
  dialog.showModal();
  new MergeView({root, parent: root, collapseUnchanged: {margin: 2, minSize: 6}, gutter: true,
    a: {doc: theirs, extensions: [...extensions, named('On the disk')]},
    b: {doc: mine, extensions: [...extensions, named('Yours')]}});
}
