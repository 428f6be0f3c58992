// The values of the last reading that brought any: those of the moment, and totals apart.
import { element, foreign, section } from './dom.js';
import { dateText, fieldText, meaningOf, unitOf } from './formats.js';
import { partOf } from './systems.js';
import { words } from './texts/index.js';

function valueRow(field) {
  const text = fieldText(field.value, field);
  return element('tr', {},
    element('th', { scope: 'row' }, foreign(field.caption || field.field),
      element('small', {}, ' ', foreign(meaningOf(field)))),
    element('td', { class: 'number' },
      typeof field.value === 'number' ? text : foreign(dateText(text))),
    element('td', { class: 'unit' }, foreign(unitOf(field.unit))));
}

function block({ system, time }, fields, title) {
  if (fields.length === 0) return null;
  return element('div', { class: 'block' },
    element('h3', {}, foreign(title ? partOf(system) : system), title && ` · ${title}`,
      element('small', {}, ' ', words.instrument.readAt(dateText(time)))),
    element('table', {}, element('tbody', {}, fields.map(valueRow))));
}

function blocksOf(entry) {
  const isTotal = ({ span }) => span === 'total';
  return [
    block(entry, entry.values.filter((field) => !isTotal(field)), null),
    block(entry, entry.values.filter(isTotal), words.instrument.totals),
  ];
}

export function currentSection({ current }) {
  const blocks = current.flatMap(blocksOf).filter(Boolean);
  const content = blocks.length > 0
    ? element('div', { class: 'blocks' }, blocks)
    : element('p', { class: 'empty' }, words.instrument.noCurrent);
  return section('current', words.instrument.current, content);
}
