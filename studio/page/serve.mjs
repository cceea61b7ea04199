// Serves the built page on this machine alone: node serve.mjs [PORT] [FOLDER]
import {createReadStream, statSync} from 'node:fs';
import {createServer} from 'node:http';
import {dirname, extname, join, normalize, resolve, sep} from 'node:path';
import {fileURLToPath} from 'node:url';

const kinds = {'.html': 'text/html; charset=utf-8', '.js': 'text/javascript', '.mjs': 'text/javascript', '.css': 'text/css',
  '.json': 'application/json', '.svg': 'image/svg+xml', '.wasm': 'application/wasm', '.woff2': 'font/woff2'};

/** @returns {import('node:http').Server} answers for files of a folder only, to requests for this machine only */
export function pageServer(folder) {
  return createServer((request, response) => {
    const end = (status) => response.writeHead(status).end();
    if (!/^(127\.0\.0\.1|localhost)(:\d+)?$/.test(request.headers.host ?? '')) return end(403);
    if (request.method !== 'GET' && request.method !== 'HEAD') return end(405);
    let path;
    try {
      path = normalize(decodeURIComponent(new URL(request.url, 'http://localhost').pathname));
    } catch {
      return end(400);
    }
    const file = join(folder, path.endsWith('/') ? `${path}index.html` : path);
    if (!file.startsWith(folder + sep)) return end(404);
    const status = statSync(file, {throwIfNoEntry: false});
    if (!status?.isFile()) return end(404);
    response.writeHead(200, {'content-type': kinds[extname(file)] ?? 'application/octet-stream',
      'content-length': status.size, 'x-content-type-options': 'nosniff', 'cache-control': 'no-cache'});
    return request.method === 'HEAD' ? response.end() : createReadStream(file).pipe(response);
  });
}

if (process.argv[1] === fileURLToPath(import.meta.url)) {
  const built = resolve(process.argv[3] ?? join(dirname(fileURLToPath(import.meta.url)), '../../build/studio'));
  const server = pageServer(built).listen(Number(process.argv[2] ?? 8380), '127.0.0.1', () => {
    console.log(`http://127.0.0.1:${server.address().port}/`);
  });
}
