// The component's client with a worker that answers, stops or cannot start.
import assert from 'node:assert/strict';
import {beforeEach, describe, test} from 'node:test';
import {ComponentClient} from '../src/component.js';

let started; // how many workers
let answerOf; // what a worker says to a message

beforeEach(() => {
  started = 0;
  globalThis.Worker = class {
    constructor() {
      ++started;
    }

    postMessage(message) {
      setTimeout(() => this.isOver || this.onmessage({data: answerOf(message)}));
    }

    terminate() {
      this.isOver = true;
    }
  };
});

const answers = ({number, request}) => ({number, text: JSON.stringify(request.method)});
const stops = ({number}) => ({number, stopped: 'no such file'});
const until = async (isSo) => {
  for (let wait = 0; wait < 1000 && !isSo(); ++wait) await new Promise((resolve) => setTimeout(resolve, 1));
  assert.ok(isSo());
};

describe('a component that stops', () => {
  test('is restarted with its mapping', async () => {
    answerOf = answers;
    const client = new ComponentClient('worker.js');
    await client.setMapping({path: 'CustomIndex', text: '{}'});
    answerOf = (message) => (message.request.method === 'check' ? stops(message) : answers(message));
    for (let time = 1; time <= 5; ++time) {
      await assert.rejects(client.ask({method: 'check'}), /restarted: no such file/);
      assert.equal(await client.ask({method: 'format'}), 'format');
      assert.equal(started, 1 + time);
    }
  });

  test('is given up where it never answers', async () => {
    answerOf = stops;
    const client = new ComponentClient('worker.js');
    for (let time = 1; time <= 3; ++time) await assert.rejects(client.ask({method: 'check'}), /restarted/);
    for (let time = 1; time <= 3; ++time) await assert.rejects(client.ask({method: 'check'}), /does not start: no such file; reload the page/);
    assert.equal(started, 4);
  });

  test('is given up where it takes the mapping no more', async () => {
    answerOf = answers;
    const client = new ComponentClient('worker.js');
    await client.setMapping({path: 'CustomIndex', text: '{}'});
    answerOf = stops;
    await assert.rejects(client.ask({method: 'check'}), /restarted/);
    await until(() => client.lost);
    assert.equal(started, 4);
    assert.equal(client.waiting.size, 0);
  });
});
