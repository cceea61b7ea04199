// Levels in words.
import {kOtherLevels} from './look.js';

/** @param {(number|'other')[]} levels ascending */
export function levelsText(levels) {
  if (levels.length === kOtherLevels + 1) return 'at all levels';
  const numbers = levels.filter((level) => level !== 'other');
  const parts = [];
  for (const level of numbers) {
    const last = parts.at(-1);
    if (last && last[1] === level - 1) last[1] = level;
    else parts.push([level, level]);
  }
  const text = parts.map(([from, to]) => (from === to ? `${from}` : `${from}-${to}`)).join(', ');
  return `at ${text}${levels.includes('other') ? ' and others' : ''}`;
}
