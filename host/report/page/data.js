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
  try {
    return read(archive);
  } catch {
    const values = archive.columns.map(() => []);
    return { times: new Float64Array(0), periods: [], values, broken: true };
  }
}

function read(archive) {
  const packed = Uint8Array.from(atob(archive.data), (letter) => letter.charCodeAt(0));
  const numbers = archive.columns.filter((column) => column.bytes != null);
  const widths = [archive.periodBytes, ...numbers.map((column) => column.bytes)];
  const codes = codesOf(inflateSync(packed), widths, archive.records);
  const periods = stepsSummedUp(codes[0], 0);
  if (!ascends(periods)) throw new RangeError('records that are not in the order of time');
  return {
    times: Float64Array.from(periods, (number) => timeOfPeriod(archive.kind, number)),
    periods,
    values: archive.columns.map((column) =>
      column.bytes == null
        ? column.texts
        : numbersOf(column, codes[1 + numbers.indexOf(column)]),
    ),
  };
}

// The lowest bytes of all columns stand first, then the next ones.
function codesOf(bytes, widths, records) {
  if (bytes.length !== widths.reduce((sum, width) => sum + width, 0) * records) {
    throw new RangeError('records that do not belong together');
  }
  const codes = widths.map(() => new Float64Array(records));
  let at = 0;
  for (let place = 0, weight = 1; at < bytes.length; ++place, weight *= 256) {
    codes
      .filter((_, column) => place < widths[column])
      .forEach((column) => {
        for (let i = 0; i < records; ++i) column[i] += bytes[at++] * weight;
      });
  }
  return codes;
}

// 0 is no value, an odd code a step up, an even one a step down.
function stepsSummedUp(codes, decimals) {
  const scale = 10 ** decimals;
  let sum = 0;
  return Array.from(codes, (code) => {
    if (code === 0) return null;
    sum += code % 2 === 1 ? (code - 1) / 2 : -code / 2;
    return sum / scale;
  });
}

function numbersOf(column, codes) {
  const values = stepsSummedUp(codes, column.decimals);
  for (const [place, value] of column.wild ?? []) values[place] = value;
  return values;
}

function ascends(periods) {
  return periods.every((number, i) => i === 0 || number > periods[i - 1]);
}
