// The first page: all instruments, those first that need attention.
import { ALL, addressOf } from './address.js';
import { factsOf } from './attention.js';
import { element, foreign, scrollBox } from './dom.js';
import { agoText, clockText, dateText, numberText } from './formats.js';
import { stateChips } from './state_chips.js';
import { words } from './texts/index.js';

const LEAST_TO_FILTER = 8;

function placeKey(text) {
  return String(text ?? '').toLowerCase();
}

const collator = new Intl.Collator(undefined, { numeric: true });

// What a column shows of a row, and what it is sorted by: the greatest first where `falling`.
const COLUMNS = [
  { name: 'state', falling: true, key: (row) => row.facts.urgency, show: showState },
  { name: 'serial', key: (row) => String(row.instrument.serial ?? ''), show: showSerial },
  {
    name: 'model',
    key: (row) => placeKey(row.instrument.model),
    show: (row) => foreign(row.instrument.model ?? words.none),
  },
  {
    name: 'place',
    key: (row) => placeKey(row.instrument.place),
    show: (row) => foreign(row.instrument.place ?? words.none),
  },
  { name: 'read', falling: true, key: (row) => row.facts.sinceRead, show: showRead },
  { name: 'result', key: (row) => resultOf(row.instrument), show: showResult },
  { name: 'clock', falling: true, key: (row) => Math.abs(row.facts.difference ?? 0),
    show: ({ facts }) => element('span', { class: 'nowrap' }, clockText(facts.difference)) },
  { name: 'missing', number: true, falling: true, key: (row) => row.facts.missing,
    show: showMissing },
  { name: 'findings', number: true, falling: true, key: (row) => row.facts.findings,
    show: showFindings },
  { name: 'situation', falling: true, key: (row) => row.facts.situations.length,
    show: (row) => situationNodes(row.facts.situations) },
];

function showState(row) {
  return stateChips(row.facts.states);
}

function showSerial({ instrument, index }) {
  return element('a', { href: addressOf(instrument, index) },
    foreign(instrument.serial || words.none));
}

function showRead({ instrument, facts }) {
  if (!instrument.last?.begun) return words.none;
  return [element('span', { class: 'nowrap' }, dateText(instrument.last.begun)), ' ',
    element('small', { class: 'nowrap' }, agoText(facts.sinceRead))];
}

export function resultOf({ last }) {
  if (!last) return words.results.never;
  return words.results[last.result] ?? words.results.unended;
}

function showResult({ instrument }) {
  const reason = instrument.last?.reason ?? instrument.failed?.reason;
  return [resultOf(instrument),
    reason && element('small', { class: 'reason' }, ' ', foreign(reason))];
}

function showMissing({ facts }) {
  return [numberText(facts.missing), facts.absent > 0 &&
    element('small', {}, ' ', words.overview.notHeld(numberText(facts.absent)))];
}

function showFindings({ facts }) {
  return [numberText(facts.findings), facts.notes > 0 &&
    element('small', {}, ' ', words.overview.notes(facts.notes))];
}

export function situationNodes(situations) {
  if (situations.length === 0) return words.none;
  return situations.map(({ system, code }, i) =>
    [i > 0 && ', ', foreign(system), ': ', foreign(code)]);
}

function compare(one, other) {
  return typeof one === 'string' ? collator.compare(one, other) : one - other;
}

function byAttention(one, other) {
  return other.facts.urgency - one.facts.urgency || other.facts.missing - one.facts.missing ||
    other.facts.findings - one.facts.findings || one.index - other.index;
}

function makeRow(instrument, index, given) {
  const row = { instrument, index, facts: factsOf(instrument, given) };
  row.search = [instrument.serial, instrument.place, instrument.model].map(placeKey).join('\n');
  row.node = element('tr', {}, COLUMNS.map((column) =>
    element(column.name === 'serial' ? 'th' : 'td', {
      'data-label': words.overview.columns[column.name],
      class: column.number ? 'number' : null,
      scope: column.name === 'serial' ? 'row' : null,
    }, column.show(row))));
  return row;
}

function sortRows(rows, column, direction) {
  return [...rows].sort((one, other) =>
    direction * compare(column.key(one), column.key(other)) || byAttention(one, other));
}

function headCell(column, sort) {
  const cell = element('th', { scope: 'col', class: column.number ? 'number' : null });
  cell.append(element('button', { type: 'button', click: () => sort(column, cell) },
    words.overview.columns[column.name]));
  return cell;
}

// A second click turns the order round.
function sortableHead(rows, body) {
  const sort = (column, cell) => {
    const first = column.falling ? 'descending' : 'ascending';
    const second = column.falling ? 'ascending' : 'descending';
    const order = cell.getAttribute('aria-sort') === first ? second : first;
    for (const other of cell.parentNode.children) other.removeAttribute('aria-sort');
    cell.setAttribute('aria-sort', order);
    const sorted = sortRows(rows, column, order === 'ascending' ? 1 : -1);
    body.append(...sorted.map(({ node }) => node));
  };
  const cells = COLUMNS.map((column) => headCell(column, sort));
  cells[0].setAttribute('aria-sort', 'descending');
  return element('thead', {}, element('tr', {}, cells));
}

function filterBox(rows) {
  const found = element('output', {});
  const tell = (shown) =>
    (found.textContent = words.overview.found(numberText(shown), numberText(rows.length)));
  const input = element('input', {
    type: 'search',
    placeholder: words.overview.filter,
    'aria-label': words.overview.filter,
    input: () => {
      const wanted = placeKey(input.value.trim());
      for (const row of rows) row.node.hidden = !row.search.includes(wanted);
      tell(rows.filter((row) => !row.node.hidden).length);
    },
  });
  tell(rows.length);
  return element('div', { class: 'filter' }, input, found);
}

function countsOf(rows) {
  const sum = (key) => rows.reduce((all, { facts }) => all + facts[key], 0);
  const attention = rows.filter(({ facts }) => facts.states.length > 0).length;
  return { instruments: rows.length, attention, gaps: sum('missing'), findings: sum('findings') };
}

function countList(rows) {
  return element('dl', { class: 'counts' }, Object.entries(countsOf(rows)).map(([name, count]) =>
    element('div', {}, element('dt', {}, words.overview.counts[name]),
      element('dd', {}, numberText(count)))));
}

function masthead(given, rows) {
  const { from, made, program, title, printAll } = words.overview;
  return element('header', { class: 'masthead' },
    element('h1', {}, title),
    element('p', {}, `${from} `, foreign(given.store ?? words.none),
      ` · ${made} ${dateText(given.made)} · ${program} `, foreign(given.program ?? words.none)),
    rows.length > 0 && countList(rows),
    rows.length > 0 && element('p', { class: 'screen-only' },
      element('a', { href: ALL }, printAll)));
}

export function overviewView(given) {
  const rows = given.instruments.map((instrument, index) => makeRow(instrument, index, given));
  const head = masthead(given, rows);
  if (rows.length === 0) {
    return element('div', { class: 'overview' }, head,
      element('p', { class: 'empty' }, words.overview.nothing));
  }
  const body = element('tbody', {}, [...rows].sort(byAttention).map(({ node }) => node));
  return element('div', { class: 'overview' }, head,
    rows.length > LEAST_TO_FILTER && filterBox(rows),
    scrollBox(element('table', {}, sortableHead(rows, body), body)));
}
