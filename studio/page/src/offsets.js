// The component counts bytes of UTF-8, the editor units of UTF-16.

/** @returns {(byte: number) => number} the index in `text` of a byte of its UTF-8 form */
export function indexOfByte(text) {
  if (/^[\x00-\x7f]*$/.test(text)) return (byte) => Math.min(byte, text.length);
  const starts = []; // the byte at which each unit begins
  let byte = 0;
  for (let i = 0; i < text.length; ++i) {
    starts.push(byte);
    const unit = text.charCodeAt(i);
    const isHigh = unit >= 0xd800 && unit < 0xdc00 && i + 1 < text.length;
    if (unit < 0x80) byte += 1;
    else if (unit < 0x800) byte += 2;
    else if (isHigh) {
      starts.push(byte);
      ++i;
      byte += 4;
    } else byte += 3;
  }
  return (wanted) => {
    let low = 0;
    let high = starts.length;
    while (low < high) {
      const middle = (low + high) >> 1;
      if (starts[middle] < wanted) low = middle + 1;
      else high = middle;
    }
    return low;
  };
}
