// Periods of time on the charts: {min, max} in seconds.

const DAY = 86400;
const NAMES = ['day', 'week', 'month', 'year', 'all'];

// What makes sense for an archive of a kind.
export function rangeNames(kind) {
  return NAMES.slice({ hours: 0, days: 2, months: 3 }[kind] ?? 0);
}

function addMonths(seconds, months) {
  const date = new Date(seconds * 1000);
  const day = date.getUTCDate();
  date.setUTCDate(1);
  date.setUTCMonth(date.getUTCMonth() + months + 1, 0);
  date.setUTCDate(Math.min(day, date.getUTCDate()));
  return date.getTime() / 1000;
}

// A time later by so many of the named lengths.
function moved(seconds, name, times) {
  if (name === 'day') return seconds + times * DAY;
  if (name === 'week') return seconds + times * 7 * DAY;
  return addMonths(seconds, times * (name === 'year' ? 12 : 1));
}

export function wholeRange(times) {
  return times.length > 0 ? { min: times[0], max: times[times.length - 1] } : null;
}

// The last day, week ... that ends where a range does.
export function namedRange(name, max, whole) {
  if (name === 'all') return whole;
  return { min: moved(max, name, -1), max };
}

// Steps of a range chosen by hand are as long as it is. No step leaves the records.
export function steppedRange(range, name, direction, whole) {
  const length = range.max - range.min;
  const step = (time) => (name ? moved(time, name, direction) : time + direction * length);
  const next = { min: step(range.min), max: step(range.max) };
  return next.max <= whole.min || next.min >= whole.max ? range : next;
}

// A little more than a time span, so that it can be seen.
export function paddedRange(from, to, kind) {
  const least = { hours: DAY, days: 15 * DAY, months: 180 * DAY }[kind] ?? DAY;
  const padding = Math.max(least, (to - from) / 4);
  return { min: from - padding, max: to + padding };
}
