// Ticks and labels of the time axis, and dates as the page's language writes them.
import uPlot from 'uplot';
import { textOfTime } from '../data.js';
import { chartTexts } from '../texts/charts.js';

const HOUR = 3600;
const DAY = 86400;
const MONTH = 28 * DAY;
const YEAR = 365 * DAY;
const HALF_A_DATE = 16;

// A step of months or years is told by the fewest seconds that it has.
export const timeSteps = [
  ...[1, 2, 3, 6, 12].map((count) => count * HOUR),
  ...[1, 2, 5, 10].map((count) => count * DAY),
  ...[1, 2, 3, 6].map((count) => count * MONTH),
  ...[1, 2, 5, 10, 20, 50].map((count) => count * YEAR),
];

export function timeTicks(plot, axis, min, max, step) {
  if (step >= MONTH) return monthTicks(min, max, step < YEAR ? step / MONTH : (step / YEAR) * 12);
  return step > 2 * DAY ? dayTicks(min, max, step / DAY) : evenTicks(min, max, step);
}

function evenTicks(min, max, step) {
  const ticks = [];
  for (let at = Math.ceil(min / step) * step; at <= max; at += step) ticks.push(at);
  return ticks;
}

// Every month begins anew: 1, 11, 21 or 1, 6, 11 ...
function dayTicks(min, max, days) {
  const ticks = [];
  for (const first of monthTicks(min - 31 * DAY, max, 1)) {
    for (let day = 1; day <= 28; day += days) ticks.push(first + (day - 1) * DAY);
  }
  return ticks.filter((at) => at >= min && at <= max);
}

function monthTicks(min, max, months) {
  const from = new Date(min * 1000);
  const ticks = [];
  const month = from.getUTCFullYear() * 12 + from.getUTCMonth();
  for (let next = Math.floor(month / months) * months; ; next += months) {
    const at = Date.UTC(Math.floor(next / 12), next % 12, 1) / 1000;
    if (at > max) return ticks;
    if (at >= min) ticks.push(at);
  }
}

// Below a label stands what changes more slowly, where it changes and at the first tick. scale:
// how many times larger than on the screen everything is.
export function timeLabels(lang, scale) {
  return (plot, ticks, axis, space, step) => {
    const lower = ticks.map((at) => lowerLabel(at, step, lang));
    const changes = (i) => lower[i] !== lower[i - 1] && hasRoom(plot, ticks[i], scale);
    const shown = ticks.map((at, i) => lower[i] && (i > 0 ? changes(i) : !changes(1)));
    return ticks.map((at, i) => upperLabel(at, step, lang) + (shown[i] ? `\n${lower[i]}` : ''));
  };
}

// A date is wider than the label above it and would be cut at the right edge.
function hasRoom(plot, at, scale) {
  return plot.bbox.width / uPlot.pxRatio - plot.valToPos(at, 'x') > HALF_A_DATE * scale;
}

function upperLabel(at, step, lang) {
  const date = new Date(at * 1000);
  if (step < DAY) return textOfTime(at, 'hours').slice(11);
  if (step < MONTH) return dayText(at, lang);
  return step < YEAR ? chartTexts[lang].months[date.getUTCMonth()] : String(date.getUTCFullYear());
}

function lowerLabel(at, step, lang) {
  if (step >= YEAR) return '';
  return step < DAY ? dateText(at, 'days', lang) : textOfTime(at, 'days').slice(0, 4);
}

function dayText(at, lang) {
  const [, month, day] = textOfTime(at, 'days').split('-');
  return lang === 'ru' ? `${day}.${month}` : `${month}-${day}`;
}

// "04.09.2016 13:00" or "2016-09-04 13:00", as much of it as the kind tells.
export function dateText(at, kind, lang) {
  const text = textOfTime(at, kind);
  if (lang !== 'ru') return text;
  const [date, time] = text.split(' ');
  return [date.split('-').reverse().join('.'), time].filter(Boolean).join(' ');
}
