// Prints the cells of a workbook as the package "xlsx" reads them (see BiffTables.h for the form of a line).
// node xlsx-dump.cjs NODE_MODULES FILE
const [modules, file] = process.argv.slice(2);
const xlsx = require(modules + '/xlsx');
const book = xlsx.readFile(file, { cellDates: false, cellText: false, cellHTML: false, cellFormula: false });
const out = [];
const bits = value => {
  const bytes = Buffer.alloc(8);
  bytes.writeDoubleBE(value);
  return bytes.toString('hex');
};
const escaped = text => text.replace(/\\/g, '\\\\').replace(/\n/g, '\\n').replace(/\r/g, '\\r');
for (const name of book.SheetNames) {
  const sheet = book.Sheets[name];
  if (!sheet['!ref']) continue;
  const range = xlsx.utils.decode_range(sheet['!ref']);
  for (let row = 0; row <= range.e.r; ++row)
    for (let column = 0; column <= range.e.c; ++column) {
      const cell = sheet[xlsx.utils.encode_cell({ r: row, c: column })];
      if (!cell || cell.t === 'z') continue;
      const value = { n: () => 'n|' + bits(cell.v), s: () => 't|' + escaped(cell.v), b: () => 'b|' + (cell.v ? 1 : 0) }[cell.t];
      out.push(`${name}|${row}|${column}|${value ? value() : '?|' + cell.t}`);
    }
}
process.stdout.write(out.join('\n') + '\n');
