// What a statement says below its table.
import { decode, textOfTime } from './data.js';
import { sumOf } from './sums.js';
import { byInterval } from './statement_rows.js';
import { kindOf, partOf } from './systems.js';

const HOURS_OF_DAY = 24;
const SECONDS_OF_DAY = 86400;

function isSituationColumn(field) {
  return field.quantity === 'situation code';
}

function countCodes(counts, source, first, end) {
  const columns = source.archive.columns.map(isSituationColumn);
  for (let interval = first; interval < end; ++interval) {
    if (!source.has(interval)) continue;
    const values = source.values(interval).filter((value, i) => columns[i]);
    for (const code of values) if (code) counts.set(code, (counts.get(code) ?? 0) + 1);
  }
}

// {unit: "hours" or "days", counts: [[code, how many]]}, by the hours where any are kept.
export function situationCounts({ days, hours }, month) {
  const counts = new Map();
  const first = month.first * HOURS_OF_DAY;
  const end = month.end * HOURS_OF_DAY;
  const byHours = hours != null && hasAny(hours, first, end);
  if (byHours) countCodes(counts, hours, first, end);
  else if (days) countCodes(counts, days, month.first, month.end);
  return {
    unit: byHours ? 'hours' : 'days',
    counts: [...counts].sort(([one], [other]) => one - other),
  };
}

function hasAny(source, first, end) {
  for (let interval = first; interval < end; ++interval) if (source.has(interval)) return true;
  return false;
}

// Of the first working time that there is; null where there is none.
export function workingTime({ rows, columns }) {
  const field = columns.find(({ quantity }) => quantity === 'working time');
  if (!field) return null;
  const values = rows.map(({ values }) => values?.get(field.field) ?? null);
  return { hours: sumOf(values, field), decimals: field.decimals };
}

const COUNTED = new Set(['volume', 'working volume', 'mass', 'heat', 'working time']);

function isCounter({ span, quantity }) {
  return span === 'total' && COUNTED.has(quantity);
}

// Readings of the counters within the month: [{time: text, endOfDay, fields: [field with value]}].
function currentTotals(instrument, part, month) {
  return instrument.current
    .filter(({ system, time }) => partOf(system) === part && String(time).startsWith(month))
    .map(({ time, values }) => ({ time, fields: values.filter(isCounter) }))
    .filter(({ fields }) => fields.length > 0);
}

// The totals of a control archive stand as they did when the day was over.
function controlTotals(archives, days) {
  const control = archives.find((archive) => kindOf(archive) === 'control');
  if (!control || decode(control).periods.length === 0) return [];
  const source = byInterval(control);
  const totals = [];
  // The month begins with the end of the day before it.
  for (let day = days.first - 1; day < days.end; ++day) if (source.has(day)) totals.push(day);
  return [totals[0], totals[totals.length - 1]].filter((day) => day != null).map((day) => {
    const values = source.values(day);
    const fields = control.columns.map((field, i) => ({ ...field, value: values[i] }));
    return { time: textOfTime(day * SECONDS_OF_DAY, 'days'), endOfDay: true,
      fields: fields.filter(isCounter) };
  });
}

// The first and the last reading of the counters within the month: none, one or two.
export function counterReadings(instrument, { part, archives }, month, days) {
  const all = [...controlTotals(archives, days), ...currentTotals(instrument, part, month)]
    .sort((one, other) => (one.time < other.time ? -1 : 1));
  return [...new Set([all[0], all[all.length - 1]])].filter(Boolean);
}

// [{log, rows}] of the part within the month, in the order of time.
export function logsOfMonth(instrument, part, month) {
  return instrument.logs
    .filter(({ system }) => isLogOf(instrument, system, part))
    .map((log) => ({ log, rows: log.rows.filter(([time]) => String(time).startsWith(month)) }))
    .filter(({ rows }) => rows.length > 0);
}

// A log that names no part of the instrument belongs to all of them.
function isLogOf(instrument, system, part) {
  const name = String(system ?? '');
  const names = (each) => each !== '' && name.startsWith(each);
  return names(part) || !instrument.archives.some((archive) => names(partOf(archive.system)));
}
