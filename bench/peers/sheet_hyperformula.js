// A column of N cells, each one more than the one above, built, then its first cell changed and the last one read.
//   scripts/bench --sheet
const { HyperFormula } = require('hyperformula');
for (const n of [1000, 10000, 100000]) {
  const rows = [[1]];
  for (let i = 2; i <= n; i++) rows.push([`=A${i - 1}+1`]);
  const t0 = performance.now();
  const sheet = HyperFormula.buildFromArray(rows, { licenseKey: 'gpl-v3', maxRows: 1100000 });
  const t1 = performance.now();
  sheet.setCellContents({ sheet: 0, row: 0, col: 0 }, [[5]]);
  const last = sheet.getCellValue({ sheet: 0, row: n - 1, col: 0 });
  const t2 = performance.now();
  console.log(`${n}: built ${(t1 - t0).toFixed(1)} ms, changed and read ${(t2 - t1).toFixed(1)} ms (${last})`);
}
