// Parameters that have changed, and all of them as they were read last.
import { element, foreign, lazyDetails, scrollBox, section } from './dom.js';
import { dateText, withUnit } from './formats.js';
import { words } from './texts/index.js';

function head(names) {
  const { columns } = words.instrument;
  return element('thead', {}, element('tr', {}, names.map((name) =>
    element('th', { scope: 'col' }, columns[name] ?? words.instrument[name]))));
}

function changeRow(change) {
  const { time, noticed, system, caption, field } = change;
  return element('tr', {},
    element('td', { class: 'nowrap' }, dateText(time ?? noticed),
      time == null && element('small', {}, ` ${words.instrument.noticed}`)),
    element('td', {}, foreign(system)),
    element('th', { scope: 'row' }, foreign(caption || field)),
    element('td', {}, foreign(withUnit(change.former, change.formerUnit))),
    element('td', {}, foreign(withUnit(change.value, change.unit))));
}

export function changesSection({ changes }) {
  const content = changes.length > 0
    ? scrollBox(element('table', {}, head(['time', 'system', 'caption', 'from', 'to']),
      element('tbody', {}, changes.map(changeRow))))
    : element('p', { class: 'empty' }, words.instrument.noChanges);
  return section('changes', words.instrument.changes, content);
}

function parameterTable({ values }) {
  return scrollBox(element('table', {}, head(['caption', 'value']),
    element('tbody', {}, values.map(({ caption, field, value, unit }) => element('tr', {},
      element('th', { scope: 'row' }, foreign(caption || field)),
      element('td', {}, foreign(withUnit(value, unit))))))));
}

export function parametersSection({ parameters }) {
  const content = parameters.map((set) => lazyDetails({},
    [foreign(set.system), ` · ${words.instrument.readAt(dateText(set.time ?? set.noticed))}`],
    () => parameterTable(set)));
  if (content.length === 0) {
    content.push(element('p', { class: 'empty' }, words.instrument.noParameters));
  }
  return section('parameters', words.instrument.parameters, content);
}
