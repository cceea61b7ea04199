// What one click can mend: a replacement for the text of a finding, read from its remedy.

const kNotMeantForItsPlace = new Set(['icons-of-companion', 'color-invisible', 'namesake-not-reached']);

/**
 * @param {{code: string, remedy: string, path: string, can_go: boolean}} finding what is proven to change no answer
 *        when it is taken out says so in `can_go`
 * @param {string} text the text of the finding's range
 * @param {string[]} stylers the names of its rule's stylers
 * @returns {{label: string, replacement?: string, takesRuleOut?: boolean, takesStylerOut?: string} | null}
 */
export function fixOf({code, remedy, path, can_go: canGo}, text, stylers) {
  if (canGo) return removalOf(path, stylers);
  if (kNotMeantForItsPlace.has(code)) return null;
  const [, word] = /^(?:write|did you mean) ("[^"\\]*")(?! or ")/.exec(remedy) ?? [];
  if (!word || word === text || text.includes(':')) return null;
  return {label: `Write ${word}`, replacement: word};
}

function removalOf(path, stylers) {
  const [, name] = /\.stylers\.(\w+)$/.exec(path) ?? [];
  if (stylers.length <= 1) return {label: 'Take the rule out', takesRuleOut: true};
  return name ? {label: `Take the ${name} out`, takesStylerOut: name} : null;
}

/** The range to delete so that a list stays a list without one of its values. */
export function rangeWithComma(text, {from, to}) {
  const after = /^\s*,/.exec(text.slice(to));
  if (after) return {from, to: to + after[0].length + (/^\s*/.exec(text.slice(to + after[0].length))[0].length)};
  const before = /,\s*$/.exec(text.slice(0, from));
  return before ? {from: from - before[0].length, to} : {from, to};
}
