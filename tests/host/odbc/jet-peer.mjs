// Prints every value of an Access file as npm's mdb-reader sees it, one a line, so that a test can
// compare: numbers by their 64 bits, texts and bytes in hexadecimal.
import { readFileSync } from 'node:fs';
import MDBReader from 'mdb-reader';

const hex = (value) => Buffer.from(value).toString('hex');
const bits = (value) => {
  const buffer = Buffer.alloc(8);
  buffer.writeDoubleBE(value);
  return buffer.toString('hex');
};
const show = (value) => {
  if (value === null || value === undefined) return 'null';
  if (typeof value === 'boolean') return String(value);
  if (typeof value === 'number') return `number ${bits(value)}`;
  if (value instanceof Date) return `date ${value.getTime()}`;
  if (typeof value === 'string') return `text ${hex(value)}`;
  return `bytes ${hex(value)}`;
};

const reader = new MDBReader(readFileSync(process.argv[2]));
const lines = [];
for (const name of reader.getTableNames()) {
  const table = reader.getTable(name);
  lines.push(`table ${hex(name)} ${table.rowCount}`);
  const columns = table.getColumnNames();
  for (const row of table.getData()) for (const column of columns) lines.push(show(row[column]));
}
process.stdout.write(lines.join('\n') + '\n');
