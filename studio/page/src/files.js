// Opening and saving styles: with the file system where the browser has it, by upload and download elsewhere.

const kKind = {description: 'Style file', accept: {'application/json': ['.json']}};
const kLongest = 16 * 1024 * 1024; // bytes
let handle = null; // of the file that is open

/** Save asks for a file again: another style is in the editor. */
export const forgetFile = () => (handle = null);

async function read(file) {
  if (file.size > kLongest) throw new Error(`${file.name} is larger than 16 MB`);
  return {name: file.name, text: await file.text()};
}

// Null where the user changes their mind.
async function chosenHandle() {
  try {
    return (await window.showOpenFilePicker({types: [kKind]}))[0];
  } catch (error) {
    if (error.name !== 'AbortError') throw error;
    return null;
  }
}

async function uploaded(input) {
  await new Promise((resolve) => {
    input.value = ''; // so that the same file can be chosen again
    input.onchange = resolve;
    input.oncancel = resolve;
    input.click();
  });
  return input.files[0];
}

/**
 * Lets the user choose a file.
 * @param {HTMLInputElement} input for an upload
 * @returns {Promise<{name: string, text: string, handle?: FileSystemFileHandle} | null>} null where none is chosen
 */
export async function readFile(input) {
  const chosen = window.showOpenFilePicker ? await chosenHandle() : null;
  const file = window.showOpenFilePicker ? await chosen?.getFile() : await uploaded(input);
  return file ? {...await read(file), handle: chosen} : null;
}

/**
 * Lets the user choose a file; Save writes to it from then on, where the browser can.
 * @param {(file: {name: string, text: string}) => any} use false where it does not open the file
 */
export async function openFile(input, use) {
  const file = await readFile(input);
  if (!file) return;
  const {name, text} = file;
  if (use({name, text}) !== false) handle = file.handle;
}

const askWhere = (name) => window.showSaveFilePicker({suggestedName: name, types: [kKind]});

async function write(file, text) {
  const stream = await file.createWritable();
  await stream.write(text);
  await stream.close();
  return `${file.name} is saved`;
}

function download(name, text) {
  const link = document.createElement('a');
  link.href = URL.createObjectURL(new Blob([text], {type: 'application/json'}));
  link.download = name;
  link.click();
  setTimeout(() => URL.revokeObjectURL(link.href), 1000);
  return `${name} is downloaded`;
}

// Where the browser lets no page write files, they are downloaded.
async function writtenOrDownloaded(where, name, text) {
  if (!window.showSaveFilePicker) return download(name, text);
  try {
    return await write(await where(), text);
  } catch (error) {
    if (error.name === 'AbortError') return 'not saved';
    if (error.name !== 'SecurityError' && error.name !== 'NotAllowedError') return `not saved: ${error.message}`;
    return download(name, text);
  }
}

/** Saves the style that is open. @returns {Promise<string>} what happened, in words */
export const saveFile = (name, text) => writtenOrDownloaded(async () => (handle ??= await askWhere(name)), name, text);

/** Saves something else, always into another file. @returns {Promise<string>} what happened, in words */
export const saveCopy = (name, text) => writtenOrDownloaded(() => askWhere(name), name, text);
