// The schemas that the tool prints, in the validator that web projects use, as strict as it can be, and in the language
// service that editors use. CUSTOMSTYLE_TOOL names the tool, CUSTOMSTYLE_STYLES the folder of the example styles.
import assert from "node:assert/strict";
import {execFileSync} from "node:child_process";
import {readFileSync} from "node:fs";
import {test} from "node:test";

import Ajv2020 from "ajv/dist/2020.js";
import languageService from "vscode-json-languageservice";

const {getLanguageService, TextDocument} = languageService;

const GOOD_EXAMPLES = ["main-roads", "night", "no-labels", "pale", "transit"];
const EDITOR_WORDS = ["markdownDescription", "errorMessage", "enumDescriptions", "defaultSnippets"];

const schemaOf = (...options) =>
  JSON.parse(execFileSync(process.env.CUSTOMSTYLE_TOOL, ["schema", ...options], {encoding: "utf8", maxBuffer: 1 << 26}));
const textOf = (name) => readFileSync(`${process.env.CUSTOMSTYLE_STYLES}/${name}.json`, "utf8");

const standard = schemaOf();
const forEditors = schemaOf("--editor");

// A validator that reports what it would only warn of.
function strictValidator(schema, prepare = () => {}) {
  const said = [];
  const listen = (...words) => said.push(words.join(" "));
  const ajv = new Ajv2020({strict: true, logger: {log: listen, warn: listen, error: listen}});
  prepare(ajv);
  return {validate: ajv.compile(schema), said};
}

test("a strict validator takes the schema without a warning", () => {
  const {validate, said} = strictValidator(standard);
  assert.deepEqual(said, []);
  for (const name of GOOD_EXAMPLES) assert.ok(validate(JSON.parse(textOf(name))), name);
  assert.ok(!validate(JSON.parse(textOf("mistakes"))));
});

test("both forms of the schema accept the same styles", () => {
  const ours = strictValidator(standard);
  const editors = strictValidator(forEditors, (ajv) => {
    ajv.addVocabulary(EDITOR_WORDS);
    ajv.addFormat("color-hex", true);
  });
  assert.deepEqual(editors.said, []);
  let refused = 0;
  for (const name of [...GOOD_EXAMPLES, "mistakes"]) {
    for (const rule of JSON.parse(textOf(name))) {
      const verdict = ours.validate([rule]);
      assert.equal(editors.validate([rule]), verdict, JSON.stringify(rule));
      refused += verdict ? 0 : 1;
    }
  }
  assert.ok(refused > 20, `${refused} rules are refused`);
});

test("both forms have one id, which no editor tries to fetch", () => {
  assert.match(standard.$id, /^urn:customstyle:style:\d+$/);
  assert.equal(forEditors.$id, standard.$id);
});

// A style in an editor that uses a schema.
function opened(text, schema = forEditors) {
  const service = getLanguageService({});
  service.configure({validate: true, schemas: [{uri: schema.$id, fileMatch: ["*.json"], schema}]});
  const document = TextDocument.create("file:///style.json", "json", 1, text);
  return {service, document, json: service.parseJSONDocument(document)};
}

async function messagesIn(text) {
  const {service, document, json} = opened(text);
  return (await service.doValidation(document, json)).map((each) => each.message);
}

// What is offered at the mark ^ in a text.
async function offeredIn(text, schema) {
  const {service, document, json} = opened(text.replace("^", ""), schema);
  const list = await service.doComplete(document, document.positionAt(text.indexOf("^")), json);
  return new Map(list.items.map((each) => [each.label, each]));
}

const rule = (type, element, stylers) =>
  `[{"featureType": "${type}", "elementType": "${element}", "stylers": ${stylers}}]`;

for (const name of GOOD_EXAMPLES) {
  test(`an editor underlines nothing in ${name}`, async () => assert.deepEqual(await messagesIn(textOf(name)), []));
}

