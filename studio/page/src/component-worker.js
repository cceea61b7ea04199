// Runs a module beside the page, so that no style can hold the page up. The worker has the module's name.
import {Component} from '../../wasm/component.mjs';

const file = new URL(`${self.name}.wasm`, self.location.href);
// One for all requests, those that come before it is there included.
const loading = WebAssembly.compileStreaming(fetch(file)).then((module) => new Component(module));

self.onmessage = async ({data: {number, request}}) => {
  try {
    const component = await loading;
    self.postMessage({number, text: component.answerText(request)});
  } catch (error) {
    self.postMessage({number, stopped: `${error.message}`});
  }
};
