// The days of a month as a statement shows them: the daily records of a part of an instrument, and
// where one is missing the sum of its 24 hours.
import { decode } from './data.js';
import { isAmount, isMean, meanOf, sumOf } from './sums.js';

const ORDER = ['temperature', 'temperature difference', 'pressure', 'pressure difference',
  'volume', 'working volume', 'mass', 'heat', 'working time', 'situation code'];
const HOURS_OF_DAY = 24;

// Day numbers of a month "2026-09", the last one not included, and its hours.
export function daysOfMonth(text) {
  const [year, month] = text.split('-').map(Number);
  const dayNumber = (index) => Date.UTC(year, index, 1) / 86400e3;
  const first = dayNumber(month - 1);
  const end = dayNumber(month);
  return { first, end, count: end - first, hours: (end - first) * HOURS_OF_DAY };
}

// {valueAt(interval, column)}: records by the interval that they cover.
export function byInterval(archive) {
  const data = decode(archive);
  const shift = archive.endDated ? 1 : 0;
  const places = new Map(data.periods.map((period, i) => [period - shift, i]));
  return {
    archive,
    has: (interval) => places.has(interval),
    values: (interval) => data.values.map((list) => list[places.get(interval)] ?? null),
  };
}

function ofHours(hours, day) {
  const first = day * HOURS_OF_DAY;
  const numbers = Array.from({ length: HOURS_OF_DAY }, (_, hour) => first + hour);
  if (!hours || !numbers.every((hour) => hours.has(hour))) return null;
  const rows = numbers.map((hour) => hours.values(hour));
  const values = new Map();
  hours.archive.columns.forEach((field, i) =>
    values.set(field.field, combined(field, rows.map((row) => row[i]))));
  return values;
}

// An amount of a day needs all of its hours. Situations are told by the first code that is not 0.
function combined(field, values) {
  if (isAmount(field)) return values.includes(null) ? null : sumOf(values, field);
  if (isMean(field)) return rounded(meanOf(values, field), field.decimals);
  if (field.quantity === 'situation code') return values.find(Boolean) ?? values[0];
  return null;
}

function rounded(value, decimals) {
  return value == null ? null : Math.round(value * 10 ** decimals) / 10 ** decimals;
}

function ofDay(days, day) {
  if (!days?.has(day)) return null;
  const values = days.values(day);
  return new Map(days.archive.columns.map((field, i) => [field.field, values[i]]));
}

// One day: {day, values: Map by field, or null, summed: of hours}.
function dayRow(days, hours, day) {
  const values = ofDay(days, day);
  if (values) return { day, values, summed: false };
  const summed = ofHours(hours, day);
  return { day, values: summed, summed: summed != null };
}

function find(archives, kind) {
  const archive = archives.find((each) => each.kind === kind && !each.totals);
  return archive ? byInterval(archive) : null;
}

function isShown(field, rows) {
  return ORDER.includes(field.quantity) && field.span !== 'total' && field.decimals != null &&
    rows.some(({ values }) => values?.get(field.field) != null);
}

// An amount whose unit has changed within the month is two fields, and so two columns.
function columnsOf(days, hours, rows) {
  const fields = new Map();
  for (const { archive } of [days, hours].filter(Boolean)) {
    for (const field of archive.columns) {
      if (!fields.has(field.field)) fields.set(field.field, field);
    }
  }
  return [...fields.values()]
    .filter((field) => isShown(field, rows))
    .sort((one, other) => ORDER.indexOf(one.quantity) - ORDER.indexOf(other.quantity));
}

// The difference of the first two temperatures, where the instrument keeps none itself.
function addDifference(columns, rows) {
  const temperature = (pipe) =>
    columns.find((each) => each.quantity === 'temperature' && each.pipe === pipe);
  const supply = temperature('supply');
  const back = temperature('return');
  const known = columns.some(({ quantity }) => quantity === 'temperature difference');
  if (known || !supply || !back || supply.unit !== back.unit) return columns;
  const derived = { ...supply, field: 'supply less return', derived: true, pipe: '',
    caption: `${supply.caption}−${back.caption}`, quantity: 'temperature difference' };
  for (const { values } of rows) {
    const pair = values && [values.get(supply.field), values.get(back.field)];
    if (!pair || pair.some((value) => value == null)) continue;
    values.set(derived.field, rounded(pair[0] - pair[1], derived.decimals));
  }
  const place = columns.filter(({ quantity }) => quantity === 'temperature').length;
  return [...columns.slice(0, place), derived, ...columns.slice(place)];
}

// Returns {rows, columns, days, hours}; no columns where nothing of the month is kept.
export function statementRows(archives, month) {
  const days = find(archives, 'days');
  const hours = find(archives, 'hours');
  const rows = [];
  for (let day = month.first; day < month.end; ++day) rows.push(dayRow(days, hours, day));
  return { rows, columns: addDifference(columnsOf(days, hours, rows), rows), days, hours };
}
