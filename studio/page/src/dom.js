// Elements from texts. Texts of files become text nodes, never markup.

/**
 * @param {string} name of the element
 * @param {Record<string, any>} [properties] "on…" listens, "class", "aria-…", "data-…" and "role" are attributes
 * @param {...(Node|string|null|undefined|false)} children
 */
export function element(name, properties = {}, ...children) {
  const made = document.createElement(name);
  for (const [key, value] of Object.entries(properties)) {
    if (value === undefined || value === null || value === false) continue;
    if (key.startsWith('on')) made.addEventListener(key.slice(2), value);
    else if (/^(class|role|aria-.*|data-.*|for|scope|colspan)$/.test(key)) made.setAttribute(key, value);
    else made[key] = value;
  }
  made.append(...children.flat().filter((child) => child !== null && child !== undefined && child !== false));
  return made;
}

/** The element of the page with this id. */
export const at = (id) => document.getElementById(id);

/** A field of a record in words. */
export const named = (field) => field.replaceAll('_', ' ');

/** What a change of a difference is about: a field of a type. Without a type it holds for all style ids that the mapping
 * lists, or, where it names none, for all others. */
export const changed = ({feature_type: type, ids, field}) =>
  `${type ?? (ids.length > 0 ? 'every type' : 'style ids outside the mapping')} ${named(field)}`;

export function swatch(color) {
  const made = element('span', {class: 'swatch', 'aria-hidden': 'true'});
  made.style.backgroundColor = color;
  return made;
}
