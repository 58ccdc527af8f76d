// Lists a drawing as the independent reader sees it: error code, layers, blocks with their entities by type,
// the corners of model space and paper space.
// Usage: node peer.mjs <node_modules> <drawing>...   One line of JSON a drawing.
import { readFileSync } from 'node:fs';
import { pathToFileURL } from 'node:url';

const [modules, ...drawings] = process.argv.slice(2);
const { default: createModule } = await import(pathToFileURL(`${modules}/@mlightcad/libredwg-web/wasm/libredwg-web.js`));
const quiet = { print() {}, printErr() {} };
const reader = await createModule(quiet);
const wrapper = await import(pathToFileURL(`${modules}/@mlightcad/libredwg-web/dist/libredwg-web.js`));

for (const path of drawings) {
  reader.FS.writeFile('a.dwg', new Uint8Array(readFileSync(path)));
  const result = reader.dwg_read_file('a.dwg');
  reader.FS.unlink('a.dwg');
  const line = { error: result.error, layers: [], blocks: {} };
  if (result.error < 128) { // below it the reader has warned and read on
    const libre = wrapper.LibreDwg.createByWasmInstance(reader);
    const db = libre.convert(result.data);
    line.layers = db.tables.LAYER.entries.map((layer) => layer.name).sort();
    for (const block of db.tables.BLOCK_RECORD.entries) {
      const types = {};
      for (const entity of block.entities ?? [])
        types[entity.type] = (types[entity.type] ?? 0) + 1;
      line.blocks[block.name] = types;
    }
    line.modelEntities = db.entities.length;
    const corner = (name) => [db.header[name].x, db.header[name].y, db.header[name].z];
    line.extents = ['EXTMIN', 'EXTMAX', 'PEXTMIN', 'PEXTMAX'].map(corner);
    libre.dwg_free(result.data);
  }
  console.log(JSON.stringify(line));
}
