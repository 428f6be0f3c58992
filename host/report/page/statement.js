// Monthly statements, one for each part of each instrument, as they are filed on paper.
import { timeOfPeriod } from './data.js';
import { button, element, foreign, scrollBox, section } from './dom.js';
import { captionOf, dateText, fieldText, meaningOf, monthName, numberText, recordTime, unitOf,
  valueText }
  from './formats.js';
import { logTable } from './logs.js';
import { daysOfMonth, statementRows } from './statement_rows.js';
import { counterReadings, logsOfMonth, situationCounts, workingTime }
  from './statement_summary.js';
import { isAmount, isMean, meanOf, sumOf } from './sums.js';
import { partsOf } from './systems.js';
import { words } from './texts/index.js';

const MOST_COLUMNS_UPRIGHT = 14;
const OF_HOURS = '*';

function isGas({ archives }) {
  return archives.some(({ columns }) =>
    columns.some(({ pipe }) => String(pipe ?? '').startsWith('gas')));
}

function line(term, ...value) {
  return element('div', {}, element('dt', {}, term), element('dd', {}, ...value));
}

function blank(term) {
  return element('div', { class: 'blank' }, element('dt', {}, term), element('dd'));
}

function head(instrument, part, month, gas) {
  const text = words.statement;
  const { model, serial, version, place } = instrument;
  const title = (gas ? text.gasTitle : text.title)(monthName(month));
  return element('header', {},
    element('h1', {}, title),
    element('dl', {},
      blank(text.consumer), blank(text.address), blank(text.contract),
      line(gas ? text.corrector : text.meter, foreign(model), ` ${words.number} `,
        foreign(serial || words.none), version && [`, ${words.version} `, foreign(version)]),
      line(text.system, foreign(part)),
      line(text.place, foreign(place || words.none))));
}

function dayName(day) {
  return recordTime(timeOfPeriod('days', day), 'days');
}

function dayRow({ day, values, summed }, columns) {
  const name = element('th', { scope: 'row' }, dayName(day), summed && OF_HOURS);
  if (!values) {
    return element('tr', { class: 'gap' }, name,
      element('td', { colspan: columns.length }, words.noData));
  }
  return element('tr', {}, name, columns.map((field) =>
    element('td', { class: 'number' }, fieldText(values.get(field.field), field))));
}

function footRow(title, { rows, columns }, applies, calculate) {
  return element('tr', {}, element('th', { scope: 'row' }, title), columns.map((field) => {
    const values = rows.map(({ values }) => values?.get(field.field) ?? null);
    const shown = applies(field) ? calculate(values, field) : null;
    return element('td', { class: 'number' },
      shown == null ? '' : numberText(shown, field.decimals));
  }));
}

function dayTable(month) {
  const { rows, columns } = month;
  const heads = columns.map((field) => element('th', { scope: 'col', class: 'number',
    title: field.derived ? words.statement.derived : meaningOf(field) },
  foreign(field.caption || field.field), element('small', {}, foreign(unitOf(field.unit))),
  element('small', {}, meaningOf({ pipe: field.pipe }))));
  return scrollBox(element('table', { class: 'days' },
    element('thead', {}, element('tr', {},
      element('th', { scope: 'col' }, words.statement.day), heads)),
    element('tbody', {}, rows.map((row) => dayRow(row, columns))),
    element('tbody', { class: 'sums' },
      footRow(words.statement.sum, month, isAmount, sumOf),
      footRow(words.statement.mean, month, isMean, meanOf))));
}

function footnotes({ rows, columns }) {
  const text = words.statement;
  const derived = columns.find((field) => field.derived);
  return element('div', { class: 'notes' },
    rows.some(({ summed }) => summed) && element('p', {}, text.ofHours(OF_HOURS)),
    columns.some(isMean) && element('p', {}, text.meanNote),
    derived && element('p', {}, foreign(derived.caption), ` — ${text.derived}.`));
}

