// The range of time that all charts of an archive show.

const FEWEST_PERIODS = 4;

// apply(range, own): own if it comes from a chart and not from outside.
export function makeZoom(rows, wanted, apply) {
  let range = fitted(rows, wanted?.min ?? rows.min, wanted?.max ?? rows.max);
  const set = (min, max, own) => {
    const next = fitted(rows, min, max);
    if (next.min === range.min && next.max === range.max) return;
    range = next;
    apply(range, own);
  };
  const span = () => range.max - range.min;
  const middle = () => (range.min + range.max) / 2;
  return {
    range: () => range,
    set: (min, max) => set(min ?? rows.min, max ?? rows.max, false),
    to: (min, max) => set(min, max, true),
    by: (factor) => set(middle() - (span() * factor) / 2, middle() + (span() * factor) / 2, true),
    pan: (share) => set(range.min + span() * share, range.max + span() * share, true),
    all: () => set(rows.min, rows.max, true),
  };
}

// Not beyond the records, and not nearer than a few periods.
function fitted(rows, min, max) {
  const whole = rows.max - rows.min;
  const span = Math.min(Math.max(max - min, FEWEST_PERIODS * rows.seconds), whole);
  const from = (min + max) / 2 - span / 2;
  const kept = Math.min(Math.max(from, rows.min), rows.max - span);
  return { min: kept, max: kept + span };
}
