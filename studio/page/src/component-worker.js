// Runs the component beside the page, so that no style can hold the page up.
import {Component} from '../../wasm/component.mjs';

const module = fetch(new URL('customstyle.wasm', self.location.href)).then((answer) => WebAssembly.compileStreaming(answer));
let component;

self.onmessage = async ({data: {number, request}}) => {
  try {
    component ??= new Component(await module);
    self.postMessage({number, text: component.answerText(request)});
  } catch (error) {
    self.postMessage({number, stopped: `${error.message}`});
  }
};
