// What the page was given, decoded: the records of an archive and the instrument's dates. Dates
// count as UTC everywhere, so that no time zone or summer time moves anything.
import { inflateSync } from 'fflate';

const SECONDS = { hours: 3600, days: 86400 };
const decoded = new WeakMap();

// Returns {times, periods, values}, and broken: true where the data could not be understood.
// values: a list for each of the archive's columns. What was decoded once is kept.
export function decode(archive) {
  if (!decoded.has(archive)) decoded.set(archive, readOrNothing(archive));
  return decoded.get(archive);
}

// "2016-09-04 13:05:09" as seconds, or null.
export function secondsOf(text) {
  const found = /^(\d{4})-(\d\d)-(\d\d)(?:[ T](\d\d):(\d\d)(?::(\d\d))?)?/.exec(text ?? '');
  if (!found) return null;
  const [year, month, day, hour, minute, second] = found.slice(1).map((part) => Number(part ?? 0));
  return Date.UTC(year, month - 1, day, hour, minute, second) / 1000;
}

// kind: "hours", "days" or "months".
export function timeOfPeriod(kind, number) {
  if (kind !== 'months') return number * SECONDS[kind];
  return Date.UTC(Math.floor(number / 12), number % 12, 1) / 1000;
}

// As much of a date as the kind of archive tells: "2016-09-04 13:00", "2016-09-04" or "2016-09".
export function textOfTime(seconds, kind) {
  const text = new Date(seconds * 1000).toISOString();
  if (kind === 'months') return text.slice(0, 7);
  return kind === 'days' ? text.slice(0, 10) : text.slice(0, 16).replace('T', ' ');
}

function readOrNothing(archive) {
  const nothing = { times: new Float64Array(0), periods: [], values: archive.columns.map(() => []) };
  if (archive.data == null) return nothing;
  try {
    return read(archive);
  } catch {
    return { ...nothing, broken: true };
  }
}

function read(archive) {
  const packed = Uint8Array.from(atob(archive.data), (letter) => letter.charCodeAt(0));
  const given = JSON.parse(new TextDecoder().decode(inflateSync(packed)));
  const periods = summedUp(given.periods);
  const values = archive.columns.map((column, i) => valuesOf(column, given.values[i]));
  if (!ascends(periods) || values.some((list) => list.length !== periods.length)) {
    throw new RangeError('records that do not belong together');
  }
  return {
    times: Float64Array.from(periods, (number) => timeOfPeriod(archive.kind, number)),
    periods,
    values,
  };
}

function summedUp(steps) {
  let sum = 0;
  return steps.map((step) => (sum += step));
}

function ascends(periods) {
  return periods.every((number, i) => Number.isInteger(number) && (i === 0 || number > periods[i - 1]));
}

// Texts stand as they are; numbers as differences of scaled integers.
function valuesOf(column, given) {
  if (column.decimals == null) return given;
  const scale = 10 ** Math.abs(column.decimals);
  const scaled = column.decimals < 0 ? (sum) => sum * scale : (sum) => sum / scale;
  let sum = 0;
  return given.map((step) => (step === null ? null : scaled((sum += step))));
}
