// What outlives the page: the link that holds a style, and what the browser remembers.

const kPrefix = 'customstyle-studio-';
const kLongestShared = 4 * 1024 * 1024; // units of text

/** @returns {any} what was remembered, or null */
export function recall(name) {
  try {
    return JSON.parse(localStorage.getItem(kPrefix + name));
  } catch {
    return null;
  }
}

export function remember(name, value) {
  try {
    localStorage.setItem(kPrefix + name, JSON.stringify(value));
  } catch {
    // Private windows and full stores keep nothing; the page works without.
  }
}

export function forget(name) {
  try {
    localStorage.removeItem(kPrefix + name);
  } catch {
    // There was nothing to forget.
  }
}

const throughStream = async (bytes, stream) =>
  new Uint8Array(await new Response(new Blob([bytes]).stream().pipeThrough(stream)).arrayBuffer());

/** @returns {Promise<string>} a fragment that holds the style, compressed */
export async function linkOf(text) {
  const packed = await throughStream(new TextEncoder().encode(text), new CompressionStream('deflate-raw'));
  let binary = '';
  for (const byte of packed) binary += String.fromCharCode(byte);
  return `#style=${btoa(binary).replaceAll('+', '-').replaceAll('/', '_').replaceAll('=', '')}`;
}

// A small link can unpack to very much: what is longer than any style is given up.
async function unpacked(bytes) {
  const reader = new Blob([bytes]).stream().pipeThrough(new DecompressionStream('deflate-raw')).getReader();
  const decoder = new TextDecoder();
  let text = '';
  for (let part = await reader.read(); !part.done; part = await reader.read()) {
    text += decoder.decode(part.value, {stream: true});
    if (text.length > kLongestShared) throw new Error('the shared style is too long');
  }
  return text + decoder.decode();
}

/** @returns {Promise<{text: string} | null>} the style of this page's link */
export async function readLink() {
  const packed = /^#style=([\w-]+)$/.exec(location.hash)?.[1];
  if (!packed) return null;
  try {
    const binary = atob(packed.replaceAll('-', '+').replaceAll('_', '/'));
    return {text: await unpacked(Uint8Array.from(binary, (character) => character.charCodeAt(0)))};
  } catch {
    return null;
  }
}
