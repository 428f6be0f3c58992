// Sums and means of a column, of the values as they are shown.

const AMOUNTS = new Set(['volume', 'working volume', 'mass', 'heat', 'working time',
  'time of situations']);
const MEANS = new Set(['temperature', 'temperature difference', 'pressure',
  'pressure difference']);

// Counted in an interval: these add up.
export function isAmount(field) {
  return AMOUNTS.has(field.quantity) && field.span !== 'total' && field.decimals != null;
}

export function isMean(field) {
  return MEANS.has(field.quantity) && field.decimals != null;
}

function sumAndCount(values, decimals) {
  const scale = 10 ** decimals;
  let sum = 0;
  let count = 0;
  for (const value of values) {
    if (value == null) continue;
    sum += Math.round(value * scale);
    ++count;
  }
  return { sum: sum / scale, count };
}

// Null of no value at all. Added up as whole numbers of the last place, so that a column adds up
// to what is written below it.
export function sumOf(values, { decimals }) {
  const { sum, count } = sumAndCount(values, decimals);
  return count > 0 ? sum : null;
}

export function meanOf(values, { decimals }) {
  const { sum, count } = sumAndCount(values, decimals);
  return count > 0 ? sum / count : null;
}
