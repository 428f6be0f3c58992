// Where the records of an archive stand on its map. A strip has columns across and rows down: hours
// are a strip for each year, of days with 24 hours; days are months of up to 31; months are years.
import { timeOfPeriod } from './data.js';

function dateOf(kind, interval) {
  return new Date(timeOfPeriod(kind, interval) * 1000);
}

function daysOfMonth(month) {
  return new Date(Date.UTC(Math.floor(month / 12), (month % 12) + 1, 0)).getUTCDate();
}

function monthOf(date) {
  return date.getUTCFullYear() * 12 + date.getUTCMonth();
}

// columnOf and rowOf of an interval; heightOf a column; groupOf: the strip that a column is in.
const GRIDS = {
  hours: {
    rows: 24,
    columnOf: (interval) => Math.floor(interval / 24),
    rowOf: (interval) => interval % 24,
    heightOf: () => 24,
    groupOf: (column) => dateOf('days', column).getUTCFullYear(),
  },
  days: {
    rows: 31,
    columnOf: (interval) => monthOf(dateOf('days', interval)),
    rowOf: (interval) => dateOf('days', interval).getUTCDate() - 1,
    heightOf: daysOfMonth,
    groupOf: () => null,
  },
  months: {
    rows: 12,
    columnOf: (interval) => Math.floor(interval / 12),
    rowOf: (interval) => interval % 12,
    heightOf: () => 12,
    groupOf: () => null,
  },
};

function gridOf(kind) {
  return GRIDS[kind] ?? GRIDS.hours;
}

// Cuts a run of intervals where a column or a strip ends; whole columns beside each other are one
// rectangle: {group, column, row, width, height, first, count}.
function rectanglesOf(grid, first, count) {
  const rectangles = [];
  for (let done = 0; done < count;) {
    const interval = first + done;
    const column = grid.columnOf(interval);
    const row = grid.rowOf(interval);
    const height = Math.min(grid.heightOf(column) - row, count - done);
    join(rectangles, { group: grid.groupOf(column), column, row, width: 1, height,
      first: interval, count: height });
    done += height;
  }
  return rectangles;
}

function join(rectangles, next) {
  const last = rectangles[rectangles.length - 1];
  const beside = last && last.group === next.group && last.row === next.row &&
    last.height === next.height && last.column + last.width === next.column;
  if (!beside) {
    rectangles.push(next);
    return;
  }
  ++last.width;
  last.count += next.count;
}

// A record that is dated by the end of its interval stands where the interval was.
function rectanglesOfArchive({ kind, endDated, coverage }) {
  const grid = gridOf(kind);
  const all = [];
  let interval = coverage.first - (endDated ? 1 : 0);
  for (const [state, count] of coverage.ranges) {
    for (const each of rectanglesOf(grid, interval, count)) all.push({ ...each, state });
    interval += count;
  }
  return all;
}

// [{group, first, columns, rectangles}]: strips with their first column and number of columns.
export function stripsOf(archive) {
  const grid = gridOf(archive.kind);
  const rectangles = rectanglesOfArchive(archive);
  const groups = [...new Set(rectangles.map(({ group }) => group))];
  return groups.map((group) => {
    const own = rectangles.filter((each) => each.group === group);
    const last = own.reduce((most, { column, width }) => Math.max(most, column + width), 0);
    const first = own[0].column;
    return { group, first, columns: last - first, rows: grid.rows, rectangles: own };
  });
}
