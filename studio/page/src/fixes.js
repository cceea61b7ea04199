// What one click can mend: the edits of a finding's report.

const kLongestLabel = 40;
const shortened = (text) => (text.length > kLongestLabel ? `${text.slice(0, kLongestLabel)} …` : text);
const contains = (outer, inner) => outer.from <= inner.from && outer.to >= inner.to;

/**
 * @param {{path: string, edits: {range: object, text: string}[]}} finding as the report has it
 * @param {(byte: number) => number} indexOf the index in the editor's text of a byte
 * @param {{from: number, to: number} | undefined} rule where the finding's rule stands
 * @returns {{label: string, changes: {from: number, to: number, insert: string}[], takesRuleOut: boolean} | null}
 */
export function fixOf({path, edits}, indexOf, rule) {
  if (edits.length === 0) return null;
  const changes = edits.map(({range, text}) => ({from: indexOf(range.begin.offset), to: indexOf(range.end.offset), insert: text}));
  const takesRuleOut = Boolean(rule) && changes.some((change) => change.insert === '' && contains(change, rule));
  return {label: labelOf(path, changes, takesRuleOut), changes, takesRuleOut};
}

function labelOf(path, [{insert}], takesRuleOut) {
  if (insert !== '') return `Write ${shortened(insert)}`;
  return takesRuleOut ? 'Remove the rule' : `Remove the ${/\w+$/.exec(path)?.[0] ?? 'value'}`;
}
