// The records of an archive as all of its charts draw them: one row a record, and rows of nothing
// where periods are missing, so that no line crosses a gap.
import { decode, timeOfPeriod } from '../data.js';

// Beyond what any meter counts: a broken number that would flatten everything else.
const BEYOND_REASON = 1e10;
const SECONDS = { hours: 3600, days: 86400, months: 28 * 86400 };

// Returns {kind, times, starts, ends, records, seconds, min, max}. records: the record's index
// in the archive or -1; starts and ends: the interval that the row's amounts were counted in;
// seconds: how long the shortest interval is.
export function rowsOf(archive) {
  const { periods } = decode(archive);
  const numbers = [];
  const records = [];
  periods.forEach((number, i) => {
    if (i > 0) pushMissing(numbers, records, periods[i - 1], number);
    numbers.push(number);
    records.push(i);
  });
  return { kind: archive.kind, records, ...timesOf(archive, numbers) };
}

// The first and the last missing period are enough to keep the cursor from the records around.
function pushMissing(numbers, records, before, after) {
  if (after - before > 1) numbers.push(before + 1), records.push(-1);
  if (after - before > 2) numbers.push(after - 1), records.push(-1);
}

function timesOf({ kind, endDated }, numbers) {
  const at = (shift) => numbers.map((number) => timeOfPeriod(kind, number + shift));
  const starts = at(endDated ? -1 : 0);
  const ends = at(endDated ? 0 : 1);
  const seconds = SECONDS[kind];
  // A record or two would stand at the very edges.
  const margin = numbers.length < 4 ? seconds : 0;
  return {
    times: at(0),
    starts,
    ends,
    seconds,
    min: (starts[0] ?? 0) - margin,
    max: (ends[ends.length - 1] ?? 1) + margin,
  };
}

// Returns the column's values by row as they are drawn, and how many were left out.
export function drawnValues(rows, values) {
  let leftOut = 0;
  const drawn = rows.records.map((record) => {
    const value = record < 0 ? null : values[record];
    if (value === null || Math.abs(value) < BEYOND_REASON) return value;
    leftOut += 1;
    return null;
  });
  return { drawn, leftOut };
}

// Rows that have a value but no neighbour to draw a line to.
export function lonelyRows(drawn) {
  const found = [];
  drawn.forEach((value, i) => {
    if (value !== null && drawn[i - 1] == null && drawn[i + 1] == null) found.push(i);
  });
  return found;
}
