// When an instrument told of unusual situations.
import { decode } from '../data.js';

const SITUATION = 'situation code';
const DIAGNOSTIC = 'diagnostic code';

function valuesOf(archive, quantity) {
  const { values } = decode(archive);
  return values.filter((_, i) => archive.columns[i].quantity === quantity);
}

// Returns {situations, diagnostics}, [{from, to}] in seconds each: neighbouring intervals in one.
// Where an archive has no codes, the time that situations lasted tells of them.
export function toldRanges(archive, rows) {
  const codes = valuesOf(archive, SITUATION);
  const columns = codes.length ? codes : valuesOf(archive, 'time of situations');
  return {
    situations: rangesOf(columns, rows),
    diagnostics: rangesOf(valuesOf(archive, DIAGNOSTIC), rows),
  };
}

function rangesOf(columns, rows) {
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

// Returns [{name, value}] of a record's codes, name "situation" or "diagnostic". Instruments give
// both codes one caption.
export function codesOf(archive, record) {
  const told = (name, quantity) =>
    valuesOf(archive, quantity)
      .filter((column) => column[record] != null)
      .map((column) => ({ name, value: String(column[record]) }));
  return [...told('situation', SITUATION), ...told('diagnostic', DIAGNOSTIC)];
}
