// Numbers, dates and lengths of time as the page's language writes them.
import { words, wordOf } from './texts/index.js';
import { pipeText, unitText } from './texts/charts.js';

const MOST_DECIMALS = 6;

let language = 'en';
let formats = new Map();

export function useFormats(lang) {
  language = lang === 'ru' ? 'ru' : 'en';
  formats = new Map();
}

// Formats are slow to make, so each is made once.
function kept(key, make) {
  if (!formats.has(key)) formats.set(key, make());
  return formats.get(key);
}

function numberFormat(decimals) {
  return kept(decimals, () => {
    const least = decimals == null ? 0 : Math.max(0, decimals);
    const most = decimals == null ? MOST_DECIMALS : least;
    const digits = { minimumFractionDigits: least, maximumFractionDigits: most };
    return new Intl.NumberFormat(language, digits);
  });
}

// decimals: null shows those that the number has.
export function numberText(value, decimals = null) {
  return numberFormat(decimals).format(value);
}

// A value that may be a number, a text, or null where there is none.
export function valueText(value, decimals = null) {
  if (value == null || value === '') return words.none;
  return typeof value === 'number' ? numberText(value, decimals) : String(value);
}

const CODES = new Set(['mode code', 'situation code', 'diagnostic code', 'flag', 'setting']);

// A value of a column; codes are no amounts, so their digits stand together.
export function fieldText(value, { quantity, decimals }) {
  const isCode = CODES.has(quantity) && Number.isInteger(value);
  return isCode ? String(value) : valueText(value, decimals);
}

export function unitOf(unit) {
  return unitText(unit, language);
}

export function withUnit(value, unit, decimals = null) {
  const text = valueText(value, decimals);
  return unit && value != null ? `${text} ${unitOf(unit)}` : text;
}

// "2016-09-04 13:05:09" to the minute; a text that is no date stays what it is.
export function dateText(text) {
  if (!text) return words.none;
  const parts = /^(\d{4})-(\d\d)-(\d\d)(?: (\d\d:\d\d)(?::\d\d)?)?$/.exec(text);
  if (!parts) return String(text);
  const [, year, month, day, time] = parts;
  const date = language === 'ru' ? `${day}.${month}.${year}` : `${year}-${month}-${day}`;
  return time ? `${date} ${time}` : date;
}

function isoOf(seconds) {
  return new Date(seconds * 1000).toISOString().replace('T', ' ').slice(0, 19);
}

// The time of a record: days have no hour, months no day.
export function recordTime(seconds, kind) {
  const iso = isoOf(seconds);
  if (kind === 'hours') return dateText(iso);
  if (kind === 'days') return dateText(iso.slice(0, 10));
  const [year, month] = iso.split('-');
  return language === 'ru' ? `${month}.${year}` : `${year}-${month}`;
}

function monthFormat(month) {
  return kept(month, () => new Intl.DateTimeFormat(language, { month, timeZone: 'UTC' }));
}

// "September 2026", "сентябрь 2026"; year and month of a text "2026-09".
export function monthName(text) {
  const [year, month] = String(text).split('-').map(Number);
  return `${monthFormat('long').format(new Date(Date.UTC(year, month - 1, 1)))} ${year}`;
}

// "Jan", "янв"; month from 0.
export function shortMonth(month) {
  return monthFormat('short').format(new Date(Date.UTC(2001, month, 1))).replace('.', '');
}

// The two largest units: "3 h 0 min", "45 s".
export function durationText(seconds) {
  const { d, h, min, s } = words.units;
  const whole = Math.round(Math.abs(seconds));
  if (whole < 60) return `${whole} ${s}`;
  if (whole < 3600) return `${Math.floor(whole / 60)} ${min} ${whole % 60} ${s}`;
  const minutes = Math.floor(whole / 60);
  if (whole < 86400) return `${Math.floor(minutes / 60)} ${h} ${minutes % 60} ${min}`;
  return `${numberText(Math.floor(minutes / 1440))} ${d} ${Math.floor(minutes / 60) % 24} ${h}`;
}

// Seconds that a clock is ahead.
export function clockText(seconds) {
  if (seconds == null) return words.none;
  if (seconds === 0) return words.onTime;
  return (seconds > 0 ? words.ahead : words.behind)(durationText(seconds));
}

const AGO_UNITS = [['year', 31557600], ['month', 2629800], ['day', 86400], ['hour', 3600],
  ['minute', 60]];

// "3 days ago".
export function agoText(seconds) {
  const format = kept('ago', () => new Intl.RelativeTimeFormat(language, { numeric: 'always' }));
  const past = Math.max(0, seconds);
  const [unit, length] = AGO_UNITS.find(([, each]) => past >= each) ?? ['minute', 60];
  return format.format(-Math.floor(past / length), unit);
}

// "temperature, supply".
export function meaningOf(field) {
  const quantity = wordOf(words.quantities, field.quantity ?? '');
  const pipe = pipeText(field.pipe, language);
  return [quantity, pipe].filter(Boolean).join(', ');
}

// "t1, °C": a column's caption with its unit.
export function captionOf(field) {
  const caption = field.caption || field.field || '';
  return field.unit ? `${caption}, ${unitOf(field.unit)}` : caption;
}
