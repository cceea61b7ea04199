// Asks the component in its worker, and starts another when one does not come back.

const kPatience = 20_000; // milliseconds
const kMostRestarts = 3; // without an answer

export class ComponentClient {
  /**
   * @param {string} workerUrl
   * @param {string} [module] its file without ".wasm"
   */
  constructor(workerUrl, module = 'customstyle') {
    this.workerUrl = workerUrl;
    this.module = module;
    this.patience = kPatience;
    this.waiting = new Map();
    this.number = 0;
    this.restarts = 0;
    this.start();
  }

  /** Ends the component; nothing may be asked any more. */
  end() {
    this.worker.terminate();
    this.lost = 'the component has ended';
  }

  start() {
    this.worker = new Worker(this.workerUrl, {type: 'module', name: this.module});
    this.worker.onmessage = ({data}) => this.settle(data);
  }

  /**
   * @param {object} request see studio/wasm/README.md
   * @returns {Promise<any>} the answer; rejected where the component stopped, took too long, or does not start
   */
  ask(request) {
    if (this.lost) return Promise.reject(new Error(this.lost));
    const number = ++this.number;
    const {patience} = this;
    return new Promise((resolve, reject) => {
      const timer = setTimeout(() => this.restart(`no answer within ${patience / 1000} seconds`), patience);
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
    this.restarts = 0;
    this.waiting.delete(number);
    clearTimeout(asked.timer);
    return asked.resolve(JSON.parse(text));
  }

  // What was asked is given up: the next request finds a fresh component with the same mapping. A component that never
  // answers, as where it cannot be loaded, is not started again for ever.
  restart(why) {
    this.worker.terminate();
    if (++this.restarts > kMostRestarts) this.lost = `the component does not start: ${why}; reload the page`;
    for (const {reject, timer} of this.waiting.values()) {
      clearTimeout(timer);
      reject(new Error(this.lost ?? `the component was restarted: ${why}`, {cause: why}));
    }
    this.waiting.clear();
    if (this.lost) return;
    this.start();
    if (this.mapping) this.ask({method: 'mapping', mapping: this.mapping}).catch(() => {});
  }
}
