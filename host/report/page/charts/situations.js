// When an instrument told of unusual situations.
import { decode } from '../data.js';
import { rowsOf } from './rows.js';

const CODES = ['situation code', 'diagnostic code'];

// Where an archive has no codes, the time that situations lasted tells of them.
export function situationColumns(archive) {
  const having = (quantities) =>
    archive.columns.flatMap((column, i) => (quantities.includes(column.quantity) ? [i] : []));
  const codes = having(CODES);
  return codes.length ? codes : having(['time of situations']);
}

// Returns [{from, to}] in seconds: neighbouring intervals in one.
export function situationRanges(archive, rows = rowsOf(archive)) {
  const { values } = decode(archive);
  const columns = situationColumns(archive).map((i) => values[i]);
  const ranges = [];
  rows.records.forEach((record, i) => {
    if (record < 0 || !columns.some((column) => isUnusual(column[record]))) return;
    const last = ranges[ranges.length - 1];
    if (last && last.to >= rows.starts[i]) last.to = rows.ends[i];
    else ranges.push({ from: rows.starts[i], to: rows.ends[i] });
  });
  return ranges;
}

export function isUnusual(value) {
  return value != null && value !== '' && Number(value) !== 0;
}

// Returns [{caption, value}] of a record's codes.
export function codesOf(archive, record) {
  const { values } = decode(archive);
  return archive.columns.flatMap((column, i) => {
    const value = CODES.includes(column.quantity) ? values[i][record] : null;
    return value == null ? [] : [{ caption: column.caption, value: String(value) }];
  });
}
