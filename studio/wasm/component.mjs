// The WebAssembly module for JavaScript, in a page as under Node: requests and answers as objects.

const encoder = new TextEncoder();
const decoder = new TextDecoder();
const ESPIPE = 29;

/** Thrown where the module stopped, mostly because memory ran out. Make another instance then. */
export class ComponentStopped extends Error {}

/**
 * What the C library of the module asks of its host: no environment, no files but standard output and error.
 * @param {() => WebAssembly.Memory} memory
 */
function wasiFor(memory, write) {
  const view = () => new DataView(memory().buffer);
  const setNumbers = (...pairs) => {
    for (const [address, value] of pairs) view().setUint32(address, value, true);
    return 0;
  };
  return {
    environ_sizes_get: (count, size) => setNumbers([count, 0], [size, 0]),
    environ_get: () => 0,
    fd_close: () => 0,
    fd_seek: () => ESPIPE,
    fd_fdstat_get: () => 0,
    fd_write(_descriptor, parts, count, written) {
      let length = 0;
      for (let i = 0; i < count; ++i) {
        const begin = view().getUint32(parts + 8 * i, true);
        const size = view().getUint32(parts + 8 * i + 4, true);
        write(decoder.decode(new Uint8Array(memory().buffer, begin, size)));
        length += size;
      }
      return setNumbers([written, length]);
    },
    proc_exit(status) {
      throw new ComponentStopped(`the component ended with status ${status}`);
    },
  };
}

/** One instance of the module. */
export class Component {
  /**
   * @param {WebAssembly.Module} module
   * @param {(text: string) => void} [write] receives what the module prints
   */
  constructor(module, write = () => {}) {
    let memory;
    const instance = new WebAssembly.Instance(module, {wasi_snapshot_preview1: wasiFor(() => memory, write)});
    this.exports = instance.exports;
    memory = this.exports.memory;
    this.exports._initialize();
  }

  /**
   * Answers one request with the text of a JSON document.
   * @param {object} request see README.md
   * @returns {string}
   */
  answerText(request) {
    const bytes = encoder.encode(JSON.stringify(request));
    try {
      const address = this.exports.customstyle_allocate(bytes.length) >>> 0;
      if (address === 0) throw new ComponentStopped('the component has no memory left');
      new Uint8Array(this.exports.memory.buffer, address, bytes.length).set(bytes);
      return this.textAt(this.exports.customstyle_request(address, bytes.length) >>> 0);
    } catch (error) {
      if (error instanceof WebAssembly.RuntimeError) throw new ComponentStopped(error.message);
      throw error;
    }
  }

  /** The same as an object. */
  answer(request) {
    return JSON.parse(this.answerText(request));
  }

  textAt(address) {
    const bytes = new Uint8Array(this.exports.memory.buffer);
    return decoder.decode(bytes.subarray(address, bytes.indexOf(0, address)));
  }
}
