// The files that a server edits: the style is followed and saved, and nobody's work is overwritten without asking.
import {forget, recall, remember} from './state.js';

const kRetry = 5000; // milliseconds
const withPlainLines = (text) => text?.replace(/\r\n?/g, '\n') ?? null;

// What a server says; null where there is none, or where it knows no such thing.
async function said(path) {
  const answer = await fetch(path, {cache: 'no-store'}).catch(() => null);
  const isJson = /^application\/json/.test(answer?.headers.get('content-type') ?? '');
  return answer?.ok && isJson ? answer.json() : null;
}

/** @returns {Promise<{style: object | null, mapping: object | null}>} the files of the server, if it has any */
export async function filesOfServer() {
  const [style, mapping] = await Promise.all([said('api/style'), said('api/mapping')]);
  return {style, mapping};
}

/**
 * Listens to news of the server's files, until the page ends.
 * @param {{style: (file: object) => void, mapping: (file: object) => void, lost: () => void, back: () => void}} hear
 */
export function followServer(hear) {
  const events = new EventSource('api/events');
  let isLost = false;
  for (const name of ['style', 'mapping']) events.addEventListener(name, ({data}) => hear[name](JSON.parse(data)));
  events.onopen = () => {
    if (isLost) hear.back();
    isLost = false;
  };
  events.onerror = () => {
    if (!isLost) hear.lost();
    isLost = true;
    if (events.readyState !== EventSource.CLOSED) return;
    setTimeout(() => followServer(hear), kRetry);
  };
}

/** The style file on the disk, beside what the page has of it. Tells of a conflict, or of its end, with an event "conflict". */
export class DiskFile extends EventTarget {
  /**
   * @param {object} file as the server gives it
   * @param {{text: () => string, take: (text: string) => void, say: (text: string) => void}} page
   */
  constructor(file, page) {
    super();
    this.page = page;
    this.name = file.name;
    this.isOpen = true; // in the editor; else another style is there
    this.open(file);
  }

  /** What the editor shows first: the file, or what was typed last and not saved. */
  open(file) {
    const draft = recall(this.draftName(file));
    this.key = file.key;
    this.theirs = null;
    this.know(file);
    this.first = this.known.text ?? '';
    if (!draft || draft.text === this.known.text) return;
    this.first = draft.text;
    if (draft.version === file.version) {
      this.page.say(`unsaved changes of ${this.name} are restored`);
      return;
    }
    this.known = {text: null, version: draft.version};
    this.theirs = file;
  }

  get isChanged() {
    return this.page.text() !== this.known.text;
  }

  know({text, version}) {
    this.lineEnd = text?.includes('\r\n') ? '\r\n' : '\n';
    this.known = {text: withPlainLines(text), version};
  }

  draftName({key}) {
    return `draft-${key}`;
  }

  /** Keeps what was typed in the browser until it is saved. */
  keepDraft() {
    if (this.isChanged) remember(this.draftName(this), {text: this.page.text(), version: this.known.version});
    else forget(this.draftName(this));
  }

  /** The file is another one now. */
  async changed(file) {
    await this.saving; // an event may come before the answer that explains it
    if (file.version === this.known.version) return this.ask(null);
    if (file.version === this.theirs?.version) return undefined;
    if (!this.isOpen) return this.know(file);
    if (withPlainLines(file.text) === this.page.text()) return this.agree(file);
    if (file.missing) return this.vanished(file);
    if (this.isChanged || file.text === null) return this.ask(file);
    this.agree(file);
    this.page.take(this.known.text);
    return this.page.say(`${this.name} has changed on disk and is shown`);
  }

  agree(file) {
    this.know(file);
    this.keepDraft();
    this.ask(null);
  }

  vanished(file) {
    this.known = {text: null, version: file.version};
    this.keepDraft();
    this.ask(null);
    this.page.say(`${this.name} was deleted from disk; Save writes it again`);
  }

  /** Raises the question what is to become of the file's text, or drops it. */
  ask(file, isSaving = false) {
    this.theirs = file;
    this.wasSaving = file !== null && isSaving;
    this.dispatchEvent(new Event('conflict'));
  }

  /** Mine wins: at once where it was to be saved, else when it is saved. */
  keepMine() {
    const {wasSaving} = this;
    this.know(this.theirs);
    this.keepDraft();
    this.ask(null);
    return wasSaving ? this.save() : undefined;
  }

  /** The file wins; what was typed can be had back with "undo". */
  takeTheirs() {
    remember('before-file', {name: this.name, text: this.page.text()});
    this.know(this.theirs);
    this.ask(null);
    this.page.take(this.known.text);
    this.keepDraft();
  }

  /** Writes what is in the editor into the file, unless somebody else has written it. */
  save() {
    if (this.theirs) return this.dispatchEvent(new Event('conflict'));
    this.saving = this.put(this.page.text()).catch(() => this.page.say(`${this.name} is not saved: the server does not answer`));
    return this.saving;
  }

  async put(text) {
    const answer = await this.request(text) ?? await this.request(text); // a new server has a new token
    const said = answer ? await answer.json() : {error: 'the server refused it'};
    if (answer?.status === 409) return this.ask(said, true);
    if (!answer?.ok) return this.page.say(`${this.name} is not saved: ${said.error}`);
    this.known = {text, version: said.version};
    this.keepDraft();
    return this.page.say(`${this.name} is saved`);
  }

  // Null where the token is not the server's.
  async request(text) {
    this.token ??= (await said('api/token'))?.token;
    const body = JSON.stringify({text: text.replaceAll('\n', this.lineEnd), version: this.known.version});
    const headers = {'Content-Type': 'application/json', 'X-Studio-Token': this.token ?? ''};
    const answer = await fetch('api/style', {method: 'PUT', headers, body});
    if (answer.status === 403) this.token = undefined;
    return answer.status === 403 ? null : answer;
  }
}
