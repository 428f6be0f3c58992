// The instrument's logs, the newest entry first.
import { element, foreign, lazyDetails, scrollBox, section } from './dom.js';
import { dateText, valueText } from './formats.js';
import { words } from './texts/index.js';

function entryRow([time, ...values]) {
  return element('tr', {},
    element('th', { scope: 'row', class: 'nowrap' }, foreign(dateText(time))),
    values.map((value) => element('td', {}, foreign(valueText(value)))));
}

export function logTable({ columns }, rows) {
  return scrollBox(element('table', {},
    element('thead', {}, element('tr', {},
      element('th', { scope: 'col' }, words.instrument.time),
      columns.map((column) => element('th', { scope: 'col' }, foreign(column))))),
    element('tbody', {}, rows.map(entryRow))));
}

function newestFirst(rows) {
  const timeOf = ([time]) => String(time ?? '');
  return [...rows].sort((one, other) => (timeOf(one) < timeOf(other) ? 1 : -1));
}

export function logsSection({ logs }) {
  const content = logs.map((log) => lazyDetails({},
    [foreign(log.system), ` · ${words.instrument.entries(log.rows.length)}`],
    () => logTable(log, newestFirst(log.rows))));
  if (content.length === 0) content.push(element('p', { class: 'empty' }, words.instrument.noLogs));
  return section('logs', words.instrument.logs, content);
}
