// Opening and saving styles: with the file system where the browser has it, by upload and download elsewhere.

const kKind = {description: 'Style file', accept: {'application/json': ['.json']}};
const kLongest = 16 * 1024 * 1024; // bytes
let handle = null; // of the file that is open

/** Save asks for a file again: another style is in the editor. */
export const forgetFile = () => (handle = null);

async function read(file, use) {
  if (file.size > kLongest) throw new Error(`${file.name} is larger than 16 MB`);
  use({name: file.name, text: await file.text()});
}

/**
 * Lets the user choose a file; Save writes to it from then on, where the browser can.
 * @param {(file: {name: string, text: string}) => void} use
 */
export async function openFile(input, use) {
  if (window.showOpenFilePicker) {
    try {
      const [chosen] = await window.showOpenFilePicker({types: [kKind]});
      await read(await chosen.getFile(), use);
      handle = chosen;
    } catch (error) {
      if (error.name !== 'AbortError') throw error;
    }
    return;
  }
  await new Promise((resolve) => {
    input.value = ''; // so that the same file can be chosen again
    input.onchange = resolve;
    input.click();
  });
  if (input.files[0]) await read(input.files[0], use);
}

/** @returns {Promise<string>} what happened, in words */
export async function saveFile(name, text) {
  if (window.showSaveFilePicker) {
    try {
      handle ??= await window.showSaveFilePicker({suggestedName: name, types: [kKind]});
      const stream = await handle.createWritable();
      await stream.write(text);
      await stream.close();
      return `${handle.name} is saved`;
    } catch (error) {
      if (error.name === 'AbortError') return 'not saved';
      if (error.name !== 'SecurityError' && error.name !== 'NotAllowedError') return `not saved: ${error.message}`;
    }
  }
  const link = document.createElement('a');
  link.href = URL.createObjectURL(new Blob([text], {type: 'application/json'}));
  link.download = name;
  link.click();
  setTimeout(() => URL.revokeObjectURL(link.href), 1000);
  return `${name} is downloaded`;
}
