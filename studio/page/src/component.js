// Asks the component in its worker, and starts another when one does not come back.

const kPatience = 20_000; // milliseconds

export class ComponentClient {
  /** @param {string} workerUrl */
  constructor(workerUrl) {
    this.workerUrl = workerUrl;
    this.patience = kPatience;
    this.waiting = new Map();
    this.number = 0;
    this.start();
  }

  start() {
    this.worker = new Worker(this.workerUrl, {type: 'module'});
    this.worker.onmessage = ({data}) => this.settle(data);
  }

  /**
   * @param {object} request see studio/wasm/README.md
   * @returns {Promise<any>} the answer; rejected where the component stopped, or took too long
   */
  ask(request) {
    const number = ++this.number;
    return new Promise((resolve, reject) => {
      const timer = setTimeout(() => this.restart(`no answer within ${this.patience / 1000} seconds`), this.patience);
      this.waiting.set(number, {resolve, reject, timer});
      this.worker.postMessage({number, request});
    });
  }

  /** Asks about another mapping from now on, unless the component refuses it. */
  async setMapping(mapping) {
    const answer = await this.ask({method: 'mapping', mapping});
    if (!answer.error) this.mapping = mapping;
    return answer;
  }

  settle({number, text, stopped}) {
    if (stopped !== undefined) return this.restart(stopped);
    const asked = this.waiting.get(number);
    if (!asked) return undefined;
    this.waiting.delete(number);
    clearTimeout(asked.timer);
    return asked.resolve(JSON.parse(text));
  }

  // What was asked is given up: the next request finds a fresh component with the same mapping.
  restart(why) {
    this.worker.terminate();
    for (const {reject, timer} of this.waiting.values()) {
      clearTimeout(timer);
      reject(new Error(`the component was started again: ${why}`));
    }
    this.waiting.clear();
    this.start();
    if (this.mapping) this.ask({method: 'mapping', mapping: this.mapping}).catch(() => {});
  }
}
