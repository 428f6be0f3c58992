// The line above the charts: the time under the cursor, that record's codes, the changes there.
import { element, foreign } from '../dom.js';
import { chartTexts } from '../texts/charts.js';
import { codesOf, isUnusual } from './situations.js';
import { dateText } from './time_axis.js';

const NEAR = 6;
const MOST_CHANGES = 3;

export function makeCursorLine(archive, view) {
  const line = element('p', { class: 'charts-at' });
  const show = (...parts) => line.replaceChildren(...parts);
  return {
    line,
    rest: () => show(rangeText(view)),
    follow: (plot) => show(...partsAt(plot, archive, view)),
  };
}

// The dates of the first and the last record in view.
export function rangeText({ rows, lang, range }) {
  const text = (at) => dateText(at, rows.kind, lang).replace(' ', '\u00a0');
  const first = rows.times.find((at) => at >= range.min) ?? range.min;
  const last = lastUpTo(rows.times, range.max) ?? range.max;
  return `${text(first)} – ${text(last)}`;
}

function partsAt(plot, archive, view) {
  const record = view.rows.records[plot.cursor.idx];
  const at = record < 0 ? missingPeriod(plot, view.rows) : plot.data[0][plot.cursor.idx];
  const time = element('time', {}, dateText(at, view.rows.kind, view.lang));
  const texts = chartTexts[view.lang];
  const told = record < 0 ? [texts.noRecord] : codeParts(archive, record, texts);
  return [time, ...spaced(told), ...spaced(changeParts(plot, view))];
}

// Where nothing is, the cursor is not drawn to a record: the period nearest to it.
function missingPeriod(plot, { seconds }) {
  return Math.round(plot.posToVal(plot.cursor.left, 'x') / seconds) * seconds;
}

const spaced = (parts) => parts.flatMap((part) => [' · ', part]);

function codeParts(archive, record, texts) {
  return codesOf(archive, record).map(({ name, value }) => {
    const look = isUnusual(value) ? `charts-${name}` : null;
    return element('span', { class: look }, texts[name], ' ', foreign(value));
  });
}

function changeParts(plot, { marks, lang }) {
  const near = marks.changes.filter(
    ({ time }) => Math.abs(plot.valToPos(time, 'x') - plot.cursor.left) <= NEAR,
  );
  const shown = near.slice(0, MOST_CHANGES).map(({ text }) => foreign(text));
  const more = near.length - shown.length;
  return more > 0 ? [...shown, chartTexts[lang].more(more)] : shown;
}

function lastUpTo(times, limit) {
  let i = times.length - 1;
  while (i >= 0 && times[i] > limit) i -= 1;
  return times[i];
}