function situationsText({ unit, counts }) {
  const text = words.statement;
  if (counts.length === 0) return text.noSituations;
  const amount = (count) => (unit === 'hours' ? text.hours(numberText(count)) : words.days(count));
  return counts.map(([code, count]) => text.code(code, amount(count))).join('; ');
}

function summary(month, days) {
  const text = words.statement;
  const present = month.rows.filter(({ values }) => values).length;
  const worked = workingTime(month);
  const ofMonth = text.of(numberText(present), words.days(days.count));
  return section('summary', text.summary, element('dl', {},
    line(text.present, ofMonth),
    worked && line(text.worked, text.workedOf(
      valueText(worked.hours, worked.decimals), numberText(days.hours))),
    line(text.situations, situationsText(situationCounts(month, days)))));
}

function counterRow(title, fields, values) {
  return element('tr', {}, element('th', { scope: 'row' }, title), values.map((value, i) =>
    element('td', { class: 'number' }, valueText(value, fields[i].decimals))));
}

function differences([first, last]) {
  return first.map((value, i) =>
    typeof value === 'number' && typeof last[i] === 'number' ? last[i] - value : null);
}

function readingTime({ time, endOfDay }) {
  return endOfDay ? words.statement.endOfDay(dateText(time)) : dateText(time);
}

// The readings of the counters, and below them what they counted between two of them.
function counters(readings) {
  if (readings.length === 0) return null;
  const text = words.statement;
  const fields = readings[0].fields;
  const values = readings.map((reading) => fields.map(({ field }) =>
    reading.fields.find((each) => each.field === field)?.value ?? null));
  return section('counters', text.totals, scrollBox(element('table', {},
    element('thead', {}, element('tr', {}, element('th', { scope: 'col' }, text.counter),
      fields.map((field) =>
        element('th', { scope: 'col', class: 'number' }, foreign(captionOf(field)))))),
    element('tbody', {},
      readings.map((reading, i) => counterRow(readingTime(reading), fields, values[i])),
      values.length === 2 && counterRow(text.difference, fields, differences(values))))));
}

function logEntries(logs) {
  if (logs.length === 0) return null;
  return section('entries', words.statement.log, logs.map(({ log, rows }) =>
    [element('h3', {}, foreign(log.system)), logTable(log, rows)]));
}

function signatures() {
  const text = words.statement;
  return element('div', { class: 'signatures' }, [text.supplier, text.consumerSign].map((who) =>
    element('div', {}, element('span', {}, who), element('small', {}, text.signature))));
}

function origin({ store, made }) {
  const [before, named, after] = words.statement.printed(foreign(store ?? ''), dateText(made));
  return element('p', { class: 'origin' }, before, named, after);
}

function statement(given, instrument, part) {
  const days = daysOfMonth(given.statement);
  const month = statementRows(part.archives, days);
  const empty = month.columns.length === 0;
  const wide = month.columns.length > MOST_COLUMNS_UPRIGHT;
  const content = empty
    ? element('p', { class: 'empty' }, words.statement.noArchive)
    : [dayTable(month), footnotes(month)];
  const readings = counterReadings(instrument, part, given.statement, days);
  return element('article', { class: wide ? 'statement wide' : 'statement' },
    head(instrument, part.part, given.statement, isGas(part)), content,
    !empty && summary(month, days), counters(readings),
    logEntries(logsOfMonth(instrument, part.part, given.statement)),
    signatures(), origin(given));
}

export function statementView(given) {
  const statements = given.instruments.flatMap((instrument) => {
    const parts = partsOf(instrument);
    const own = parts.length > 0 ? parts : [{ part: '', archives: [] }];
    return own.map((part) => statement(given, instrument, part));
  });
  if (statements.length === 0) {
    return element('div', {}, element('p', { class: 'empty' }, words.statement.nothing));
  }
  return element('div', { class: 'statements' },
    element('nav', { class: 'screen-only' }, button(words.statement.print, () => print())),
    statements);
}