const mistakes = [
  ["a colour that is no colour", rule("water", "geometry", '{"color": "red"}'),
   'Write a colour as "#rrggbb", or as "#rrggbbaa" with the alpha last.'],
  ["a number without quotes", rule("highway", "geometry.fill", '{"weight": 3}'),
   'Write a whole number from 0 to 255 in quotes: "3".'],
  ["a level without quotes", rule("highway", "geometry", '{"color": "#112233", "level": 15}'),
   'A level is a number from 4 to 21 in quotes: "13".'],
  ["a visibility in other words", rule("hotellabel", "all", '{"visibility": "none"}'), 'Write "on" or "off".'],
  ["an unknown feature type", rule("motorway", "geometry", '{"color": "#112233"}'),
   "Unknown feature type: the rule is skipped. Names are lower case; highway is one."],
  ["a styler without effect", rule("water", "geometry.fill", '{"color": "#112233", "fontsize": "12"}'),
   /^No effect: fontsize does nothing to this element; it works on .*labels/],
  ["a styler without effect on the type", rule("boundary", "geometry.stroke", '{"color": "#112233", "weight": "3"}'),
   "No effect: weight does nothing to this feature type."],
  ["alpha where it is ignored", rule("boundary", "geometry.stroke", '{"color": "#11223344"}'),
   'This feature type is always opaque; write "#rrggbb".'],
  ["an unknown member", rule("water", "geometry", '{"color": "#112233", "opacity": "3"}'),
   /^Ignored here\. The stylers are an object with color, .* a remark is called note\.$/],
];
for (const [what, text, expected] of mistakes) {
  test(`an editor says once what to do about ${what}`, async () => {
    const messages = await messagesIn(text);
    assert.equal(messages.length, 1, messages.join("\n"));
    if (expected instanceof RegExp) assert.match(messages[0], expected);
    else assert.equal(messages[0], expected);
  });
}

test("an unknown element gets the list", async () => {
  const messages = await messagesIn(rule("highway", "roof", '{"color": "#112233"}'));
  assert.ok(messages.some((each) => /^Unknown element: .* geometry\.fill, /.test(each)), messages.join("\n"));
});

test("an editor shows every colour, and only with the schema for editors", async () => {
  for (const name of GOOD_EXAMPLES) {
    const text = textOf(name);
    const {service, document, json} = opened(text);
    const shown = await service.findDocumentColors(document, json);
    assert.equal(shown.length, text.match(/"color":/g)?.length ?? 0, name);
  }
  const {service, document, json} = opened(textOf("night"), standard);
  assert.deepEqual(await service.findDocumentColors(document, json), []);
});

test("a colour is shown as it is, alpha last, and written back in the form of style files", async () => {
  const {service, document, json} = opened(rule("water", "geometry", '{"color": "#3366cc80"}'));
  const [{color, range}] = await service.findDocumentColors(document, json);
  assert.deepEqual(Object.values(color).map((part) => Math.round(part * 255)).sort((a, b) => a - b), [51, 102, 128, 204]);
  const written = service.getColorPresentations(document, json, color, range).map((each) => each.textEdit.newText);
  assert.ok(written.includes('"#3366cc80"'), written.join(" "));
});

for (const schema of [standard, forEditors]) {
  const form = schema === standard ? "of the standard" : "for editors";
  test(`the schema ${form} completes types, elements, stylers and values`, async () => {
    const types = await offeredIn('[{"featureType": "^"}]', schema);
    assert.equal(types.size, 73);
    assert.match(JSON.stringify(types.get('"highway"').documentation), /Motorways/);
    const elements = await offeredIn('[{"featureType": "highway", "elementType": "^"}]', schema);
    assert.match(JSON.stringify(elements.get('"labels.text.fill"').documentation), /letters/);
    const stylers = await offeredIn(rule("highway", "geometry", "{^}"), schema);
    assert.deepEqual([...stylers.keys()].sort(), ["color", "fontsize", "level", "visibility", "weight"]);
    const levels = await offeredIn(rule("highway", "geometry", '{"level": ^}'), schema);
    assert.ok(levels.has('"4"') && levels.has('"21"') && !levels.has('"22"'), [...levels.keys()].join(" "));
  });
}

test("an editor offers a whole rule", async () => {
  const offered = await offeredIn("[^]");
  assert.match(offered.get("rule").insertText ?? offered.get("rule").textEdit.newText, /featureType/);
});

test("an editor explains a styler with an example", async () => {
  const text = rule("highway", "geometry", '{"color": "#112233"}');
  const {service, document, json} = opened(text);
  const hover = await service.doHover(document, document.positionAt(text.indexOf('"color"') + 2), json);
  assert.match(JSON.stringify(hover.contents), /Example: `\\"color\\": \\"#3366cc\\"`/);
});
