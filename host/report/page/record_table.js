// The records behind the charts: hours month by month, days year by year.
import { button, element, foreign, lazyDetails, scrollBox } from './dom.js';
import { captionOf, dateText, fieldText, meaningOf, monthName, numberText, recordTime }
  from './formats.js';
import { isAmount, isMean, meanOf, sumOf } from './sums.js';
import { textOfTime } from './data.js';
import { words } from './texts/index.js';

const PAGE_LETTERS = { hours: 7, days: 4 };

// [{name, first, end}]: record numbers of the pages; name "2026-09", "2026" or "".
function pagesOf(kind, times) {
  const pages = [];
  for (let i = 0; i < times.length; ++i) {
    const name = textOfTime(times[i], kind).slice(0, PAGE_LETTERS[kind] ?? 0);
    if (pages.length === 0 || pages[pages.length - 1].name !== name) {
      pages.push({ name, first: i, end: i });
    }
    pages[pages.length - 1].end = i + 1;
  }
  return pages;
}

function pageTitle(kind, name) {
  return kind === 'hours' ? monthName(name) : name;
}

// Columns with a value in some record.
function usedColumns(archive, data) {
  return archive.columns
    .map((field, i) => ({ field, values: data.values[i] }))
    .filter(({ values }) => values.some((value) => value != null));
}

function cell(column, value) {
  const isText = column.field.decimals == null;
  const text = isText ? foreign(dateText(value)) : fieldText(value, column.field);
  return element('td', { class: isText ? null : 'number' }, text);
}

function isSituation(columns, record) {
  return columns.some(({ field, values }) =>
    field.quantity === 'situation code' && values[record] != null && Number(values[record]) !== 0);
}

function recordRow(archive, data, columns, record) {
  return element('tr', { class: isSituation(columns, record) ? 'situation' : null },
    element('th', { scope: 'row' }, recordTime(data.times[record], archive.kind)),
    columns.map((column) => cell(column, column.values[record])));
}

function gapRow(missing, width) {
  return element('tr', { class: 'gap' },
    element('td', { colspan: width + 1 }, words.archive.missing(missing)));
}

function rowsOf(archive, data, columns, page) {
  const rows = [];
  for (let i = page.first; i < page.end; ++i) {
    const missing = i > 0 ? data.periods[i] - data.periods[i - 1] - 1 : 0;
    if (missing > 0) rows.push(gapRow(missing, columns.length));
    rows.push(recordRow(archive, data, columns, i));
  }
  return rows;
}

function footRow(title, columns, page, applies, calculate) {
  if (!columns.some(({ field }) => applies(field))) return null;
  return element('tr', {}, element('th', { scope: 'row' }, title),
    columns.map(({ field, values }) => {
      const shown = applies(field) ? calculate(values.slice(page.first, page.end), field) : null;
      return element('td', { class: 'number' },
        shown == null ? '' : numberText(shown, field.decimals));
    }));
}

function pageTable(archive, data, columns, page) {
  const head = columns.map(({ field }) => element('th', {
    scope: 'col',
    class: field.decimals == null ? null : 'number',
    title: meaningOf(field),
  }, foreign(captionOf(field))));
  return scrollBox(element('table', {},
    element('thead', {}, element('tr', {}, element('th', { scope: 'col' }, words.archive.time),
      head)),
    element('tbody', {}, rowsOf(archive, data, columns, page)),
    element('tfoot', {},
      !archive.totals && footRow(words.archive.sum, columns, page, isAmount, sumOf),
      footRow(words.archive.mean, columns, page, isMean, meanOf))));
}

// Chooses between pages; shows the last one first.
function pager(kind, pages, show) {
  const select = element('select', { 'aria-label': words.archive.page },
    pages.map(({ name }, i) => element('option', { value: i }, pageTitle(kind, name))));
  const earlier = button('‹', () => choose(select.selectedIndex - 1),
    { 'aria-label': words.archive.back });
  const later = button('›', () => choose(select.selectedIndex + 1),
    { 'aria-label': words.archive.forward });
  const choose = (index) => {
    select.selectedIndex = index;
    earlier.disabled = index === 0;
    later.disabled = index === pages.length - 1;
    show(pages[index]);
  };
  select.addEventListener('change', () => choose(select.selectedIndex));
  choose(pages.length - 1);
  return element('div', { class: 'pager' }, earlier, select, later);
}

// All records on one page where whole is true.
export function recordPages(archive, data, whole = false) {
  const columns = usedColumns(archive, data);
  const place = element('div', { class: 'page' });
  const show = (page) => place.replaceChildren(pageTable(archive, data, columns, page));
  const all = { name: '', first: 0, end: data.times.length };
  const pages = whole ? [all] : pagesOf(archive.kind, data.times);
  if (pages.length > 1) return element('div', {}, pager(archive.kind, pages, show), place);
  show(pages[0]);
  return place;
}

export function recordTable(archive, data) {
  const summary = `${words.archive.table} · ${words.records(data.times.length)}`;
  return lazyDetails({ class: 'table' }, summary, () => recordPages(archive, data));
}
